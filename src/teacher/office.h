#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

#include "copies/copies.h"
#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"
#include "school/book.h"
#include "school/desk.h"
#include "school/word_sets.h"

class QWidget;

namespace marrowfen {

[[nodiscard]] inline QString shown(const std::string& text) { return QString::fromStdString(text); }

/// What all pages share: the school's store, which pupils may be playing on at the same time, and how long work and
/// failures are shown.
class Office final : public QObject {
    Q_OBJECT

public:
    explicit Office(const std::filesystem::path& program_folder);

    /// On failure there is no book, and this may be asked again.
    [[nodiscard]] std::optional<StoreFailure> open(QWidget* window);
    [[nodiscard]] Book& book() { return *book_; }
    [[nodiscard]] WordSets& words() { return *words_; }
    [[nodiscard]] const DiskFiles& files() const { return files_; }
    [[nodiscard]] Copies copies() const;  ///< of the store, which need not be open
    /// What went wrong has been told when this answers false. Otherwise the store wants to be opened anew.
    bool put_back(QWidget* parent, const Copy& copy);

    using Work = std::function<std::optional<StoreFailure>(Desk& desk, const Progress& progress)>;
    /// Does one step, with a window that can stop it where it takes long. What went wrong has been told when this
    /// answers false; `done` is shown at the bottom of the window otherwise.
    bool act(QWidget* page, const QString& title, const QString& done, const Work& work);
    /// Takes the last step back.
    void undo(QWidget* window);
    [[nodiscard]] QString next_undo() const;  ///< empty: nothing

    /// Watches work that takes long. The window goes when the work's answer lets this go.
    [[nodiscard]] static Progress watch(QWidget* parent, const QString& title);
    /// Does what can't tell how far it is on a thread of its own, until it is over. The window can ask it to stop.
    void wait_for(QWidget* parent, const QString& title, const std::function<void(const std::stop_token&)>& work);
    /// Tells that something did not work, and waits until it was read.
    static void tell(QWidget* parent, const QString& sentence);

    /// Reads what has been played since. Every few seconds, and when somebody asks for it.
    void look_again(QWidget* window, Book::Reading reading);

signals:
    void changed();                         ///< pupils, games or results are different now
    void did(const QString& what);          ///< something that worked
    void trouble(const QString& sentence);  ///< the store can't be read just now; empty: it can

private:
    std::filesystem::path folder_;
    DiskFiles files_;
    SqliteStoreEngine engine_{files_};
    std::unique_ptr<Store> store_;
    std::unique_ptr<Register> register_;
    std::unique_ptr<ContentKeeper> content_;
    std::unique_ptr<Book> book_;
    std::unique_ptr<Desk> desk_;
    std::unique_ptr<WordSets> words_;
    QTimer clock_;
    bool busy_ = false;
};

}  // namespace marrowfen
