#pragma once

#include <QWidget>
#include <memory>

#include "platform/qt/scale.h"
#include "platform/qt/typefaces.h"

namespace marrowfen {

class Control;
class Events;

/// A real widget that stands for a control into which one types or from which one chooses. It tells the desktop what
/// the user does, and takes over what the control says.
class Field {
public:
    Field() = default;
    Field(const Field&) = delete;
    Field& operator=(const Field&) = delete;
    virtual ~Field() = default;

    [[nodiscard]] virtual QWidget& widget() = 0;
    virtual void refresh() = 0;
    virtual void resize_to(const Scale& scale,
                           const Typefaces& faces) = 0;  ///< what hangs on the scale, but for its bounds
    virtual void forget() = 0;                           ///< the control is about to go: it is never asked again
};

/// nullptr for a control that is only painted. The widget belongs to its parent.
[[nodiscard]] Field* new_field(Events& events, Control& control, QWidget& parent);

}  // namespace marrowfen
