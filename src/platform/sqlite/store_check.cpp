#include "platform/sqlite/store_check.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <string_view>
#include <system_error>

#include "platform/sqlite/file_head.h"
#include "platform/sqlite/journal.h"
#include "platform/sqlite/query_text.h"
#include "platform/sqlite/reasons.h"
#include "platform/sqlite/statement.h"

namespace marrowfen {

namespace {

const StoreFailure kDamaged{"the file is damaged", Trouble::Damaged};
const StoreFailure kForeign{"it is not a data store of this program", Trouble::Foreign};

// Permission bits alone would not tell of a read-only drive or of rights given in other ways.
std::optional<StoreFailure> check_rights(const std::filesystem::path& path, const std::string& reason) {
    if (faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0) return std::nullopt;
    StoreFailure failure = failure_of_system(errno);
    if (failure.trouble == Trouble::NotWritable) failure.reason = reason;
    return failure;
}

std::optional<StoreFailure> damage_in(std::string_view part, const StoreFailure& failure) {
    return StoreFailure{"its part " + std::string(part) + " can't be read: " + failure.reason, failure.trouble};
}

}  // namespace

std::optional<StoreFailure> check_place(const std::filesystem::path& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found) {
        return StoreFailure{"there is no such file", Trouble::Missing};
    }
    if (error) return failure_of_system(error.value());
    if (std::filesystem::is_directory(status)) return StoreFailure{"a folder has this name", Trouble::Foreign};
    if (!std::filesystem::is_regular_file(status)) {
        return StoreFailure{"this is not a file with data", Trouble::Foreign};
    }
    // A write needs a second file beside the first for a moment, so the folder counts as well. A link may lead
    // elsewhere.
    const auto real_file = std::filesystem::canonical(file, error);
    if (error) return failure_of_system(error.value());
    if (auto failure = check_rights(real_file, "the file is read-only for this user account")) return failure;
    return check_rights(real_file.parent_path(), "its folder is read-only for this user account");
}

// The file is read through the library: to open and close it beside the library would let go of the library's locks.
std::optional<StoreFailure> check_head(Connection& connection, const std::filesystem::path& file) {
    sqlite3_file* open_file = nullptr;
    FileHead head{};
    if (sqlite3_file_control(connection.handle(), "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&open_file)) !=
            SQLITE_OK ||
        open_file == nullptr || open_file->pMethods == nullptr) {
        return kDamaged;
    }
    const int read = open_file->pMethods->xRead(open_file, head.data(), static_cast<int>(head.size()), 0);
    if (read == SQLITE_IOERR_SHORT_READ) return kForeign;
    if (read != SQLITE_OK) return failure_of_system(EIO);
    if (!std::equal(kFileMagic.begin(), kFileMagic.end(), head.begin())) {
        return StoreFailure{"the file is not a data store of this program, or is damaged", Trouble::Damaged};
    }
    // A file that claims to be written with a log would have it played back, so both its bytes must say so.
    constexpr std::size_t kWriteVersionAt = 18;
    constexpr unsigned char kHighestVersion = 2;
    const unsigned char version = head[kWriteVersionAt];
    if (version == 0 || version > kHighestVersion || version != head[kWriteVersionAt + 1]) return kDamaged;
    if (!journal_belongs(file, number_at(head, kChangesAt))) {
        return StoreFailure{"beside it lies the journal of another file, which would spoil it", Trouble::Damaged};
    }
    return std::nullopt;
}

std::optional<StoreFailure> check_identity(Connection& connection) {
    Statement id(connection, "PRAGMA application_id");
    if (id.step() != Statement::Step::Row) return id.failure();
    if (id.whole(0) != kApplicationId) return kForeign;
    Statement version(connection, "PRAGMA user_version");
    if (version.step() != Statement::Step::Row) return version.failure();
    if (version.whole(0) > kSchemaVersion) {
        return StoreFailure{"it was made by a newer version of this program", Trouble::Newer};
    }
    if (version.whole(0) < 1) return kForeign;
    return std::nullopt;
}

std::optional<StoreFailure> check_tables(Connection& connection) {
    for (const Source& source : sources()) {
        Statement statement(connection, select_text(source, Criterion{}));
        statement.bind(std::int64_t{1});
        statement.bind(std::int64_t{0});
        if (statement.step() == Statement::Step::Failed) return damage_in(source.name, statement.failure());
    }
    return std::nullopt;
}

std::optional<StoreFailure> check_structure(Connection& connection) {
    std::set<std::string> found;
    Statement statement(connection, "SELECT sql FROM sqlite_schema WHERE sql IS NOT NULL");
    auto step = statement.step();
    for (; step == Statement::Step::Row; step = statement.step()) found.insert(statement.text(0));
    if (step == Statement::Step::Failed) return statement.failure();
    for (const Source& source : sources()) {
        for (std::string wanted : creation_of(source)) {
            if (!wanted.starts_with("CREATE")) continue;
            constexpr std::string_view kUnlessThere = "IF NOT EXISTS ";  // which the library does not keep
            if (const auto at = wanted.find(kUnlessThere); at != std::string::npos)
                wanted.erase(at, kUnlessThere.size());
            if (found.contains(wanted)) continue;
            return StoreFailure{"its part " + source.name + " is damaged, or of another version of this program",
                                Trouble::Damaged};
        }
    }
    return std::nullopt;
}

std::optional<StoreFailure> check_integrity(Connection& connection) {
    Statement whole(connection, "PRAGMA integrity_check(1)");
    if (whole.step() != Statement::Step::Row) return whole.failure();
    if (whole.text(0) != "ok") return kDamaged;
    // The highest number that a pupil ever had stands in no index.
    Statement numbers(connection,
                      "SELECT count(*) FROM sqlite_sequence WHERE name = 'Pupils' AND (typeof(seq) <> 'integer' OR seq "
                      "NOT BETWEEN ifnull((SELECT max(Pupil_ID) FROM Pupils), 0) AND 32767)");
    if (numbers.step() != Statement::Step::Row) return numbers.failure();
    return numbers.whole(0) == 0 ? std::nullopt : std::optional(kDamaged);
}

std::optional<StoreFailure> check_copy(const std::filesystem::path& file) {
    Connection connection(file, Connection::Mode::ReadOnly, std::chrono::seconds(1));
    auto failure = connection.open_failure();
    if (!failure) failure = check_head(connection, file);
    if (!failure) failure = check_identity(connection);
    if (!failure) failure = check_tables(connection);
    return failure ? failure : check_integrity(connection);
}

}  // namespace marrowfen
