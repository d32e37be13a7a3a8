#pragma once

#include <array>
#include <cstdint>

#include "platform/forms/geometry.h"

namespace marrowfen {

constexpr int kKeyCount = 36;
constexpr int kTileCount = 10;

struct KeyPlace {
    char tag;  ///< its capital letter or digit
    Twips left;
    Twips top;
};

/// Keys 1 to 36, in this order. It is not the alphabet: A comes last.
constexpr std::array<KeyPlace, kKeyCount> kKeyPlaces{{
    {'B', 5265, 3120}, {'C', 3945, 3120}, {'D', 3630, 2520}, {'E', 3405, 1920}, {'F', 4290, 2520}, {'G', 4950, 2520},
    {'H', 5610, 2520}, {'I', 6705, 1920}, {'J', 6270, 2520}, {'K', 6930, 2520}, {'L', 7590, 2520}, {'M', 6585, 3120},
    {'N', 5925, 3120}, {'O', 7365, 1920}, {'P', 8025, 1920}, {'Q', 2085, 1920}, {'R', 4065, 1920}, {'S', 2970, 2520},
    {'T', 4725, 1920}, {'U', 6045, 1920}, {'V', 4605, 3120}, {'W', 2745, 1920}, {'X', 3270, 3120}, {'Y', 5385, 1920},
    {'Z', 2595, 3120}, {'1', 1725, 1335}, {'2', 2385, 1335}, {'3', 3045, 1335}, {'4', 3705, 1335}, {'5', 4365, 1335},
    {'6', 5025, 1335}, {'7', 5685, 1335}, {'8', 6345, 1335}, {'9', 7005, 1335}, {'0', 7665, 1335}, {'A', 2310, 2520},
}};

/// The keys of the right hand: Y U I O P H J K L B N M 7 8 9 0.
constexpr std::array<std::int16_t, 16> kRightHand{24, 20, 8, 14, 15, 7, 9, 10, 11, 1, 13, 12, 32, 33, 34, 35};

constexpr Size kKeySize{660, 600};

constexpr Twips kTileTop = 4875;
constexpr std::array<Twips, kTileCount> kTileLefts{615, 1455, 2265, 3105, 3945, 4770, 5610, 6435, 7275, 8100};

}  // namespace marrowfen
