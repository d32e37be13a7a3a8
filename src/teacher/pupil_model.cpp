#include "teacher/pupil_model.h"

#include "platform/text/folding.h"

namespace marrowfen {

PupilModel::PupilModel(Office& office, QObject* parent) : QAbstractTableModel(parent), office_(office) {}

void PupilModel::read() {
    beginResetModel();
    pupils_ = office_.book().pupils();
    standings_ = standings(office_.book());
    folded_names_.clear();
    for (const KeptPupil& pupil : pupils_) folded_names_.push_back(folded(pupil.name));
    endResetModel();
}

std::int64_t PupilModel::pupil_at(int row) const { return pupils_[static_cast<std::size_t>(row)].number; }

int PupilModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(pupils_.size());
}

int PupilModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QVariant PupilModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    switch (section) {
        case kName:
            return tr("Name");
        case kGames:
            return tr("Games played");
        case kLastPlayed:
            return tr("Last played");
        case kBest:
            return tr("Best result");
        case kAdvice:
            return tr("What next");
        default:
            return {};
    }
}

QString PupilModel::text(std::size_t row, Column column) const {
    const Standing& standing = standings_[row];
    switch (column) {
        case kName:
            return shown(pupils_[row].name);
        case kGames:
            return QString::number(standing.times);
        case kLastPlayed:
            return shown(date_text(standing.last_day));
        case kBest:
            if (!standing.best) return {};
            return tr("%1, %2").arg(shown(points_text(*standing.best)),
                                    shown(office_.book().game_name(standing.best->game)));
        case kAdvice:
            return shown(advice(office_.book(), standing));
        case kColumns:
            break;
    }
    return {};
}

QVariant PupilModel::sort_key(std::size_t row, Column column) const {
    const Standing& standing = standings_[row];
    switch (column) {
        case kName:
            return static_cast<int>(row);  // the book has them in order
        case kGames:
            return QVariant::fromValue<qlonglong>(standing.times);
        case kLastPlayed:
            return standing.last_day;
        case kBest:
            return standing.best ? standing.best->points : -1;
        default:
            return text(row, column);
    }
}

QVariant PupilModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<Column>(index.column());
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
        case Qt::ToolTipRole:
            return text(row, column);
        case kSortRole:
            return sort_key(row, column);
        case Qt::TextAlignmentRole:
            if (column == kGames) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
            return {};
        default:
            return {};
    }
}

Qt::ItemFlags PupilModel::flags(const QModelIndex& index) const {
    const auto flags = QAbstractTableModel::flags(index);
    return index.column() == kName ? flags | Qt::ItemIsEditable : flags;
}

// The name in the cell changes when the store has taken it, not before.
bool PupilModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (role != Qt::EditRole || index.column() != kName) return false;
    const QString name = value.toString();
    if (name != text(static_cast<std::size_t>(index.row()), kName)) emit renaming(pupil_at(index.row()), name);
    return false;
}

PupilSearch::PupilSearch(PupilModel& pupils, QObject* parent) : QSortFilterProxyModel(parent), pupils_(pupils) {
    setSourceModel(&pupils);
    setSortRole(PupilModel::kSortRole);
}

void PupilSearch::look_for(const QString& part) {
    part_ = folded(part.trimmed().toStdString());
    invalidateFilter();
}

bool PupilSearch::filterAcceptsRow(int row, const QModelIndex& /*parent*/) const {
    return pupils_.folded_name(row).find(part_) != std::string::npos;
}

}  // namespace marrowfen
