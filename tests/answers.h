#pragma once

#include <algorithm>
#include <string>

#include "board/frmSimpleKeyBoard.h"
#include "classroom.h"
#include "content/frmPictureCard.h"
#include "content/frmSentence.h"
#include "content/frmWord.h"
#include "content/frmWordsUsed.h"

namespace marrowfen {

/// What a pupil knows who looks at the board: the right answer of whatever game lies there.
class Answers {
public:
    explicit Answers(Classroom& room) : room_(room) {}

    /// What is to be given next, as a capital or a digit.
    [[nodiscard]] std::string right_letter() {
        if (room_.is_open(FormId::frmWord)) return rhyming_letter();
        if (!room_.is_open(FormId::frmPictureCard) && !room_.is_open(FormId::frmSentence)) return lowest_tile().Tag;
        const bool spells = room_.is_open(FormId::frmWordsUsed);
        const std::string word = asked_word();
        return in_capitals(word.substr(spells ? std::min(found().size(), word.size()) : 0, 1));
    }
    /// The word to spell: that of the picture, or that of the class in the sentence.
    [[nodiscard]] std::string asked_word() {
        if (room_.is_open(FormId::frmPictureCard)) {
            const std::string& file = room_.form<frmPictureCard>().pic.Picture->name();
            const auto name = file.rfind('\\') + 1;
            return file.substr(name, file.rfind('.') - name);
        }
        auto& card = room_.form<frmSentence>();
        return room_.look_up(room_.state().ContentTable, card.wordtype.Text.get(),
                             where_text("Sen", card.Sentence.Text.get()));
    }
    [[nodiscard]] std::string found() { return room_.form<frmWordsUsed>().Wordsfound.Caption; }
    /// The first tile when none is on show.
    [[nodiscard]] PictureBox& lowest_tile() {
        auto& tiles = room_.form<frmSimpleKeyBoard>().DragKey;
        const auto on_show = std::ranges::find_if(tiles, [](const PictureBox& tile) { return tile.Visible.get(); });
        return on_show == tiles.end() ? tiles[0] : *on_show;
    }

private:
    [[nodiscard]] std::string rhyming_letter() {
        const auto& card = room_.form<frmWord>();
        for (char letter = 'A'; letter <= 'Z'; ++letter) {
            const std::string word = letter + card.end.Caption.get();
            const bool is_new = card.theword.Caption != word && found().find(word) == std::string::npos;
            if (is_new && room_.look_up(room_.state().ContentTable, "ID", where_text("Word", word)) != "0") {
                return {letter};
            }
        }
        throw std::logic_error("no letter rhymes any more");
    }

    Classroom& room_;
};

}  // namespace marrowfen
