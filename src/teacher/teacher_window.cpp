#include "teacher/teacher_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include "teacher/class_page.h"
#include "teacher/copies_page.h"
#include "teacher/pupil_page.h"
#include "teacher/pupils_page.h"
#include "teacher/results_page.h"
#include "teacher/words_page.h"

namespace marrowfen {

TeacherWindow::TeacherWindow(const std::filesystem::path& program_folder)
    : office_(program_folder),
      trouble_(new QLabel(this)),
      pages_(new QTabWidget(this)),
      pupils_(new PupilsPage(office_, pages_)),
      results_(new ResultsPage(office_, pages_)),
      words_(new WordsPage(office_, pages_)) {
    setWindowTitle(tr("Marrowfen for teachers"));
    resize(1000, 680);
    trouble_->setWordWrap(true);
    trouble_->setFrameShape(QFrame::StyledPanel);
    trouble_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    trouble_->hide();
    pages_->setAccessibleName(tr("Pages"));
    pages_->addTab(pupils_, tr("P&upils"));
    pages_->addTab(results_, tr("&Results"));
    pages_->addTab(new PupilPage(office_, pages_), tr("&One pupil"));
    pages_->addTab(new ClassPage(office_, pages_), tr("Whole c&lass"));
    pages_->addTab(words_, tr("Word&s"));
    auto* copies = new CopiesPage(office_, pages_);
    pages_->addTab(copies, tr("Cop&ies"));
    connect(copies, &CopiesPage::about_to_put_back, words_,
            [this](bool& may_go_on) { may_go_on = may_go_on && words_->may_leave(); });
    connect(copies, &CopiesPage::was_put_back, words_, &WordsPage::open);
    auto* middle = new QWidget(this);
    auto* rows = new QVBoxLayout(middle);
    rows->addWidget(trouble_);
    rows->addWidget(pages_, 1);
    setCentralWidget(middle);
    make_menus();
    connect(&office_, &Office::trouble, this, &TeacherWindow::show_trouble);
    connect(&office_, &Office::did, this, [this](const QString& what) {
        statusBar()->showMessage(what);
        show_undo();
    });
}

void TeacherWindow::make_menus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("Add a class &list…"), QKeySequence(QKeySequence::Open), pupils_, [this] {
        pages_->setCurrentWidget(pupils_);
        pupils_->add_list();
    });
    file->addSeparator();
    file->addAction(tr("Save &pupils as CSV…"), pupils_, [this] { pupils_->export_all(); });
    file->addAction(tr("Save listed &results as CSV…"), QKeySequence(QKeySequence::Save), results_,
                    [this] { results_->export_listed(); });
    file->addSeparator();
    file->addAction(tr("&Quit"), QKeySequence(QKeySequence::Quit), this, &QWidget::close);
    QMenu* edit = menuBar()->addMenu(tr("&Edit"));
    undo_ = edit->addAction(tr("&Undo"), QKeySequence(QKeySequence::Undo), this, [this] { office_.undo(this); });
    edit->addAction(tr("&Read again"), QKeySequence(QKeySequence::Refresh), this,
                    [this] { office_.look_again(this, Book::Reading::Everything); });
    show_undo();
}

namespace {

bool a_copy_helps(Trouble trouble) {
    return trouble == Trouble::Missing || trouble == Trouble::Damaged || trouble == Trouble::Foreign;
}

}  // namespace

bool TeacherWindow::open() {
    for (;;) {
        const auto failure = office_.open(this);
        if (!failure) break;
        if (failure->reason == kStopped) return false;
        QMessageBox message(QMessageBox::Warning, windowTitle(),
                            tr("The pupils and results can't be read: %1.").arg(shown(failure->reason)),
                            QMessageBox::Retry | QMessageBox::Close, this);
        message.setInformativeText(tr("They lie in the file data.mdb in the folder\n%1\nNothing was changed. Try again "
                                      "in a moment, or ask whoever looks after the computers.")
                                       .arg(shown(office_.files().program_folder()).replace('\\', '/')));
        const auto copy = a_copy_helps(failure->trouble) ? office_.copies().newest_good() : std::nullopt;
        auto* put_back =
            copy ? message.addButton(tr("&Put back the copy of %1").arg(when_text(*copy)), QMessageBox::ActionRole)
                 : nullptr;
        const int answer = message.exec();
        if (copy && message.clickedButton() == put_back) {
            office_.put_back(this, *copy);
        } else if (answer != QMessageBox::Retry) {
            return false;
        }
    }
    words_->open();
    statusBar()->showMessage(tr("Pupils may go on playing while this window is open."));
    return true;
}

void TeacherWindow::closeEvent(QCloseEvent* event) { event->setAccepted(words_->may_leave()); }

void TeacherWindow::show_undo() {
    const QString next = office_.next_undo();
    undo_->setEnabled(!next.isEmpty());
    undo_->setText(next.isEmpty() ? tr("&Undo") : tr("&Undo %1").arg(next));
}

void TeacherWindow::show_trouble(const QString& sentence) {
    trouble_->setText(sentence);
    trouble_->setVisible(!sentence.isEmpty());
}

}  // namespace marrowfen
