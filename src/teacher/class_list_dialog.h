#pragma once

#include <QDialog>
#include <optional>
#include <string>
#include <vector>

#include "school/class_list.h"

class QComboBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableWidget;

namespace marrowfen {

/// A class list is pasted or opened, and every line shows what becomes of it before anything happens.
class ClassListDialog final : public QDialog {
    Q_OBJECT

public:
    ClassListDialog(const std::vector<KeptPupil>& pupils, QWidget* parent);
    [[nodiscard]] std::vector<std::string> names() const { return good_names(lines_); }

private:
    void open_file();
    void take(std::string bytes);
    void preview();

    const std::vector<KeptPupil>& pupils_;
    std::optional<ClassList> list_;
    std::vector<ClassList::Line> lines_;
    QPlainTextEdit* text_;
    QComboBox* column_;
    QTableWidget* preview_;
    QLabel* summary_;
    QPushButton* add_;
};

}  // namespace marrowfen
