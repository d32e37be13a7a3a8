#pragma once

#include <QComboBox>

#include "platform/forms/controls.h"
#include "platform/qt/field.h"
#include "platform/qt/list_field.h"

namespace marrowfen {

/// A drop-down list whose box shows what the control says, be it in the list or not.
class ComboField final : public QComboBox, public Field {
public:
    ComboField(Events& events, ComboBox& combo, QWidget* parent);
    [[nodiscard]] QWidget& widget() override { return *this; }
    void refresh() override;
    void resize_to(const Scale& scale, const Typefaces& faces) override;
    void forget() override { combo_ = nullptr; }

    void showPopup() override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Events& events_;
    ComboBox* combo_;
    Rows rows_;
    QString shown_;
    int line_ = 1;
};

}  // namespace marrowfen
