#include "teacher/result_model.h"

#include <array>

namespace marrowfen {

namespace {

struct Column {
    ResultColumn id;
    const char* title;
};
constexpr std::array kColumns{Column{ResultColumn::When, QT_TRANSLATE_NOOP("ResultModel", "When")},
                              Column{ResultColumn::Pupil, QT_TRANSLATE_NOOP("ResultModel", "Pupil")},
                              Column{ResultColumn::Game, QT_TRANSLATE_NOOP("ResultModel", "Game")},
                              Column{ResultColumn::Team, QT_TRANSLATE_NOOP("ResultModel", "Team")},
                              Column{ResultColumn::Points, QT_TRANSLATE_NOOP("ResultModel", "Points")},
                              Column{ResultColumn::Taken, QT_TRANSLATE_NOOP("ResultModel", "Time taken")}};

}  // namespace

ResultModel::ResultModel(Office& office, QObject* parent) : QAbstractTableModel(parent), office_(office) {}

void ResultModel::list(const ResultFilter& filter) {
    beginResetModel();
    places_ = results_that_fit(office_.book(), filter);
    sort_places();
    endResetModel();
}

void ResultModel::sort(int column, Qt::SortOrder order) {
    if (column < 0) return;
    column_ = kColumns.at(static_cast<std::size_t>(column)).id;
    order_ = order == Qt::AscendingOrder ? Order::Ascending : Order::Descending;
    emit layoutAboutToBeChanged();
    sort_places();
    emit layoutChanged();
}

void ResultModel::sort_places() {
    if (!places_.empty()) sort_results(office_.book(), places_, column_, order_);
}

int ResultModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(places_.size());
}

int ResultModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(kColumns.size());
}

QVariant ResultModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    return tr(kColumns.at(static_cast<std::size_t>(section)).title);
}

QVariant ResultModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || role != Qt::DisplayRole) return {};
    const Book& book = office_.book();
    const Played& played = book.results()[places_[static_cast<std::size_t>(index.row())]];
    switch (kColumns.at(static_cast<std::size_t>(index.column())).id) {
        case ResultColumn::When:
            return shown(date_text(played.day) + " " + clock_text(played.clock));
        case ResultColumn::Pupil:
            return shown(book.name_of(played.pupil));
        case ResultColumn::Game:
            return shown(book.game_name(played.game));
        case ResultColumn::Team:
            return shown(team_of(played));
        case ResultColumn::Points:
            return shown(points_text(played));
        case ResultColumn::Taken:
            return shown(minutes_text(played.taken));
    }
    return {};
}

}  // namespace marrowfen
