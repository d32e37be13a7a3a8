#include "platform/qt/list_field.h"

#include <QKeyEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "platform/qt/events.h"
#include "platform/qt/fitted_text.h"
#include "platform/qt/house_style.h"

namespace marrowfen {

QSize RoomyRows::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
    return {1, height(option.fontMetrics)};
}

void RoomyRows::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state.setFlag(QStyle::State_HasFocus, false);  // a frame round a row that is not selected only puzzles
    option->state.setFlag(QStyle::State_MouseOver, false);
}

void RoomyRows::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    const QStyle& style = *row.widget->style();
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &row, row.widget) + 1;
    const QRect place =
        style.subElementRect(QStyle::SE_ItemViewItemText, &row, row.widget).adjusted(margin, 0, -margin, 0);
    const QString text = std::exchange(row.text, {});
    style.drawControl(QStyle::CE_ItemViewItem, &row, painter, row.widget);
    const bool selected = row.state.testFlag(QStyle::State_Selected);
    const auto colour = [&](QPalette::ColorRole role) { return row.palette.color(role); };
    const Ink ink = selected ? Ink(colour(QPalette::HighlightedText), colour(QPalette::Highlight))
                             : Ink(colour(QPalette::Text), colour(QPalette::Base));
    draw_line(*painter, place, Qt::AlignLeft | Qt::AlignVCenter, text, row.font, row.font.pixelSize(), ink);
}

void Rows::show(const std::vector<std::string>& entries) {
    if (entries == entries_) return;
    beginResetModel();
    entries_ = entries;
    endResetModel();
}

int Rows::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : static_cast<int>(entries_.size()); }

QVariant Rows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
    return QString::fromStdString(entries_[static_cast<std::size_t>(index.row())]);
}

ListField::ListField(Events& events, ListBox& list, QWidget* parent)
    : QListView(parent), events_(events), list_(&list) {
    setModel(&model_);
    setItemDelegate(new RoomyRows(this));
    setUniformItemSizes(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameStyle(static_cast<int>(QFrame::Box) | static_cast<int>(QFrame::Plain));
    setCursor(Qt::ArrowCursor);
    setPalette(field_palette(list.style.fore, list.style.back));
}

QModelIndex ListField::selected_row() const {
    const QModelIndexList rows = selectionModel()->selectedIndexes();
    return rows.isEmpty() ? QModelIndex() : rows.first();
}

void ListField::refresh() {
    const QScopedValueRollback quiet(refreshing_, true);
    model_.show(list_->entries());
    const auto selected = list_->selected();
    if (!selected) {
        clearSelection();
    } else if (const int row = static_cast<int>(*selected); selected_row().row() != row) {
        setCurrentIndex(model_.index(row));
    }
}

void ListField::resize_to(const Scale& scale, const Typefaces& faces) {
    setFont(faces.caption(list_->style.font, scale.widget_pixels(design_pixels(list_->style.font.points))));
    setLineWidth(scale.widget_pixels(1));
}

// Only whole rows are shown; what is left of the height stays empty.
void ListField::resizeEvent(QResizeEvent* event) {
    const int left_over = (height() - 2 * frameWidth()) % RoomyRows::height(fontMetrics());
    setViewportMargins(0, 0, 0, std::max(0, left_over));
    QListView::resizeEvent(event);
}

void ListField::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool moves = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_Home || key == Qt::Key_PageDown;
    if (moves && !selected_row().isValid() && model_.rowCount() > 0) {
        selectionModel()->clearCurrentIndex();  // it is the first row already, and would not be read
        setCurrentIndex(model_.index(0));
    } else {
        QListView::keyPressEvent(event);
    }
}

void ListField::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    QListView::selectionChanged(selected, deselected);
    const QModelIndex row = selected_row();
    if (refreshing_ || list_ == nullptr || !row.isValid()) return;
    if (const auto chosen = static_cast<std::size_t>(row.row()); chosen != list_->selected()) {
        events_.tell(RowChoice{list_, chosen});
    }
}

// Nothing that a hand does clears the selection again, neither Ctrl nor a press below the last row.
QItemSelectionModel::SelectionFlags ListField::selectionCommand(const QModelIndex& index, const QEvent*) const {
    return index.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
}

}  // namespace marrowfen
