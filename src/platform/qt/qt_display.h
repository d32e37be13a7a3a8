#pragma once

#include <QTimer>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/files.h"
#include "platform/forms/display.h"
#include "platform/qt/accessible_tree.h"
#include "platform/qt/drag_view.h"
#include "platform/qt/events.h"
#include "platform/qt/form_view.h"
#include "platform/qt/ring_view.h"
#include "platform/qt/surroundings.h"
#include "platform/qt/window.h"

namespace marrowfen {

class Desktop;
class Translator;

/// The real screen: one frameless window that fills it, in which the forms are surfaces: one view for each visible
/// form, in the forms' order, the keyboard's ring, and the tile that is being dragged. Whatever happens on the desktop
/// is caught up with once, when the running handlers are done.
class QtDisplay final : public Display {
public:
    /// The toolkit runs, and outlives the display.
    explicit QtDisplay(const Files& files);
    QtDisplay(const QtDisplay&) = delete;
    QtDisplay& operator=(const QtDisplay&) = delete;
    ~QtDisplay() override;

    /// Shows this desktop; `sink` is told what happens. The window opens with the first form.
    void attach(const Desktop& desktop, InputSink& sink);
    void show_whole(Size screen);  ///< of another computer, in twips: it is to fit this one
    int run();  ///< until the last form has closed, which may have happened before; the program's exit code

    [[nodiscard]] Size screen() const override { return scale().screen(); }
    void changed(const Form& form, const Rect& part) override;
    void rearranged() override;
    void closed(const Form& form) override;
    void repaint_now(const Form& form) override;
    void start(Timer& timer) override;
    void stop(Timer& timer) override;
    void run_waiting_events() override;
    void last_form_closed() override;

    // For what translates the toolkit's events.
    [[nodiscard]] Window& window() { return window_; }
    [[nodiscard]] const Scale& scale() const { return surroundings_.scale; }
    void catch_up();  ///< now, if there is anything to catch up with
    void pointer_at(Point pointer);

private:
    bool scale_to(QSize size);  ///< false: it is that already
    void resized();
    void sync();
    void sync_views();
    void sync_focus();
    void show_cursor();
    [[nodiscard]] FormView* view_of(const Form* form) const;

    Surroundings surroundings_;
    Size shown_ = Scale::kDesign;
    Window window_;
    RingView ring_view_;
    DragView drag_view_;
    AccessibleTree accessible_tree_;
    const Desktop* desktop_ = nullptr;
    std::optional<Events> events_;
    std::unique_ptr<Translator> translator_;
    std::vector<FormView*> views_;  // children of the window, from the bottom to the top
    std::unordered_map<const Timer*, std::unique_ptr<QTimer>> timers_;
    QTimer catch_up_;
    Point pointer_{-1, -1};
    bool ended_ = false;
};

}  // namespace marrowfen
