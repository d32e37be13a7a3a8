#pragma once

#include <QLineEdit>

#include "platform/forms/controls.h"
#include "platform/qt/field.h"

namespace marrowfen {

class TextField final : public QLineEdit, public Field {
public:
    TextField(Events& events, TextBox& box, QWidget* parent);
    [[nodiscard]] QWidget& widget() override { return *this; }
    void refresh() override;
    void resize_to(const Scale& scale, const Typefaces& faces) override;
    void forget() override { box_ = nullptr; }

private:
    TextBox* box_;
};

}  // namespace marrowfen
