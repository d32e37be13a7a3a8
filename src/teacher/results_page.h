#pragma once

#include <QWidget>

#include "teacher/result_model.h"

class QComboBox;
class QDateEdit;
class QLabel;
class QPushButton;
class QTableView;

namespace marrowfen {

/// What was played: by pupil, game, team and dates, sorted by any column.
class ResultsPage final : public QWidget {
    Q_OBJECT

public:
    ResultsPage(Office& office, QWidget* parent);
    void export_listed();
    void clear_listed();

private:
    void read();  ///< the lists of pupils and games, and the results
    void list();  ///< the results that fit
    void choose_span();
    [[nodiscard]] ResultFilter filter() const;

    Office& office_;
    ResultModel* results_;
    QComboBox* pupil_;
    QComboBox* game_;
    QComboBox* team_;
    QComboBox* span_;
    QDateEdit* from_;
    QDateEdit* to_;
    QTableView* table_;
    QLabel* count_;
    QPushButton* clear_;
};

}  // namespace marrowfen
