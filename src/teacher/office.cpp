#include "teacher/office.h"

#include <QEventLoop>
#include <QMessageBox>
#include <QProgressDialog>
#include <QScopedValueRollback>
#include <thread>

namespace marrowfen {

namespace {

constexpr std::chrono::seconds kBetweenTwoLooks{5};
constexpr int kBeforeShown = 500;  // milliseconds: what takes no longer needs no window

QString reason(const StoreFailure& failure) { return shown(failure.reason); }

}  // namespace

Office::Office(const std::filesystem::path& program_folder) : folder_(program_folder), files_(program_folder) {
    clock_.setInterval(kBetweenTwoLooks);
    connect(&clock_, &QTimer::timeout, this, [this] { look_again(nullptr, Book::Reading::WhatIsNew); });
}

std::optional<StoreFailure> Office::open(QWidget* window) {
    const std::string path = files_.program_folder() + "\\data.mdb";
    auto store = engine_.open(path);
    if (const auto* failure = store.failure()) return *failure;
    auto keeper = engine_.open_register(path);
    if (const auto* failure = keeper.failure()) return *failure;
    auto content = engine_.open_content(path);
    if (const auto* failure = content.failure()) return *failure;
    auto book = std::make_unique<Book>(*store.value(), *keeper.value());
    const auto read = book->refresh(Book::Reading::Everything, watch(window, tr("Reading the results")));
    if (const auto* failure = read.failure()) return *failure;
    store_ = std::move(store).value();
    register_ = std::move(keeper).value();
    content_ = std::move(content).value();
    book_ = std::move(book);
    desk_ = std::make_unique<Desk>(*book_, *register_);
    words_ = std::make_unique<WordSets>(*content_, folder_ / "Content");
    clock_.start();
    emit changed();
    return std::nullopt;
}

bool Office::act(QWidget* page, const QString& title, const QString& done, const Work& work) {
    if (busy_) return false;
    const QScopedValueRollback busy(busy_, true);
    if (const auto failure = work(*desk_, watch(page, title))) {
        if (failure->reason == kStopped) {
            emit did(tr("Stopped. Nothing was changed."));
        } else {
            tell(page, tr("Nothing was changed: %1.").arg(reason(*failure)));
        }
        return false;
    }
    const auto read = book_->refresh(Book::Reading::WhatIsNew, {});
    if (const auto* failure = read.failure()) {
        emit trouble(tr("What stands here is not up to date: %1. Press F5 to read it again.").arg(reason(*failure)));
    }
    emit changed();
    emit did(done);
    return true;
}

void Office::undo(QWidget* window) {
    if (next_undo().isEmpty()) return;
    QString answer;
    act(window, tr("Taking back"), {}, [&answer](Desk& desk, const Progress& progress) -> std::optional<StoreFailure> {
        const auto taken_back = desk.undo(progress);
        if (const auto* failure = taken_back.failure()) return *failure;
        answer = shown(taken_back.value()) + ".";
        return std::nullopt;
    });
    if (!answer.isEmpty()) emit did(answer);
}

QString Office::next_undo() const {
    const auto next = desk_ ? desk_->next_undo() : std::nullopt;
    return next ? shown(*next) : QString{};
}

Progress Office::watch(QWidget* parent, const QString& title) {
    auto dialog = std::make_shared<QProgressDialog>(parent);
    dialog->setWindowTitle(QStringLiteral("Marrowfen"));
    dialog->setLabelText(title);
    dialog->setCancelButtonText(tr("Stop"));
    dialog->setWindowModality(Qt::ApplicationModal);
    constexpr int kParts = 1000;
    dialog->setRange(0, kParts);
    dialog->setMinimumDuration(kBeforeShown);
    return [dialog](std::int64_t done, std::int64_t of) {
        // This also lets the person's press on the button in.
        dialog->setValue(static_cast<int>(std::min(done, of) * (kParts - 1) / std::max<std::int64_t>(of, 1)));
        return !dialog->wasCanceled();
    };
}

Copies Office::copies() const {
    const auto store = files_.find(files_.program_folder() + "\\data.mdb");
    return Copies(store ? *store : folder_ / "data.mdb");
}

bool Office::put_back(QWidget* parent, const Copy& copy) {
    Result<std::filesystem::path> before = StoreFailure{kStopped};
    wait_for(parent, tr("Putting the copy back"),
             [&](const std::stop_token& stop) { before = copies().put_back(copy.file, this_moment(), stop); });
    const auto* failure = before.failure();
    if (failure) tell(parent, tr("Nothing was changed: %1.").arg(reason(*failure)));
    return failure == nullptr;
}

void Office::wait_for(QWidget* parent, const QString& title, const std::function<void(const std::stop_token&)>& work) {
    const QScopedValueRollback busy(busy_, true);
    QProgressDialog dialog(title, tr("Stop"), 0, 0, parent);
    dialog.setWindowTitle(QStringLiteral("Marrowfen"));
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setMinimumDuration(kBeforeShown);
    QEventLoop until_over;
    std::jthread thread([&](const std::stop_token& stop) {
        work(stop);
        QMetaObject::invokeMethod(&until_over, &QEventLoop::quit, Qt::QueuedConnection);
    });
    connect(&dialog, &QProgressDialog::canceled, &dialog, [&thread] { thread.request_stop(); });
    until_over.exec();
}

void Office::tell(QWidget* parent, const QString& sentence) {
    QMessageBox::warning(parent, QStringLiteral("Marrowfen"), sentence);
}

void Office::look_again(QWidget* window, Book::Reading reading) {
    if (busy_ || !book_) return;
    const QScopedValueRollback busy(busy_, true);
    const auto read = book_->refresh(reading, window ? watch(window, tr("Reading the results")) : Progress{});
    if (const auto* failure = read.failure()) {
        emit trouble(tr("The store can't be read just now: %1. What stands here may be old; it is read again every few "
                        "seconds.")
                         .arg(reason(*failure)));
        return;
    }
    emit trouble({});
    if (read.value()) emit changed();
}

}  // namespace marrowfen
