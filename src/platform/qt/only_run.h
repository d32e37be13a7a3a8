#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

class QSocketNotifier;

namespace marrowfen {

/// One run at a time for a program folder, a user and a screen: a child double clicks the icon of the program, too.
/// A second start asks the run that is there to come to the front. Where the system has no means for it, every start is
/// the first.
class OnlyRun {
public:
    explicit OnlyRun(const std::filesystem::path& program_folder);
    OnlyRun(const OnlyRun&) = delete;
    OnlyRun& operator=(const OnlyRun&) = delete;
    ~OnlyRun();

    enum class Place : std::uint8_t { First, SecondBroughtToFront, SecondBehind };
    /// `SecondBroughtToFront`: the other one has come to the front; it may take some seconds to know. `SecondBehind`:
    /// the desktop did not let it, or it does not answer.
    [[nodiscard]] Place find_place();
    /// For the first: told that somebody wants to see it. It calls `answer` once, as soon as it knows whether it is in
    /// front.
    using Answer = std::function<void(bool is_in_front)>;
    std::function<void(Answer answer)> on_second_start;

private:
    [[nodiscard]] Place ask_the_first() const;
    void answer_next();

    std::string name_;  // of a socket in no folder, which goes with the run however it ends
    int socket_ = -1;
    std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace marrowfen
