#include <algorithm>
#include <map>

#include "board/key_table.h"
#include "content.h"
#include "core/key_pictures.h"
#include "platform/letter_case.h"
#include "school/tab_table.h"

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

constexpr const char* kSetOfThings = "things";

ThingNames read_things(const std::filesystem::path& file, const std::filesystem::path& drawings, Faults& faults) {
    enum PictureColumn : std::uint8_t { kKey, kPicture };
    const TabTable table(file, {"key", "picture"}, faults);
    ThingNames things;
    std::map<std::string, int> seen;
    for (const TabTable::Row& line : table.rows()) {
        const RowReader row(table, line, faults);
        const std::string thing = row.needed(kPicture);
        if (things.size() < kKeyPlaces.size()) {
            const std::string key(1, kKeyPlaces[things.size()].tag);
            if (row.cell(kKey) != key) row.fault(kKey, "key is '" + row.cell(kKey) + "', but '" + key + "' comes here");
        }
        // Anything else could lead out of the folder of pictures, and a single letter is the name of a key's picture.
        if (!all_small_letters(thing)) {
            row.fault(kPicture, "picture '" + thing + "' should have the letters a to z alone");
        } else if (thing.size() == 1) {
            row.fault(kPicture, "picture '" + thing + "' should have two letters or more");
        } else if (!drawings.empty() && !std::filesystem::exists(drawings / (thing + ".svg"))) {
            row.fault(kPicture, "there is no drawing '" + thing + ".svg'");
        }
        row.only_once(kPicture, thing, seen);
        things.push_back(thing);
    }
    if (table.has_its_columns() && things.size() != kKeyPlaces.size()) {
        faults.add(
            file, table.head_line(),
            "there are " + std::to_string(things.size()) + " keys, but should be " + std::to_string(kKeyPlaces.size()));
    }
    things.resize(kKeyPlaces.size());
    return things;
}

/// The tables of things by name, each read once.
class ThingTables {
public:
    ThingTables(std::filesystem::path folder, std::filesystem::path drawings, Faults& faults)
        : folder_(std::move(folder)), drawings_(std::move(drawings)), faults_(faults) {}

    const ThingNames& take(const std::string& name) {
        const auto known = tables_.find(name);
        if (known != tables_.end()) return known->second;
        return tables_[name] = read_things(folder_ / (name + ".tsv"), drawings_, faults_);
    }

private:
    std::filesystem::path folder_, drawings_;
    Faults& faults_;
    std::map<std::string, ThingNames> tables_;
};

/// Null where the cell is empty.
Value flag(const RowReader& row, const TabTable& table, std::size_t column) {
    const std::string& text = row.cell(column);
    if (text.empty()) return {};
    if (same_name(text, "True")) return std::int64_t{-1};
    if (!same_name(text, "False"))
        row.fault(column, table.column(column) + " is '" + text + "', but should be True or False");
    return std::int64_t{0};
}

Value text_or_null(const std::string& text) { return text.empty() ? Value{} : Value{text}; }

void check_look(const RowReader& row, const TabTable& table, const GameLook& look) {
    if (look.shows_faces) (void)row.needed(kFaces);
    for (const Column column : {kTiles, kFaces}) {
        const std::string& set = row.cell(column);
        const bool known = std::ranges::any_of(kPictureSets, [&](auto name) { return same_name(set, name); });
        if (!known && !set.empty()) {
            row.fault(column, table.column(column) + " is '" + set + "', but should be Upper, Lower or Pictures");
        }
    }
    if (!all_letters(row.cell(kPictures))) {
        row.fault(kPictures, "pics '" + row.cell(kPictures) + "' should have the letters A to Z alone");
    }
    if (look.shows_things && row.cell(kPictures).empty()) {
        row.fault(kPictures, "background is True, so pics should name the pictures");
    }
}

}  // namespace

void read_games(const std::filesystem::path& folder, const std::filesystem::path& drawings, Content& content,
                Faults& faults) {
    ContentTable games{.name = "Templates", .rows = {}};
    const TabTable table(folder / "games.tsv",
                         {"Template_ID", "GameNumber", "GameName", "Panels", "dragtype", "droptype",
                          "backgroundletters", "Split", "background", "pics"},
                         faults);
    ThingTables things(folder, drawings, faults);
    GameNames names({.id = kId, .number = kNumber, .name = kName});
    for (const TabTable::Row& line : table.rows()) {
        const RowReader row(table, line, faults);
        const GameNames::Named game = names.read(row);
        const auto panels = row.whole(kPanels, 0, kTileCount - 1);
        Values values{std::int64_t{game.id},
                      std::int64_t{game.number},
                      game.name,
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
                      .shows_things = as_flag(values[kBackground]),
                      .things = {}};
        check_look(row, table, look);
        const std::string& named = row.cell(kPictures);
        if (!named.empty() && all_letters(named)) look.things = things.take(named);
        if (same_name(look.tiles, kThings) || same_name(look.faces, kThings))
            content.things = things.take(kSetOfThings);
        for (std::size_t key = 0; key < kKeyPlaces.size(); ++key) {
            values.push_back(look.things.empty() ? Value{} : text_or_null(look.things[key]));
        }
        games.rows.push_back(std::move(values));
        content.looks.push_back(std::move(look));
    }
    names.finish(table, faults);
    content.tables.push_back(std::move(games));
}

}  // namespace marrowfen
