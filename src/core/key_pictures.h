#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

/// Where the pictures of keys, tiles and cards lie: for the forms and rules that show them, and for the build that
/// makes them.
namespace marrowfen {

/// What a letter or a thing is painted on. A tile differs a little from a key face, so that a pupil sees which keys are
/// filled. The right hand's caps are blue and carry a bar on a dark lip: they stand out by lightness too, not by colour
/// alone.
enum class CapKind : std::uint8_t { Face, Tile, RightFace, RightTile };

/// The sets, of which each holds a picture for each key. Their names are taken without regard to case.
constexpr std::string_view kUpper = "Upper";
constexpr std::string_view kLower = "Lower";
constexpr std::string_view kThings = "Pictures";
inline constexpr std::array kPictureSets{kUpper, kLower, kThings};

// Files below the program's folder, written with backslashes, the first one included.
constexpr std::string_view kPictureFolder = "\\KeyPictures\\";
/// `key` is its capital or digit.
[[nodiscard]] std::string key_picture(CapKind cap, std::string_view set, std::string_view key);
/// The face of a key that shows a thing instead of its letter. A thing's name has two letters at least, so it can't be
/// mistaken for a key's.
[[nodiscard]] std::string thing_picture(std::string_view thing);
[[nodiscard]] std::string card_picture(std::string_view word);

}  // namespace marrowfen
