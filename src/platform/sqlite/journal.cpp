#include "platform/sqlite/journal.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>

#include "platform/sqlite/file_head.h"

namespace marrowfen {

namespace {

constexpr std::array<unsigned char, 8> kMagic{0xD9, 0xD5, 0x05, 0xF9, 0x20, 0xA1, 0x63, 0xD7};

// Where the numbers stand in the head of a journal.
constexpr std::size_t kPagesAt = 8;
constexpr std::size_t kSectorSizeAt = 20;
constexpr std::size_t kPageSizeAt = 24;
constexpr std::size_t kHeadLength = 28;

class Journal {
public:
    explicit Journal(const std::filesystem::path& file) : stream_(file, std::ios::binary) {}

    /// nullopt: the journal ends before.
    template <std::size_t length>
    [[nodiscard]] std::optional<std::array<unsigned char, length>> read(std::uint64_t at) {
        std::array<unsigned char, length> bytes{};
        stream_.seekg(static_cast<std::streamoff>(at));
        stream_.read(reinterpret_cast<char*>(bytes.data()), length);
        return stream_ ? std::optional(bytes) : std::nullopt;
    }

private:
    std::ifstream stream_;
};

}  // namespace

std::filesystem::path journal_of(const std::filesystem::path& file) {
    return std::filesystem::path(file) += "-journal";
}

// A journal is one part or several. Each begins with a head that fills a sector. Then comes, for each page that the
// change touched, its number, its content before, and a checksum. The first page counts the changes.
std::optional<std::uint32_t> changes_before_journal(const std::filesystem::path& file) {
    Journal journal(journal_of(file));
    constexpr std::uint32_t kNumber = 4;
    constexpr std::uint32_t kLargestPage = 65536;
    for (std::uint64_t at = 0;;) {
        const auto head = journal.read<kHeadLength>(at);
        if (!head || !std::equal(kMagic.begin(), kMagic.end(), head->begin())) return std::nullopt;
        const std::uint32_t sector = number_at(*head, kSectorSizeAt);
        const std::uint32_t page_size = number_at(*head, kPageSizeAt);
        if (sector == 0 || page_size < kFileHeadLength || page_size > kLargestPage) return std::nullopt;
        at += sector;
        for (std::uint32_t pages = number_at(*head, kPagesAt); pages > 0; --pages) {
            const auto number = journal.read<kNumber>(at);
            if (!number) return std::nullopt;
            if (number_at(*number, 0) == 1) {
                const auto page = journal.read<kFileHeadLength>(at + kNumber);
                return page ? std::optional(number_at(*page, kChangesAt)) : std::nullopt;
            }
            at += page_size + 2 * kNumber;
        }
        at = (at + sector - 1) / sector * sector;
    }
}

bool journal_belongs(const std::filesystem::path& file, std::uint32_t changes) {
    const auto before = changes_before_journal(file);
    return !before || changes == *before || changes == *before + 1;
}

void remove_journal(const std::filesystem::path& file) {
    std::error_code ignored;  // what can't be removed shows in the step that follows
    for (const char* ending : {"-journal", "-wal", "-shm"}) {
        std::filesystem::remove(std::filesystem::path(file) += ending, ignored);
    }
}

}  // namespace marrowfen
