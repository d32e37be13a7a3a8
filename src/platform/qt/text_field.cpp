#include "platform/qt/text_field.h"

#include <algorithm>

#include "platform/qt/events.h"
#include "platform/qt/house_style.h"

namespace marrowfen {

TextField::TextField(Events& events, TextBox& box, QWidget* parent) : QLineEdit(parent), box_(&box) {
    setMaxLength(static_cast<int>(std::min(box.max_length, TextBox::kNoLimit)));
    setFrame(box.style.framed);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    connect(this, &QLineEdit::textEdited, this, [this, &events](const QString& edited) {
        if (box_ != nullptr) events.tell(TextEdit{box_, edited.toStdString()});
    });
}

void TextField::refresh() {
    const QString shown = QString::fromStdString(box_->Text);
    if (text() != shown) setText(shown);
    const QPalette wanted = field_palette(box_->ForeColor, box_->style.back);
    if (palette() != wanted) setPalette(wanted);
}

void TextField::resize_to(const Scale& scale, const Typefaces& faces) {
    setFont(faces.caption(box_->style.font, scale.widget_pixels(design_pixels(box_->style.font.points))));
}

}  // namespace marrowfen
