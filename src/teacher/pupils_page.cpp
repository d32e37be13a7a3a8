#include "teacher/pupils_page.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <set>

#include "school/export.h"
#include "teacher/class_list_dialog.h"
#include "teacher/tables.h"

namespace marrowfen {

PupilsPage::PupilsPage(Office& office, QWidget* parent)
    : QWidget(parent),
      office_(office),
      pupils_(new PupilModel(office, this)),
      found_(new PupilSearch(*pupils_, this)),
      search_(new QLineEdit(this)),
      new_name_(new QLineEdit(this)),
      table_(new QTableView(this)),
      rename_(new QPushButton(tr("Re&name"), this)),
      remove_(new QPushButton(tr("Re&move…"), this)),
      count_(new QLabel(this)) {
    search_->setClearButtonEnabled(true);
    search_->setPlaceholderText(tr("part of a name"));
    auto* find = new QLabel(tr("Fin&d:"), this);
    find->setBuddy(search_);
    constexpr int kLongestName = 50;
    new_name_->setMaxLength(2 * kLongestName);  // blanks at its ends do not count
    auto* new_pupil = new QLabel(tr("Ne&w pupil:"), this);
    new_pupil->setBuddy(new_name_);
    auto* add = new QPushButton(tr("&Add"), this);
    auto* list = new QPushButton(tr("&Class list…"), this);

    table_->setModel(found_);
    set_up(*table_, tr("Pupils"));
    table_->setEditTriggers(QAbstractItemView::EditKeyPressed | QAbstractItemView::DoubleClicked);
    table_->sortByColumn(PupilModel::kName, Qt::AscendingOrder);

    auto* above = new QHBoxLayout;
    for (QWidget* widget :
         {static_cast<QWidget*>(find), static_cast<QWidget*>(search_), static_cast<QWidget*>(new_pupil),
          static_cast<QWidget*>(new_name_), static_cast<QWidget*>(add), static_cast<QWidget*>(list)}) {
        above->addWidget(widget);
    }
    auto* below = new QHBoxLayout;
    below->addWidget(count_, 1);
    below->addWidget(rename_);
    below->addWidget(remove_);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(above);
    rows->addWidget(table_, 1);
    rows->addLayout(below);

    connect(search_, &QLineEdit::textChanged, this, [this](const QString& part) {
        found_->look_for(part);
        tell_count();
    });
    connect(new_name_, &QLineEdit::returnPressed, this, &PupilsPage::add_one);
    connect(add, &QPushButton::clicked, this, &PupilsPage::add_one);
    connect(list, &QPushButton::clicked, this, &PupilsPage::add_list);
    connect(remove_, &QPushButton::clicked, this, &PupilsPage::remove_chosen);
    connect(rename_, &QPushButton::clicked, this, [this] {
        const auto row = table_->currentIndex();
        if (row.isValid()) table_->edit(row.siblingAtColumn(PupilModel::kName));
    });
    // Queued: the cell is still being edited when it tells of a new name.
    connect(pupils_, &PupilModel::renaming, this, &PupilsPage::rename, Qt::QueuedConnection);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &PupilsPage::tell_count);
    connect(&office_, &Office::changed, this, &PupilsPage::read);
    on_delete_key(*table_, [this] { remove_chosen(); });
    setTabOrder(new_name_, add);
}

void PupilsPage::read() {
    const auto before = chosen();
    const std::set<std::int64_t> numbers(before.begin(), before.end());
    const KeptPlace place(*table_);
    pupils_->read();
    QItemSelection selection;
    for (int row = 0; row < pupils_->rowCount(); ++row) {
        if (!numbers.contains(pupils_->pupil_at(row))) continue;
        const auto index = found_->mapFromSource(pupils_->index(row, 0));
        if (index.isValid()) selection.select(index, index.siblingAtColumn(PupilModel::kColumns - 1));
    }
    table_->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    fit_columns(*table_);
    tell_count();
}

std::vector<std::int64_t> PupilsPage::chosen() const {
    std::vector<std::int64_t> numbers;
    for (const QModelIndex& row : table_->selectionModel()->selectedRows()) {
        numbers.push_back(pupils_->pupil_at(found_->mapToSource(row).row()));
    }
    return numbers;
}

void PupilsPage::tell_count() {
    const int all = pupils_->rowCount();
    const int found = found_->rowCount();
    const auto marked = static_cast<int>(chosen().size());
    QString text = all == 0       ? tr("There are no pupils yet. Add one above, or a whole class list.")
                   : found == all ? tr("%1 pupils").arg(all)
                                  : tr("%1 of %2 pupils").arg(found).arg(all);
    if (marked > 0) text += tr(", %1 marked").arg(marked);
    count_->setText(text);
    rename_->setEnabled(marked == 1);
    remove_->setEnabled(marked > 0);
}

void PupilsPage::add_one() {
    const std::string name = new_name_->text().toStdString();
    const bool added = office_.act(this, tr("Adding a pupil"), tr("%1 was added.").arg(new_name_->text().trimmed()),
                                   [&](Desk& desk, const Progress& progress) { return desk.add({name}, progress); });
    if (added) new_name_->clear();
    new_name_->setFocus();
}

void PupilsPage::add_list() {
    ClassListDialog dialog(office_.book().pupils(), this);
    if (dialog.exec() != QDialog::Accepted) return;
    const auto names = dialog.names();
    office_.act(this, tr("Adding pupils"), tr("%1 added.").arg(shown(counted(std::ssize(names), "pupil"))),
                [&](Desk& desk, const Progress& progress) { return desk.add(names, progress); });
}

void PupilsPage::rename(std::int64_t pupil, const QString& name) {
    office_.act(this, tr("Renaming"), tr("The name is %1 now. The results stay.").arg(name.trimmed()),
                [&](Desk& desk, const Progress&) { return desk.rename(pupil, name.toStdString()); });
}

void PupilsPage::remove_chosen() {
    const auto pupils = chosen();
    if (pupils.empty()) return;
    const QString who = shown(named_or_counted(office_.book(), pupils));
    QMessageBox question(QMessageBox::Question, QStringLiteral("Marrowfen"), tr("Remove %1?").arg(who),
                         QMessageBox::Cancel, this);
    question.setInformativeText(
        tr("Results that stay are still in the halls of fame, under the name 0. As long as this "
           "window is open you can take the step back."));
    auto* stay = question.addButton(tr("&Keep the results"), QMessageBox::AcceptRole);
    auto* go = question.addButton(tr("Remove &results, too"), QMessageBox::DestructiveRole);
    question.setDefaultButton(QMessageBox::Cancel);
    question.exec();
    if (question.clickedButton() != stay && question.clickedButton() != go) return;
    const Results results = question.clickedButton() == go ? Results::GoToo : Results::Stay;
    office_.act(this, tr("Removing"), tr("%1 removed.").arg(who),
                [&](Desk& desk, const Progress& progress) { return desk.remove(pupils, results, progress); });
}

void PupilsPage::export_all() {
    const QString file =
        QFileDialog::getSaveFileName(this, tr("Pupils as a table"), tr("pupils.csv"), tr("CSV (*.csv)"));
    if (file.isEmpty()) return;
    if (const auto failure = export_pupils(office_.book(), file.toStdString())) {
        Office::tell(this, shown(*failure) + ".");
    } else {
        emit office_.did(tr("Written: %1").arg(file));
    }
}

}  // namespace marrowfen
