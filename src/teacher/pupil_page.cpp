#include "teacher/pupil_page.h"

#include <QChart>
#include <QChartView>
#include <QComboBox>
#include <QDateTimeAxis>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineSeries>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimeZone>
#include <QVBoxLayout>
#include <QValueAxis>
#include <algorithm>

#include "school/result_list.h"
#include "school/standing.h"
#include "teacher/choices.h"
#include "teacher/paper.h"

namespace marrowfen {

PupilPage::PupilPage(Office& office, QWidget* parent)
    : QWidget(parent),
      office_(office),
      pupil_(new QComboBox(this)),
      game_(new QComboBox(this)),
      advice_(new QLabel(this)),
      summary_(new QLabel(this)),
      view_(new QChartView(this)),
      print_(new QPushButton(tr("Print a &certificate…"), this)),
      save_(new QPushButton(tr("Certificate as P&DF…"), this)) {
    let_type(*pupil_);
    auto* who = new QLabel(tr("&Pupil:"), this);
    who->setBuddy(pupil_);
    auto* what = new QLabel(tr("&Game:"), this);
    what->setBuddy(game_);
    game_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    view_->setRenderHint(QPainter::Antialiasing);
    view_->setAccessibleName(tr("Results of the pupil in the game over time"));
    for (QLabel* label : {advice_, summary_}) label->setWordWrap(true);
    auto* above = new QHBoxLayout;
    above->addWidget(who);
    above->addWidget(pupil_, 1);
    above->addWidget(what);
    above->addWidget(game_, 1);
    auto* below = new QHBoxLayout;
    below->addWidget(summary_, 1);
    below->addWidget(print_);
    below->addWidget(save_);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(above);
    rows->addWidget(advice_);
    rows->addWidget(view_, 1);
    rows->addLayout(below);
    connect(pupil_, &QComboBox::currentIndexChanged, this, &PupilPage::choose_pupil);
    connect(game_, &QComboBox::currentIndexChanged, this, &PupilPage::draw);
    connect(print_, &QPushButton::clicked, this, &PupilPage::print_certificate);
    connect(save_, &QPushButton::clicked, this, &PupilPage::save_certificate);
    connect(&office_, &Office::changed, this, &PupilPage::read);
}

void PupilPage::read() {
    offer_pupils(*pupil_, office_.book(), {});
    choose_pupil();
}

void PupilPage::choose_pupil() {
    const Book& book = office_.book();
    const auto pupil = chosen_in(*pupil_);
    const auto before = chosen_in(*game_);
    Standing standing;
    if (pupil) {
        for (const auto place : results_that_fit(book, {.pupils = {*pupil}})) standing.count(book.results()[place]);
    }
    {
        const QSignalBlocker quiet(game_);
        game_->clear();
        int most = 0;
        for (const GameEntry& game : book.games()) {
            const auto found = standing.games.find(game.id);
            if (found == standing.games.end()) continue;
            game_->addItem(tr("%1 (%2)").arg(shown(game.title()), shown(counted(found->second.times, "time"))),
                           QVariant::fromValue<qlonglong>(game.id));
            if (found->second.times > standing.games[book.games()[static_cast<std::size_t>(most)].id].times) {
                most = static_cast<int>(&game - book.games().data());
            }
        }
        const auto wanted = before                 ? *before
                            : book.games().empty() ? 0
                                                   : book.games()[static_cast<std::size_t>(most)].id;
        game_->setCurrentIndex(std::max(0, game_->findData(QVariant::fromValue<qlonglong>(wanted))));
    }
    advice_->setText(pupil ? shown(advice(book, standing)) : tr("There are no pupils yet."));
    draw();
}

void PupilPage::draw() {
    const Book& book = office_.book();
    const auto pupil = chosen_in(*pupil_);
    const auto game = chosen_in(*game_);
    auto* chart = new QChart;
    chart->legend()->hide();
    print_->setEnabled(pupil && game);
    save_->setEnabled(pupil && game);
    if (!pupil || !game) {
        chart->setTitle(tr("No results yet"));
        summary_->clear();
    } else {
        auto places = results_that_fit(book, {.pupils = {*pupil}, .game = *game});
        sort_results(book, places, ResultColumn::When, Order::Ascending);
        auto* line = new QLineSeries(chart);
        line->setPointsVisible(true);
        int highest = 0;
        QDateTime first;
        QDateTime last;
        for (const auto place : places) {
            const Played& played = book.results()[place];
            if (played.day == Played::kUnknown) continue;
            // Two results of one day lie as far apart as their times of day.
            const QDateTime when =
                QDate(1970, 1, 1).addDays(played.day).startOfDay().addSecs(std::max(0, played.clock));
            line->append(static_cast<double>(when.toMSecsSinceEpoch()), played.points);
            highest = std::max<int>(highest, played.points);
            if (!first.isValid()) first = when;
            last = when;
        }
        const bool typing = !places.empty() && book.results()[places.front()].time_limit == 0;
        chart->addSeries(line);
        chart->setTitle(tr("%1: %2").arg(pupil_->currentText(), shown(book.game_name(*game))));
        auto* days = new QDateTimeAxis(chart);
        days->setFormat(QStringLiteral("d MMM"));
        // Whole days, four of them at least, so that the marks below name four different ones.
        const QDate from = first.date().addDays(-1);
        const QDate to = std::max(last.date().addDays(2), from.addDays(4));
        days->setRange(from.startOfDay(), to.startOfDay());
        days->setTitleText(tr("Day"));
        auto* points = new QValueAxis(chart);
        constexpr int kAllPoints = 100;
        points->setRange(0, typing ? std::max(10, highest + 5) : kAllPoints);
        points->setLabelFormat(QStringLiteral("%d"));
        points->setTitleText(typing ? tr("Seconds (fewer are better)") : tr("Points"));
        chart->addAxis(days, Qt::AlignBottom);
        chart->addAxis(points, Qt::AlignLeft);
        line->attachAxis(days);
        line->attachAxis(points);
        const Played& begin = book.results()[places.front()];
        const Played& end = book.results()[places.back()];
        summary_->setText(places.size() == 1 ? tr("Played once: %1.").arg(shown(points_text(end)))
                                             : tr("Played %1 times: %2 at first, %3 the last time.")
                                                   .arg(places.size())
                                                   .arg(shown(points_text(begin)), shown(points_text(end))));
    }
    view_->setAccessibleDescription(summary_->text());
    const std::unique_ptr<QChart> before(view_->chart());
    view_->setChart(chart);
}

void PupilPage::print_certificate() {
    const auto pupil = chosen_in(*pupil_);
    const auto game = chosen_in(*game_);
    if (pupil && game) print_on_paper(this, certificate(office_, *pupil, *game));
}

void PupilPage::save_certificate() {
    const auto pupil = chosen_in(*pupil_);
    const auto game = chosen_in(*game_);
    if (pupil && game) save_as_pdf(this, office_, certificate(office_, *pupil, *game), tr("certificate.pdf"));
}

}  // namespace marrowfen
