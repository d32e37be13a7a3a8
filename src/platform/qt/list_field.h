#pragma once

#include <QAbstractListModel>
#include <QFontMetrics>
#include <QListView>
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

/// The entries of a list as it was shown last. A row becomes the toolkit's only when it is painted, since a school may
/// have thirty thousand pupils.
class Rows final : public QAbstractListModel {
public:
    void show(const std::vector<std::string>& entries);
    [[nodiscard]] const std::vector<std::string>& entries() const { return entries_; }
    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<std::string> entries_;
};

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
    Rows model_;
    bool refreshing_ = false;
};

}  // namespace marrowfen
