#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

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
    [[nodiscard]] Value LookupField(std::string_view table, std::string_view field, std::string_view criterion);
    /// The same for the row of a word.
    [[nodiscard]] Value LookupWord(std::string_view table, std::string_view field, std::string_view word);
    /// Opens a row set; one that can't be read is empty, and the pupil is told why.
    [[nodiscard]] std::unique_ptr<RowSet> open_rows(std::string_view table_or_query);

    /// Whether the store could not be read when it was last asked. That has been told.
    [[nodiscard]] bool unreadable() const { return told_unreadable_; }

    void tell(const std::string& message);
    void leave(Exit exit);

    /// A file below the program's folder; `below` begins with a backslash.
    [[nodiscard]] std::string path(std::string_view below) const;

private:
    /// Once, and again only after something could be read: a form that reads whenever it comes back would otherwise
    /// bring the message back for ever.
    void tell_if_unreadable(const RowSet& rows);
    bool told_unreadable_ = false;
};

/// `field='text'`, fit for any text: a quote inside is doubled.
[[nodiscard]] std::string where_text(std::string_view field, std::string_view text);
/// `field=number`
[[nodiscard]] std::string where_number(std::string_view field, std::int64_t number);

/// The cue that is the sound of a letter or digit.
[[nodiscard]] std::string phonic(std::string_view letter);

/// a to z turned into A to Z; everything else stays.
[[nodiscard]] std::string in_capitals(std::string_view text);

}  // namespace marrowfen
