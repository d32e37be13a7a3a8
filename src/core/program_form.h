#pragma once

#include <cstdint>
#include <optional>
#include <utility>

#include "core/program.h"
#include "platform/forms/form.h"

namespace marrowfen {

/// A form that belongs to the program and knows the others by name.
class ProgramForm : public Form {
public:
    ProgramForm(Program& program, const FormDesign& design) : Form(program.desktop, design), program_(program) {}

protected:
    Program& program_;
};

/// A form that shows what the store holds. What can't be read as it opens is told, and is read again whenever the form
/// comes back to the front. When it comes back from a message nothing more is told: a drive that is gone would bring
/// the message back for ever.
class ReadingForm : public ProgramForm {
public:
    using ProgramForm::ProgramForm;
    void load() override { read_and(Failing::IsTold); }
    void activated() override {
        if (!complete_) read_again();
    }
    void deactivated() override { under_message_ = program_.forms.find(FormId::frmErrmsg) != nullptr; }

protected:
    /// Shows what it has read. On failure it leaves alone what is on show, or shows less than there is.
    [[nodiscard]] virtual std::optional<StoreFailure> read() = 0;
    [[nodiscard]] bool is_complete() const { return complete_; }

    enum class Failing : std::uint8_t { IsTold, IsSilent };
    void read_and(Failing failing) {
        const auto failure = read();
        complete_ = !failure;
        if (!failure || failing == Failing::IsSilent) return;
        under_message_ = true;
        program_.tell_unreadable(*failure);
    }
    void read_again() { read_and(std::exchange(under_message_, false) ? Failing::IsSilent : Failing::IsTold); }

private:
    bool complete_ = false;
    bool under_message_ = false;
};

/// A form that hands every character to the game before its controls see it, so that a game hears the keyboard
/// wherever the pupil last clicked.
class ListeningForm : public ProgramForm {
public:
    using ProgramForm::ProgramForm;
    void key_pressed(KeyPress& press) override {
        // The board shows digits only, so a key with a digit is meant for it, whatever else is on it.
        const bool is_sign = press.digit != 0 && !is_on_the_board(press.code);
        program_.referee->JudgeKey(is_sign ? press.digit : press.code);
    }
};

}  // namespace marrowfen
