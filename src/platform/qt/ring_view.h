#pragma once

#include <QWidget>

#include "platform/qt/scale.h"

namespace marrowfen {

class Control;

/// The ring round the control that the keyboard presses. It is dark between two white lines, so that it stands out from
/// whatever lies inside and outside of it.
class RingView final : public QWidget {
public:
    RingView(const Scale& scale, QWidget* parent);
    void stand_round(const Control* control);  ///< nullptr: nowhere

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const Scale& scale_;
};

}  // namespace marrowfen
