#include "rules/game_referee.h"

#include <utility>

namespace marrowfen {

GameReferee::GameReferee(Program& program)
    : program_(program),
      rhyming_words_(program),
      picture_spelling_(program),
      sentence_words_(program),
      first_letters_(program),
      key_tiles_(program) {}

Rule* GameReferee::rule(RuleId id) {
    switch (id) {
        case RuleId::RhymingWords:
            return &rhyming_words_;
        case RuleId::PictureSpelling:
            return &picture_spelling_;
        case RuleId::SentenceWords:
            return &sentence_words_;
        case RuleId::FirstLetters:
            return &first_letters_;
        case RuleId::KeyTiles:
            return &key_tiles_;
        case RuleId::None:
            break;
    }
    return nullptr;
}

void GameReferee::JudgeKey(char32_t key) {
    if (!is_on_the_board(key) || !program_.state.GameRunning) return;
    const Game* game = find_game(program_.state.TemplateID);
    Rule* judge = game == nullptr ? nullptr : rule(game->typed);
    if (judge == nullptr) return;
    in_turn([judge, letter = std::string(1, static_cast<char>(key))] { judge->judge({letter, By::Typing}); });
}

void GameReferee::Keys_Click(int index) {
    const Game* game = find_game(program_.state.TemplateID);
    Rule* judge = game == nullptr ? nullptr : rule(game->clicked);
    auto* board = program_.forms.find<frmSimpleKeyBoard>();
    if (judge == nullptr || board == nullptr) return;
    PictureBox& key = board->Keys[index];
    in_turn([judge, &key] { judge->judge({key.Tag, By::Clicking, &key}); });
}

void GameReferee::in_turn(std::function<void()> answer) {
    const Form* board = program_.forms.find(FormId::frmSimpleKeyBoard);
    if (board == nullptr) return;
    waiting_.push_back({board, std::move(answer)});
    if (std::exchange(judging_, true)) return;
    while (!waiting_.empty()) {
        const Waiting next = std::move(waiting_.front());
        waiting_.pop_front();
        if (program_.forms.find(FormId::frmSimpleKeyBoard) == next.board) next.answer();
    }
    judging_ = false;
}

}  // namespace marrowfen
