#pragma once

#include <QObject>
#include <QPoint>
#include <cstddef>
#include <optional>

#include "platform/forms/input.h"

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace marrowfen {

class Events;
class QtDisplay;

/// Takes keys and the mouse before any widget sees them, says them in plain words, and lets through to the widgets what
/// turns out to be theirs.
class Translator final : public QObject {
public:
    Translator(Events& events, QtDisplay& display) : events_(events), display_(display) {}
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] Taker told(const QKeyEvent& event);
    [[nodiscard]] Taker told(const QMouseEvent& event);
    [[nodiscard]] Taker told(const QWheelEvent& event);

    Events& events_;
    QtDisplay& display_;
};

}  // namespace marrowfen
