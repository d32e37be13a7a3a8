#include "copies/copies.h"

#include <cstdio>

#include "admin/words.h"
#include "platform/sqlite/store_check.h"
#include "platform/value.h"

namespace marrowfen {

namespace {

void list_copies(Admin& admin) {
    const Copies copies(admin.store);
    const auto all = copies.list();
    if (all.empty()) return admin.fail("there are no copies in " + copies.folder().string());
    for (const Copy& copy : all) {
        std::string says;
        if (const auto failure = check_copy(copy.file)) {
            says = "not good: " + failure->reason;
        } else if (const auto holdings = holdings_of(copy.file); !holdings.failure()) {
            says = in_words(holdings.value());
        }
        (void)std::printf("%s  %s\n", as_text(Value{copy.date}).c_str(), says.c_str());
    }
}

}  // namespace

void add_copies(CLI::App& line, Admin& admin) {
    line.add_subcommand("copies", "List the dated copies, the newest first, and what each holds")->callback([&admin] {
        list_copies(admin);
    });
}

}  // namespace marrowfen
