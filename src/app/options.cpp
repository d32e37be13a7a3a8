#include "app/options.h"

#include <getopt.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace marrowfen {

namespace {

constexpr const char* kHelp = R"(Usage: marrowfen [OPTION]...
Games that teach children the computer keyboard, letters, spelling and rhymes.

  --record FILE   write down all that happens, so that it can be played again.
                  The file holds everything that is typed, names of pupils too.
  --replay FILE   play such a file on this screen, at its own pace. Nothing is
                  read from the store of this computer or written to it. Ends
                  with status 1 and says why when the run goes another way.
  --fast          replay without waiting
  --help          show this text
  --version       show the version

Without an option the games begin. Pupils and results are kept in data.mdb
beside the program.
)";

std::optional<Options> end(int with, int& status) {
    status = with;
    return std::nullopt;
}

std::optional<Options> refuse(const char* why, int& status) {
    (void)std::fprintf(stderr, "marrowfen: %s; see marrowfen --help\n", why);
    return end(EXIT_FAILURE, status);
}

}  // namespace

std::optional<Options> read_options(int argc, char** argv, int& status) {
    enum Option { kRecord = 1, kReplay, kFast, kHelpWanted, kVersion };
    constexpr std::array<option, 6> kOptions{{{"record", required_argument, nullptr, kRecord},
                                              {"replay", required_argument, nullptr, kReplay},
                                              {"fast", no_argument, nullptr, kFast},
                                              {"help", no_argument, nullptr, kHelpWanted},
                                              {"version", no_argument, nullptr, kVersion},
                                              {}}};
    Options options;
    opterr = 0;  // what it would say does not name the help
    for (int found = 0; (found = getopt_long(argc, argv, ":", kOptions.data(), nullptr)) != -1;) {
        switch (found) {
            case kRecord:
                options.record = optarg;
                break;
            case kReplay:
                options.replay = optarg;
                break;
            case kFast:
                options.fast = true;
                break;
            case kHelpWanted:
                (void)std::fputs(kHelp, stdout);
                return end(EXIT_SUCCESS, status);
            case kVersion:
                (void)std::puts("marrowfen " MARROWFEN_VERSION);
                return end(EXIT_SUCCESS, status);
            case ':':
                return refuse((std::string(argv[optind - 1]) + " needs a file").c_str(), status);
            default:
                return refuse(("can't understand " + std::string(argv[optind - 1])).c_str(), status);
        }
    }
    if (optind < argc) return refuse(("can't understand " + std::string(argv[optind])).c_str(), status);
    if (!options.record.empty() && !options.replay.empty()) {
        return refuse("a run is either recorded or replayed", status);
    }
    if (options.fast && options.replay.empty()) return refuse("--fast goes with --replay", status);
    return options;
}

}  // namespace marrowfen
