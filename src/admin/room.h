#pragma once

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "copies/copies.h"
#include "platform/sqlite/sqlite_store.h"
#include "platform/system/disk_files.h"
#include "school/book.h"
#include "school/desk.h"
#include "school/word_sets.h"

namespace marrowfen {

/// Ends the command: the text is what the administrator reads, a sentence without its full stop or a line for each
/// fault.
struct CommandFailure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One room's store, which is opened when it is asked for.
class Room {
public:
    /// `store`: its file, or the program folder that leads to it.
    explicit Room(const std::filesystem::path& store);

    [[nodiscard]] std::filesystem::path file() const;  ///< of the store; a link is not followed
    [[nodiscard]] Copies copies() const { return Copies(file()); }
    /// The store, read to its end. Fails with a sentence.
    [[nodiscard]] Book& book();
    [[nodiscard]] Desk& desk();  ///< of `book`
    [[nodiscard]] WordSets& words();

private:
    [[noreturn]] void refuse(const StoreFailure& failure) const;
    [[nodiscard]] std::string store() const { return files_.program_folder() + "\\" + name_; }

    std::filesystem::path folder_;
    std::string name_;  ///< of the file in it
    DiskFiles files_;
    SqliteStoreEngine engine_{files_};
    std::unique_ptr<Store> store_;
    std::unique_ptr<Register> register_;
    std::unique_ptr<Book> book_;
    std::unique_ptr<Desk> desk_;
    std::unique_ptr<ContentKeeper> content_;
    std::unique_ptr<WordSets> words_;
};

/// Fails with the store's reason.
void fail_if(const std::optional<StoreFailure>& failure);

/// Asks at a terminal. Where there is none nothing is asked, and the command fails unless it said `yes` itself.
void make_sure(bool yes, const std::string& question);

/// Shows how far a long step is where errors go to a terminal. Stops it when the person presses Ctrl+C.
[[nodiscard]] Progress shown_progress(const std::string& what);

/// "-" is the standard output.
[[nodiscard]] bool is_standard(const std::filesystem::path& file);
/// Writes a file whole or not at all, or the standard output as it comes.
void write_out(const std::filesystem::path& file, const std::function<bool(std::ostream&)>& write);

}  // namespace marrowfen
