#include "tables/picture_list.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "../failure.h"
#include "school/tab_table.h"

namespace marrowfen {

namespace {

enum Column : std::uint8_t { kFile, kCap, kLetter, kDrawing };
constexpr std::array kColumns{"picture", "cap", "letter", "drawing"};
/// In the order of CapKind. A card has none.
constexpr std::array<std::string_view, 4> kCaps{"Face", "Tile", "RightFace", "RightTile"};

ListedPicture picture_in(const RowReader& row) {
    ListedPicture picture{.file = row.needed(kFile), .cap = {}, .letter = {}, .drawing = row.cell(kDrawing)};
    const std::string& letter = row.cell(kLetter);
    if (letter.size() == 1) picture.letter = letter.front();
    if (picture.letter.has_value() != picture.drawing.empty())
        row.fault(kLetter, "there should be a letter or a drawing");
    if (row.cell(kCap).empty()) return picture;
    const auto* cap = std::ranges::find(kCaps, row.cell(kCap));
    if (cap == kCaps.end()) row.fault(kCap, "there is no cap '" + row.cell(kCap) + "'");
    picture.cap = static_cast<CapKind>(cap - kCaps.begin());
    return picture;
}

}  // namespace

std::string as_table(const std::vector<ListedPicture>& pictures) {
    std::string text;
    for (const char* column : kColumns) text.append(text.empty() ? "" : "\t").append(column);
    for (const ListedPicture& picture : pictures) {
        text.append("\n").append(picture.file).append("\t");
        if (picture.cap) text.append(kCaps.at(static_cast<std::size_t>(*picture.cap)));
        text.append("\t").append(picture.letter ? 1 : 0, picture.letter.value_or(' '));
        text.append("\t").append(picture.drawing);
    }
    return text + "\n";
}

std::vector<ListedPicture> read_picture_list(const std::filesystem::path& file) {
    Faults faults;
    const TabTable table(file, {kColumns.begin(), kColumns.end()}, faults);
    std::vector<ListedPicture> pictures;
    for (const TabTable::Row& line : table.rows()) pictures.push_back(picture_in({table, line, faults}));
    if (pictures.empty() && faults.none()) faults.add(file, table.head_line(), "no game asks for a picture");
    fail_with(faults.lines());
    return pictures;
}

}  // namespace marrowfen
