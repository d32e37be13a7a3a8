#pragma once

#include <QAbstractTableModel>
#include <QWidget>
#include <optional>

#include "school/class_grid.h"
#include "teacher/office.h"

class QTableView;

namespace marrowfen {

class ClassModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    ClassModel(Office& office, QObject* parent) : QAbstractTableModel(parent), office_(office) {}
    void read();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Office& office_;
    std::optional<ClassGrid> grid_;
};

/// The whole class at a look: pupils by games.
class ClassPage final : public QWidget {
    Q_OBJECT

public:
    ClassPage(Office& office, QWidget* parent);

private:
    void read();

    Office& office_;
    ClassModel* grid_;
    QTableView* table_;
};

}  // namespace marrowfen
