// Plays with the keyboard alone: nobody in here has a mouse.

#include "lesson.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmSelectGame.h"
#include "pupils/frmSettings.h"
#include "toy_form.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {
namespace {

class KeyboardAlone : public testing::Test {
protected:
    void strikes(Key key, bool shift = false) {
        const char32_t character = key == Key::Space ? U' ' : key == Key::Enter ? U'\r' : key == Key::Escape ? 0x1B : 0;
        room.display.strike({.key = key, .shift = shift, .character = character}, room.desktop);
    }
    [[nodiscard]] Control* ring() const { return room.desktop.ring().at(); }
    /// Tab, until the ring stands there.
    void tabs_to(const Control& control) {
        for (int i = 0; i < 20 && ring() != &control; ++i) strikes(Key::Tab);
        ASSERT_EQ(ring(), &control);
    }
    /// Arrows, from key to key.
    void goes_to(const Control& key) {
        for (int i = 0; i < 30 && ring() != &key; ++i) {
            ASSERT_NE(ring(), nullptr);
            const Point way{key.bounds().centre().x - ring()->bounds().centre().x,
                            key.bounds().centre().y - ring()->bounds().centre().y};
            strikes(way.y != 0 ? (way.y > 0 ? Key::Down : Key::Up) : way.x > 0 ? Key::Right : Key::Left);
        }
        ASSERT_EQ(ring(), &key);
    }
    /// From the first screen to the board. What a list does with the arrows is the toolkit's.
    void opens(int game) {
        room.start();
        auto& names = room.form<frmSelectGame>().cmbPupils;
        strikes(Key::Tab), strikes(Key::Tab, true);
        ASSERT_EQ(ring(), &names);
        ASSERT_EQ(room.display.tell(KeyDown{.key = Key::Enter, .character = U'\r'}), Taker::Field) << "it drops down";
        room.display.tell(RowChoice{&names, 0});
        auto& games = room.form<frmGames>().List1;
        EXPECT_EQ(ring(), &games);
        const auto entry = std::ranges::find_if(
            games.entries(), [&](const std::string& text) { return text.starts_with(ann.entry_of(game)); });
        room.display.tell(RowChoice{&games, static_cast<std::size_t>(entry - games.entries().begin())});
        strikes(Key::Enter);
    }
    void begins(int game) {
        opens(game);
        tabs_to(room.form<frmSettings>().GreenDe), strikes(Key::Enter);
        strikes(Key::F1), strikes(Key::Space);
        ASSERT_TRUE(room.state().GameRunning);
    }

