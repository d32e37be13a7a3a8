#include "platform/sqlite/store_check.h"

#include <fcntl.h>
#include <unistd.h>

#include <system_error>

#include "platform/sqlite/query_text.h"
#include "platform/sqlite/statement.h"

namespace marrowfen {

namespace {

// Permission bits alone would not tell of a read-only drive or of rights given in other ways.
bool can_write(const std::filesystem::path& path) { return faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0; }

}  // namespace

std::optional<StoreFailure> check_place(const std::filesystem::path& file) {
    std::error_code error;
    const auto status = std::filesystem::status(file, error);
    if (status.type() == std::filesystem::file_type::not_found) return StoreFailure{"there is no such file"};
    if (std::filesystem::is_directory(status)) return StoreFailure{"a folder has this name"};
    if (!std::filesystem::is_regular_file(status)) return StoreFailure{"this is not a file with data"};
    // A write needs a second file beside the first for a moment, so the folder counts as well. A link may lead
    // elsewhere.
    const auto real_file = std::filesystem::canonical(file, error);
    if (error || !can_write(real_file)) return StoreFailure{"the file is read-only for this user account"};
    if (!can_write(real_file.parent_path())) return StoreFailure{"its folder is read-only for this user account"};
    return std::nullopt;
}

std::optional<StoreFailure> check_identity(Connection& connection) {
    const StoreFailure foreign{"it is not a data store of this program"};
    Statement id(connection, "PRAGMA application_id");
    if (id.step() != Statement::Step::Row) return id.failure();
    if (id.whole(0) != kApplicationId) return foreign;
    Statement version(connection, "PRAGMA user_version");
    if (version.step() != Statement::Step::Row) return version.failure();
    if (version.whole(0) > kSchemaVersion) return StoreFailure{"it was made by a newer version of this program"};
    if (version.whole(0) < 1) return foreign;
    return std::nullopt;
}

std::optional<StoreFailure> check_tables(Connection& connection) {
    for (const Source& source : sources()) {
        Statement statement(connection, select_text(source, Criterion{}));
        statement.bind(std::int64_t{1});
        statement.bind(std::int64_t{0});
        if (statement.step() == Statement::Step::Failed) {
            const std::string reason = statement.failure().reason;
            return StoreFailure{"its part " + source.name + " can't be read: " + reason};
        }
    }
    return std::nullopt;
}

}  // namespace marrowfen
