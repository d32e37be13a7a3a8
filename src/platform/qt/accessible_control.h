#pragma once

#include <QAccessibleActionInterface>
#include <QAccessibleInterface>
#include <QAccessibleValueInterface>

#include "platform/forms/controls.h"

namespace marrowfen {

class FormView;

/// A painted control in the accessible tree: a text, a picture, a button, a switch, a key, a tile or the stopwatch. To
/// press it is to press the mouse in its middle, so that a screen reader's press means what everybody's does.
class AccessibleControl final : public QAccessibleInterface,
                                public QAccessibleActionInterface,
                                public QAccessibleValueInterface {
public:
    AccessibleControl(FormView& view, Control& control) : view_(view), control_(control) {}

    [[nodiscard]] bool isValid() const override { return true; }  // its view takes it out of the tree in time
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType type) override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& action) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString&) const override { return {}; }

    // Of the stopwatch: seconds left.
    [[nodiscard]] QVariant currentValue() const override;
    void setCurrentValue(const QVariant&) override {}
    [[nodiscard]] QVariant maximumValue() const override;
    [[nodiscard]] QVariant minimumValue() const override { return 0; }
    [[nodiscard]] QVariant minimumStepSize() const override { return 1; }

private:
    [[nodiscard]] bool takes_press() const;

    FormView& view_;
    Control& control_;
};

}  // namespace marrowfen
