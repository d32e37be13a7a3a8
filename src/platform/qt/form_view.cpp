#include "platform/qt/form_view.h"

#include <QPaintEvent>
#include <QPainter>

#include "platform/forms/reading_order.h"
#include "platform/forms/spoken.h"
#include "platform/match.h"
#include "platform/qt/accessible_control.h"
#include "platform/qt/combo_field.h"
#include "platform/qt/list_field.h"
#include "platform/qt/text_field.h"

namespace marrowfen {

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
        fields_.emplace(control, field);
    }
    lay_out();
    fields_changed_ = true;
    refresh_fields();
}

FormView::~FormView() { leave_accessible_tree(); }

QWidget* FormView::widget_for_focus() const {
    // The message's text box only holds the focus: nothing of it is to be seen or heard.
    if (form_.focus() == nullptr || part_of(*form_.focus()) == Part::None) return nullptr;
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
    field.setGeometry(in_window(control).translated(-pos()));
}

QRect FormView::in_window(const Control& control) const {
    return surroundings_.scale.widget(surroundings_.scale.device(on_screen(control)));
}

QRect FormView::on_desk(const Control& control) const {
    const QRect place = in_window(control);
    return {parentWidget()->mapToGlobal(place.topLeft()), place.size()};
}

QAccessibleInterface* FormView::accessible(Control& control) {
    if (const auto field = fields_.find(&control); field != fields_.end()) {
        return QAccessible::queryAccessibleInterface(&field->second->widget());
    }
    auto known = accessible_.find(&control);
    if (known == accessible_.end()) {
        // The toolkit owns what is registered.
        const auto id = QAccessible::registerAccessibleInterface(new AccessibleControl(*this, control));
        known = accessible_.emplace(&control, id).first;
    }
    return QAccessible::accessibleInterface(known->second);
}

QList<QAccessibleInterface*> FormView::accessible_parts() {
    QList<QAccessibleInterface*> parts;
    for (Control* control : spoken_parts(form_)) parts.append(accessible(*control));
    return parts;
}

void FormView::leave_accessible_tree() {
    for (const auto& [control, id] : accessible_) QAccessible::deleteAccessibleInterface(id);
    accessible_.clear();
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
        widget.setAccessibleName(QString::fromStdString(spoken_name(*control)));
        field->refresh();
    }
}

void FormView::dismiss() {
    for (const auto& [control, field] : fields_) field->forget();
    is_dismissed_ = true;
    leave_accessible_tree();
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
