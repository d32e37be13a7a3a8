#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>
#include <vector>

#include "school/standing.h"
#include "teacher/office.h"

namespace marrowfen {

/// The pupils with what their results say. The name can be changed in its cell.
class PupilModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column : std::uint8_t { kName, kGames, kLastPlayed, kBest, kAdvice, kColumns };
    static constexpr int kSortRole = Qt::UserRole;

    PupilModel(Office& office, QObject* parent);
    void read();  ///< from the office's book, as it is now
    [[nodiscard]] std::int64_t pupil_at(int row) const;
    [[nodiscard]] const Standing& standing_at(int row) const { return standings_[static_cast<std::size_t>(row)]; }
    [[nodiscard]] const std::string& folded_name(int row) const { return folded_names_[static_cast<std::size_t>(row)]; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void renaming(std::int64_t pupil, const QString& name);

private:
    [[nodiscard]] QString text(std::size_t row, Column column) const;
    [[nodiscard]] QVariant sort_key(std::size_t row, Column column) const;

    Office& office_;
    std::vector<KeptPupil> pupils_;
    std::vector<Standing> standings_;
    std::vector<std::string> folded_names_;
};

/// Those whose names hold what was typed, in any case.
class PupilSearch final : public QSortFilterProxyModel {
public:
    PupilSearch(PupilModel& pupils, QObject* parent);
    void look_for(const QString& part);

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

private:
    PupilModel& pupils_;
    std::string part_;
};

}  // namespace marrowfen
