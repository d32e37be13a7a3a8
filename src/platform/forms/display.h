#pragma once

#include "platform/forms/geometry.h"

namespace marrowfen {

class Form;
class Timer;

/// What the form layer needs of the real screen. It is told of changes and paints in its own time.
class Display {
public:
    virtual ~Display() = default;
    [[nodiscard]] virtual Size screen() const = 0;                 ///< in twips
    virtual void changed(const Form& form, const Rect& part) = 0;  ///< a part of a form (twips on it) looks different
    virtual void rearranged() = 0;              ///< forms came, went, moved or changed order, or the focus moved
    virtual void closed(const Form& form) = 0;  ///< forget the form: it dies as soon as no handler needs it
    virtual void repaint_now(const Form& form) = 0;
    virtual void start(Timer& timer) = 0;
    virtual void stop(Timer& timer) = 0;
    virtual void run_waiting_events() = 0;
    virtual void last_form_closed() = 0;
};

}  // namespace marrowfen
