#include "copies/advice.h"

namespace marrowfen {

namespace {

std::string about_copies(const Copies& copies, const Clock& clock) {
    const auto newest = copies.newest_good();
    if (!newest) return "There is no good copy of it in " + copies.folder().string() + ".";
    return "The newest good copy is of " + clock.short_date(newest->date) +
           ". To put it back, start marrowfen-admin restore in the folder of Marrowfen.";
}

}  // namespace

std::string start_advice(const StoreFailure& failure, const Copies& copies, const Clock& clock) {
    const std::string file = copies.store().string();
    const std::string cannot = "Marrowfen can't start. The file " + file + " holds the pupils and the games";
    switch (failure.trouble) {
        case Trouble::Busy:
            return "Another computer is using the pupils and games in " + file +
                   ". Please wait a moment: Marrowfen goes on trying.";
        case Trouble::Missing:
            return cannot + ", and it is not there. " + about_copies(copies, clock) +
                   " Otherwise run ./run where Marrowfen was built, which makes a new one without pupils.";
        case Trouble::Foreign:
            return cannot + ", but what lies there is something else: " + failure.reason + ". " +
                   about_copies(copies, clock);
        case Trouble::Damaged:
            return cannot + ", and it can't be relied on: " + failure.reason + ". Nothing has been written to it. " +
                   about_copies(copies, clock) +
                   " What is newer than that can perhaps be read from it with marrowfen-admin salvage.";
        case Trouble::Newer:
            return cannot + ", and " + failure.reason +
                   ". Start that newer version, or bring this computer up to date. Nothing is wrong with the file.";
        case Trouble::NotWritable:
            return cannot + ", and this account can't write it: " + failure.reason +
                   ". Whoever looks after the computer can give the account the right to write; marrowfen-admin share "
                   "--help says how. Nothing is wrong with the file.";
        case Trouble::Refused:
        case Trouble::Other:
            break;
    }
    return cannot + ", and it can't be opened: " + failure.reason +
           ". Please try again, or ask whoever looks after "
           "the computer.";
}

}  // namespace marrowfen
