#include "platform/qt/qt_display.h"

#include <QApplication>

#include "platform/qt/stage.h"

namespace marrowfen {

QtDisplay::QtDisplay(const Files& files) : stage_(std::make_unique<Stage>(files)) {
    QApplication::setQuitOnLastWindowClosed(false);
    stage_->window().on_close = [this] {
        if (!ended_ && on_close_requested) on_close_requested();
        return ended_;
    };
}

QtDisplay::~QtDisplay() = default;

void QtDisplay::attach(Desktop& desktop) { stage_->attach(desktop); }

int QtDisplay::run() { return ended_ ? EXIT_SUCCESS : QApplication::exec(); }

Size QtDisplay::screen() const { return stage_->scale().screen(); }

void QtDisplay::changed(const Form& form, const Rect& part) { stage_->changed(form, part); }

void QtDisplay::rearranged() { stage_->rearranged(); }

void QtDisplay::closed(const Form& form) { stage_->closed(form); }

void QtDisplay::repaint_now(const Form& form) { stage_->repaint_now(form); }

void QtDisplay::start(Timer& timer) { stage_->start(timer); }

void QtDisplay::stop(Timer& timer) { stage_->stop(timer); }

void QtDisplay::run_waiting_events() {
    stage_->catch_up();
    QApplication::processEvents();
}

// Not quit(), which first asks every window whether it may close.
void QtDisplay::last_form_closed() {
    ended_ = true;
    QApplication::exit(EXIT_SUCCESS);
}

}  // namespace marrowfen
