#include "teacher/words_page.h"

#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QVBoxLayout>
#include <set>

#include "teacher/tables.h"

namespace marrowfen {

namespace {

constexpr int kRoomForAFault = 200;

/// Hands on every letter as it is typed, so that a fault shows at once. Escape brings back what stood there.
class TypingDelegate final : public QStyledItemDelegate {
public:
    explicit TypingDelegate(QObject* parent) : QStyledItemDelegate(parent) {
        connect(this, &QAbstractItemDelegate::closeEditor, this, [this](QWidget* editor, EndEditHint hint) {
            auto* line = qobject_cast<QLineEdit*>(editor);
            if (line == nullptr || hint != RevertModelCache) return;
            line->setText(line->property(kBefore).toString());
            emit commitData(line);
        });
    }

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                          const QModelIndex& index) const override {
        auto* line = new QLineEdit(parent);
        line->setFrame(false);
        line->setProperty(kBefore, index.data(Qt::EditRole));
        line->setAccessibleName(index.model()->headerData(index.column(), Qt::Horizontal).toString());
        connect(line, &QLineEdit::textEdited, this,
                [self = const_cast<TypingDelegate*>(this), line] { emit self->commitData(line); });
        return line;
    }

    void setEditorData(QWidget* editor, const QModelIndex& index) const override {
        auto* line = qobject_cast<QLineEdit*>(editor);
        const QString text = index.data(Qt::EditRole).toString();
        if (line && line->text() != text) line->setText(text);  // the cursor stays where it is
    }

private:
    static constexpr const char* kBefore = "text_before";
};

}  // namespace

WordsPage::WordsPage(Office& office, QWidget* parent)
    : QWidget(parent),
      office_(office),
      words_(new WordModel(this)),
      kinds_(new QComboBox(this)),
      table_(new QTableView(this)),
      maker_(new QLabel(this)),
      state_(new QLabel(this)),
      add_(new QPushButton(tr("Ne&w line"), this)),
      remove_(new QPushButton(tr("Remo&ve lines"), this)),
      keep_(new QPushButton(tr("&Keep"), this)),
      discard_(new QPushButton(tr("&Discard changes"), this)),
      go_back_(new QPushButton(tr("&Back to what came with Marrowfen…"), this)) {
    for (const SetKind& each : set_kinds()) kinds_->addItem(shown(each.title));
    auto* which = new QLabel(tr("Se&t:"), this);
    which->setBuddy(kinds_);
    table_->setModel(words_);
    set_up(*table_, tr("Set"));
    table_->setSortingEnabled(false);
    table_->setSelectionBehavior(QAbstractItemView::SelectItems);
    table_->verticalHeader()->setVisible(true);  // faults name lines
    table_->setEditTriggers(QAbstractItemView::AllEditTriggers);
    table_->setItemDelegate(new TypingDelegate(table_));
    state_->setWordWrap(true);
    auto* to_file = new QPushButton(tr("To &a file…"), this);
    auto* from_file = new QPushButton(tr("Fro&m a file…"), this);

    auto* above = new QHBoxLayout;
    above->addWidget(which);
    above->addWidget(kinds_);
    above->addWidget(maker_, 1);
    above->addWidget(from_file);
    above->addWidget(to_file);
    auto* below = new QHBoxLayout;
    for (QPushButton* button : {add_, remove_, go_back_}) below->addWidget(button);
    below->addStretch(1);
    for (QPushButton* button : {discard_, keep_}) below->addWidget(button);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(above);
    rows->addWidget(table_, 1);
    rows->addWidget(state_);
    rows->addLayout(below);

    connect(kinds_, &QComboBox::activated, this, &WordsPage::choose);
    connect(words_, &WordModel::checked, this, &WordsPage::show_state);
    connect(add_, &QPushButton::clicked, this, &WordsPage::add_row);
    connect(remove_, &QPushButton::clicked, this, &WordsPage::remove_rows);
    connect(keep_, &QPushButton::clicked, this, &WordsPage::keep);
    connect(discard_, &QPushButton::clicked, this, &WordsPage::open);
    connect(go_back_, &QPushButton::clicked, this, &WordsPage::go_back);
    connect(to_file, &QPushButton::clicked, this, &WordsPage::write_file);
    connect(from_file, &QPushButton::clicked, this, &WordsPage::read_file);
    connect(table_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &WordsPage::show_state);
}

const SetKind& WordsPage::kind() const { return set_kinds()[static_cast<std::size_t>(shown_kind_)]; }

