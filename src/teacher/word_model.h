#pragma once

#include <QAbstractTableModel>
#include <map>
#include <utility>

#include "school/word_sets.h"

namespace marrowfen {

/// A set as it is being written. Every change is checked at once, and each fault stands in its cell.
class WordModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    explicit WordModel(QObject* parent) : QAbstractTableModel(parent) {}

    void show(const SetKind& kind, SetRows rows);
    /// Another set of the same kind, not kept yet.
    void replace(SetRows rows);
    void kept();  ///< what stands here is in the store now
    [[nodiscard]] const SetRows& rows() const { return rows_; }
    [[nodiscard]] bool is_changed() const { return rows_ != before_; }
    [[nodiscard]] std::size_t fault_count() const { return faults_; }
    /// The first fault, with its line; empty: the set is whole.
    [[nodiscard]] const QString& first_fault() const { return first_fault_; }
    [[nodiscard]] QModelIndex first_faulty_cell() const;
    [[nodiscard]] QString fault_at(const QModelIndex& index) const;  ///< empty: none
    [[nodiscard]] bool is_list_of_games() const { return kind_ && kind_->form == SetKind::Form::Games; }
    /// A new row below, in the same group where the rows have one.
    [[nodiscard]] int add_below(int row);
    void remove(const std::vector<int>& rows);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void checked();

private:
    void check();

    const SetKind* kind_ = nullptr;
    SetRows rows_;
    SetRows before_;
    std::map<std::pair<int, int>, QString> by_cell_;  // row and column, from 0
    std::size_t faults_ = 0;
    QString first_fault_;
};

}  // namespace marrowfen
