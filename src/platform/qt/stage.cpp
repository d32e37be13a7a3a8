#include "platform/qt/stage.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

#include "platform/qt/house_style.h"
#include "platform/qt/input.h"

namespace marrowfen {

namespace {

constexpr double kScrollBarWidth = 24;
constexpr double kTextCursorWidth = 1.5;

Qt::CursorShape cursor_over(const Control* control) {
    if (control == nullptr) return Qt::ArrowCursor;
    const auto* tile = dynamic_cast<const PictureBox*>(control);
    if (tile != nullptr && tile->drag_mode == DragMode::Automatic) return Qt::OpenHandCursor;
    const bool acts = control->on_mouse_down || control->on_mouse_up || control->on_click;
    return acts ? Qt::PointingHandCursor : Qt::ArrowCursor;
}

}  // namespace

Stage::Stage(const Files& files) : surroundings_(files), drag_view_(surroundings_, &window_) {
    scale_to(window_.screen()->size());
    catch_up_.setSingleShot(true);
    catch_up_.callOnTimeout([this] { sync(); });
    window_.on_resized = [this] { resized(); };
}

Stage::~Stage() = default;

void Stage::attach(Desktop& desktop) {
    surroundings_.desktop = &desktop;
    input_ = std::make_unique<Input>(desktop, *this);
    qApp->installEventFilter(input_.get());
}

bool Stage::scale_to(QSize size) {
    const Scale scale(size, window_.devicePixelRatioF());
    if (scale == surroundings_.scale) return false;
    surroundings_.scale = scale;
    static_cast<HouseStyle*>(QApplication::style())
        ->set_widths(scale.widget_pixels(kScrollBarWidth), scale.widget_pixels(kTextCursorWidth));
    return true;
}

void Stage::resized() {
    const Size before = surroundings_.scale.screen();
    if (!scale_to(window_.size())) return;
    if (surroundings_.desktop != nullptr && surroundings_.scale.screen() != before) {
        surroundings_.desktop->screen_changed();
    }
    rearranged();
}

FormView* Stage::view_of(const Form* form) const {
    const auto view =
        std::ranges::find_if(views_, [&](const FormView* candidate) { return &candidate->form() == form; });
    return view == views_.end() ? nullptr : *view;
}

void Stage::changed(const Form& form, const Rect& part) {
    FormView* view = view_of(&form);
    if (view != nullptr && (view->changed(part) || surroundings_.desktop->drag())) rearranged();
}

void Stage::rearranged() {
    if (!catch_up_.isActive()) catch_up_.start(0);
}

void Stage::catch_up() {
    if (!catch_up_.isActive()) return;
    catch_up_.stop();
    sync();
}

void Stage::sync() {
    if (surroundings_.desktop == nullptr) return;
    if (!window_.isVisible() && !surroundings_.desktop->visible_forms().empty()) window_.fill_screen();
    sync_views();
    sync_focus();
    drag_view_.follow(surroundings_.desktop->drag());
    show_cursor();
}

void Stage::sync_views() {
    const std::vector<Form*> forms = surroundings_.desktop->visible_forms();
    std::erase_if(views_, [&](FormView* view) {
        if (std::ranges::find(forms, &view->form()) != forms.end()) return false;
        view->dismiss();
        return true;
    });
    std::vector<FormView*> in_order;
    for (Form* form : forms) {
        FormView* view = view_of(form);
        if (view == nullptr) {
            view = new FormView(surroundings_, *form, &window_);
            view->show();
        }
        view->lay_out();
        view->refresh_fields();
        in_order.push_back(view);
    }
    if (in_order == views_) return;
    views_ = std::move(in_order);
    for (FormView* view : views_) view->raise();
    drag_view_.raise();
}

void Stage::sync_focus() {
    if (QApplication::activePopupWidget() != nullptr) return;
    QWidget* wanted = &window_;
    if (FormView* view = view_of(surroundings_.desktop->active())) {
        QWidget* field = view->widget_for_focus();
        wanted = field != nullptr ? field : view;
    }
    if (window_.focusWidget() != wanted) wanted->setFocus(Qt::OtherFocusReason);
}

void Stage::closed(const Form& form) {
    if (FormView* view = view_of(&form)) {
        std::erase(views_, view);
        view->dismiss();
    }
}

void Stage::repaint_now(const Form& form) {
    catch_up();
    if (FormView* view = view_of(&form)) view->repaint();
}

void Stage::start(Timer& timer) {
    auto& running = timers_[&timer];
    running = std::make_unique<QTimer>();
    running->setTimerType(Qt::PreciseTimer);
    running->callOnTimeout([this, &timer] { surroundings_.desktop->ticked(timer); });
    running->start(timer.interval());
}

void Stage::stop(Timer& timer) {
    const auto running = timers_.find(&timer);
    if (running == timers_.end()) return;
    running->second->stop();
    running->second.release()->deleteLater();  // it may be the one that ticks just now
    timers_.erase(running);
}

Control* Stage::field_at(QPoint in_window) const {
    for (const QWidget* widget = window_.childAt(in_window); widget != nullptr; widget = widget->parentWidget()) {
        if (const auto* view = dynamic_cast<const FormView*>(widget->parentWidget())) return view->control_of(widget);
    }
    return nullptr;
}

void Stage::pointer_at(Point pointer) {
    pointer_ = pointer;
    show_cursor();
}

void Stage::show_cursor() {
    const Desktop& desktop = *surroundings_.desktop;
    Qt::CursorShape shape = Qt::ClosedHandCursor;
    if (!desktop.drag()) {
        const Form* form = desktop.form_at(pointer_);
        shape = form == nullptr ? Qt::ArrowCursor
                                : cursor_over(form->control_at({pointer_.x - form->Left, pointer_.y - form->Top}));
    }
    if (window_.cursor().shape() != shape) window_.setCursor(shape);
}

}  // namespace marrowfen
