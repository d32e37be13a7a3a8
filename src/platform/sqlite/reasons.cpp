#include "platform/sqlite/reasons.h"

#include <sqlite3.h>

#include <cerrno>
#include <new>
#include <string>

#include "platform/sqlite/schema.h"

namespace marrowfen {

namespace {

/// "UNIQUE constraint failed: Pupils.PupilName_folded" gives what follows the colon.
std::string_view culprit_in(std::string_view message) {
    constexpr std::string_view kMark = "failed: ";
    const auto at = message.find(kMark);
    return at == std::string_view::npos ? message : message.substr(at + kMark.size());
}

std::string refusal(int code, std::string_view message) {
    const std::string_view culprit = culprit_in(message);
    const auto dot = culprit.find('.');
    switch (code) {
        case SQLITE_CONSTRAINT_CHECK:
            return std::string(culprit);
        case SQLITE_CONSTRAINT_NOTNULL:
            return "the field " + std::string(culprit.substr(dot == std::string_view::npos ? 0 : dot + 1)) +
                   " was left empty";
        case SQLITE_CONSTRAINT_UNIQUE:
            if (const Source* source = find_source(culprit.substr(0, dot)); source && !source->taken.empty()) {
                return source->taken;
            }
            break;
        default:
            break;
    }
    return "it does not fit what is stored already (" + std::string(message) + ")";
}

}  // namespace

StoreFailure failure_of(sqlite3* connection) {
    if (connection == nullptr) throw std::bad_alloc();  // the one reason for which no connection is made at all
    const int code = sqlite3_extended_errcode(connection);
    const std::string message = sqlite3_errmsg(connection);
    if (code == SQLITE_READONLY_DIRECTORY) return {"nothing can be written in its folder", Trouble::NotWritable};
    if (code == SQLITE_READONLY_DBMOVED) return {"the file was moved or removed while it was in use"};
    constexpr int kPrimary = 0xFF;
    switch (code & kPrimary) {
        case SQLITE_NOMEM:
            throw std::bad_alloc();
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return {"another computer is using it", Trouble::Busy};
        case SQLITE_FULL:
            return {"the disk is full"};
        case SQLITE_READONLY:
            return {"the file is read-only", Trouble::NotWritable};
        case SQLITE_CORRUPT:
            return {"the file is damaged", Trouble::Damaged};
        case SQLITE_NOTADB:
            return {"the file is not a data store of this program, or is damaged", Trouble::Damaged};
        case SQLITE_IOERR:
            if (code == SQLITE_IOERR_SHORT_READ) return {"the file is damaged", Trouble::Damaged};
            return failure_of_system(sqlite3_system_errno(connection));
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return failure_of_system(EACCES);
        case SQLITE_CANTOPEN:
            return failure_of_system(sqlite3_system_errno(connection));
        case SQLITE_TOOBIG:
            return {"the text is too long"};
        case SQLITE_CONSTRAINT:
            return {refusal(code, message), Trouble::Refused};
        default:
            return {"it does not answer as expected (" + message + ")"};
    }
}

StoreFailure failure_of_system(int error) {
    switch (error) {
        case EACCES:
        case EPERM:
        case EROFS:
            return {"this user account may not open the file or its folder", Trouble::NotWritable};
        case ENOSPC:
        case EDQUOT:  // the library takes an account's own limit for an error of the disk
            return {"the disk is full"};
        default:
            return {"the disk or the network drive does not answer as it should"};
    }
}

}  // namespace marrowfen
