#pragma once

#include <QObject>
#include <QPoint>
#include <cstdint>

class QKeyEvent;
class QMouseEvent;

namespace marrowfen {

class Desktop;
class Form;
class Stage;

/// Takes keys and the mouse before any widget sees them, and hands on to the widgets what is theirs.
class Input final : public QObject {
public:
    Input(Desktop& desktop, Stage& stage) : desktop_(desktop), stage_(stage) {}
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Taker : std::uint8_t { Field, Forms, Nobody };

    [[nodiscard]] bool key_down(const QKeyEvent& event);
    [[nodiscard]] bool pressed(const QMouseEvent& event);
    [[nodiscard]] bool is_meant_for_what_has_gone(const QMouseEvent& event);
    [[nodiscard]] Taker taker_of_press(QPoint position);
    [[nodiscard]] bool moved(const QMouseEvent& event);
    [[nodiscard]] bool released(const QMouseEvent& event);
    void let_go(const QMouseEvent& event);

    struct Press {
        Qt::MouseButton button = Qt::NoButton;
        QPoint place;
        quint64 time = 0;            // milliseconds
        const Form* form = nullptr;  // only compared; it lives at least until what it opened is there
    };

    Desktop& desktop_;
    Stage& stage_;
    Press last_;
    Qt::MouseButton held_ = Qt::NoButton;  // the first button that went down: others do not count until it is up
    bool is_ours_ = false;                 // its press was not a widget's
};

}  // namespace marrowfen
