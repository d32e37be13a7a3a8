#include "teacher/class_page.h"

#include <QColor>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include "teacher/paper.h"
#include "teacher/tables.h"

namespace marrowfen {

void ClassModel::read() {
    beginResetModel();
    grid_.emplace(office_.book());
    endResetModel();
}

int ClassModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() || !grid_ ? 0 : static_cast<int>(office_.book().pupils().size());
}

int ClassModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() || !grid_ ? 0 : static_cast<int>(grid_->games().size());
}

QVariant ClassModel::headerData(int section, Qt::Orientation orientation, int role) const {
    const auto place = static_cast<std::size_t>(section);
    if (orientation == Qt::Vertical) {
        return role == Qt::DisplayRole ? QVariant(shown(office_.book().pupils()[place].name)) : QVariant{};
    }
    if (!grid_) return {};
    const GameEntry& game = *grid_->games()[place];
    if (role == Qt::DisplayRole) return game.number;
    return role == Qt::ToolTipRole || role == Qt::AccessibleTextRole ? QVariant(shown(game.title())) : QVariant{};
}

QVariant ClassModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || !grid_) return {};
    const auto pupil = static_cast<std::size_t>(index.row());
    const auto game = static_cast<std::size_t>(index.column());
    const ClassGrid::Cell cell = grid_->cell(pupil, game);
    switch (role) {
        case Qt::DisplayRole:
            return shown(cell.text);
        case Qt::TextAlignmentRole:
            return QVariant(Qt::AlignCenter);
        case Qt::ToolTipRole:
        case Qt::AccessibleTextRole:
            return tr("%1, %2: %3")
                .arg(shown(office_.book().pupils()[pupil].name), shown(grid_->games()[game]->title()),
                     cell.text.empty() ? tr("not played yet") : shown(cell.text));
        case Qt::ForegroundRole:
            if (cell.level == ClassGrid::Level::Never) return {};
            return QColor(Qt::black);
        case Qt::BackgroundRole:
            switch (cell.level) {
                case ClassGrid::Level::Well:
                    return QColor(0xA8, 0xD5, 0xA2);
                case ClassGrid::Level::Halfway:
                    return QColor(0xFF, 0xE9, 0xA8);
                case ClassGrid::Level::Begun:
                    return QColor(0xF6, 0xC9, 0xB5);
                case ClassGrid::Level::Never:
                    return {};
            }
            return {};
        default:
            return {};
    }
}

ClassPage::ClassPage(Office& office, QWidget* parent)
    : QWidget(parent), office_(office), grid_(new ClassModel(office, this)), table_(new QTableView(this)) {
    table_->setModel(grid_);
    set_up(*table_, tr("Pupils by games"));
    table_->setSortingEnabled(false);
    table_->setSelectionBehavior(QAbstractItemView::SelectItems);
    table_->verticalHeader()->setVisible(true);
    table_->horizontalHeader()->setStretchLastSection(false);
    auto* legend = new QLabel(shown(ClassGrid::legend()), this);
    legend->setWordWrap(true);
    auto* print = new QPushButton(tr("&Print the table…"), this);
    auto* save = new QPushButton(tr("Table as P&DF…"), this);
    auto* below = new QHBoxLayout;
    below->addWidget(legend, 1);
    below->addWidget(print);
    below->addWidget(save);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(table_, 1);
    rows->addLayout(below);
    connect(print, &QPushButton::clicked, this, [this] { print_on_paper(this, class_table(office_)); });
    connect(save, &QPushButton::clicked, this,
            [this] { save_as_pdf(this, office_, class_table(office_), tr("class.pdf")); });
    connect(&office_, &Office::changed, this, &ClassPage::read);
}

void ClassPage::read() {
    const KeptPlace place(*table_);
    grid_->read();
    constexpr int kCellLetters = 6;
    const int width = table_->fontMetrics().averageCharWidth() * kCellLetters + 8;
    table_->horizontalHeader()->setDefaultSectionSize(width);
}

}  // namespace marrowfen
