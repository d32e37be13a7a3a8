#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace marrowfen {

/// A colour as the designs write it: 0x00BBGGRR.
struct Colour {
    std::uint32_t bgr = 0;

    [[nodiscard]] constexpr int red() const { return static_cast<int>(bgr & 0xFFU); }
    [[nodiscard]] constexpr int green() const { return static_cast<int>((bgr >> 8U) & 0xFFU); }
    [[nodiscard]] constexpr int blue() const { return static_cast<int>((bgr >> 16U) & 0xFFU); }
    friend constexpr bool operator==(Colour, Colour) = default;
};

constexpr Colour rgb(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
    return {red | green << 8U | blue << 16U};
}

constexpr Colour kBlack{0x00000000};
constexpr Colour kRed{0x000000FF};
constexpr Colour kYellow{0x0000FFFF};
constexpr Colour kGreen{0x0000FF00};
constexpr Colour kBlue{0x00FF0000};
constexpr Colour kWhite{0x00FFFFFF};

enum class Weight : std::uint8_t { Normal, Bold };
enum class Underline : std::uint8_t { No, Yes };
enum class Align : std::uint8_t { Left, Centre, Middle };  ///< Middle: centred both ways

/// The caption face in a size of `points` (one point is 20 twips). Which typeface that is, the adapter knows.
struct Font {
    double points = 12;
    Weight weight = Weight::Normal;
    Underline underline = Underline::No;
    friend constexpr bool operator==(const Font&, const Font&) = default;
};

constexpr Font comic(double points) { return {points}; }
constexpr Font comic_bold(double points) { return {points, Weight::Bold}; }
constexpr Font comic_underlined(double points) { return {points, Weight::Normal, Underline::Yes}; }

/// What an image or a picture box shows: nothing, a drawing that belongs to the program, or a picture file.
/// A file is named by its whole path, written with backslashes and in any case. Nothing is read before it is painted;
/// a picture that can't be read then is painted as its base name.
class Picture {
public:
    enum class Source : std::uint8_t { None, Artwork, File };

    Picture() = default;
    [[nodiscard]] static Picture artwork(std::string_view name) { return {Source::Artwork, name}; }
    [[nodiscard]] static Picture file(std::string_view path) { return {Source::File, path}; }

    [[nodiscard]] Source source() const { return source_; }
    [[nodiscard]] const std::string& name() const { return name_; }
    friend bool operator==(const Picture&, const Picture&) = default;

private:
    Picture(Source source, std::string_view name) : source_(source), name_(name) {}
    Source source_ = Source::None;
    std::string name_;
};

}  // namespace marrowfen
