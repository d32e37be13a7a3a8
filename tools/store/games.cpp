#include <algorithm>
#include <array>
#include <map>
#include <optional>

#include "board/key_table.h"
#include "content.h"
#include "platform/letter_case.h"
#include "platform/sqlite/folding.h"
#include "platform/sqlite/schema.h"
#include "tab_table.h"

namespace marrowfen {

namespace {

enum Column : std::uint8_t {
    kId,
    kNumber,
    kName,
    kPanels,
    kTiles,
    kFaces,
    kShowsFaces,
    kSplit,
    kBackground,
    kPictures
};

constexpr int kHighestId = 30;
constexpr int kHighestNumber = 99;
constexpr std::array kCapSets{"Upper", "Lower", "Pictures"};
constexpr std::size_t kLongestName = 34;  // the list has no room for more

using KeyPictures = std::vector<std::string>;  ///< for the keys in their order

KeyPictures read_pictures(const std::filesystem::path& file, const std::filesystem::path& drawings, Faults& faults) {
    enum PictureColumn : std::uint8_t { kKey, kPicture };
    const TabTable table(file, {"key", "picture"}, faults);
    KeyPictures pictures;
    std::map<std::string, int> seen;
    for (const TabTable::Row& line : table.rows()) {
        const RowReader row(table, line, faults);
        const std::string picture = row.needed(kPicture);
        if (pictures.size() < kKeyPlaces.size()) {
            const std::string key(1, kKeyPlaces[pictures.size()].tag);
            if (row.cell(kKey) != key) row.fault("key is '" + row.cell(kKey) + "', but '" + key + "' comes here");
        }
        // Anything else could lead out of the folder of pictures.
        if (!all_small_letters(picture)) {
            row.fault("picture '" + picture + "' should have the letters a to z alone");
        } else if (!drawings.empty() && !std::filesystem::exists(drawings / (picture + ".svg"))) {
            row.fault("there is no drawing '" + picture + ".svg'");
        }
        row.only_once(kPicture, picture, seen);
        pictures.push_back(picture);
    }
    if (table.has_its_columns() && pictures.size() != kKeyPlaces.size()) {
        faults.add(file, table.head_line(),
                   "there are " + std::to_string(pictures.size()) + " keys, but should be " +
                       std::to_string(kKeyPlaces.size()));
    }
    pictures.resize(kKeyPlaces.size());
    return pictures;
}

/// Sets of pictures by name, each read once.
class PictureSets {
public:
    PictureSets(std::filesystem::path folder, std::filesystem::path drawings, Faults& faults)
        : folder_(std::move(folder)), drawings_(std::move(drawings)), faults_(faults) {}

    KeyPictures take(const std::string& name) {
        const auto known = sets_.find(name);
        if (known != sets_.end()) return known->second;
        return sets_[name] = read_pictures(folder_ / (name + ".tsv"), drawings_, faults_);
    }

private:
    std::filesystem::path folder_, drawings_;
    Faults& faults_;
    std::map<std::string, KeyPictures> sets_;
};

/// Null where the cell is empty.
Value flag(const RowReader& row, const TabTable& table, std::size_t column) {
    const std::string& text = row.cell(column);
    if (text.empty()) return {};
    if (same_name(text, "True")) return std::int64_t{-1};
    if (!same_name(text, "False")) row.fault(table.column(column) + " is '" + text + "', but should be True or False");
    return std::int64_t{0};
}

Value text_or_null(const std::string& text) { return text.empty() ? Value{} : Value{text}; }

void check_look(const RowReader& row, const TabTable& table, const GameLook& look) {
    if (look.shows_faces) (void)row.needed(kFaces);
    for (const Column column : {kTiles, kFaces}) {
        const std::string& set = row.cell(column);
        const bool known = std::ranges::any_of(kCapSets, [&](const char* name) { return same_name(set, name); });
        if (!known && !set.empty()) {
            row.fault(table.column(column) + " is '" + set + "', but should be Upper, Lower or Pictures");
        }
    }
    if (!all_letters(row.cell(kPictures))) {
        row.fault("pics '" + row.cell(kPictures) + "' should have the letters A to Z alone");
    }
    if (look.shows_pictures && row.cell(kPictures).empty()) {
        row.fault("background is True, so pics should name the pictures");
    }
}

void check_name(const RowReader& row, const std::string& name) {
    const auto length = length_in_characters(name);
    if (length <= kLongestName) return;
    row.fault("GameName has " + std::to_string(length) + " letters, and " + std::to_string(kLongestName) + " fit");
}

}  // namespace

ContentTable read_games(const std::filesystem::path& folder, const std::filesystem::path& drawings,
                        std::vector<GameLook>& looks, Faults& faults) {
    ContentTable content{.name = "Templates", .rows = {}};
    const TabTable table(folder / "games.tsv",
                         {"Template_ID", "GameNumber", "GameName", "Panels", "dragtype", "droptype",
                          "backgroundletters", "Split", "background", "pics"},
                         faults);
    PictureSets sets(folder, drawings, faults);
    std::map<std::string, int> ids;
    std::map<std::string, int> numbers;
    std::map<std::string, int> names;
    for (const TabTable::Row& line : table.rows()) {
        const RowReader row(table, line, faults);
        const auto id = row.whole(kId, 1, kHighestId);
        const auto number = row.whole(kNumber, 1, kHighestNumber);
        const std::string name = row.needed(kName);
        if (id) row.only_once(kId, std::to_string(*id), ids);
        if (number) row.only_once(kNumber, std::to_string(*number), numbers);
        row.only_once(kName, folded(name), names);
        check_name(row, name);
        const auto panels = row.whole(kPanels, 0, kTileCount - 1);
        Values values{std::int64_t{id.value_or(0)},
                      std::int64_t{number.value_or(0)},
                      name,
                      std::int64_t{panels.value_or(0)},
                      row.needed(kTiles),
                      text_or_null(row.cell(kFaces)),
                      flag(row, table, kShowsFaces),
                      flag(row, table, kSplit),
                      flag(row, table, kBackground)};
        GameLook look{.tiles = row.cell(kTiles),
                      .faces = row.cell(kFaces),
                      .shows_faces = as_flag(values[kShowsFaces]),
                      .splits_hands = as_flag(values[kSplit]),
                      .shows_pictures = as_flag(values[kBackground]),
                      .key_pictures = {}};
        check_look(row, table, look);
        const std::string& set = row.cell(kPictures);
        if (!set.empty() && all_letters(set)) look.key_pictures = sets.take(set);
        for (std::size_t key = 0; key < kKeyPlaces.size(); ++key) {
            values.push_back(look.key_pictures.empty() ? Value{} : text_or_null(look.key_pictures[key]));
        }
        content.rows.push_back(std::move(values));
        looks.push_back(std::move(look));
    }
    for (int id = 1; table.has_its_columns() && id <= kHighestId; ++id) {
        if (!ids.contains(std::to_string(id))) {
            faults.add(table.file(), table.head_line(), "there is no game with the Template_ID " + std::to_string(id));
        }
    }
    return content;
}

}  // namespace marrowfen
