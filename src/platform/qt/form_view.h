#pragma once

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

    [[nodiscard]] const Form& form() const { return form_; }
    [[nodiscard]] QWidget* widget_for_focus() const;

    void lay_out();                  ///< places itself where the form is now, in the scale of now
    void refresh_fields();           ///< if something changed since the last time
    bool changed(const Rect& part);  ///< whether there are fields that may have to be refreshed
    void dismiss();                  ///< leaves the screen at once, and dies when nothing needs it any more

protected:
    void paintEvent(QPaintEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void place(QWidget& field, const Control& control) const;

    const Surroundings& surroundings_;
    Form& form_;
    FormPainter painter_;
    std::unordered_map<Control*, Field*> fields_;  // the widgets are children of this one
    Scale scale_;                                  // of the last layout
    bool is_laid_out_ = false;
    bool fields_changed_ = false;
};

}  // namespace marrowfen
