#pragma once

#include <QMainWindow>

#include "teacher/office.h"

class QAction;
class QLabel;
class QTabWidget;

namespace marrowfen {

class PupilsPage;
class ResultsPage;
class WordsPage;

/// The teacher's window: a page for each question that the games don't answer.
class TeacherWindow final : public QMainWindow {
    Q_OBJECT

public:
    explicit TeacherWindow(const std::filesystem::path& program_folder);
    /// Opens the store. When that fails, the person has been told and asked until it worked or they gave up: false.
    [[nodiscard]] bool open();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void make_menus();
    void show_undo();
    void show_trouble(const QString& sentence);

    Office office_;
    QLabel* trouble_;
    QTabWidget* pages_;
    PupilsPage* pupils_;
    ResultsPage* results_;
    WordsPage* words_;
    QAction* undo_ = nullptr;
};

}  // namespace marrowfen
