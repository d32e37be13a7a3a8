#pragma once

#include <QTimer>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/forms/desktop.h"
#include "platform/qt/drag_view.h"
#include "platform/qt/form_view.h"
#include "platform/qt/surroundings.h"
#include "platform/qt/window.h"

namespace marrowfen {

class Input;

/// The window and what stands in it: one view for each visible form, in the forms' order, and the tile that is being
/// dragged. It follows the desktop: whatever happens there is caught up with once, when the running handlers are done.
class Stage {
public:
    explicit Stage(const Files& files);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage();

    void attach(Desktop& desktop);
    [[nodiscard]] Window& window() { return window_; }
    [[nodiscard]] const Scale& scale() const { return surroundings_.scale; }

    void changed(const Form& form, const Rect& part);
    void rearranged();
    void catch_up();  ///< now, if there is anything to catch up with
    void closed(const Form& form);
    void repaint_now(const Form& form);
    void start(Timer& timer);
    void stop(Timer& timer);
    void pointer_at(Point pointer);

    [[nodiscard]] Control* field_at(QPoint in_window) const;  ///< nullptr: what is there is only painted

private:
    bool scale_to(QSize size);  ///< false: it is that already
    void resized();
    void sync();
    void sync_views();
    void sync_focus();
    void show_cursor();
    [[nodiscard]] FormView* view_of(const Form* form) const;

    Surroundings surroundings_;
    Window window_;
    DragView drag_view_;
    std::unique_ptr<Input> input_;
    std::vector<FormView*> views_;  // children of the window, from the bottom to the top
    std::unordered_map<const Timer*, std::unique_ptr<QTimer>> timers_;
    QTimer catch_up_;
    Point pointer_{-1, -1};
};

}  // namespace marrowfen
