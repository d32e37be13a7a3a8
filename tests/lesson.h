#pragma once

#include <sqlite3.h>

#include <array>
#include <memory>

#include "answers.h"
#include "pupils/frmGames.h"
#include "results/frmHalloffame.h"
#include "results/frmScore.h"
#include "results/frmTimeUp.h"

namespace marrowfen {

/// How a pupil answers. With the mouse: a click on a key, or in a tile game a tile that is dragged to it.
enum class Way : std::uint8_t { SmallLetters, Capitals, Mouse, Mixed };
inline constexpr std::array kWays{Way::SmallLetters, Way::Capitals, Way::Mouse, Way::Mixed};

enum class Phonics : std::uint8_t { On, Off };

/// Changes the content as no teacher should.
inline void spoil_store(const Classroom& room, const std::string& sql) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open((room.folder.path() / "data.mdb").c_str(), &opened);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> file(opened, &sqlite3_close);
    ASSERT_EQ(result, SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(opened, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(opened);
}

/// Ann sits before the list of games, and knows every answer.
class Lesson {
public:
    Classroom room;
    Pupil ann{room};

    explicit Lesson(const std::filesystem::path& recording = {}) : room({"Ann"}, recording) {
        room.start();
        ann.sits_down("Ann");
    }
    Lesson(const Lesson&) = delete;
    Lesson& operator=(const Lesson&) = delete;
    ~Lesson() = default;

    void spoil_store(const std::string& sql) { marrowfen::spoil_store(room, sql); }

    void switches(Phonics phonics) {
        if (room.state().PhonicsOn == (phonics == Phonics::On)) return;
        ann.presses(phonics == Phonics::On ? &frmGames::Phon_OFF : &frmGames::Phon_On);
    }
    void opens(int game) {
        ann.picks_game(game);
        ann.joins(kRedTeam);
    }
    void begins(int game) {
        opens(game);
        ann.starts_the_clock();
        (void)room.heard_and_forgotten();
    }
    void goes_back_to_the_list() {
        if (plays()) ann.presses(&frmSimpleKeyBoard::close_De);
        if (room.is_open(FormId::frmScore)) ann.presses(&frmScore::HallDe);
        if (room.is_open(FormId::frmHalloffame)) ann.presses(&frmHalloffame::AnotherDe);
        if (room.is_open(FormId::frmTimeUp)) ann.presses(&frmTimeUp::AnotherDe);
    }
    [[nodiscard]] bool plays() const { return room.is_open(FormId::frmSimpleKeyBoard); }

    [[nodiscard]] std::string right_letter() { return answers_.right_letter(); }
    [[nodiscard]] std::string wrong_letter() { return right_letter() == "1" ? "2" : "1"; }
    [[nodiscard]] std::string asked_word() { return answers_.asked_word(); }
    [[nodiscard]] std::string found() { return answers_.found(); }
    [[nodiscard]] PictureBox& key(std::string_view letter) { return *room.form<frmSimpleKeyBoard>().find_key(letter); }
    /// What a key or a card shows: the picture's path from its folder on.
    [[nodiscard]] std::string shown_by(const Picture& picture) const {
        const std::string folder = room.folder_in_logic() + "\\KeyPictures\\Simple\\";
        return picture.name().starts_with(folder) ? picture.name().substr(folder.size()) : picture.name();
    }

    struct Given {
        std::string letter;  ///< as it was typed, or the capital of the key
        bool typed;
    };
    /// Gives a letter. Mixed ways take turns.
    Given gives(std::string_view letter, Way way) {
        constexpr std::array kInTurn{Way::SmallLetters, Way::Mouse, Way::Capitals};
        if (way == Way::Mixed) way = kInTurn.at(turns_++ % kInTurn.size());
        const Given given{way == Way::SmallLetters ? in_small(letter) : in_capitals(letter), way != Way::Mouse};
        if (given.typed) {
            ann.types(given.letter);
        } else if (PictureBox& tile = answers_.lowest_tile(); tile.Visible) {
            ann.drags(tile, key(given.letter));
        } else {
            ann.press(key(given.letter));
        }
        return given;
    }

private:
    [[nodiscard]] static std::string in_small(std::string_view letter) {
        std::string small(letter);
        for (char& c : small) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        return small;
    }
    Answers answers_{room};
    std::size_t turns_ = 0;
};

}  // namespace marrowfen
