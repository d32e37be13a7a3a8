#include "replay/tape.h"

#include <fstream>
#include <utility>

namespace marrowfen {

RecordingTape::RecordingTape(const std::filesystem::path& file) : file_(std::fopen(file.string().c_str(), "wb")) {
    if (file_) write(kRecordingHead);
}

void RecordingTape::write(std::string_view line) {
    if (!file_) return;
    const std::string text = std::string(line) + "\n";
    if (std::fwrite(text.data(), 1, text.size(), file_.get()) == text.size() && std::fflush(file_.get()) == 0) return;
    (void)std::fputs("marrowfen: the recording can't be written any more and ends here\n", stderr);
    file_.reset();
}

std::optional<std::string> RecordingTape::ask(const std::string& question, const std::function<std::string()>& answer) {
    std::string answered = answer();
    write("< " + question + " = " + answered);
    return answered;
}

void PlayingTape::take_event() { event_ = lines_[at_++]; }

void PlayingTape::expect(const std::string& line) {
    const std::string* expected = next();
    if (expected == nullptr) return;
    if (*expected == line) {
        ++at_;
    } else {
        diverge(line);
    }
}

void PlayingTape::diverge(const std::string& found) {
    if (const std::string* expected = next()) divergence_ = {at_ + 2, event_, *expected, found};  // the head is line 1
}

std::optional<std::string> PlayingTape::ask(const std::string& question, const std::function<std::string()>&) {
    const std::string* line = next();
    if (line == nullptr) return std::nullopt;
    const std::string asked = "< " + question + " = ";
    if (!line->starts_with(asked)) {
        diverge("< " + question);
        return std::nullopt;
    }
    ++at_;
    return line->substr(asked.size());
}

std::optional<std::vector<std::string>> read_recording(const std::filesystem::path& file, std::string& reason) {
    std::ifstream in(file, std::ios::binary);
    if (!in || std::filesystem::is_directory(file)) {
        reason = "it can't be read";
        return std::nullopt;
    }
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line) && !in.eof();) {
        if (line.ends_with('\r')) line.pop_back();
        lines.push_back(std::move(line));
    }
    if (lines.empty() || lines.front() != kRecordingHead) {
        reason = "it is no recording, or one of another version of Marrowfen";
        return std::nullopt;
    }
    lines.erase(lines.begin());
    return lines;
}

}  // namespace marrowfen
