// Makes the pictures of the teacher's window: every page, with a school that was made up.

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QEventLoop>
#include <QTabWidget>
#include <QTimer>
#include <array>
#include <random>

#include "../failure.h"
#include "core/game_table.h"
#include "core/teams.h"
#include "teacher/pupil_page.h"
#include "teacher/teacher_window.h"

namespace marrowfen {

namespace {

namespace fs = std::filesystem;

constexpr std::array kFirstNames{"Aisha", "Ben",   "Chloe", "Dylan", "Ella", "Farid",  "Grace", "Harry", "Isla",
                                 "Jakub", "Keira", "Liam",  "Maya",  "Noah", "Olivia", "Priya", "Quinn", "Ruby",
                                 "Samir", "Tilly", "Umar",  "Vera",  "Will", "Yasmin", "Zoë",   "Łukasz"};

std::string name_of(int pupil) {
    const auto first = static_cast<std::size_t>(pupil) % kFirstNames.size();
    const int round = pupil / static_cast<int>(kFirstNames.size());
    std::string name = kFirstNames.at(first);
    if (round > 0) name += " " + std::string(1, static_cast<char>('A' + (round - 1) % 26)) + ".";
    return round > 26 ? name + " " + std::to_string(round / 26) : name;
}

std::string two_digits(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

/// The same school each time: some play much, some little, the last of them not at all, and all get better.
Change made_up_results(Book& book) {
    constexpr unsigned kSeed = 7;
    std::mt19937 random(kSeed);
    const auto draw = [&random](int to) { return static_cast<int>(random() % static_cast<unsigned>(to)); };
    Change change;
    for (std::size_t i = 0; i < book.pupils().size(); ++i) {
        const int eagerness = static_cast<int>(i * 37 % 29);
        const int days = i + 1 == book.pupils().size() ? 0 : eagerness / 2 + 1;
        for (int day = 0; day < days; ++day) {
            const int game = 1 + draw(3 + day * 2);
            const GameEntry& entry = book.games()[static_cast<std::size_t>(game - 1) % book.games().size()];
            const bool typing = is_typing_test(entry.id);
            const Team& team = kTeams.at(static_cast<std::size_t>(3 - std::min(3, day / 4)));
            const int seconds = typing ? 90 - 3 * day + draw(20) : team.time_limit * (90 - 3 * day - draw(25)) / 100;
            const int points = typing ? seconds : (team.time_limit - seconds) * 100 / team.time_limit;
            change.put_back_results.push_back(
                {.row = std::ssize(change.put_back_results) + 1,
                 .pupil = book.pupils()[i].number,
                 .game = entry.id,
                 .time_limit = typing ? 0 : team.time_limit,
                 .points = points,
                 .time_taken = std::to_string(seconds / 60) + ":" + two_digits(seconds % 60),
                 .date = "2026-0" + std::to_string(2 + day / 10) + "-" + two_digits(1 + day % 10 * 2 + draw(2)),
                 .time_played = "10:" + two_digits(draw(60)) + ":00"});
        }
    }
    return change;
}

/// A store in `folder` with so many pupils, made from an empty one.
void make_school(const fs::path& program_folder, const fs::path& folder, int pupils) {
    fs::create_directories(folder);
    fs::copy_file(program_folder / "data.mdb", folder / "data.mdb", fs::copy_options::overwrite_existing);
    const DiskFiles files(folder);
    SqliteStoreEngine engine(files);
    const auto store = engine.open(files.program_folder() + "\\data.mdb").value();
    const auto keeper = engine.open_register(files.program_folder() + "\\data.mdb").value();
    Book book(*store, *keeper);
    const auto read = [&book] {
        const auto answer = book.refresh(Book::Reading::Everything, {});
        if (const auto* failure = answer.failure()) throw Failure(failure->reason);
    };
    Change change;
    change.removed_results.emplace_back();
    read();
    for (const KeptPupil& pupil : book.pupils()) change.removed_pupils.push_back(pupil.number);
    for (int i = 0; i < pupils; ++i) change.new_pupils.push_back(name_of(i));
    const auto apply = [&keeper](const Change& wanted) {
        const auto answer = keeper->apply(wanted, {});
        if (const auto* failure = answer.failure()) throw Failure(failure->reason);
    };
    apply(change);
    read();
    apply(made_up_results(book));
    const Copies copies(folder / "data.mdb");
    using std::chrono::March;
    for (const auto day : {std::chrono::day(9), std::chrono::day(10)}) {
        if (const auto failure = copies.keep({std::chrono::year(2026), March, day}, {})) throw Failure(failure->reason);
    }
}

/// Whoever has played the first of their games most often, so that there is something to see in the chart.
void choose_eager_pupil(const QWidget& page) {
    const auto boxes = page.findChildren<QComboBox*>();
    QComboBox& pupils = *boxes.at(0);
    const auto times = [&](int pupil) {
        pupils.setCurrentIndex(pupil);
        return boxes.at(1)->currentText().section('(', 1).section(' ', 0, 0).toInt();
    };
    int eagerest = 0;
    for (int pupil = 1; pupil < std::min(pupils.count(), 30); ++pupil) {
        if (times(pupil) > times(eagerest)) eagerest = pupil;
    }
    pupils.setCurrentIndex(eagerest);
}

void save(QWidget& window, const fs::path& file) {
    constexpr int kUntilAllIsRead = 500;  // milliseconds; copies are looked into beside the window
    QEventLoop wait;
    QTimer::singleShot(kUntilAllIsRead, &wait, &QEventLoop::quit);
    wait.exec();
    if (!window.grab().save(QString::fromStdString(file.string()))) throw Failure(file.string() + " can't be written");
}

void make_pictures(const std::vector<fs::path>& arguments) {
    const fs::path& out = arguments[3];
    const int pupils = std::stoi(arguments[1].string());
    const QSize size(std::stoi(arguments[2].string()), std::stoi(arguments[2].string()) * 3 / 4);
    fs::create_directories(out);
    const fs::path school = out / "school";
    make_school(arguments[0], school, pupils);
    {
        TeacherWindow window(school);
        window.resize(size);
        window.show();
        if (!window.open()) throw Failure("the store can't be opened");
        auto* pages = window.findChild<QTabWidget*>();
        for (int page = 0; page < pages->count(); ++page) {
            pages->setCurrentIndex(page);
            if (const auto* one_pupil = qobject_cast<PupilPage*>(pages->widget(page))) choose_eager_pupil(*one_pupil);
            save(window, out / (std::to_string(page + 1) + "-" +
                                pages->tabText(page).remove('&').replace(' ', '-').toLower().toStdString() + ".png"));
        }
    }
    fs::remove_all(school);
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char* argv[]) {
    using namespace marrowfen;
    const QApplication toolkit(argc, argv);
    return run_tool(argc, argv, "picture_teacher PROGRAM_FOLDER PUPILS WIDTH FOLDER_OUT", make_pictures);
}
