#include "teacher/class_list_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>

#include "teacher/office.h"

namespace marrowfen {

ClassListDialog::ClassListDialog(const std::vector<KeptPupil>& pupils, QWidget* parent)
    : QDialog(parent),
      pupils_(pupils),
      text_(new QPlainTextEdit(this)),
      column_(new QComboBox(this)),
      preview_(new QTableWidget(0, 3, this)),
      summary_(new QLabel(this)) {
    setWindowTitle(tr("Add a class list"));
    resize(760, 560);
    auto* paste = new QLabel(tr("&Paste names here, one a line, or open a file:"), this);
    paste->setBuddy(text_);
    text_->setTabChangesFocus(true);
    constexpr int kTextHeight = 140;
    text_->setMaximumHeight(kTextHeight);
    auto* open = new QPushButton(tr("&Open a file…"), this);
    auto* which = new QLabel(tr("&Column with the names:"), this);
    which->setBuddy(column_);
    preview_->setAccessibleName(tr("What becomes of each line"));
    preview_->setHorizontalHeaderLabels({tr("Line"), tr("Name"), tr("What becomes of it")});
    preview_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    preview_->setSelectionBehavior(QAbstractItemView::SelectRows);
    preview_->setTabKeyNavigation(false);
    preview_->verticalHeader()->setVisible(false);
    preview_->horizontalHeader()->setStretchLastSection(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    add_ = buttons->addButton(tr("&Add"), QDialogButtonBox::AcceptRole);
    add_->setDefault(true);

    auto* file = new QHBoxLayout;
    file->addWidget(open);
    file->addStretch(1);
    file->addWidget(which);
    file->addWidget(column_);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(paste);
    rows->addWidget(text_);
    rows->addLayout(file);
    rows->addWidget(preview_, 1);
    rows->addWidget(summary_);
    rows->addWidget(buttons);

    connect(open, &QPushButton::clicked, this, &ClassListDialog::open_file);
    connect(text_, &QPlainTextEdit::textChanged, this, [this] { take(text_->toPlainText().toStdString()); });
    connect(column_, &QComboBox::activated, this, [this] { preview(); });
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    take({});
}

void ClassListDialog::open_file() {
    const QString name =
        QFileDialog::getOpenFileName(this, tr("A class list"), {}, tr("Lists (*.csv *.txt *.tsv);;All files (*)"));
    if (name.isEmpty()) return;
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        Office::tell(this, tr("%1 can't be read: %2.").arg(name, file.errorString()));
        return;
    }
    constexpr qint64 kLargest = 16 << 20;  // a list of 30,000 names has less than one megabyte
    if (file.size() > kLargest) {
        Office::tell(this, tr("%1 is too large for a class list.").arg(name));
        return;
    }
    take(file.readAll().toStdString());
}

void ClassListDialog::take(std::string bytes) {
    list_.emplace(std::move(bytes));
    column_->clear();
    for (const std::string& column : list_->columns()) column_->addItem(shown(column));
    column_->setCurrentIndex(list_->columns().empty() ? -1 : static_cast<int>(list_->likely_column()));
    column_->setEnabled(column_->count() > 1);
    preview();
}

void ClassListDialog::preview() {
    if (!list_) return;
    lines_ = list_->lines(static_cast<std::size_t>(std::max(0, column_->currentIndex())), pupils_);
    const auto good = static_cast<int>(names().size());
    const auto bad = static_cast<int>(lines_.size()) - good;
    // Lines that can't be taken come first: there may be one in thirty thousand.
    auto ordered = lines_;
    std::ranges::stable_partition(ordered, [](const ClassList::Line& line) { return !line.fault.empty(); });
    preview_->setUpdatesEnabled(false);
    preview_->setRowCount(static_cast<int>(ordered.size()));
    for (int row = 0; row < preview_->rowCount(); ++row) {
        const ClassList::Line& line = ordered[static_cast<std::size_t>(row)];
        auto* fate = new QTableWidgetItem(line.fault.empty() ? tr("will be added") : shown("✗ " + line.fault));
        preview_->setItem(row, 0, new QTableWidgetItem(QString::number(line.number)));
        preview_->setItem(row, 1, new QTableWidgetItem(shown(line.name)));
        preview_->setItem(row, 2, fate);
    }
    preview_->resizeColumnToContents(0);
    constexpr int kNameWidth = 260;
    preview_->setColumnWidth(1, kNameWidth);
    preview_->setUpdatesEnabled(true);
    summary_->setText(lines_.empty() ? tr("Nothing is listed yet.")
                                     : tr("%1 will be added, %2 can't be taken.").arg(good).arg(bad));
    add_->setText(good > 0 ? tr("&Add %1").arg(good) : tr("&Add"));
    add_->setEnabled(good > 0);
}

}  // namespace marrowfen
