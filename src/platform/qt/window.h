#pragma once

#include <QWidget>
#include <functional>

#include "platform/files.h"

namespace marrowfen {

/// The one window of the program. What happens in it is the forms' business; this one only tells that it has another
/// size, or that somebody wants to close it.
class Window final : public QWidget {
public:
    explicit Window(const Files& files);
    void fill_screen();
    /// `answer` is called once, as soon as it is known whether the desktop has let it.
    void come_to_front(std::function<void(bool is_in_front)> answer);

    std::function<void()> on_resized;
    std::function<bool()> on_close;  ///< whether it may close

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void follow_screen();

    const Files& files_;
    QMetaObject::Connection following_;
};

}  // namespace marrowfen
