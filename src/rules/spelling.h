#pragma once

#include "rules/rule.h"

namespace marrowfen {

class frmSentence;

/// Spelling a word letter by letter: what picture spelling and sentence words have in common. Wrong letters are taken
/// back with a cue; the accepted ones stay.
class Spelling : public Rule {
public:
    using Rule::Rule;
    void judge(const Answer& answer) final;

protected:
    /// How this game shows a letter while it is being judged.
    [[nodiscard]] virtual std::string shown(const Answer& answer) const { return answer.letter; }
    [[nodiscard]] virtual bool yields_after_showing(By by) const = 0;
    [[nodiscard]] virtual bool is_last_word() const = 0;
    virtual void word_finished(const Answer& answer) = 0;
    virtual void draw_missing_word() {}  ///< none could be read yet: what is given next tries again

    void show_found(const std::string& text);
    void repaint_found();
};

/// A picture is shown, and the pupil spells its word. 26 cards make a game.
class PictureSpelling final : public Spelling {
public:
    using Spelling::Spelling;

private:
    [[nodiscard]] bool yields_after_showing(By) const override { return false; }
    [[nodiscard]] bool is_last_word() const override;
    void word_finished(const Answer& answer) override;
};

/// A sentence is shown with a word class, and the pupil spells its word of that class. Six sentences make a game.
class SentenceWords final : public Spelling {
public:
    using Spelling::Spelling;

private:
    [[nodiscard]] std::string shown(const Answer& answer) const override { return in_capitals(answer.letter); }
    [[nodiscard]] bool yields_after_showing(By by) const override { return by == By::Typing; }
    [[nodiscard]] bool is_last_word() const override;
    void word_finished(const Answer& answer) override;
    void draw_missing_word() override { draw_sentence(); }
    void draw_sentence();
    [[nodiscard]] Result<State::Whole> show_next_sentence(frmSentence& card);
};

}  // namespace marrowfen
