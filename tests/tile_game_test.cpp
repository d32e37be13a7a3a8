#include <set>

#include "core/game_table.h"
#include "lesson.h"
#include "store/store_builder.h"
#include "tables/picture_list.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {
namespace {

using Cues = std::vector<std::string>;

class TileGame : public testing::Test, protected Lesson {
protected:
    static constexpr int kOneTile = 7;
};

TEST_F(TileGame, GoesThroughAllLettersOnceAndSoundsEachButTheLast) {
    begins(kOneTile);
    Cues cues;
    std::set<std::string> seen;
    while (plays()) {
        ASSERT_EQ(letters().size(), 1U);
        const std::string letter = right_letter();
        const Picture picture = tile(0).Picture;
        seen.insert(letter);
        cues.push_back(seen.size() < 36 ? phonic(letter) : "Applause.wav");
        drags_home(tile(0));
        EXPECT_TRUE(!plays() || key(letter).Picture == picture) << "the key shows what lay on the tile";
    }
    EXPECT_EQ(seen.size(), 36U);
    EXPECT_EQ(room.sound.paths().back(), room.folder_in_logic() + "\\Sound\\Applause.wav");
    EXPECT_EQ(room.heard_and_forgotten(), cues);
    EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmScore}));
}

TEST_F(TileGame, TypingServesTheFirstTileInEitherCase) {
    room.random.script_draw(2, 35);   // C
    room.random.script_draw(26, 35);  // 1
    room.random.script_draw(3, 35);   // D
    room.random.script_draw(35, 36);  // 0, after the first answer
    begins_with_tiles(kOneTile, 3);
    ASSERT_EQ(letters(), "C1D");
    ann.types("1d \r.!?\b");
    EXPECT_EQ(room.state().KeysDone, 0) << "letters of other tiles are wrong, and other keys are nothing at all";
    ann.types("c");
    EXPECT_EQ(letters(), "01D");
    ann.types("0");
    EXPECT_EQ(room.heard_and_forgotten(), (Cues{phonic("C"), phonic("0")}));
}

TEST_F(TileGame, AKeyOfTheRowOfDigitsIsItsDigitOnAKeyboardThatWritesSomethingElseThere) {
    room.random.script_draw(27, 35);  // 2
    room.random.script_draw(24, 36);  // Y
    begins(kOneTile);
    const auto strikes = [&](const KeyDown& key) { room.display.strike(key, room.desktop); };
    strikes({.character = U'é', .code = 26});
    strikes({.shift = true, .character = U'"', .code = 11});
    EXPECT_EQ(room.state().KeysDone, 0);
    strikes({.character = U'é', .code = 11});
    EXPECT_EQ(letters(), "Y");
    strikes({.character = U'y', .code = 11});
    EXPECT_EQ(room.state().KeysDone, 2) << "a letter is a letter wherever it stands";
}

TEST_F(TileGame, TheLetterAIsNeverAmongTheFirstTiles) {
    const float almost_one = 0.9999F;
    room.random.script({almost_one, almost_one, 0.0F, 0.1F, almost_one});
    begins_with_tiles(kOneTile, 3);
    EXPECT_EQ(letters(), "0BE") << "a letter that is out is not dealt again";
    drags_home(tile(1));
    EXPECT_EQ(letters(), "0AE");
}

TEST_F(TileGame, ATileThatIsTypedAwayWhileItIsHeldLeavesNoMark) {
    for (const bool over_a_key : {false, true}) {
        begins_with_tiles(18, 2);
        gives_right_ones(34, Way::Mouse);
        ann.points_at(tile(0));
        room.display.press(centre_on_screen(tile(0)));
        if (over_a_key) room.display.move(centre_on_screen(key("A")));
        EXPECT_TRUE(board().PanBorder.Visible);
        ann.types(tile(0).Tag.get());
        EXPECT_FALSE(tile(0).Visible);
        room.display.release(centre_on_screen(key("A")));
        EXPECT_FALSE(board().PanBorder.Visible);
        EXPECT_EQ(room.state().KeysDone, 35);
        goes_back_to_the_list();
    }
}

TEST_F(TileGame, OneThatIsNotInTheStoreIsToldAndLeadsBackToTheList) {
    ann.picks_game(kOneTile);
    room.state().TemplateID = 99;
    ann.joins(kRedTeam);
    EXPECT_NE(room.message(), "");
    ann.presses(&frmErrmsg::ContinueDe);
    EXPECT_EQ(room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmGames}));
}

TEST_F(TileGame, SomeCloseWhatAnEarlierGameLeftOpen) {
    for (const auto& [game, closes] : {std::pair{8, false}, {7, true}}) {
        const std::vector left_open{FormId::frmWord, FormId::frmWordsUsed, FormId::frmSentence, FormId::frmPictureCard};
        for (const FormId id : left_open) room.program.forms.load(id);
        opens(game);
        for (const FormId id : left_open) EXPECT_EQ(room.program.forms.find(id) == nullptr, closes);
        goes_back_to_the_list();
    }
}

TEST(KeyPictures, ThatAnyGameShowsAreMadeByTheBuild) {
    const TemporaryFolder built;
    const auto list = built.path() / "list";
    EXPECT_EQ(
        build_store_and_list(MARROWFEN_CONTENT_FOLDER, MARROWFEN_DRAWINGS_FOLDER, list, built.path() / "data.mdb"),
        std::vector<std::string>{});
    std::set<std::string> made;  // files are found without regard to case
    for (const ListedPicture& picture : read_picture_list(list)) made.insert(in_capitals(picture.file));
    Lesson lesson;
    const auto look_at = [&](const Picture& picture) {
        if (picture.source() != Picture::Source::File) return;
        std::string file = in_capitals("Simple\\" + lesson.shown_by(picture));
        std::ranges::replace(file, '\\', '/');
        EXPECT_TRUE(made.contains(file)) << picture.name();
    };
    const auto look_around = [&] {
        for (const Form* form : lesson.room.desktop.visible_forms()) {
            for (Control* control : form->controls()) {
                if (const auto* image = as<Image>(control)) look_at(image->Picture);
                if (const auto* box = as<PictureBox>(control)) look_at(box->Picture);
            }
        }
    };
    for (const Game& game : listed_games()) {
        SCOPED_TRACE(game.id);
        lesson.ann.picks_game(game.id);
        look_around();
        if (game.is_typing_test()) {
            lesson.ann.presses(&frmTypingTest::skip_de);
            continue;
        }
        lesson.ann.joins(kBlueTeam);
        lesson.ann.starts_the_clock();
        for (; lesson.plays(); look_around()) {
            lesson.gives(lesson.wrong_letter(), Way::Mixed), look_around();
            lesson.gives(lesson.right_letter(), Way::Mouse);
        }
        lesson.goes_back_to_the_list();
    }
}

}  // namespace
}  // namespace marrowfen
