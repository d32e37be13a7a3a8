#pragma once

#include <QWidget>

#include "teacher/office.h"
#include "teacher/word_model.h"

class QComboBox;
class QLabel;
class QPushButton;
class QTableView;

namespace marrowfen {

/// The words and sentences of the games, and the list of games, as tables to write in.
class WordsPage final : public QWidget {
    Q_OBJECT

public:
    WordsPage(Office& office, QWidget* parent);
    void open();  ///< reads the chosen set from the store
    /// Asks what becomes of changes that are not kept. False: the person wants to go on with them.
    [[nodiscard]] bool may_leave();

private:
    [[nodiscard]] const SetKind& kind() const;
    void choose(int kind);
    bool keep();
    void go_back();
    void write_file();
    void read_file();
    void add_row();
    void remove_rows();
    void show_state();
    [[nodiscard]] std::vector<int> chosen_rows() const;

    Office& office_;
    WordModel* words_;
    QComboBox* kinds_;
    QTableView* table_;
    QLabel* maker_;
    QLabel* state_;
    QPushButton* add_;
    QPushButton* remove_;
    QPushButton* keep_;
    QPushButton* discard_;
    QPushButton* go_back_;
    int shown_kind_ = 0;
};

}  // namespace marrowfen
