#include <cstdio>
#include <memory>
#include <system_error>

#include "admin/words.h"
#include "copies/copies.h"
#include "platform/value.h"

namespace marrowfen {

namespace {

std::optional<std::filesystem::path> chosen(const Copies& copies, const std::string& wanted) {
    if (wanted.empty()) {
        const auto newest = copies.newest_good();
        return newest ? std::optional(newest->file) : std::nullopt;
    }
    for (const Copy& copy : copies.list()) {
        if (as_text(Value{copy.date}) == wanted) return copy.file;
    }
    std::error_code error;
    return std::filesystem::is_regular_file(wanted, error) ? std::optional<std::filesystem::path>(wanted)
                                                           : std::nullopt;
}

void restore(Admin& admin, const std::string& wanted) {
    const Copies copies(admin.store);
    const auto copy = chosen(copies, wanted);
    if (!copy) {
        return admin.fail(wanted.empty() ? "there is no good copy in " + copies.folder().string()
                                         : "there is neither a copy of that date nor a file " + wanted);
    }
    const auto now = holdings_of(copies.store());
    const auto before = copies.put_back(*copy, this_moment());
    if (const auto* failure = before.failure()) {
        return admin.fail(copy->string() + " can't be put back: " + failure->reason);
    }
    const auto then = holdings_of(copies.store());
    (void)std::printf("%s is back in place", copy->c_str());
    if (!then.failure()) (void)std::printf(", with %s", in_words(then.value()).c_str());
    if (!now.failure()) (void)std::printf("; there were %s", in_words(now.value()).c_str());
    (void)std::printf(".\n");
    if (before.value().empty()) return;
    (void)std::printf("What was there before is kept in %s.\n", before.value().c_str());
}

}  // namespace

void add_restore(CLI::App& line, Admin& admin) {
    auto* word =
        line.add_subcommand("restore", "Put a copy back in place of the pupils and results that are there now");
    const auto wanted = std::make_shared<std::string>();
    word->add_option("COPY", *wanted, "The date of a copy, as 2026-03-09, or a file (default: the newest good copy)");
    word->footer(
        "Close Marrowfen on all computers first: where it is open it goes on showing what was there, and can't\n"
        "write. What was there before is kept among the copies, and nothing is changed if the copy is not good.");
    word->callback([&admin, wanted] { restore(admin, *wanted); });
}

}  // namespace marrowfen
