#pragma once

#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marrowfen {

/// The text of a run, line by line: what happened, what the world outside answered, and what came of it. What a line
/// looks like is told in docs/recordings.md.
///
/// The same questions are asked when a run is recorded and when it is played again. Recording, the world answers and
/// the answer is written down; playing, the recording answers, and a question that it does not expect ends the play.
class Tape {
public:
    virtual ~Tape() = default;
    /// `answer` asks the world. Nothing when the recording has no answer to that.
    [[nodiscard]] virtual std::optional<std::string> ask(const std::string& question,
                                                         const std::function<std::string()>& answer) = 0;
    /// Something that can be seen or heard.
    virtual void note(const std::string& line) = 0;
};

inline constexpr std::string_view kRecordingHead = "marrowfen recording 1";

/// Writes each line at once, so that a crash loses none. When the file can't be written any more that is said once on
/// the error output, and the run goes on without being recorded.
class RecordingTape final : public Tape {
public:
    /// Replaces a file of that name.
    explicit RecordingTape(const std::filesystem::path& file);
    [[nodiscard]] bool works() const { return file_ != nullptr; }
    void write(std::string_view line);

    [[nodiscard]] std::optional<std::string> ask(const std::string& question,
                                                 const std::function<std::string()>& answer) override;
    void note(const std::string& line) override { write("> " + line); }

private:
    struct Close {
        void operator()(std::FILE* file) const { (void)std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> file_;
};

/// Where a run went another way than its recording.
struct Divergence {
    std::size_t line = 0;  ///< of the recording, from 1
    std::string event;     ///< that was being handled; empty: the start
    std::string expected;
    std::string found;
};

/// Plays a recording. Where the recording ends early, as after a crash, everything fails from there on.
class PlayingTape final : public Tape {
public:
    explicit PlayingTape(std::vector<std::string> lines) : lines_(std::move(lines)) {}

    /// The line that comes next; nullptr at the end, or after a divergence.
    [[nodiscard]] const std::string* next() const {
        return divergence_ || at_ == lines_.size() ? nullptr : &lines_[at_];
    }
    void take_event();                     ///< the next line, which is one
    void expect(const std::string& line);  ///< the next line must be this one
    void diverge(const std::string& found);
    [[nodiscard]] bool at_end() const { return at_ == lines_.size(); }
    [[nodiscard]] const std::optional<Divergence>& divergence() const { return divergence_; }

    [[nodiscard]] std::optional<std::string> ask(const std::string& question,
                                                 const std::function<std::string()>& answer) override;
    void note(const std::string& line) override { expect("> " + line); }

private:
    std::vector<std::string> lines_;
    std::size_t at_ = 0;
    std::string event_;
    std::optional<Divergence> divergence_;
};

/// The lines of a recording without its head; a last line that was cut short is left out. Nothing when the file can't
/// be read or is no recording of this version: `reason` says why.
[[nodiscard]] std::optional<std::vector<std::string>> read_recording(const std::filesystem::path& file,
                                                                     std::string& reason);

}  // namespace marrowfen
