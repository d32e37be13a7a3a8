#pragma once

#include <QAbstractTableModel>
#include <QWidget>
#include <stop_token>
#include <thread>

#include "copies/copies.h"
#include "teacher/office.h"

class QLabel;
class QPushButton;
class QTableView;

namespace marrowfen {

[[nodiscard]] QString when_text(const Copy& copy);  ///< as the desktop writes dates

/// The copies of the store, and what each holds as far as that has been looked at.
class CopiesModel final : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column : std::uint8_t { kWhen, kWhat, kHolds, kColumns };

    using QAbstractTableModel::QAbstractTableModel;
    void show(std::vector<Copy> copies);
    void tell(const std::filesystem::path& file, bool good, const QString& holds);
    [[nodiscard]] const Copy& copy_at(int row) const { return rows_[static_cast<std::size_t>(row)].copy; }
    [[nodiscard]] bool is_good(int row) const { return rows_[static_cast<std::size_t>(row)].good; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    struct Row {
        Copy copy;
        bool good = false;
        QString holds;  ///< empty: not looked at yet
    };
    std::vector<Row> rows_;
};

/// The copies that the games keep and those that teachers make; putting one back; last year's results.
class CopiesPage final : public QWidget {
    Q_OBJECT

public:
    CopiesPage(Office& office, QWidget* parent);

signals:
    /// Asks whether the store may be changed for another now. Whoever has something to say against it sets the answer.
    void about_to_put_back(bool& may_go_on);
    void was_put_back();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void list();
    void look_into(std::vector<Copy> copies);
    void show_state();
    bool make_one();
    void put_back();
    void clear_last_year();
    [[nodiscard]] int chosen() const;  ///< the row; -1: none

    Office& office_;
    CopiesModel* copies_;
    QTableView* table_;
    QLabel* state_;
    QPushButton* put_back_;
    QPushButton* clear_;
    std::jthread looking_;
};

}  // namespace marrowfen
