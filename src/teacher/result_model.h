#pragma once

#include <QAbstractTableModel>

#include "school/result_list.h"
#include "teacher/office.h"

namespace marrowfen {

/// The results that fit a filter, of which the view asks for those that can be seen.
class ResultModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    ResultModel(Office& office, QObject* parent);
    void list(const ResultFilter& filter);  ///< from the office's book, as it is now
    [[nodiscard]] const ResultPlaces& places() const { return places_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void sort(int column, Qt::SortOrder order) override;

private:
    void sort_places();

    Office& office_;
    ResultPlaces places_;
    ResultColumn column_ = ResultColumn::When;
    Order order_ = Order::Descending;
};

}  // namespace marrowfen
