#include "teacher/results_page.h"

#include <QComboBox>
#include <QDateEdit>
#include <QFileDialog>
#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "core/teams.h"
#include "school/export.h"
#include "teacher/choices.h"
#include "teacher/dates.h"
#include "teacher/tables.h"

namespace marrowfen {

namespace {

enum Span : std::uint8_t { kAllDates, kToday, kWeek, kThisYear, kLastYear, kFromTo };

}  // namespace

ResultsPage::ResultsPage(Office& office, QWidget* parent)
    : QWidget(parent),
      office_(office),
      results_(new ResultModel(office, this)),
      pupil_(new QComboBox(this)),
      game_(new QComboBox(this)),
      team_(new QComboBox(this)),
      span_(new QComboBox(this)),
      from_(new QDateEdit(QDate::currentDate(), this)),
      to_(new QDateEdit(QDate::currentDate(), this)),
      table_(new QTableView(this)),
      count_(new QLabel(this)),
      clear_(new QPushButton(tr("Clear t&hese…"), this)) {
    let_type(*pupil_);
    team_->addItem(tr("All teams"));
    for (const Team& team : kTeams) team_->addItem(shown(std::string(team.name)), team.time_limit);
    team_->addItem(tr("Typing tests"), 0);
    span_->addItems({tr("All dates"), tr("Today"), tr("Last 7 days"), tr("This school year"), tr("Last school year"),
                     tr("From … until")});
    auto* fields = new QGridLayout;
    int column = 0;
    const auto add = [&](const QString& title, QWidget* field, int stretch) {
        auto* label = new QLabel(title, this);
        label->setBuddy(field);
        fields->addWidget(label, 0, column);
        fields->addWidget(field, 1, column);
        fields->setColumnStretch(column++, stretch);
    };
    add(tr("&Pupil"), pupil_, 2);
    add(tr("&Game"), game_, 2);
    add(tr("&Team"), team_, 1);
    add(tr("&Dates"), span_, 1);
    add(tr("Fro&m"), from_, 0);
    add(tr("U&ntil"), to_, 0);
    for (QComboBox* box : {pupil_, game_}) {
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box->setMinimumContentsLength(14);
    }
    for (QDateEdit* day : {from_, to_}) {
        day->setCalendarPopup(true);
        day->setEnabled(false);
        connect(day, &QDateEdit::dateChanged, this, &ResultsPage::list);
    }
    table_->setModel(results_);
    set_up(*table_, tr("Results"));
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->sortByColumn(0, Qt::DescendingOrder);

    auto* save = new QPushButton(tr("Save as CS&V…"), this);
    auto* below = new QHBoxLayout;
    below->addWidget(count_, 1);
    below->addWidget(save);
    below->addWidget(clear_);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(fields);
    rows->addWidget(table_, 1);
    rows->addLayout(below);

    for (QComboBox* box : {pupil_, game_, team_})
        connect(box, &QComboBox::currentIndexChanged, this, &ResultsPage::list);
    connect(span_, &QComboBox::currentIndexChanged, this, &ResultsPage::choose_span);
    connect(save, &QPushButton::clicked, this, &ResultsPage::export_listed);
    connect(clear_, &QPushButton::clicked, this, &ResultsPage::clear_listed);
    connect(&office_, &Office::changed, this, &ResultsPage::read);
}

void ResultsPage::read() {
    offer_pupils(*pupil_, office_.book(), tr("All pupils"));
    offer_games(*game_, office_.book(), tr("All games"));
    const bool first = results_->rowCount() == 0;
    list();
    if (first) fit_columns(*table_);
}

void ResultsPage::choose_span() {
    const QDate today = QDate::currentDate();
    const QDate year = school_year_of(today);
    const QSignalBlocker quiet_from(from_);
    const QSignalBlocker quiet_to(to_);
    constexpr int kWeekBefore = -6;
    switch (span_->currentIndex()) {
        case kToday:
            from_->setDate(today);
            to_->setDate(today);
            break;
        case kWeek:
            from_->setDate(today.addDays(kWeekBefore));
            to_->setDate(today);
            break;
        case kThisYear:
            from_->setDate(year);
            to_->setDate(today);
            break;
        case kLastYear:
            from_->setDate(year.addYears(-1));
            to_->setDate(year.addDays(-1));
            break;
        default:
            break;
    }
    const bool own = span_->currentIndex() == kFromTo;
    from_->setEnabled(own);
    to_->setEnabled(own);
    list();
}

ResultFilter ResultsPage::filter() const {
    ResultFilter filter;
    if (const auto pupil = chosen_in(*pupil_)) filter.pupils = {*pupil};
    filter.game = chosen_in(*game_);
    filter.time_limit = chosen_in(*team_);
    if (span_->currentIndex() != kAllDates) {
        filter.from = from_->date().toString(Qt::ISODate).toStdString();
        filter.to = to_->date().toString(Qt::ISODate).toStdString();
    }
    return filter;
}

void ResultsPage::list() {
    const KeptPlace place(*table_);
    results_->list(filter());
    const QLocale locale;
    const int listed = results_->rowCount();
    const auto all = static_cast<qlonglong>(office_.book().results().size());
    count_->setText(listed == all ? tr("%1 results").arg(locale.toString(all))
                                  : tr("%1 of %2 results").arg(locale.toString(listed), locale.toString(all)));
    clear_->setEnabled(listed > 0);
}

void ResultsPage::export_listed() {
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Results as a table"), tr("results.csv"), tr("CSV (*.csv)"));
    if (file.isEmpty()) return;
    if (const auto failure = export_results(office_.book(), results_->places(), file.toStdString(),
                                            Office::watch(this, tr("Writing the results")))) {
        Office::tell(this, shown(*failure) + ".");
    } else {
        emit office_.did(tr("Written: %1").arg(file));
    }
}

void ResultsPage::clear_listed() {
    const QString what = shown(counted(results_->rowCount(), "result"));
    QMessageBox question(QMessageBox::Question, QStringLiteral("Marrowfen"), tr("Clear %1?").arg(what),
                         QMessageBox::Cancel, this);
    question.setInformativeText(
        tr("They go from the halls of fame, too. As long as this window is open you can take the "
           "step back."));
    auto* clear = question.addButton(tr("C&lear"), QMessageBox::DestructiveRole);
    question.setDefaultButton(QMessageBox::Cancel);
    question.exec();
    if (question.clickedButton() != clear) return;
    office_.act(this, tr("Clearing results"), tr("%1 cleared.").arg(what),
                [&](Desk& desk, const Progress& progress) { return desk.clear(filter(), progress); });
}

}  // namespace marrowfen
