#pragma once

#include <array>
#include <string_view>

namespace marrowfen {

/// The words of the picture cards, one for each letter. A word is also the name of its picture.
constexpr std::array<std::string_view, 26> kCardWords{
    "apple",  "ball", "cat",      "dog",    "egg",   "fish",   "gate", "horse", "igloo",
    "jigsaw", "key",  "lion",     "mouse",  "nail",  "orange", "pig",  "queen", "rabbit",
    "sun",    "tree", "umbrella", "violin", "watch", "xray",   "yoyo", "zebra"};

}  // namespace marrowfen
