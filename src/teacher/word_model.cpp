#include "teacher/word_model.h"

#include <QApplication>
#include <QColor>
#include <QPalette>
#include <QStyle>

#include "teacher/office.h"

namespace marrowfen {

namespace {

constexpr int kGameColumn = 0;
constexpr int kListedColumn = 3;
constexpr const char* kYes = "yes";
constexpr const char* kNo = "no";

}  // namespace

void WordModel::show(const SetKind& kind, SetRows rows) {
    beginResetModel();
    kind_ = &kind;
    rows_ = std::move(rows);
    before_ = rows_;
    check();
    endResetModel();
    emit checked();
}

void WordModel::replace(SetRows rows) {
    beginResetModel();
    rows_ = std::move(rows);
    check();
    endResetModel();
    emit checked();
}

void WordModel::kept() {
    before_ = rows_;
    emit checked();
}

void WordModel::check() {
    by_cell_.clear();
    first_fault_.clear();
    const auto faults = faults_in(*kind_, rows_);
    faults_ = faults.size();
    for (const Faults::Place& fault : faults) {
        const QString reason = shown(fault.reason);
        if (first_fault_.isEmpty())
            first_fault_ = fault.line > 0 ? tr("line %1: %2").arg(fault.line).arg(reason) : reason;
        if (fault.line == 0) continue;
        QString& cell = by_cell_[{fault.line - 1, static_cast<int>(fault.column.value_or(0))}];
        cell += (cell.isEmpty() ? "" : "; ") + reason;
    }
}

QModelIndex WordModel::first_faulty_cell() const {
    return by_cell_.empty() ? QModelIndex{} : index(by_cell_.begin()->first.first, by_cell_.begin()->first.second);
}

QString WordModel::fault_at(const QModelIndex& index) const {
    const auto found = by_cell_.find({index.row(), index.column()});
    return found == by_cell_.end() ? QString{} : found->second;
}

int WordModel::add_below(int row) {
    const int place = std::clamp(row + 1, 0, rowCount());
    SetRow cells(kind_->columns.size());
    if (row >= 0 && row < rowCount() && kind_->form == SetKind::Form::Rhymes) {
        cells = rows_[static_cast<std::size_t>(row)];
        cells[1].clear();
    }
    if (kind_->form == SetKind::Form::Sentences) {
        int highest = 0;
        for (const SetRow& each : rows_) highest = std::max<int>(highest, as_whole(Value{each.front()}));
        cells.front() = std::to_string(highest + 1);
    }
    beginInsertRows({}, place, place);
    rows_.insert(rows_.begin() + place, cells);
    check();
    endInsertRows();
    emit checked();
    return place;
}

void WordModel::remove(const std::vector<int>& rows) {
    beginResetModel();
    auto descending = rows;
    std::ranges::sort(descending, std::greater{});
    for (const int row : descending) rows_.erase(rows_.begin() + row);
    check();
    endResetModel();
    emit checked();
}

int WordModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int WordModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !kind_ ? 0 : static_cast<int>(kind_->titles.size());
}

QVariant WordModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || !kind_) return {};
    if (orientation == Qt::Vertical) return section + 1;
    return shown(kind_->titles[static_cast<std::size_t>(section)]);
}

QVariant WordModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const std::string& cell = rows_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
    const bool is_tick = is_list_of_games() && index.column() == kListedColumn;
    const QString fault = fault_at(index);
    switch (role) {
        case Qt::DisplayRole:
            // A fault is told by words in its cell, not by a colour alone.
            if (is_tick) return {};
            return fault.isEmpty() ? shown(cell) : shown(cell) + "  ✗ " + fault;
        case Qt::EditRole:
            return shown(cell);
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return fault;
        case Qt::CheckStateRole:
            if (is_tick) return cell == kYes ? Qt::Checked : Qt::Unchecked;
            return {};
        case Qt::BackgroundRole:
            if (!fault.isEmpty()) return QColor(0xFF, 0xDD, 0xDD);
            return {};
        case Qt::ForegroundRole:
            if (!fault.isEmpty()) return QColor(0x8B, 0x00, 0x00);
            return {};
        default:
            return {};
    }
}

Qt::ItemFlags WordModel::flags(const QModelIndex& index) const {
    const auto flags = QAbstractTableModel::flags(index);
    if (is_list_of_games() && index.column() == kGameColumn) return flags;  // a game keeps its kind
    if (is_list_of_games() && index.column() == kListedColumn) return flags | Qt::ItemIsUserCheckable;
    return flags | Qt::ItemIsEditable;
}

bool WordModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    if (!index.isValid() || (role != Qt::EditRole && role != Qt::CheckStateRole)) return false;
    std::string& cell = rows_[static_cast<std::size_t>(index.row())][static_cast<std::size_t>(index.column())];
    cell = role == Qt::CheckStateRole ? (value.toInt() == Qt::Checked ? kYes : kNo) : value.toString().toStdString();
    check();
    emit dataChanged(this->index(0, 0), this->index(rowCount() - 1, columnCount() - 1));
    emit checked();
    return true;
}

}  // namespace marrowfen
