#include "platform/qt/form_view.h"

#include <QPaintEvent>
#include <QPainter>

#include "platform/match.h"
#include "platform/qt/combo_field.h"
#include "platform/qt/list_field.h"
#include "platform/qt/text_field.h"

namespace marrowfen {

namespace {

// The text on the left of a field, or above it, says what it is for: that is what a screen reader tells.
QString name_of(const Control& field) {
    QString name;
    for (Control* control : field.form().controls()) {
        if (control == &field) break;
        if (const auto* label = as<Label>(control)) name = QString::fromStdString(label->Caption);
    }
    return name;
}

}  // namespace

Field* new_field(Events& events, Control& control, QWidget& parent) {
    return std::visit(
        Match{
            [&](TextBox* box) -> Field* { return box->is_field() ? new TextField(events, *box, &parent) : nullptr; },
            [&](ListBox* list) -> Field* { return new ListField(events, *list, &parent); },
            [&](ComboBox* combo) -> Field* { return new ComboField(events, *combo, &parent); },
            [](Label*) -> Field* { return nullptr; },
            [](Image*) -> Field* { return nullptr; },
            [](PictureBox*) -> Field* { return nullptr; },
            [](Shape*) -> Field* { return nullptr; },
            [](Dial*) -> Field* { return nullptr; },
        },
        control.any());
}

FormView::FormView(const Surroundings& surroundings, Form& form, QWidget* parent)
    : QWidget(parent),
      surroundings_(surroundings),
      form_(form),
      painter_(form, surroundings.scale, surroundings.faces, surroundings.pictures) {
    for (Control* control : form.controls()) {
        Field* field = new_field(*surroundings.events, *control, *this);
        if (field == nullptr) continue;
        field->widget().setAccessibleName(name_of(*control));
        fields_.emplace(control, field);
    }
    lay_out();
    fields_changed_ = true;
    refresh_fields();
}

QWidget* FormView::widget_for_focus() const {
    const auto field = fields_.find(form_.focus());
    if (field == fields_.end()) return nullptr;
    QWidget& widget = field->second->widget();
    return widget.isEnabled() && widget.isVisible() ? &widget : nullptr;
}

void FormView::lay_out() {
    const Scale& scale = surroundings_.scale;
    const QRect device = scale.device(form_.bounds());
    const QRect wanted = scale.widget(device);
    if (is_laid_out_ && wanted == geometry() && scale == scale_) return;
    // Where a dot of the screen is only a part of a unit, the outermost units may show what lies below.
    const double ratio = scale.device_pixel_ratio();
    setAttribute(Qt::WA_OpaquePaintEvent, ratio == static_cast<int>(ratio) && form_.design().bare_top == 0);
    setGeometry(wanted);
    for (const auto& [control, field] : fields_) {
        if (!is_laid_out_ || scale != scale_) field->resize_to(scale, surroundings_.faces);
        place(field->widget(), *control);
    }
    scale_ = scale;
    is_laid_out_ = true;
    update();
}

void FormView::place(QWidget& field, const Control& control) const {
    const Rect on_form = control.bounds();
    const Rect on_screen{form_.Left + on_form.left, form_.Top + on_form.top, on_form.width, on_form.height};
    const Scale& scale = surroundings_.scale;
    field.setGeometry(scale.widget(scale.device(on_screen)).translated(-pos()));
}

bool FormView::changed(const Rect& part) {
    const Rect on_screen{form_.Left + part.left, form_.Top + part.top, part.width, part.height};
    const Scale& scale = surroundings_.scale;
    update(scale.widget(with_overhang(scale.device(on_screen), scale)).translated(-pos()));
    fields_changed_ = !fields_.empty();
    return fields_changed_;
}

void FormView::refresh_fields() {
    if (!std::exchange(fields_changed_, false)) return;
    for (const auto& [control, field] : fields_) {
        QWidget& widget = field->widget();
        place(widget, *control);
        widget.setVisible(control->Visible);
        widget.setEnabled(control->Enabled);
        field->refresh();
    }
}

void FormView::dismiss() {
    for (const auto& [control, field] : fields_) field->forget();
    hide();
    deleteLater();
}

void FormView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const double ratio = surroundings_.scale.device_pixel_ratio();
    painter.translate(-pos());
    painter.scale(1 / ratio, 1 / ratio);
    painter_.paint(painter, event->region().translated(pos()));
}

// The Tab key stays where it is: no form has a second place to type in.
bool FormView::focusNextPrevChild(bool) { return false; }

}  // namespace marrowfen
