#include "platform/qt/qt_display.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

#include "platform/forms/desktop.h"
#include "platform/qt/house_style.h"
#include "platform/qt/translator.h"

namespace marrowfen {

namespace {

constexpr double kScrollBarWidth = 24;
constexpr double kTextCursorWidth = 1.5;

Qt::CursorShape cursor_over(Control* control) {
    if (control == nullptr) return Qt::ArrowCursor;
    const auto* tile = as<PictureBox>(control);
    if (tile != nullptr && tile->drag_mode == DragMode::Automatic) return Qt::OpenHandCursor;
    const bool acts = control->on_mouse_down || control->on_mouse_up || control->on_click;
    return acts ? Qt::PointingHandCursor : Qt::ArrowCursor;
}

}  // namespace

QtDisplay::QtDisplay(const Files& files)
    : surroundings_(files),
      window_(files),
      ring_view_(surroundings_.scale, &window_),
      drag_view_(surroundings_, &window_),
      accessible_tree_(window_) {
    QApplication::setQuitOnLastWindowClosed(false);
    scale_to(window_.screen()->size());
    catch_up_.setSingleShot(true);
    catch_up_.callOnTimeout([this] { sync(); });
    window_.on_resized = [this] { resized(); };
    window_.on_close = [this] {
        if (!ended_ && events_) events_->tell(CloseRequest{});
        return ended_;
    };
}

QtDisplay::~QtDisplay() = default;

void QtDisplay::attach(const Desktop& desktop, InputSink& sink) {
    desktop_ = &desktop;
    surroundings_.events = &events_.emplace(sink);
    translator_ = std::make_unique<Translator>(*events_, *this);
    qApp->installEventFilter(translator_.get());
}

void QtDisplay::show_whole(Size screen) {
    if (screen.width <= 0 || screen.height <= 0) return;
    shown_ = screen;
    resized();
}

int QtDisplay::run() { return ended_ ? EXIT_SUCCESS : QApplication::exec(); }

bool QtDisplay::scale_to(QSize size) {
    const Scale scale(size, window_.devicePixelRatioF(), shown_);
    if (scale == surroundings_.scale) return false;
    surroundings_.scale = scale;
    static_cast<HouseStyle*>(QApplication::style())
        ->set_widths(scale.widget_pixels(kScrollBarWidth), scale.widget_pixels(kTextCursorWidth));
    return true;
}

void QtDisplay::resized() {
    const Size before = surroundings_.scale.screen();
    if (!scale_to(window_.size())) return;
    if (events_ && screen() != before) events_->tell(ScreenSize{screen()});
    rearranged();
}

FormView* QtDisplay::view_of(const Form* form) const {
    const auto view =
        std::ranges::find_if(views_, [&](const FormView* candidate) { return &candidate->form() == form; });
    return view == views_.end() ? nullptr : *view;
}

void QtDisplay::changed(const Form& form, const Rect& part) {
    FormView* view = view_of(&form);
    if (view == nullptr) return;
    const bool concerns_field = view->changed(part);
    if (concerns_field || desktop_->drag() || AccessibleTree::has_readers()) rearranged();
}

void QtDisplay::rearranged() {
    if (!catch_up_.isActive()) catch_up_.start(0);
}

void QtDisplay::catch_up() {
    if (!catch_up_.isActive()) return;
    catch_up_.stop();
    sync();
}

void QtDisplay::sync() {
    if (desktop_ == nullptr) return;
    if (!window_.isVisible() && !desktop_->visible_forms().empty()) window_.fill_screen();
    sync_views();
    sync_focus();
    ring_view_.stand_round(desktop_->ring().at());
    drag_view_.follow(desktop_->drag());
    show_cursor();
    accessible_tree_.catch_up(*desktop_, views_);
}

void QtDisplay::sync_views() {
    const std::vector<Form*> forms = desktop_->visible_forms();
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
    ring_view_.raise();
    drag_view_.raise();
}

void QtDisplay::sync_focus() {
    if (QApplication::activePopupWidget() != nullptr) return;
    QWidget* wanted = &window_;
    if (FormView* view = view_of(desktop_->active())) {
        QWidget* field = view->widget_for_focus();
        wanted = field != nullptr ? field : view;
    }
    if (window_.focusWidget() != wanted) wanted->setFocus(Qt::OtherFocusReason);
}

void QtDisplay::closed(const Form& form) {
    if (FormView* view = view_of(&form)) {
        std::erase(views_, view);
        view->dismiss();
    }
}

void QtDisplay::repaint_now(const Form& form) {
    catch_up();
    if (FormView* view = view_of(&form)) view->repaint();
}

void QtDisplay::start(Timer& timer) {
    auto& running = timers_[&timer];
    running = std::make_unique<QTimer>();
    running->setTimerType(Qt::PreciseTimer);
    running->callOnTimeout([this, &timer] { events_->tell(Tick{&timer}); });
    running->start(timer.interval());
}

void QtDisplay::stop(Timer& timer) {
    const auto running = timers_.find(&timer);
    if (running == timers_.end()) return;
    running->second->stop();
    running->second.release()->deleteLater();  // it may be the one that ticks just now
    timers_.erase(running);
}

void QtDisplay::pointer_at(Point pointer) {
    pointer_ = pointer;
    show_cursor();
}

void QtDisplay::show_cursor() {
    Qt::CursorShape shape = Qt::ClosedHandCursor;
    if (!desktop_->drag()) {
        const Form* form = desktop_->form_at(pointer_);
        shape = form == nullptr ? Qt::ArrowCursor
                                : cursor_over(form->control_at({pointer_.x - form->Left, pointer_.y - form->Top}));
    }
    if (window_.cursor().shape() != shape) window_.setCursor(shape);
}

void QtDisplay::run_waiting_events() {
    catch_up();
    QApplication::processEvents();
}

// Not quit(), which first asks every window whether it may close.
void QtDisplay::last_form_closed() {
    ended_ = true;
    QApplication::exit(EXIT_SUCCESS);
}

}  // namespace marrowfen
