#include "teacher/copies_page.h"

#include <QDate>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTime>
#include <QVBoxLayout>

#include "copies/comparison.h"
#include "school/result_list.h"
#include "teacher/dates.h"
#include "teacher/tables.h"

namespace marrowfen {

namespace {

QString what_text(Copy::Kind kind) {
    switch (kind) {
        case Copy::Kind::OfTheDay:
            return CopiesModel::tr("of the day, by the games");
        case Copy::Kind::ByHand:
            return CopiesModel::tr("made by hand");
        case Copy::Kind::SetAside:
            return CopiesModel::tr("what was there before a copy was put back");
        case Copy::Kind::Salvaged:
            return CopiesModel::tr("saved from a damaged store");
    }
    return {};
}

QString holds_text(const Holdings& holdings) {
    return CopiesModel::tr("%1, %2").arg(shown(counted(holdings.pupils, "pupil")),
                                         shown(counted(holdings.results, "result")));
}

/// Short enough to be read, with the rest counted.
QString as_list(const std::vector<std::string>& lines) {
    QString text;
    for (const std::string& line : lines) text += QStringLiteral("•  ") + shown(line) + QStringLiteral("\n");
    return text;
}

}  // namespace

QString when_text(const Copy& copy) {
    const QLocale locale;
    const QDate date(static_cast<int>(copy.date.year()), static_cast<int>(static_cast<unsigned>(copy.date.month())),
                     static_cast<int>(static_cast<unsigned>(copy.date.day())));
    QString day = locale.toString(date, QLocale::LongFormat);
    if (!copy.time) return day;
    constexpr int kMilliseconds = 1000;
    const auto time = QTime::fromMSecsSinceStartOfDay(static_cast<int>(copy.time->count()) * kMilliseconds);
    return day + QStringLiteral(", ") + locale.toString(time, QLocale::ShortFormat);
}

void CopiesModel::show(std::vector<Copy> copies) {
    beginResetModel();
    std::vector<Row> before = std::exchange(rows_, {});
    for (Copy& copy : copies) {
        const auto known = std::ranges::find(before, copy.file, [](const Row& row) { return row.copy.file; });
        if (known == before.end()) {
            rows_.push_back({std::move(copy), false, {}});
        } else {
            rows_.push_back(std::move(*known));
        }
    }
    endResetModel();
}

void CopiesModel::tell(const std::filesystem::path& file, bool good, const QString& holds) {
    const auto found = std::ranges::find(rows_, file, [](const Row& row) { return row.copy.file; });
    if (found == rows_.end()) return;
    found->good = good;
    found->holds = holds;
    const QModelIndex cell = index(static_cast<int>(found - rows_.begin()), kHolds);
    emit dataChanged(cell, cell);
}

int CopiesModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CopiesModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : kColumns; }

QVariant CopiesModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
        case kWhen:
            return when_text(row.copy);
        case kWhat:
            return what_text(row.copy.kind);
        default:
            return row.holds.isEmpty() ? tr("being looked at…") : row.holds;
    }
}

QVariant CopiesModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    switch (section) {
        case kWhen:
            return tr("Copy of");
        case kWhat:
            return tr("What it is");
        default:
            return tr("Holds");
    }
}

CopiesPage::CopiesPage(Office& office, QWidget* parent)
    : QWidget(parent),
      office_(office),
      copies_(new CopiesModel(this)),
      table_(new QTableView(this)),
      state_(new QLabel(this)),
      put_back_(new QPushButton(tr("Put it &back…"), this)),
      clear_(new QPushButton(tr("Clear last &year's results…"), this)) {
    auto* about = new QLabel(
        tr("The games keep a copy of each of the last ten days on which they were played. What is made by hand stays."),
        this);
    about->setWordWrap(true);
    table_->setModel(copies_);
    set_up(*table_, tr("Copies"));
    table_->setSortingEnabled(false);  // the newest first
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    auto* make = new QPushButton(tr("Make a copy &now"), this);
    state_->setWordWrap(true);
    state_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);

    auto* below = new QHBoxLayout;
    below->addWidget(make);
    below->addWidget(put_back_);
    below->addStretch(1);
    below->addWidget(clear_);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(about);
    rows->addWidget(table_, 1);
    rows->addWidget(state_);
    rows->addLayout(below);

    connect(make, &QPushButton::clicked, this, [this] { make_one(); });
    connect(put_back_, &QPushButton::clicked, this, &CopiesPage::put_back);
    connect(clear_, &QPushButton::clicked, this, &CopiesPage::clear_last_year);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CopiesPage::show_state);
    connect(&office_, &Office::changed, this, &CopiesPage::show_state);
}

void CopiesPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    list();
}

void CopiesPage::list() {
    const KeptPlace place(*table_);
    auto copies = office_.copies().list();
    copies_->show(copies);
    fit_columns(*table_);
    look_into(std::move(copies));
    show_state();
}

