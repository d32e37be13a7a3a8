#include "platform/qt/translator.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QWindow>

#include "platform/qt/events.h"
#include "platform/qt/qt_display.h"

namespace marrowfen {

namespace {

Key to_key(const QKeyEvent& event) {
    const int key = event.key();
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        return static_cast<Key>(static_cast<int>(Key::F1) + key - static_cast<int>(Qt::Key_F1));
    }
    switch (key) {
        case Qt::Key_D:
            return Key::D;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Key::Enter;
        case Qt::Key_Space:
            return Key::Space;
        case Qt::Key_Tab:
        case Qt::Key_Backtab:  // with Shift
            return Key::Tab;
        case Qt::Key_Escape:
            return Key::Escape;
        case Qt::Key_Left:
            return Key::Left;
        case Qt::Key_Right:
            return Key::Right;
        case Qt::Key_Up:
            return Key::Up;
        case Qt::Key_Down:
            return Key::Down;
        default:
            return Key::Other;
    }
}

// 0: the key stands for no character.
char32_t character_of(const QKeyEvent& event) {
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

MouseButton to_button(Qt::MouseButton button) {
    switch (button) {
        case Qt::NoButton:
            return MouseButton::None;
        case Qt::LeftButton:
            return MouseButton::Left;
        case Qt::RightButton:
            return MouseButton::Right;
        case Qt::MiddleButton:
            return MouseButton::Middle;
        default:
            return MouseButton::Other;
    }
}

MouseButtons to_buttons(Qt::MouseButtons held) {
    constexpr auto kKnown = Qt::LeftButton | Qt::RightButton | Qt::MiddleButton;
    MouseButtons buttons;
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (held.testFlag(button)) buttons.bits |= static_cast<std::uint8_t>(to_button(button));
    }
    if ((held & ~kKnown) != 0) buttons.bits |= static_cast<std::uint8_t>(MouseButton::Other);
    return buttons;
}

std::optional<std::size_t> row_at(const QWidget& window, QPoint on_desk) {
    const QAbstractItemView* rows = nullptr;
    if (const QWidget* popup = QApplication::activePopupWidget()) {
        rows = popup->findChild<QAbstractItemView*>();
    } else if (const QWidget* there = window.childAt(window.mapFromGlobal(on_desk))) {
        rows = qobject_cast<QAbstractItemView*>(there->parentWidget());
    }
    if (rows == nullptr) return std::nullopt;
    const QPoint place = rows->viewport()->mapFromGlobal(on_desk);
    if (!rows->viewport()->rect().contains(place)) return std::nullopt;
    const QModelIndex index = rows->indexAt(place);
    return index.isValid() ? static_cast<std::size_t>(index.row()) : MousePress::kBelowTheRows;
}

}  // namespace

bool Translator::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWindowType()) return false;
    const bool is_popup = QApplication::activePopupWidget() != nullptr;
    if (watched != display_.window().windowHandle() && !is_popup) return false;
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return told(*static_cast<QKeyEvent*>(event)) != Taker::Field;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
            return told(*static_cast<QMouseEvent*>(event)) != Taker::Field;
        case QEvent::MouseMove: {
            // With no button down a widget needs the move, too, for its cursor.
            const auto& move = *static_cast<QMouseEvent*>(event);
            return told(move) != Taker::Field && move.buttons() != Qt::NoButton;
        }
        case QEvent::MouseButtonDblClick:
            return true;  // it has come as a press already
        case QEvent::Wheel:
            return told(*static_cast<QWheelEvent*>(event)) != Taker::Field;
        default:
            return false;
    }
}

Taker Translator::told(const QKeyEvent& event) {
    display_.catch_up();
    const Qt::KeyboardModifiers held = event.modifiers();
    const bool alt = held.testFlag(Qt::AltModifier);
    if (event.type() == QEvent::KeyRelease) {
        return events_.tell(KeyUp{to_key(event), alt, event.isAutoRepeat(), event.nativeScanCode()}, event);
    }
    return events_.tell(KeyDown{.key = to_key(event),
                                .shift = held.testFlag(Qt::ShiftModifier),
                                .alt = alt,
                                .control = held.testFlag(Qt::ControlModifier),
                                .command = held.testFlag(Qt::MetaModifier),
                                .repeats = event.isAutoRepeat(),
                                .character = character_of(event),
                                .code = event.nativeScanCode()},
                        event);
}

Taker Translator::told(const QMouseEvent& event) {
    display_.catch_up();
    const QPointF place = display_.window().mapFromGlobal(event.globalPosition());
    const Point at = display_.scale().twips(place);
    Taker taker = Taker::Nobody;
    if (event.type() == QEvent::MouseMove) {
        taker = events_.tell(MouseMove{at, to_buttons(event.buttons())}, event);
        display_.pointer_at(at);
    } else if (event.type() == QEvent::MouseButtonRelease) {
        taker = events_.tell(MouseRelease{at, to_button(event.button())}, event);
    } else {
        const auto row = row_at(display_.window(), event.globalPosition().toPoint());
        const auto pointer = event.pointerType();
        const bool by_touch =
            pointer == QPointingDevice::PointerType::Finger || pointer == QPointingDevice::PointerType::Pen;
        taker =
            events_.tell(MousePress{at, to_button(event.button()), to_buttons(event.buttons()), row, by_touch}, event);
        display_.catch_up();  // the widget that the press may go on to must be the one that is there now
    }
    return taker;
}

Taker Translator::told(const QWheelEvent& event) {
    const QPointF place = display_.window().mapFromGlobal(event.globalPosition());
    return events_.tell(WheelTurn{display_.scale().twips(place)}, event);
}

}  // namespace marrowfen
