#pragma once

#include <QWidget>
#include <vector>

#include "teacher/pupil_model.h"

class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace marrowfen {

/// Who may play: looked up, added, renamed and removed.
class PupilsPage final : public QWidget {
    Q_OBJECT

public:
    PupilsPage(Office& office, QWidget* parent);
    void add_list();  ///< of a class, from a file or the clipboard
    void export_all();

private:
    void read();
    void add_one();
    void rename(std::int64_t pupil, const QString& name);
    void remove_chosen();
    void tell_count();
    [[nodiscard]] std::vector<std::int64_t> chosen() const;

    Office& office_;
    PupilModel* pupils_;
    PupilSearch* found_;
    QLineEdit* search_;
    QLineEdit* new_name_;
    QTableView* table_;
    QPushButton* rename_;
    QPushButton* remove_;
    QLabel* count_;
};

}  // namespace marrowfen
