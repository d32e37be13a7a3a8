#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "core/form_id.h"

namespace marrowfen {

enum class RuleId : std::uint8_t { None, RhymingWords, PictureSpelling, SentenceWords, FirstLetters, KeyTiles };

/// What depends on the game's id, and on nothing else.
struct Game {
    std::int16_t id = 0;
    RuleId typed = RuleId::None;    ///< judges typed keys
    RuleId clicked = RuleId::None;  ///< judges clicks on the board's keys
    bool deals_tiles = false;
    std::span<const FormId> companions{};  ///< open with the board and close with the game, in this order
    bool clears_the_desk = false;          ///< content forms of an earlier game are closed as the board opens
    bool companions_go_first_at_time_up = false;
    std::string_view content_table{};
    std::int16_t rhyme_groups = 0;
    std::string_view typing_test_pictures{};  ///< not empty: a typing test, which has no board
    [[nodiscard]] bool is_typing_test() const { return !typing_test_pictures.empty(); }
};

[[nodiscard]] const Game* find_game(std::int16_t id);  ///< nullptr: an id that means nothing
/// The games that the list offers, with the ids from 1 on without a gap.
[[nodiscard]] std::span<const Game> listed_games();

/// A typing test is played without a team and against no limit.
[[nodiscard]] bool is_typing_test(std::int16_t id);

constexpr std::int16_t kOldTypingTest = 111;  ///< has results and a caption, but no entry in the list of games

constexpr std::int16_t kGroupsInAGame = 7;  ///< rhyme groups played, of those that the game has
constexpr std::int16_t kSentencesInAGame = 6;
/// In a group. A task asks for one to all but two of a group's words, so a smaller group has no task.
constexpr std::int16_t kFewestRhymes = 3;

}  // namespace marrowfen
