#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/register.h"
#include "platform/store.h"

namespace marrowfen {

/// A game as the list of games has it.
struct GameEntry {
    std::int16_t id = 0;      ///< the kind of game, which results name
    std::int16_t number = 0;  ///< in the list; below zero where the game was left out of it
    std::string name;
    [[nodiscard]] bool listed() const { return number > 0; }
    [[nodiscard]] std::string title() const;  ///< "7. Find the capitals"
    bool operator==(const GameEntry&) const = default;
};

/// A result, small enough that a million of them fit into memory.
struct Played {
    static constexpr std::int32_t kUnknown = -1;

    std::int64_t row = 0;
    std::int32_t day = kUnknown;    ///< since 1970-01-01
    std::int32_t clock = kUnknown;  ///< seconds since midnight
    std::int32_t taken = kUnknown;  ///< seconds
    std::int16_t pupil = 0;
    std::int16_t game = 0;
    std::int16_t time_limit = 0;  ///< seconds; 0: a typing test
    std::int16_t points = 0;      ///< in a typing test the seconds taken, otherwise the share of the time left
};

[[nodiscard]] std::int32_t day_of(std::chrono::year_month_day date);
[[nodiscard]] std::string date_text(std::int32_t day);       ///< "2026-03-09"; empty for an unknown one
[[nodiscard]] std::string clock_text(std::int32_t clock);    ///< "10:05"; empty for an unknown one
[[nodiscard]] std::string minutes_text(std::int32_t taken);  ///< "1:05"; empty for an unknown one
/// "87 points", or "31 seconds" in a typing test.
[[nodiscard]] std::string points_text(const Played& played);

/// All that a school's store tells about pupils, games and results, as it was when it was read last.
class Book {
public:
    Book(Store& store, Register& keeper) : store_(store), register_(keeper) {}

    enum class Reading : std::uint8_t { WhatIsNew, Everything };
    /// Answers whether anything is different now. On failure, or when it was stopped, all stays as it was.
    [[nodiscard]] Result<bool> refresh(Reading reading, const Progress& progress);

    [[nodiscard]] const std::vector<KeptPupil>& pupils() const { return pupils_; }  ///< by name
    [[nodiscard]] const std::vector<GameEntry>& games() const { return games_; }    ///< by number, those left out last
    [[nodiscard]] const std::vector<Played>& results() const { return results_; }   ///< as they were kept

    /// Where the pupil stands in `pupils`.
    [[nodiscard]] std::optional<std::size_t> place_of(std::int64_t pupil) const;
    /// "a removed pupil (7)" for one who is gone.
    [[nodiscard]] std::string name_of(std::int64_t pupil) const;
    [[nodiscard]] const GameEntry* game(std::int64_t id) const;  ///< nullptr: no game of today's
    [[nodiscard]] std::string game_name(std::int64_t id) const;

private:
    [[nodiscard]] Result<std::vector<GameEntry>> read_games();
    [[nodiscard]] std::optional<StoreFailure> read_results(std::vector<Played>& results, std::int64_t count,
                                                           const Progress& progress);

    Store& store_;
    Register& register_;
    std::vector<KeptPupil> pupils_;
    std::vector<GameEntry> games_;
    std::vector<Played> results_;
    std::unordered_map<std::int64_t, std::size_t> places_;
};

}  // namespace marrowfen
