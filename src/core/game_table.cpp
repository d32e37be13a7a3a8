#include "core/game_table.h"

#include <algorithm>
#include <array>

namespace marrowfen {

namespace {

constexpr std::array kWordForms{FormId::frmWord, FormId::frmWordsUsed};
constexpr std::array kSpellingForms{FormId::frmPictureCard, FormId::frmWordsUsed};
constexpr std::array kSentenceForms{FormId::frmSentence, FormId::frmWordsUsed};
constexpr std::array kCardForms{FormId::frmPictureCard};

constexpr Game rhymes(std::int16_t id, std::string_view table, std::int16_t groups, bool companions_first) {
    return {.id = id,
            .typed = RuleId::RhymingWords,
            .clicked = RuleId::RhymingWords,
            .companions = kWordForms,
            .companions_go_first_at_time_up = companions_first,
            .content_table = table,
            .rhyme_groups = groups};
}
constexpr Game sentences(std::int16_t id, std::string_view table) {
    return {.id = id,
            .typed = RuleId::SentenceWords,
            .clicked = RuleId::SentenceWords,
            .companions = kSentenceForms,
            .content_table = table};
}
constexpr Game dragged(std::int16_t id) { return {.id = id, .deals_tiles = true}; }
constexpr Game tiles(std::int16_t id) { return {.id = id, .typed = RuleId::KeyTiles, .deals_tiles = true}; }
constexpr Game lone_tiles(std::int16_t id) {
    return {.id = id, .typed = RuleId::KeyTiles, .deals_tiles = true, .clears_the_desk = true};
}
constexpr Game typing_test(std::int16_t id, std::string_view pictures) {
    return {.id = id, .typing_test_pictures = pictures};
}

constexpr std::array kGames{
    rhymes(1, "Words_Keystage2", 9, true),
    dragged(2),
    dragged(3),
    dragged(4),
    dragged(5),
    dragged(6),
    lone_tiles(7),
    tiles(8),
    dragged(9),
    lone_tiles(10),
    lone_tiles(11),
    lone_tiles(12),
    Game{.id = 13, .typed = RuleId::PictureSpelling, .clicked = RuleId::PictureSpelling, .companions = kSpellingForms},
    rhymes(14, "Words_Keystage1", 7, false),
    lone_tiles(15),
    tiles(16),
    tiles(17),
    lone_tiles(18),
    lone_tiles(19),
    lone_tiles(20),
    lone_tiles(21),
    lone_tiles(22),
    lone_tiles(23),
    dragged(24),
    sentences(25, "Sentences_Keystage1"),
    Game{.id = 26, .typed = RuleId::FirstLetters, .clicked = RuleId::FirstLetters, .companions = kCardForms},
    typing_test(27, "lower"),
    typing_test(28, "upper"),
    sentences(29, "Sentences_Keystage2"),
    lone_tiles(30),
    typing_test(kOldTypingTest, "upper"),
};

constexpr std::span kListed = std::span(kGames).first(kGames.size() - 1);

constexpr bool numbered_from_one() {
    for (std::size_t i = 0; i < kListed.size(); ++i) {
        if (kListed[i].id != static_cast<std::int16_t>(i + 1)) return false;
    }
    return true;
}
static_assert(numbered_from_one() && kGames.back().id == kOldTypingTest);

}  // namespace

std::span<const Game> listed_games() { return kListed; }

const Game* find_game(std::int16_t id) {
    const auto* game = std::ranges::find(kGames, id, &Game::id);
    return game == kGames.end() ? nullptr : game;
}

bool is_typing_test(std::int16_t id) {
    const Game* game = find_game(id);
    return game != nullptr && game->is_typing_test();
}

}  // namespace marrowfen
