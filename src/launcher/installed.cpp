// Starts the installed program for an account that plays.
//
// Pupils and results belong to the group `games`, and so does this program, which the system starts in that group
// whoever starts it. It hands the group on to Marrowfen and is gone. Marrowfen itself can't be marked so: the toolkit,
// the loudspeaker's server and screen readers refuse a program that has more rights than the account which started it,
// and rightly, unless it holds them as its own, which is what happens here.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "launcher/starting.h"
#include "platform/system/own_folder.h"

namespace marrowfen {

namespace {

/// What a desktop tells its programs. All else stays outside: a variable can name code that a library loads, and the
/// group is lent to Marrowfen alone.
constexpr std::array<std::string_view, 39> kHandedOn{"AT_SPI_BUS_ADDRESS",
                                                     "DBUS_SESSION_BUS_ADDRESS",
                                                     "DESKTOP_SESSION",
                                                     "DISPLAY",
                                                     "GTK_IM_MODULE",
                                                     "HOME",
                                                     "LANG",
                                                     "LANGUAGE",
                                                     "LC_ALL",
                                                     "LC_CTYPE",
                                                     "LC_MESSAGES",
                                                     "LC_TIME",
                                                     "LOGNAME",
                                                     "PATH",
                                                     "PULSE_SERVER",
                                                     "QT_ACCESSIBILITY",
                                                     "QT_AUTO_SCREEN_SCALE_FACTOR",
                                                     "QT_ENABLE_HIGHDPI_SCALING",
                                                     "QT_FONT_DPI",
                                                     "QT_IM_MODULE",
                                                     "QT_LINUX_ACCESSIBILITY_ALWAYS_ON",
                                                     "QT_QPA_PLATFORM",
                                                     "QT_SCALE_FACTOR",
                                                     "QT_SCALE_FACTOR_ROUNDING_POLICY",
                                                     "QT_SCREEN_SCALE_FACTORS",
                                                     "SDL_AUDIODRIVER",
                                                     "SHELL",
                                                     "TERM",
                                                     "TZ",
                                                     "USER",
                                                     "WAYLAND_DISPLAY",
                                                     "XAUTHORITY",
                                                     "XCURSOR_SIZE",
                                                     "XCURSOR_THEME",
                                                     "XDG_CURRENT_DESKTOP",
                                                     "XDG_RUNTIME_DIR",
                                                     "XDG_SESSION_ID",
                                                     "XDG_SESSION_TYPE",
                                                     "XMODIFIERS"};

/// People, and not what the system runs: those accounts lie below 1000, or are made for a service while it runs.
bool is_a_person(uid_t account) {
    constexpr uid_t kFirstPerson = 1000;
    constexpr uid_t kFirstOfServices = 61184;
    constexpr uid_t kLastOfServices = 65535;
    return account >= kFirstPerson && (account < kFirstOfServices || account > kLastOfServices);
}

void keep_only_what_is_handed_on() {
    std::vector<std::string> kept;
    for (const std::string_view name : kHandedOn) {
        const char* value = std::getenv(std::string(name).c_str());
        if (value != nullptr) kept.push_back(std::string(name) + "=" + value);
    }
    ::clearenv();
    for (const std::string& setting : kept) {
        const auto name = setting.substr(0, setting.find('='));
        ::setenv(name.c_str(), setting.c_str() + name.size() + 1, 1);
    }
}

/// For good: neither Marrowfen nor what it starts can take another group.
bool settle_group() {
    const gid_t own = ::getgid();
    const gid_t lent = ::getegid();
    if (own == lent) return true;
    if (!is_a_person(::getuid())) return ::setresgid(own, own, own) == 0;
    keep_only_what_is_handed_on();
    return ::setresgid(lent, lent, lent) == 0;
}

int start(const std::vector<std::string>& given) {
    if (!settle_group()) {
        std::perror("marrowfen");
        return EXIT_FAILURE;
    }
    std::vector<std::string> words{own_folder().string() + "/" MARROWFEN_WAY_TO_PROGRAM "/marrowfen"};
    std::ranges::copy(given, std::back_inserter(words));
    return become(words);
}

}  // namespace

}  // namespace marrowfen

int main(int argc, char** argv) { return marrowfen::start({argv + std::min(argc, 1), argv + argc}); }
