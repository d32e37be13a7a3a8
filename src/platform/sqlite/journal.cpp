#include "platform/sqlite/journal.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <span>
#include <string>
#include <system_error>

#include "platform/sqlite/file_head.h"

namespace marrowfen {

namespace {

constexpr std::array<unsigned char, 8> kMagic{0xD9, 0xD5, 0x05, 0xF9, 0x20, 0xA1, 0x63, 0xD7};

// Where the numbers stand in the head of a journal.
constexpr std::size_t kSectorSizeAt = 20;
constexpr std::size_t kPageSizeAt = 24;
constexpr std::size_t kHeadLength = 28;

}  // namespace

std::filesystem::path journal_of(const std::filesystem::path& file) { return std::filesystem::path(file) += "-journal"; }

// The head fills a sector. Then comes, for each page that the change touched, its number, its content before, and a
// checksum. The first page counts the changes, so every change touches it.
std::optional<std::uint32_t> changes_before_journal(const std::filesystem::path& file) {
    std::ifstream journal(journal_of(file), std::ios::binary);
    const auto read = [&journal](std::span<unsigned char> bytes) {
        return !!journal.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    };
    std::array<unsigned char, kHeadLength> head{};
    if (!read(head) || !std::ranges::equal(kMagic, std::span(head).first(kMagic.size()))) return std::nullopt;
    const std::uint32_t page_size = number_at(head, kPageSizeAt);
    constexpr std::uint32_t kNumber = 4;
    constexpr std::uint32_t kLargestPage = 65536;
    if (page_size < kFileHeadLength || page_size > kLargestPage) return std::nullopt;
    for (std::uint64_t at = number_at(head, kSectorSizeAt);; at += page_size + 2 * kNumber) {
        std::array<unsigned char, kNumber> number{};
        std::array<unsigned char, kFileHeadLength> page{};
        journal.seekg(static_cast<std::streamoff>(at));
        if (!read(number)) return std::nullopt;
        if (number_at(number, 0) != 1) continue;
        if (!read(page)) return std::nullopt;
        return number_at(page, kChangesAt);
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
