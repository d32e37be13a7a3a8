#include "platform/qt/input.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyleHints>
#include <QWindow>
#include <utility>

#include "platform/forms/desktop.h"
#include "platform/qt/form_view.h"
#include "platform/qt/stage.h"

namespace marrowfen {

namespace {

KeyEvent to_key_event(const QKeyEvent& event) {
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    switch (event.key()) {
        case Qt::Key_D:
            return {Key::D, alt};
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return {Key::Enter, alt};
        default:
            return {Key::Other, alt};
    }
}

// 0: the key stands for no character. Alt and the key of the window system make commands, not text; Ctrl with Alt is
// how some keyboards write their third level.
char32_t character_of(const QKeyEvent& event) {
    const Qt::KeyboardModifiers held = event.modifiers();
    if (held.testFlag(Qt::MetaModifier)) return 0;
    if (held.testFlag(Qt::AltModifier) && !held.testFlag(Qt::ControlModifier)) return 0;
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return U'\r';
        case Qt::Key_Backspace:
            return U'\b';
        case Qt::Key_Escape:
            return U'\x1B';
        case Qt::Key_Delete:
            return 0;
        default:
            break;
    }
    const auto characters = event.text().toUcs4();
    return characters.isEmpty() ? 0 : static_cast<char32_t>(characters.first());
}

// A list that has dropped down takes the keys that move in it and close it, but no command of the forms.
bool is_for_popup(const QKeyEvent& event) {
    const bool is_command = event.key() == Qt::Key_D && event.modifiers().testFlag(Qt::AltModifier);
    return QApplication::activePopupWidget() != nullptr && character_of(event) < U' ' && !is_command;
}

}  // namespace

bool Input::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWindowType()) return false;
    const bool is_popup = QApplication::activePopupWidget() != nullptr;
    const bool is_window = watched == stage_.window().windowHandle();
    if (!is_window && !is_popup) return false;
    switch (event->type()) {
        case QEvent::KeyPress:
            return key_down(*static_cast<QKeyEvent*>(event));
        case QEvent::KeyRelease: {
            const auto& key = *static_cast<QKeyEvent*>(event);
            if (!key.isAutoRepeat()) desktop_.key_released(to_key_event(key));
            return false;
        }
        default:
            break;
    }
    if (is_popup) return false;
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return pressed(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseMove:
            return moved(*static_cast<QMouseEvent*>(event));
        case QEvent::MouseButtonRelease:
            return released(*static_cast<QMouseEvent*>(event));
        default:
            return false;
    }
}

bool Input::key_down(const QKeyEvent& event) {
    if (is_for_popup(event)) return false;
    stage_.catch_up();
    if (desktop_.key_down(to_key_event(event))) return true;
    const char32_t character = character_of(event);
    return character != 0 && desktop_.key_pressed(character);
}

bool Input::pressed(const QMouseEvent& event) {
    stage_.catch_up();
    if (held_ != Qt::NoButton && held_ != event.button() && event.buttons().testFlag(held_)) return is_ours_;
    // The second press of a double click comes twice, once as such; a press whose release got lost ends here.
    if (held_ == event.button() && event.type() == QEvent::MouseButtonDblClick) return is_ours_;
    if (held_ != Qt::NoButton) let_go(event);

    held_ = event.button();
    if (is_meant_for_what_has_gone(event)) return is_ours_ = true;
    const Taker taker = taker_of_press(event.position().toPoint());
    is_ours_ = taker != Taker::Field;
    if (taker == Taker::Forms) desktop_.mouse_pressed(stage_.scale().twips(event.position()));
    return is_ours_;
}

// A child double clicks buttons, too. The second press must not act on what the first one has opened: under Another
// game lies the Exit of the list of games.
bool Input::is_meant_for_what_has_gone(const QMouseEvent& event) {
    const QStyleHints& hints = *QGuiApplication::styleHints();
    Press now{event.button(), event.position().toPoint(), event.timestamp(),
              desktop_.form_at(stage_.scale().twips(event.position()))};
    const bool repeats = now.button == last_.button &&
                         now.time - last_.time < static_cast<quint64>(hints.mouseDoubleClickInterval()) &&
                         (now.place - last_.place).manhattanLength() <= hints.mouseDoubleClickDistance();
    const bool is_elsewhere = repeats && now.form != last_.form;
    if (is_elsewhere) now.form = last_.form;  // nor may the third
    last_ = now;
    return is_elsewhere;
}

Input::Taker Input::taker_of_press(QPoint position) {
    Control* control = stage_.field_at(position);
    if (control == nullptr || !control->Enabled) return Taker::Forms;

    // Becoming active can run handlers: the form may have gone by now, or a message may have taken the front back.
    const Form* form = &control->form();
    desktop_.clicked_into(*control);
    stage_.catch_up();
    const bool is_still_there = stage_.field_at(position) == control && desktop_.active() == form;
    return is_still_there ? Taker::Field : Taker::Nobody;
}

// A widget needs the moves too, for its cursor; but not those that belong to a press of ours.
bool Input::moved(const QMouseEvent& event) {
    stage_.catch_up();
    if (held_ != Qt::NoButton && !event.buttons().testFlag(held_)) let_go(event);
    const bool is_widgets = held_ != Qt::NoButton && !is_ours_;
    if (!is_widgets) {
        stage_.pointer_at(stage_.scale().twips(event.position()));
        desktop_.mouse_moved(stage_.scale().twips(event.position()));
    }
    return held_ != Qt::NoButton && is_ours_;
}

bool Input::released(const QMouseEvent& event) {
    const bool was_ours = is_ours_;
    if (event.button() == held_) let_go(event);
    return was_ours;
}

void Input::let_go(const QMouseEvent& event) {
    held_ = Qt::NoButton;
    if (!std::exchange(is_ours_, false)) return;
    stage_.catch_up();
    desktop_.mouse_released(stage_.scale().twips(event.position()));
}

}  // namespace marrowfen
