#include "copies/salvage.h"

#include <cstdio>
#include <memory>

#include "admin/words.h"

namespace marrowfen {

namespace {

void salvage_into(Admin& admin, const std::string& name) {
    const Copies copies(admin.store);
    const std::filesystem::path into =
        name.empty() ? copies.folder() / ("salvaged " + this_moment() + ".mdb") : std::filesystem::path(name);
    const auto copy = copies.newest_good();
    const auto told = salvage(copies.store(), into, copy ? std::optional(copy->file) : std::nullopt);
    if (const auto* failure = told.failure()) return admin.fail("nothing could be saved: " + failure->reason);
    const Salvaged& result = told.value();
    (void)std::printf("Saved %s in %s.\n", in_words(result.saved).c_str(), into.c_str());
    if (copy) {
        const auto then = holdings_of(copy->file);
        if (!then.failure()) (void)std::printf("The newest good copy holds %s.\n", in_words(then.value()).c_str());
    }
    if (result.without_a_name > 0) {
        (void)std::printf(
            "Of %lld pupils there are results, but no name: they were removed, or their names are lost.\n",
            static_cast<long long>(result.without_a_name));
    }
    if (result.in_two_forms > 0) {
        (void)std::printf("%lld of them stood there in two forms; one of the two was taken.\n",
                          static_cast<long long>(result.in_two_forms));
    }
    if (!result.walked) {
        (void)std::printf("The damaged file had to be searched piece by piece: pupils who were removed may be back.\n");
    }
    if (!result.has_games)
        (void)std::printf("It holds no games: put it in place, then build Marrowfen again (./run).\n");
    (void)std::printf("To put it in place: marrowfen-admin restore '%s'\n", into.c_str());
}

}  // namespace

void add_salvage(CLI::App& line, Admin& admin) {
    auto* word = line.add_subcommand("salvage", "Save what can be read from a damaged store into a new file");
    const auto name = std::make_shared<std::string>();
    word->add_option("FILE", *name, "The new file, which must not be there yet (default: one among the copies)");
    word->footer("The damaged file stays as it is.");
    word->callback([&admin, name] { salvage_into(admin, *name); });
}

}  // namespace marrowfen
