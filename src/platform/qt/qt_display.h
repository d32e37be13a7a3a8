#pragma once

#include <functional>
#include <memory>

#include "platform/files.h"
#include "platform/forms/display.h"

namespace marrowfen {

class Desktop;
class Stage;

/// The real screen: one frameless window that fills it, in which the forms are surfaces.
class QtDisplay final : public Display {
public:
    /// The toolkit runs, and outlives the display.
    explicit QtDisplay(const Files& files);
    ~QtDisplay() override;

    void attach(Desktop& desktop);  ///< which is told what the user does; the window opens with its first form
    int run();  ///< until the last form has closed, which may have happened before; the program's exit code

    /// The window system wants the program to end. It does when this has unloaded the last form.
    std::function<void()> on_close_requested;

    [[nodiscard]] Size screen() const override;
    void changed(const Form& form, const Rect& part) override;
    void rearranged() override;
    void closed(const Form& form) override;
    void repaint_now(const Form& form) override;
    void start(Timer& timer) override;
    void stop(Timer& timer) override;
    void run_waiting_events() override;
    void last_form_closed() override;

private:
    std::unique_ptr<Stage> stage_;
    bool ended_ = false;
};

}  // namespace marrowfen
