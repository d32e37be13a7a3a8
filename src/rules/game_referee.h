#pragma once

#include <deque>
#include <functional>

#include "core/game_table.h"
#include "rules/first_letters.h"
#include "rules/key_tiles.h"
#include "rules/rhyming_words.h"
#include "rules/spelling.h"

namespace marrowfen {

/// Takes what the pupil gives and hands it to the rule of the game, one thing at a time: what arrives while a rule is
/// judging waits until that rule has finished.
class GameReferee final : public Referee {
public:
    explicit GameReferee(Program& program);

    void JudgeKey(char32_t key) override;
    void Keys_Click(int index) override;
    void in_turn(std::function<void()> answer) override;
    void win_tiles(PictureBox& tile) override { key_tiles_.win(tile); }

private:
    [[nodiscard]] Rule* rule(RuleId id);

    Program& program_;
    RhymingWords rhyming_words_;
    PictureSpelling picture_spelling_;
    SentenceWords sentence_words_;
    FirstLetters first_letters_;
    KeyTiles key_tiles_;
    struct Waiting {
        const Form* board;  ///< the game that the answer is meant for
        std::function<void()> answer;
    };
    std::deque<Waiting> waiting_;
    bool judging_ = false;
};

}  // namespace marrowfen