    Classroom room{{"Ann"}};
    Pupil ann{room};
};

TEST_F(KeyboardAlone, TilesAreTakenUpAndPutDownUntilTheGameIsWon) {
    begins(2);
    auto& board = room.form<frmSimpleKeyBoard>();
    strikes(Key::Space);
    ASSERT_TRUE(room.desktop.drag());
    const PictureBox& tile = *room.desktop.drag()->source;
    strikes(Key::Escape);
    EXPECT_EQ(ring(), &tile) << "back on its place";
    EXPECT_TRUE(board.PanBorder.Visible == false && !room.desktop.drag());
    for (int keys = 0; keys < kKeyCount; ++keys) {
        ASSERT_EQ(as<PictureBox>(ring())->drag_mode, DragMode::Automatic);
        strikes(Key::Space);
        const auto right = board.find_key(room.desktop.drag()->source->Tag.get());
        if (keys == 0) {
            goes_to(*board.find_key(right->Tag == "G" ? "H" : "G")), strikes(Key::Space);
            EXPECT_EQ(room.state().KeysDone, 0) << "a wrong key takes no tile";
            strikes(Key::Space);
        }
        goes_to(*right);
        EXPECT_TRUE(board.PanBorder.Visible);
        strikes(Key::Enter);
    }
    strikes(Key::Enter);
    ASSERT_TRUE(room.is_open(FormId::frmHalloffame)) << "Enter presses the only button";
    strikes(Key::Escape), strikes(Key::Escape);
    EXPECT_TRUE(room.is_open(FormId::frmGames));
    EXPECT_EQ(room.results().size(), 1U);
}

TEST_F(KeyboardAlone, WhatIsTypedInAGameKeepsItsMeaningAndTheWayOutIsAskedForTwice) {
    begins(13);
    auto& board = room.form<frmSimpleKeyBoard>();
    const auto card = [&] { return room.form<frmPictureCard>().pic.Picture->name(); };
    const auto first = card();
    const auto word = [&] { return first.substr(first.rfind('\\') + 1, 1); };
    goes_to(*board.find_key(word())), strikes(Key::Enter);
    EXPECT_EQ(room.form<frmWordsUsed>().Wordsfound.Caption.get(), in_capitals(word()))
        << "a key is pressed like a click";
    ann.types("5");
    EXPECT_EQ(ring(), nullptr) << "who types needs no ring";
    strikes(Key::Space), strikes(Key::Enter), strikes(Key::Down);
    EXPECT_EQ(ring(), nullptr);
    EXPECT_EQ(room.form<frmWordsUsed>().Wordsfound.Caption.get(), in_capitals(word())) << "no answers without a ring";
    strikes(Key::Escape);
    EXPECT_EQ(ring(), &board.close_De);
    EXPECT_TRUE(room.is_open(FormId::frmSimpleKeyBoard));
    room.display.tell(KeyDown{.key = Key::Escape, .repeats = true, .character = 0x1B});
    EXPECT_TRUE(room.is_open(FormId::frmSimpleKeyBoard)) << "holding it is no second time";
    strikes(Key::Escape);
    EXPECT_TRUE(room.is_open(FormId::frmGames));
}

TEST_F(KeyboardAlone, InTheTypingTestASpaceIsALetterWhereverTheRingIs) {
    opens(27);
    auto& test = room.form<frmTypingTest>();
    EXPECT_EQ(ring(), nullptr) << "an Enter too many must not leave the test";
    ann.types("the");
    strikes(Key::Tab);
    EXPECT_EQ(ring(), &test.skip_de);
    strikes(Key::Space);
    EXPECT_EQ(test.BuildTest.Caption.get(), "the ");
    strikes(Key::Tab), strikes(Key::Enter);
    EXPECT_TRUE(room.is_open(FormId::frmGames));
}

TEST_F(KeyboardAlone, AMessageKeepsTheRingUntilItIsAnsweredByAFreshEnter) {
    room.start();
    ann.sits_down("Ann");
    auto& games = room.form<frmGames>();
    const std::vector<const Control*> reading{&games.List1,  &games.Snd_On,  &games.Phon_On,
                                              &games.BackDe, &games.hall_De, &games.Exitde};
    const auto stops = room.desktop.ring().stops();
    EXPECT_TRUE(std::ranges::equal(stops, reading));
    strikes(Key::F4);
    EXPECT_EQ(ring(), &games.hall_De);
    room.display.tell(KeyDown{.key = Key::Enter, .character = U'\r'});
    EXPECT_EQ(ring(), &room.form<frmErrmsg>().ContinueDe);
    room.display.tell(KeyDown{.key = Key::Enter, .repeats = true, .character = U'\r'});
    strikes(Key::Tab);
    EXPECT_EQ(ring(), &room.form<frmErrmsg>().ContinueDe);
    strikes(Key::Enter);
    EXPECT_EQ(ring(), &games.hall_De) << "where it was before";
}

TEST_F(Forms, TheRingGoesInReadingOrderAndLeavesOutWhatTakesNoPress) {
    Toy& a = open("a", {0, 200});
    a.Height = 900, a.Width = 3000;
    const auto strikes = [&](Key key, bool shift = false) {
        display.tell(KeyDown{.key = key, .shift = shift});
        return desktop.ring().at();
    };
    strikes(Key::Right);
    EXPECT_EQ(desktop.ring().at(), nullptr) << "an arrow alone calls for no ring";
    for (Control* control : a.controls()) control->Width = control->Height = 200, control->Left = 3 * control->Left;
    a.picture.Enabled = false;
    EXPECT_EQ(strikes(Key::Tab), &a.tile) << "the box had the focus, the picture is idle";
    EXPECT_EQ(strikes(Key::Tab), &a.key);
    Toy& b = open("b", {0, 10});
    b.Width = 0;
    EXPECT_EQ(strikes(Key::Tab, true), &a.tile);
    desktop.unload(a);
    EXPECT_EQ(desktop.ring().at(), nullptr);
}

}  // namespace
}  // namespace marrowfen
