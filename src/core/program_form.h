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

/// A form that hands every character to the game before its controls see it, so that a game hears the keyboard
/// wherever the pupil last clicked.
class ListeningForm : public ProgramForm {
public:
    using ProgramForm::ProgramForm;
    void key_pressed(KeyPress& press) override { program_.referee->JudgeKey(press.code); }
};

}  // namespace marrowfen