void WordsPage::open() {
    const auto set = office_.words().read(kind());
    if (const auto* failure = set.failure()) {
        Office::tell(
            this, tr("The set can't be read just now: %1. Choose it again in a moment.").arg(shown(failure->reason)));
        return;
    }
    words_->show(kind(), set.value().rows);
    const bool own = set.value().maker == Maker::Teacher;
    maker_->setText(own ? tr("made here") : tr("as it came with Marrowfen"));
    go_back_->setEnabled(own);
    fit_columns(*table_, kRoomForAFault);
    show_state();
}

void WordsPage::choose(int kind) {
    if (kind == shown_kind_) return;
    if (!may_leave()) {
        kinds_->setCurrentIndex(shown_kind_);
        return;
    }
    shown_kind_ = kind;
    open();
}

bool WordsPage::may_leave() {
    if (!words_->is_changed()) return true;
    QMessageBox question(QMessageBox::Question, QStringLiteral("Marrowfen"),
                         tr("The changes in “%1” are not kept yet.").arg(shown(kind().title)),
                         QMessageBox::Discard | QMessageBox::Cancel, this);
    auto* keep_now = question.addButton(tr("&Keep"), QMessageBox::AcceptRole);
    keep_now->setEnabled(words_->fault_count() == 0);
    question.exec();
    if (question.clickedButton() == keep_now) return keep();
    if (question.result() != QMessageBox::Discard) return false;
    open();
    return true;
}

bool WordsPage::keep() {
    const bool done = office_.act(this, tr("Keeping the set"), tr("Kept. The games show it from the next game on."),
                                  [&](Desk&, const Progress&) { return office_.words().keep(kind(), words_->rows()); });
    if (!done) return false;
    words_->kept();
    open();
    return true;
}

void WordsPage::go_back() {
    const auto answer = QMessageBox::question(
        this, QStringLiteral("Marrowfen"),
        tr("Put what came with Marrowfen in the place of “%1”?\nWrite it to a file first if you want to have it again.")
            .arg(shown(kind().title)));
    if (answer != QMessageBox::Yes) return;
    if (office_.act(this, tr("Going back"), tr("This is what came with Marrowfen."),
                    [&](Desk&, const Progress&) { return office_.words().go_back(kind()); })) {
        open();
    }
}

void WordsPage::write_file() {
    const QString file =
        QFileDialog::getSaveFileName(this, tr("The set as a file"), shown(kind().word + ".tsv"), tr("Tables (*.tsv)"));
    if (file.isEmpty()) return;
    if (const auto failure = write_set(kind(), words_->rows(), file.toStdString())) {
        Office::tell(this, shown(*failure) + ".");
    } else {
        emit office_.did(tr("Written: %1").arg(file));
    }
}

void WordsPage::read_file() {
    const QString file = QFileDialog::getOpenFileName(this, tr("A set from a file"), {}, tr("Tables (*.tsv *.txt)"));
    if (file.isEmpty()) return;
    Faults faults;
    SetRows rows = read_set(kind(), file.toStdString(), faults);
    if (!faults.none()) {
        Office::tell(this, tr("%1 is no set of this kind: %2.").arg(file, shown(faults.places().front().reason)));
        return;
    }
    words_->replace(std::move(rows));
    fit_columns(*table_, kRoomForAFault);
    emit office_.did(tr("Read, and not kept yet. Look at it, then press Keep."));
}

std::vector<int> WordsPage::chosen_rows() const {
    std::set<int> rows;
    for (const QModelIndex& cell : table_->selectionModel()->selectedIndexes()) rows.insert(cell.row());
    return {rows.begin(), rows.end()};
}

void WordsPage::add_row() {
    const QModelIndex current = table_->currentIndex();
    const int row = words_->add_below(current.isValid() ? current.row() : words_->rowCount() - 1);
    const QModelIndex cell = words_->index(row, 1);
    table_->setCurrentIndex(cell);
    table_->edit(cell);
}

void WordsPage::remove_rows() { words_->remove(chosen_rows()); }

void WordsPage::show_state() {
    const auto faults = words_->fault_count();
    if (faults > 0) {
        state_->setText(tr("✗ %1, so the set can't be kept yet. The first is in %2.")
                            .arg(shown(counted(static_cast<std::int64_t>(faults), "fault")), words_->first_fault()));
    } else if (words_->is_changed()) {
        state_->setText(tr("✓ No faults. The changes are not kept yet."));
    } else {
        state_->setText(tr("✓ No faults. %1 lines.").arg(words_->rowCount()));
    }
    keep_->setEnabled(faults == 0 && words_->is_changed());
    discard_->setEnabled(words_->is_changed());
    add_->setEnabled(!words_->is_list_of_games());
    remove_->setEnabled(!words_->is_list_of_games() && !chosen_rows().empty());
}

}  // namespace marrowfen
