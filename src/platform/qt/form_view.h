#pragma once

#include <QAccessible>
#include <QWidget>
#include <unordered_map>

#include "platform/forms/form.h"
#include "platform/qt/field.h"
#include "platform/qt/form_painter.h"
#include "platform/qt/surroundings.h"

namespace marrowfen {

/// The surface of one visible form. It lives until it is dismissed, and never touches the form after that.
class FormView final : public QWidget {
public:
    FormView(const Surroundings& surroundings, Form& form, QWidget* parent);
    FormView(const FormView&) = delete;
    FormView& operator=(const FormView&) = delete;
    ~FormView() override;

    [[nodiscard]] Form& form() const { return form_; }  ///< never once it is dismissed
    [[nodiscard]] bool is_dismissed() const { return is_dismissed_; }
    [[nodiscard]] QWidget* widget_for_focus() const;
    [[nodiscard]] Events& events() const { return *surroundings_.events; }
    [[nodiscard]] QRect on_desk(const Control& control) const;  ///< in the desktop's own unit

    // What of it is in the accessible tree.
    [[nodiscard]] QAccessibleInterface* accessible(Control& control);
    [[nodiscard]] QList<QAccessibleInterface*> accessible_parts();  ///< in reading order

    void lay_out();                  ///< places itself where the form is now, in the scale of now
    void refresh_fields();           ///< if something changed since the last time
    bool changed(const Rect& part);  ///< whether there are fields that may have to be refreshed
    void dismiss();                  ///< leaves the screen at once, and dies when nothing needs it any more

protected:
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void leave_accessible_tree();
    void place(QWidget& field, const Control& control) const;
    [[nodiscard]] QRect in_window(const Control& control) const;

    const Surroundings& surroundings_;
    Form& form_;
    FormPainter painter_;
    std::unordered_map<Control*, Field*> fields_;               // the widgets are children of this one
    std::unordered_map<Control*, QAccessible::Id> accessible_;  // of what is only painted
    Scale scale_;                                               // of the last layout
    bool is_laid_out_ = false;
    bool fields_changed_ = false;
    bool is_dismissed_ = false;
};

}  // namespace marrowfen
