#pragma once

#include <QWidget>

#include "teacher/office.h"

class QChart;
class QChartView;
class QComboBox;
class QLabel;
class QPushButton;

namespace marrowfen {

/// How one pupil gets on in one game, and what to try next.
class PupilPage final : public QWidget {
    Q_OBJECT

public:
    PupilPage(Office& office, QWidget* parent);

private:
    void read();
    void choose_pupil();
    void draw();
    void print_certificate();
    void save_certificate();

    Office& office_;
    QComboBox* pupil_;
    QComboBox* game_;
    QLabel* advice_;
    QLabel* summary_;
    QChartView* view_;
    QPushButton* print_;
    QPushButton* save_;
};

}  // namespace marrowfen
