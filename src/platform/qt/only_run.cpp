#include "platform/qt/only_run.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <QByteArray>
#include <QElapsedTimer>
#include <QSocketNotifier>
#include <QThread>
#include <array>
#include <cstring>
#include <optional>

namespace marrowfen {

namespace {

constexpr int kPatience = 5000;  // milliseconds; the first may still be opening its store
constexpr char kInFront = '1';
constexpr char kBehind = '0';

// A Wayland desktop lets a window come to the front for whom it gave this to when the second start was asked for.
constexpr const char* kToken = "XDG_ACTIVATION_TOKEN";

/// An open socket, closed with its last copy.
std::shared_ptr<int> owned(int socket) {
    return {new int(socket), [](const int* open) {
                close(*open);
                delete open;
            }};
}

template <class Call>
bool with_address(const std::string& name, const Call& call) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    // A name that begins with a zero stands in no folder.
    const std::size_t length = std::min(name.size(), sizeof address.sun_path - 1);
    std::memcpy(&address.sun_path[1], name.data(), length);
    const auto size = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + length);
    return call(reinterpret_cast<const sockaddr*>(&address), size) == 0;
}

bool is_ours(int socket) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == getuid();
}

}  // namespace

OnlyRun::OnlyRun(const std::filesystem::path& program_folder) {
    const std::string of =
        program_folder.string() + qgetenv("WAYLAND_DISPLAY").toStdString() + "\n" + qgetenv("DISPLAY").toStdString();
    name_ = "marrowfen-" + std::to_string(getuid()) + "-" + std::to_string(std::hash<std::string>{}(of));
}

OnlyRun::~OnlyRun() {
    notifier_.reset();
    if (socket_ >= 0) close(socket_);
}

OnlyRun::Place OnlyRun::find_place() {
    socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    if (socket_ < 0) return Place::First;
    const bool is_first =
        with_address(name_, [this](const sockaddr* address, socklen_t size) { return bind(socket_, address, size); });
    if (!is_first) return ask_the_first();
    constexpr int kWaiting = 8;
    if (listen(socket_, kWaiting) == 0) {
        notifier_ = std::make_unique<QSocketNotifier>(socket_, QSocketNotifier::Read);
        QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { answer_next(); });
    }
    return Place::First;
}

OnlyRun::Place OnlyRun::ask_the_first() const {
    QElapsedTimer waiting;
    waiting.start();
    for (; !waiting.hasExpired(kPatience); QThread::msleep(50)) {
        const auto asking = owned(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        const timeval patience{kPatience / 1000, 0};
        setsockopt(*asking, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
        const bool connected = with_address(
            name_, [&](const sockaddr* address, socklen_t size) { return connect(*asking, address, size); });
        if (!connected) continue;  // it has only just come
        if (!is_ours(*asking)) return Place::First;
        const QByteArray token = qgetenv(kToken) + '\n';
        char answer = kBehind;
        const bool answered =
            send(*asking, token.data(), static_cast<std::size_t>(token.size()), MSG_NOSIGNAL) == token.size() &&
            recv(*asking, &answer, 1, 0) == 1;
        return answered && answer == kInFront ? Place::SecondBroughtToFront : Place::SecondBehind;
    }
    return Place::SecondBehind;
}

void OnlyRun::answer_next() {
    const int accepted = accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
    if (accepted < 0) return;
    const auto asking = owned(accepted);
    constexpr timeval kAtOnce{0, 100'000};  // it says all it has to say as it comes
    setsockopt(accepted, SOL_SOCKET, SO_RCVTIMEO, &kAtOnce, sizeof kAtOnce);
    std::array<char, 1024> token{};
    const auto length = recv(accepted, token.data(), token.size(), 0);
    if (length <= 0 || !is_ours(accepted) || !on_second_start) return;
    const QByteArray given = QByteArray(token.data(), length).trimmed();
    if (!given.isEmpty()) qputenv(kToken, given);
    on_second_start([asking](bool is_in_front) {
        const char answer = is_in_front ? kInFront : kBehind;
        (void)send(*asking, &answer, 1, MSG_NOSIGNAL);
    });
}

}  // namespace marrowfen
