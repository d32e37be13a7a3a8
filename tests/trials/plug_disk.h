#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <vector>

struct sqlite3_vfs;

namespace marrowfen::test {

/// A disk that notes all that the library asks of it while it lives, and can say what a power cut would have left.
///
/// What was written to a file is sure to be there once the file was synced; what was written since may be there, be
/// missing, be there in part, in any order. So it is with the names in the folder, which are synced with a new journal
/// and when the library removes a journal and says that this must last.
class PlugDisk {
public:
    enum class Folder : std::uint8_t { Synced, LeftToTheDisk };  ///< when a journal is removed

    PlugDisk();
    ~PlugDisk();
    PlugDisk(const PlugDisk&) = delete;
    PlugDisk& operator=(const PlugDisk&) = delete;

    void stop();  ///< from here on nothing is noted
    void acknowledge(int saved) { events_.push_back({.kind = Event::Acknowledged, .at = saved}); }
    [[nodiscard]] std::size_t events() const { return events_.size(); }

    /// Puts into the folder what is left when the plug is pulled after so many events; the last number that was
    /// acknowledged before. `before`: what the folder's one file held at first.
    int pull_plug(std::size_t after, Folder way, const std::filesystem::path& store, const std::string& before,
                  std::mt19937& chance) const;

    struct Event {
        enum Kind : std::uint8_t { Created, Written, Cut, Synced, Removed, RemovedToLast, Acknowledged };
        Kind kind;
        bool is_journal = false;
        std::int64_t at = 0;
        std::string bytes = {};
    };
    void note(Event event) { events_.push_back(std::move(event)); }

private:
    std::vector<Event> events_;
    std::unique_ptr<sqlite3_vfs> vfs_;
    bool stopped_ = false;
};

}  // namespace marrowfen::test
