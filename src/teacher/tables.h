#pragma once

#include <QPersistentModelIndex>
#include <QString>
#include <functional>

class QTableView;

/// What all tables of the window have in common.
namespace marrowfen {

/// Whole rows are chosen, a click on a title sorts, and a million rows cost no more than those that can be seen.
/// `name` is what a screen reader says.
void set_up(QTableView& table, const QString& name);
/// Columns as wide as what can be seen of them now, and `narrowest` pixels at least.
void fit_columns(QTableView& table, int narrowest = 0);
void on_delete_key(QTableView& table, const std::function<void()>& action);

/// The table scrolls back to where it stood when its model has been read anew.
class KeptPlace {
public:
    explicit KeptPlace(QTableView& table);
    ~KeptPlace();
    KeptPlace(const KeptPlace&) = delete;
    KeptPlace& operator=(const KeptPlace&) = delete;

private:
    QTableView& table_;
    int top_;
    int row_;
    int column_;
};

}  // namespace marrowfen