// A large copy takes a second to be read through, so that the table fills as they are.
void CopiesPage::look_into(std::vector<Copy> copies) {
    looking_ = std::jthread([this, all = std::move(copies)](const std::stop_token& stop) {
        for (const Copy& copy : all) {
            if (stop.stop_requested()) return;
            const auto holdings = good_holdings_of(copy.file);
            const auto* failure = holdings.failure();
            const QString holds =
                failure ? tr("not good: %1").arg(shown(failure->reason)) : holds_text(holdings.value());
            QMetaObject::invokeMethod(
                this,
                [this, file = copy.file, good = failure == nullptr, holds] {
                    copies_->tell(file, good, holds);
                    show_state();
                },
                Qt::QueuedConnection);
        }
    });
}

int CopiesPage::chosen() const {
    const auto rows = table_->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void CopiesPage::show_state() {
    const int row = chosen();
    put_back_->setEnabled(row >= 0 && copies_->is_good(row));
    const QString folder = shown(office_.copies().folder().string());
    state_->setText(copies_->rowCount() == 0 ? tr("There are no copies in %1 yet.").arg(folder)
                                             : tr("They lie in %1.").arg(folder));
    clear_->setEnabled(!results_that_fit(office_.book(), until_last_year()).empty());
}

bool CopiesPage::make_one() {
    Result<Copy> made = StoreFailure{kStopped};
    office_.wait_for(this, tr("Making a copy"),
                     [&](const std::stop_token& stop) { made = office_.copies().make(this_moment(), stop); });
    if (const auto* failure = made.failure()) {
        Office::tell(this, tr("No copy was made: %1.").arg(shown(failure->reason)));
        return false;
    }
    list();
    table_->selectRow(0);
    emit office_.did(tr("A copy was made."));
    return true;
}

void CopiesPage::put_back() {
    const int row = chosen();
    bool may_go_on = row >= 0;
    if (may_go_on) emit about_to_put_back(may_go_on);
    if (!may_go_on) return;
    const Copy copy = copies_->copy_at(row);
    Result<Comparison> differences = StoreFailure{kStopped};
    office_.wait_for(this, tr("Comparing"),
                     [&](const std::stop_token&) { differences = compare(office_.copies().store(), copy.file); });
    if (const auto* failure = differences.failure()) {
        Office::tell(this, tr("It can't be put back: %1.").arg(shown(failure->reason)));
        return;
    }
    const Comparison& different = differences.value();
    if (different.nothing()) {
        QMessageBox::information(this, QStringLiteral("Marrowfen"),
                                 tr("Nothing would change: all is as in this copy."));
        return;
    }
    QMessageBox question(QMessageBox::Question, QStringLiteral("Marrowfen"),
                         tr("Put back the copy of %1?").arg(when_text(copy)), QMessageBox::Cancel, this);
    question.setInformativeText(
        as_list(different.lines()) +
        tr("\nClose the games on all computers first: where they are open they can't save any more. What is there now "
           "is kept among the copies."));
    auto* go = question.addButton(tr("Put it &back"), QMessageBox::DestructiveRole);
    question.setDefaultButton(QMessageBox::Cancel);
    question.exec();
    if (question.clickedButton() != go) return;

    if (!office_.put_back(this, copy)) return;
    if (const auto failure = office_.open(this)) {
        Office::tell(this,
                     tr("The copy is back in its place, but can't be read just now: %1. Close this window and open "
                        "it again.")
                         .arg(shown(failure->reason)));
    }
    emit was_put_back();
    list();
    emit office_.did(tr("The copy of %1 is back.").arg(when_text(copy)));
}

void CopiesPage::clear_last_year() {
    const ResultFilter last_year = until_last_year();
    const auto count = std::ssize(results_that_fit(office_.book(), last_year));
    const QString what = shown(counted(count, "result"));
    QMessageBox question(QMessageBox::Question, QStringLiteral("Marrowfen"),
                         tr("Clear %1 from before %2?")
                             .arg(what, QLocale().toString(school_year_of(QDate::currentDate()), QLocale::LongFormat)),
                         QMessageBox::Cancel, this);
    question.setInformativeText(
        tr("They go from the halls of fame, too; the pupils stay. A copy is made before, and as long as this window is "
           "open you can take the step back."));
    auto* clear = question.addButton(tr("Make a copy and c&lear"), QMessageBox::DestructiveRole);
    question.setDefaultButton(QMessageBox::Cancel);
    question.exec();
    if (question.clickedButton() != clear || !make_one()) return;
    office_.act(this, tr("Clearing results"), tr("A copy was made, and %1 cleared.").arg(what),
                [&](Desk& desk, const Progress& progress) { return desk.clear(last_year, progress); });
}

}  // namespace marrowfen
