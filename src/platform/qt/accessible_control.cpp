#include "platform/qt/accessible_control.h"

#include <QApplication>

#include "platform/forms/desktop.h"
#include "platform/forms/spoken.h"
#include "platform/qt/events.h"
#include "platform/qt/form_view.h"

namespace marrowfen {

QAccessibleInterface* AccessibleControl::parent() const { return QAccessible::queryAccessibleInterface(&view_); }

QString AccessibleControl::text(QAccessible::Text kind) const {
    return kind == QAccessible::Name ? QString::fromStdString(spoken_name(control_)) : QString();
}

QRect AccessibleControl::rect() const { return view_.on_desk(control_); }

QAccessible::Role AccessibleControl::role() const {
    switch (part_of(control_)) {
        case Part::Text:
            return QAccessible::StaticText;
        case Part::Picture:
            return QAccessible::Graphic;
        case Part::Switch:
            return QAccessible::CheckBox;
        case Part::Watch:
            return QAccessible::ProgressBar;
        case Part::Key:
        case Part::Tile:
        case Part::Button:
            return QAccessible::Button;
        case Part::Field:
        case Part::None:
            break;
    }
    return QAccessible::NoRole;
}

bool AccessibleControl::takes_press() const { return control_.form().desktop().ring().is_stop(control_); }

QAccessible::State AccessibleControl::state() const {
    QAccessible::State state;
    const Part part = part_of(control_);
    const Desktop& desktop = control_.form().desktop();
    state.invisible = part == Part::None;
    state.readOnly = part == Part::Text;
    state.disabled = part != Part::Text && part != Part::Picture && part != Part::Watch && !takes_press();
    state.focusable = takes_press();
    state.focused = desktop.ring().at() == &control_;
    const auto& drag = desktop.drag();
    state.selected = drag && drag->source == &control_;
    const auto* image = as<Image>(&control_);
    state.checkable = part == Part::Switch;
    state.checked = image != nullptr && image->switched.value_or(false);
    return state;
}

void* AccessibleControl::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::ActionInterface && !actionNames().isEmpty()) {
        return static_cast<QAccessibleActionInterface*>(this);
    }
    if (type == QAccessible::ValueInterface && part_of(control_) == Part::Watch) {
        return static_cast<QAccessibleValueInterface*>(this);
    }
    return nullptr;
}

QStringList AccessibleControl::actionNames() const {
    switch (part_of(control_)) {
        case Part::Switch:
            return {toggleAction(), setFocusAction()};
        case Part::Button:
        case Part::Key:
        case Part::Tile:
            return {pressAction(), setFocusAction()};
        default:
            return {};
    }
}

// Later: the form, and this with it, may go with the press, and whoever asked is still looking at it.
void AccessibleControl::doAction(const QString& action) {
    if (!actionNames().contains(action) || !takes_press()) return;
    if (action == setFocusAction()) {
        if (!control_.form().design().takes_over) return;
        const auto request = [&view = view_, control = &control_] {
            if (!view.is_dismissed()) view.events().tell(FocusRequest{control});
        };
        QMetaObject::invokeMethod(&view_, request, Qt::QueuedConnection);
        return;
    }
    const Rect bounds = control_.bounds();
    const Form& form = control_.form();
    const Point at{form.Left + bounds.centre().x, form.Top + bounds.centre().y};
    Events& events = view_.events();
    QMetaObject::invokeMethod(
        qApp,
        [&events, at] {
            events.tell(MousePress{.at = at, .held = {static_cast<std::uint8_t>(MouseButton::Left)}});
            events.tell(MouseRelease{.at = at});
        },
        Qt::QueuedConnection);
}

QVariant AccessibleControl::currentValue() const {
    const auto* dial = as<Dial>(&control_);
    return dial == nullptr ? QVariant() : QVariant(dial->SecondsLeft->left);
}

QVariant AccessibleControl::maximumValue() const {
    const auto* dial = as<Dial>(&control_);
    return dial == nullptr ? QVariant() : QVariant(dial->SecondsLeft->of);
}

}  // namespace marrowfen
