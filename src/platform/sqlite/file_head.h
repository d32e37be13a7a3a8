#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace marrowfen {

inline constexpr std::size_t kFileHeadLength = 100;
using FileHead = std::array<unsigned char, kFileHeadLength>;

/// What every file begins with: "SQLite format 3", and a zero.
inline constexpr std::array<unsigned char, 16> kFileMagic{'S', 'Q', 'L', 'i', 't', 'e', ' ', 'f',
                                                          'o', 'r', 'm', 'a', 't', ' ', '3', 0};

/// Where the number of changes stands in the head of a file.
inline constexpr std::size_t kChangesAt = 24;

/// A number of four bytes, the highest first.
[[nodiscard]] constexpr std::uint32_t number_at(std::span<const unsigned char> bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (const unsigned char byte : bytes.subspan(at, 4)) number = number << 8U | byte;
    return number;
}

}  // namespace marrowfen
