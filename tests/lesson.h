#pragma once

#include <array>

#include "answers.h"
#include "board/frmSimpleKeyBoard.h"
#include "other_program.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "results/frmHalloffame.h"
#include "results/frmScore.h"
#include "results/frmTimeUp.h"

namespace marrowfen {

/// How a pupil answers. With the mouse: a click on a key, or in a tile game a tile that is dragged to it.
enum class Way : std::uint8_t { SmallLetters, Capitals, Mouse, Mixed };

enum class Phonics : std::uint8_t { On, Off };

/// Ann sits before the list of games, and knows every answer.
class Lesson {
public:
    Classroom room;
    Pupil ann{room};

    explicit Lesson(const std::vector<std::string>& pupils = {"Ann"}, const std::filesystem::path& recording = {})
        : room(pupils, recording) {
        room.start();
        ann.sits_down("Ann");
    }
    Lesson(const Lesson&) = delete;
    Lesson& operator=(const Lesson&) = delete;
    ~Lesson() = default;

    /// Changes the content as no teacher should.
    void spoil_store(const std::string& sql) { ASSERT_EQ(OtherProgram(room.folder.path() / "data.mdb").run(sql), ""); }

    void switches(Phonics phonics) {
        if (room.state().PhonicsOn == (phonics == Phonics::On)) return;
        ann.presses(phonics == Phonics::On ? &frmGames::Phon_OFF : &frmGames::Phon_On);
    }
    void opens(int game, const Team& team = kRedTeam) {
        ann.picks_game(game);
        ann.joins(team);
    }
    void begins(int game, const Team& team = kRedTeam) {
        opens(game, team);
        ann.starts_the_clock();
        (void)room.heard_and_forgotten();
    }
    void begins_with_tiles(int game, int tiles) {  // as a teacher may have it
        spoil_store("UPDATE Templates SET Panels=" + std::to_string(tiles - 1) +
                    " WHERE Template_ID=" + std::to_string(game));
        begins(game);
    }
    void goes_back_to_the_list() {
        if (plays()) ann.presses(&frmSimpleKeyBoard::close_De);
        if (room.is_open(FormId::frmScore)) ann.presses(&frmScore::HallDe);
        if (room.is_open(FormId::frmHalloffame)) ann.presses(&frmHalloffame::AnotherDe);
        if (room.is_open(FormId::frmTimeUp)) ann.presses(&frmTimeUp::AnotherDe);
    }
    [[nodiscard]] bool plays() const { return room.is_open(FormId::frmSimpleKeyBoard); }

    /// What she gives next, as a capital or a digit.
    [[nodiscard]] std::string right_letter() { return answers_.right_letter(); }
    [[nodiscard]] std::string wrong_letter() { return right_letter() == "1" ? "2" : "1"; }
    /// The word to spell: that of the picture, or that of the class in the sentence.
    [[nodiscard]] std::string asked_word() { return answers_.asked_word(); }
    [[nodiscard]] std::string found() { return answers_.found(); }
    [[nodiscard]] frmSimpleKeyBoard& board() { return room.form<frmSimpleKeyBoard>(); }
    [[nodiscard]] PictureBox& key(std::string_view letter) { return *board().find_key(letter); }
    [[nodiscard]] PictureBox& tile(int index) { return board().DragKey[index]; }
    [[nodiscard]] std::string letters() {  // on the tiles that are on show
        std::string letters;
        for (const PictureBox& tile : board().DragKey) letters += tile.Visible ? tile.Tag.get() : "";
        return letters;
    }
    /// What a key or a card shows: the picture's path from its folder on.
    [[nodiscard]] std::string shown_by(const Picture& picture) const {
        const std::string folder = room.folder_in_logic() + "\\KeyPictures\\Simple\\";
        return picture.name().starts_with(folder) ? picture.name().substr(folder.size()) : picture.name();
    }

    void drags_home(PictureBox& tile) { ann.drags(tile, key(tile.Tag.get())); }
    /// Gives a letter; false: by the mouse. Mixed ways take turns.
    bool gives(std::string_view letter, Way way) {
        constexpr std::array kInTurn{Way::SmallLetters, Way::Mouse, Way::Capitals};
        if (way == Way::Mixed) way = kInTurn.at(turns_++ % kInTurn.size());
        if (way != Way::Mouse) {
            ann.types(way == Way::SmallLetters ? in_small(letter) : in_capitals(letter));
            return true;
        }
        auto& tiles = board().DragKey;
        const auto tile = std::ranges::find_if(tiles, [](const PictureBox& t) { return t.Visible.get(); });
        tile == tiles.end() ? ann.press(key(letter)) : ann.drags(*tile, key(letter));
        return false;
    }
    void gives_right_ones(int count, Way way) {
        for (int i = 0; i < count && plays(); ++i) gives(right_letter(), way);
    }

private:
    [[nodiscard]] static std::string in_small(std::string_view letter) {
        std::string small(letter);
        for (char& c : small) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        return small;
    }
    Answers answers_{room};
    std::size_t turns_ = 0;
};

}  // namespace marrowfen
