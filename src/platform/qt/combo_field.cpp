#include "platform/qt/combo_field.h"

#include <QHash>
#include <QKeyEvent>
#include <QListView>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "platform/qt/events.h"
#include "platform/qt/fitted_text.h"
#include "platform/qt/house_style.h"

namespace marrowfen {

namespace {

// As the sum of its letters, which is never much too little, and takes no shaping of thirty thousand names.
int widest_of(const std::vector<std::string>& entries, const QFontMetrics& metrics) {
    QHash<QChar, int> widths;
    int widest = 0;
    for (const std::string& entry : entries) {
        int width = 0;
        for (const QChar letter : QString::fromStdString(entry)) {
            auto known = widths.constFind(letter);
            if (known == widths.constEnd()) known = widths.insert(letter, metrics.horizontalAdvance(letter));
            width += *known;
        }
        widest = std::max(widest, width);
    }
    return widest;
}

}  // namespace

ComboField::ComboField(Events& events, ComboBox& combo, QWidget* parent)
    : QComboBox(parent), events_(events), combo_(&combo) {
    constexpr int kMostRows = 8;  // they fit below the box
    setMaxVisibleItems(kMostRows);
    setModel(&rows_);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);  // its place is given: no row has to be measured for it
    static_cast<QListView*>(view())->setUniformItemSizes(true);
    setItemDelegate(new RoomyRows(this));
    setCursor(Qt::PointingHandCursor);
    setPalette(field_palette(combo.style.fore, combo.style.back));
    view()->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view()->setTextElideMode(Qt::ElideRight);
    // "activated" tells every pick, also of the entry that the box shows already.
    connect(this, &QComboBox::activated, this, [this](int index) {
        if (combo_ != nullptr && index >= 0) events_.tell(RowChoice{combo_, static_cast<std::size_t>(index)});
    });
    view()->window()->installEventFilter(this);
}

void ComboField::refresh() {
    rows_.show(combo_->entries());
    shown_ = QString::fromStdString(combo_->Text);
    const auto& entries = rows_.entries();
    const auto found = std::ranges::find(entries, combo_->Text.get());
    setCurrentIndex(found == entries.end() ? -1 : static_cast<int>(found - entries.begin()));
    update();
}

void ComboField::resize_to(const Scale& scale, const Typefaces& faces) {
    setFont(faces.caption(combo_->style.font, scale.widget_pixels(design_pixels(combo_->style.font.points))));
    line_ = scale.widget_pixels(1);
}

void ComboField::showPopup() {
    const int widest = widest_of(rows_.entries(), fontMetrics());
    const int beside = 4 * fontMetrics().averageCharWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view()->setMinimumWidth(std::clamp(widest + beside, width(), std::max(width(), window()->width())));
    QComboBox::showPopup();
}

void ComboField::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double line = hasFocus() ? 2.0 * line_ : line_;
    const QRectF box = QRectF(rect()).adjusted(line / 2, line / 2, -line / 2, -line / 2);
    const double corner = 3.0 * line_;
    QPainterPath outline;
    outline.addRoundedRect(box, corner, corner);
    painter.fillPath(outline, palette().base());

    const QRectF button(box.right() - box.height(), box.top(), box.height(), box.height());
    painter.save();
    painter.setClipPath(outline);
    draw_arrow_button(painter, button, Arrow::Down);
    painter.restore();
    painter.strokePath(outline, QPen(colours::kDeepBlue, line));

    const int margin = 6 * line_;
    const QRect text = rect().adjusted(margin, 0, -static_cast<int>(button.width()) - margin, 0);
    draw_line(painter, text, Qt::AlignLeft | Qt::AlignVCenter, shown_, font(), font().pixelSize(),
              Ink(palette().color(QPalette::Text), palette().color(QPalette::Base)));
}

void ComboField::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        showPopup();
    } else {
        QComboBox::keyPressEvent(event);
    }
}

bool ComboField::eventFilter(QObject* watched, QEvent* event) {
    const bool is_drop = event->type() == QEvent::Show || event->type() == QEvent::Hide;
    if (is_drop && combo_ != nullptr && watched == view()->window()) {
        events_.tell(ListDrop{combo_, event->type() == QEvent::Show});
    }
    return QComboBox::eventFilter(watched, event);
}

}  // namespace marrowfen
