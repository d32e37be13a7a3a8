#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/form_set.h"
#include "core/state.h"
#include "platform/clock.h"
#include "platform/files.h"
#include "platform/random.h"
#include "platform/sound_device.h"

namespace marrowfen {

/// The outside world, lent for the whole run.
struct Ports {
    StoreEngine& store;
    SoundDevice& sound;
    Clock& clock;
    Random& random;
    Files& files;
};

/// Judges what the pupil gives, one thing at a time. One for all games.
class Referee {
public:
    virtual ~Referee() = default;
    /// One character from the keyboard, whatever it is. It counts only while a game runs.
    virtual void JudgeKey(char32_t key) = 0;
    virtual void Keys_Click(int index) = 0;  ///< a key of the board, 1 to 36
    /// Does something that changes the game, now or as soon as what is being judged has been settled. It is not done
    /// at all when the game has gone by then.
    virtual void in_turn(std::function<void()> answer) = 0;
    /// The last key of a tile game has been filled from this tile.
    virtual void win_tiles(PictureBox& tile) = 0;
};

/// The form that tells a pupil what must be done first.
class Teller {
public:
    virtual ~Teller() = default;
    virtual void tell(const std::string& message) = 0;
};

/// A form that holds what must not be lost when the program ends.
class Keeper {
public:
    virtual ~Keeper() = default;
    /// False: it can't be kept just now, and the pupil has been told. Asked once more, it lets go.
    [[nodiscard]] virtual bool keep_before_the_end() = 0;
};

/// The four buttons that end the program, by the form that they stand on.
enum class Exit : std::uint8_t { FromSelectGame, FromGames, FromHalloffame, FromTimeUp };

/// What every form knows: the shared state, the other forms by name, and the world outside.
class Program {
public:
    Program(Desktop& desktop, const Ports& ports);

    Desktop& desktop;
    const Ports ports;
    State state;
    FormSet forms;
    Referee* referee = nullptr;  ///< set before the start

    /// Opens the store and brings the first screen. On failure nothing is shown.
    [[nodiscard]] std::optional<StoreFailure> start();
    [[nodiscard]] std::optional<StoreFailure> open_store();  ///< anew, in place of the open one if that succeeds

    /// Starts a cue, named as in the sound folder, and yields. Does neither while the sound is off.
    void PlayCue(std::string_view name);
    /// The field of the first row that fits the criterion, or the whole number 0 when none fits.
    [[nodiscard]] Result<Value> LookupField(std::string_view table, std::string_view field, std::string_view criterion);
    /// The same for the row of a word.
    [[nodiscard]] Result<Value> LookupWord(std::string_view table, std::string_view field, std::string_view word);
    [[nodiscard]] std::unique_ptr<RowSet> open_rows(std::string_view table_or_query);

    void tell(const std::string& message);
    void tell_unreadable(const StoreFailure& failure);  ///< the one sentence for whatever could not be read
    void leave(Exit exit);
    /// The window system wants the program to end: it does, once a result that waits to be kept has been kept.
    void close_requested();

    /// A pupil has just sat down: nothing is at stake, and there is a moment for whatever must be done now and then.
    void seated() const {
        if (on_seated) on_seated();
    }
    std::function<void()> on_seated;

    /// A file below the program's folder; `below` begins with a backslash.
    [[nodiscard]] std::string path(std::string_view below) const;
};

/// A line for each row, from the first to the last; all of them or none.
[[nodiscard]] Result<std::vector<std::string>> lines_of(RowSet& rows,
                                                        const std::function<std::string(const RowSet&)>& line);

/// `field='text'`, fit for any text: a quote inside is doubled.
[[nodiscard]] std::string where_text(std::string_view field, std::string_view text);
/// `field=number`
[[nodiscard]] std::string where_number(std::string_view field, std::int64_t number);

/// The cue that is the sound of a letter or digit.
[[nodiscard]] std::string phonic(std::string_view letter);

/// Whether a key of the board bears it: a to z, A to Z, 0 to 9.
constexpr bool is_on_the_board(char32_t c) {
    return (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z') || (c >= U'0' && c <= U'9');
}

/// a to z turned into A to Z; everything else stays.
[[nodiscard]] std::string in_capitals(std::string_view text);

}  // namespace marrowfen
