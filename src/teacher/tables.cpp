#include "teacher/tables.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QShortcut>
#include <QTableView>

namespace marrowfen {

void set_up(QTableView& table, const QString& name) {
    table.setAccessibleName(name);
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::ExtendedSelection);
    table.setSortingEnabled(true);
    table.setAlternatingRowColors(true);
    table.setWordWrap(false);
    table.setTabKeyNavigation(false);  // the tab key leads on to the next control
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setVisible(false);
    constexpr int kAboveAndBelow = 8;
    table.verticalHeader()->setDefaultSectionSize(table.fontMetrics().height() + kAboveAndBelow);
    table.horizontalHeader()->setHighlightSections(false);
    table.horizontalHeader()->setStretchLastSection(true);
    constexpr int kRowsLookedAt = 100;
    table.horizontalHeader()->setResizeContentsPrecision(kRowsLookedAt);
}

void fit_columns(QTableView& table, int narrowest) {
    table.resizeColumnsToContents();
    constexpr int kWidest = 420;
    for (int column = 0; column + 1 < table.model()->columnCount(); ++column) {
        table.setColumnWidth(column, std::clamp(table.columnWidth(column), narrowest, kWidest));
    }
}

void on_delete_key(QTableView& table, const std::function<void()>& action) {
    auto* key = new QShortcut(QKeySequence(QKeySequence::Delete), &table, nullptr, nullptr, Qt::WidgetShortcut);
    QObject::connect(key, &QShortcut::activated, &table, action);
}

KeptPlace::KeptPlace(QTableView& table)
    : table_(table),
      top_(table.verticalScrollBar()->value()),
      row_(table.currentIndex().row()),
      column_(table.currentIndex().column()) {}

KeptPlace::~KeptPlace() {
    const int rows = table_.model()->rowCount();
    if (row_ >= 0 && rows > 0) {
        table_.selectionModel()->setCurrentIndex(table_.model()->index(std::min(row_, rows - 1), std::max(column_, 0)),
                                                 QItemSelectionModel::NoUpdate);
    }
    table_.verticalScrollBar()->setValue(top_);
}

}  // namespace marrowfen
