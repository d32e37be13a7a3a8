#pragma once

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
/// comes back to the front. It also comes back from that very message, which does not follow on itself for ever: of
/// several failures in a row every other one is told.
class ReadingForm : public ProgramForm {
public:
    using ProgramForm::ProgramForm;
    void load() override { read_or_tell(); }
    void activated() override {
        if (!complete_) read_or_tell();
    }

protected:
    /// Shows what it has read. On failure it leaves alone what is on show, or shows less than there is.
    [[nodiscard]] virtual std::optional<StoreFailure> read() = 0;
    [[nodiscard]] bool is_complete() const { return complete_; }
    void read_or_tell() {
        const auto failure = read();
        complete_ = !failure;
        if (failure && !told_) {
            tell_unreadable(*failure);
        } else {
            told_ = false;
        }
    }
    void tell_unreadable(const StoreFailure& failure) {
        told_ = true;
        program_.tell_unreadable(failure);
    }

private:
    bool complete_ = false;
    bool told_ = false;  ///< the message that is on show, or has just gone, says so
};

/// A form that hands every character to the game before its controls see it, so that a game hears the keyboard
/// wherever the pupil last clicked.
class ListeningForm : public ProgramForm {
public:
    using ProgramForm::ProgramForm;
    void key_pressed(KeyPress& press) override { program_.referee->JudgeKey(press.code); }
};

}  // namespace marrowfen
