#include "plug_disk.h"

#include <sqlite3.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <new>
#include <optional>
#include <string_view>
#include <utility>

namespace marrowfen::test {

namespace {

using Event = PlugDisk::Event;

/// The library's own file follows behind it in memory.
struct PluggedFile : sqlite3_file {
    PlugDisk* disk = nullptr;
    bool is_journal = false;
    [[nodiscard]] sqlite3_file* real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

PluggedFile& plugged(sqlite3_file* file) { return *static_cast<PluggedFile*>(file); }
sqlite3_file* real(sqlite3_file* file) { return plugged(file).real(); }
sqlite3_vfs* the_real_vfs = nullptr;

void note(sqlite3_file* file, Event::Kind kind, std::int64_t at = 0, std::string bytes = {}) {
    plugged(file).disk->note(
        {.kind = kind, .is_journal = plugged(file).is_journal, .at = at, .bytes = std::move(bytes)});
}

int close(sqlite3_file* file) { return real(file)->pMethods->xClose(real(file)); }
int read(sqlite3_file* file, void* bytes, int length, sqlite3_int64 at) {
    return real(file)->pMethods->xRead(real(file), bytes, length, at);
}
int write(sqlite3_file* file, const void* bytes, int length, sqlite3_int64 at) {
    note(file, Event::Written, at, {static_cast<const char*>(bytes), static_cast<std::size_t>(length)});
    return real(file)->pMethods->xWrite(real(file), bytes, length, at);
}
int cut(sqlite3_file* file, sqlite3_int64 length) {
    note(file, Event::Cut, length);
    return real(file)->pMethods->xTruncate(real(file), length);
}
int sync(sqlite3_file* file, int flags) {
    note(file, Event::Synced);
    return real(file)->pMethods->xSync(real(file), flags);
}
int size(sqlite3_file* file, sqlite3_int64* length) { return real(file)->pMethods->xFileSize(real(file), length); }
int lock(sqlite3_file* file, int how) { return real(file)->pMethods->xLock(real(file), how); }
int unlock(sqlite3_file* file, int how) { return real(file)->pMethods->xUnlock(real(file), how); }
int reserved(sqlite3_file* file, int* is) { return real(file)->pMethods->xCheckReservedLock(real(file), is); }
int control(sqlite3_file* file, int what, void* value) {
    return real(file)->pMethods->xFileControl(real(file), what, value);
}
int sector(sqlite3_file* file) { return real(file)->pMethods->xSectorSize(real(file)); }
int kind(sqlite3_file* file) { return real(file)->pMethods->xDeviceCharacteristics(real(file)); }

constexpr sqlite3_io_methods kMethods{1,       close,   read,     write,   cut,    sync, size,
                                      lock,    unlock,  reserved, control, sector, kind, nullptr,
                                      nullptr, nullptr, nullptr,  nullptr, nullptr};

int open(sqlite3_vfs* vfs, const char* name, sqlite3_file* file, int flags, int* flags_then) {
    auto* opened = new (file) PluggedFile{};
    opened->disk = static_cast<PlugDisk*>(vfs->pAppData);
    opened->is_journal = (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    const int result = the_real_vfs->xOpen(the_real_vfs, name, opened->real(), flags, flags_then);
    if (result == SQLITE_OK) opened->pMethods = &kMethods;
    if (result == SQLITE_OK && opened->is_journal) note(file, Event::Created);
    return result;
}

int remove(sqlite3_vfs* vfs, const char* name, int lasts) {
    if (std::string_view(name).ends_with("-journal")) {
        static_cast<PlugDisk*>(vfs->pAppData)
            ->note({.kind = lasts ? Event::RemovedToLast : Event::Removed, .is_journal = true, .at = 0, .bytes = {}});
    }
    return the_real_vfs->xDelete(the_real_vfs, name, lasts);
}

bool heads(std::mt19937& chance) { return (chance() & 1U) != 0; }

/// A file as programs see it, and as it is on the disk for sure.
class DiskFile {
public:
    explicit DiskFile(std::string bytes = {}) : sure_(std::move(bytes)) {}

    void take(const Event& event) { since_.push_back(&event); }
    void sync() {
        for (const Event* event : since_) apply(*event, sure_);
        since_.clear();
    }
    /// Each change since is there, or not, or half of its sectors are.
    [[nodiscard]] std::string left(std::mt19937& chance) const {
        std::string bytes = sure_;
        for (const Event* event : since_) {
            if (heads(chance)) {
                apply(*event, bytes);
            } else if (event->kind == Event::Written && heads(chance)) {
                apply_some_sectors(*event, bytes, chance);
            }
        }
        return bytes;
    }

private:
    static void apply(const Event& event, std::string& bytes) {
        const auto at = static_cast<std::size_t>(event.at);
        if (event.kind == Event::Cut) return bytes.resize(at);
        bytes.resize(std::max(bytes.size(), at + event.bytes.size()));
        std::ranges::copy(event.bytes, bytes.begin() + event.at);
    }
    static void apply_some_sectors(const Event& event, std::string& bytes, std::mt19937& chance) {
        constexpr std::size_t kSector = 512;
        for (std::size_t from = 0; from < event.bytes.size(); from += kSector) {
            if (!heads(chance)) continue;
            apply({.kind = Event::Written,
                   .at = event.at + static_cast<std::int64_t>(from),
                   .bytes = event.bytes.substr(from, kSector)},
                  bytes);
        }
    }

    std::string sure_;
    std::vector<const Event*> since_;
};

}  // namespace

PlugDisk::PlugDisk() : vfs_(std::make_unique<sqlite3_vfs>()) {
    the_real_vfs = sqlite3_vfs_find("unix");
    *vfs_ = *the_real_vfs;
    vfs_->zName = "plug";
    vfs_->pNext = nullptr;
    vfs_->pAppData = this;
    vfs_->szOsFile = static_cast<int>(sizeof(PluggedFile)) + the_real_vfs->szOsFile;
    vfs_->xOpen = open;
    vfs_->xDelete = remove;
    sqlite3_vfs_register(vfs_.get(), 1);
}

PlugDisk::~PlugDisk() { stop(); }

void PlugDisk::stop() {
    if (std::exchange(stopped_, true)) return;
    sqlite3_vfs_unregister(vfs_.get());
    sqlite3_vfs_register(the_real_vfs, 1);
}

int PlugDisk::pull_plug(std::size_t after, Folder way, const std::filesystem::path& store, const std::string& before,
                        std::mt19937& chance) const {
    int acknowledged = 0;
    DiskFile data(before);
    std::vector<DiskFile> journals;       // each that was ever made
    std::optional<std::size_t> seen;      // the journal as programs see the folder
    std::optional<std::size_t> for_sure;  // and as the disk has it, whatever happens
    for (std::size_t i = 0; i < after; ++i) {
        const Event& event = events_[i];
        DiskFile& file = event.is_journal && seen ? journals[*seen] : data;
        switch (event.kind) {
            case Event::Created:
                if (seen) break;  // it was opened once more
                seen = journals.size();
                journals.emplace_back();
                break;
            case Event::Written:
            case Event::Cut:
                file.take(event);
                break;
            case Event::Synced:
                file.sync();
                if (event.is_journal) for_sure = seen;
                break;
            case Event::Removed:
            case Event::RemovedToLast:
                seen.reset();
                if (event.kind == Event::RemovedToLast && way == Folder::Synced) for_sure.reset();
                break;
            case Event::Acknowledged:
                acknowledged = static_cast<int>(event.at);
                break;
        }
    }
    const auto put = [](const std::filesystem::path& file, const std::string& bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
    };
    put(store, data.left(chance));
    const std::filesystem::path journal = std::filesystem::path(store) += "-journal";
    std::filesystem::remove(journal);
    const auto name = heads(chance) ? seen : for_sure;
    if (name) put(journal, journals[*name].left(chance));
    return acknowledged;
}

}  // namespace marrowfen::test
