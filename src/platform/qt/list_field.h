#pragma once

#include <QFontMetrics>
#include <QListView>
#include <QStringListModel>
#include <QStyledItemDelegate>
#include <string>
#include <vector>

#include "platform/forms/controls.h"
#include "platform/qt/field.h"

namespace marrowfen {

/// Rows with some air. A row is as wide as its list: what does not fit ends in an ellipsis.
class RoomyRows final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] static int height(const QFontMetrics& metrics) { return metrics.height() * 5 / 4; }
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

[[nodiscard]] QStringList to_qt(const std::vector<std::string>& entries);

class ListField final : public QListView, public Field {
public:
    ListField(Events& events, ListBox& list, QWidget* parent);
    [[nodiscard]] QWidget& widget() override { return *this; }
    void refresh() override;
    void resize_to(const Scale& scale, const Typefaces& faces) override;
    void forget() override { list_ = nullptr; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    [[nodiscard]] QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                                       const QEvent* event) const override;

private:
    [[nodiscard]] QModelIndex selected_row() const;

    Events& events_;
    ListBox* list_;
    std::vector<std::string> entries_;  // as they are in the model
    QStringListModel model_;
    bool refreshing_ = false;
};

}  // namespace marrowfen
