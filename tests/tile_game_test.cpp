#include <algorithm>
#include <set>

#include "board/frmSimpleKeyBoard.h"
#include "classroom.h"
#include "lesson.h"
#include "pupils/frmErrmsg.h"
#include "pupils/frmGames.h"
#include "pupils/frmSettings.h"
#include "results/frmScore.h"
#include "typing/frmTypingTest.h"

namespace marrowfen {
namespace {

using Cues = std::vector<std::string>;

constexpr int kOneTile = 7;
constexpr int kManyTiles = 2;

/// Ann at the board.
struct Desk : Seat {
    void begins_with_tiles(int game, int tiles) {  // as a teacher may have it
        spoil_store(room, "UPDATE Templates SET Panels=" + std::to_string(tiles - 1) +
                              " WHERE Template_ID=" + std::to_string(game));
        ann.begins(game);
    }
    [[nodiscard]] frmSimpleKeyBoard& board() { return room.form<frmSimpleKeyBoard>(); }
    [[nodiscard]] PictureBox& tile(int i) { return board().DragKey[i]; }
    [[nodiscard]] PictureBox& key(std::string_view letter) { return *board().find_key(letter); }
    [[nodiscard]] bool plays() const { return room.is_open(FormId::frmSimpleKeyBoard); }
    [[nodiscard]] std::string letters() {  // on the tiles that are on show
        std::string letters;
        for (const PictureBox& t : board().DragKey) letters += t.Visible ? t.Tag.get() : "";
        return letters;
    }
    [[nodiscard]] int filled() const { return room.program.state.KeysDone; }
};

std::string sound_of(std::string_view letter) { return "\\Phonics\\Lower_Case\\" + std::string(letter) + ".wav"; }
std::string other_than(const std::string& letter) { return letter == "Q" ? "P" : "Q"; }

TEST(TileGame, WithOneTileGoesThroughAllLettersOnce) {
    Desk desk;
    desk.ann.begins(kOneTile);
    Cues cues;
    std::set<std::string> letters;
    for (int drops = 0; drops < 36; ++drops) {
        ASSERT_EQ(desk.letters().size(), 1U) << "after " << drops;
        const std::string letter = desk.letters();
        const Picture picture = desk.tile(0).Picture;
        letters.insert(letter);
        cues.push_back(drops < 35 ? sound_of(letter) : "Applause.wav");
        desk.ann.drags_letter(letter);
        if (!desk.plays()) continue;
        EXPECT_EQ(desk.key(letter).Picture, picture) << "the key shows what lay on the tile";
    }
    EXPECT_EQ(letters.size(), 36U);
    EXPECT_EQ(desk.room.sound.paths().back(), desk.room.folder_in_logic() + "\\Sound\\Applause.wav");
    EXPECT_EQ(desk.room.heard_and_forgotten(), cues);
    EXPECT_EQ(desk.filled(), 0) << "the counters are ready for the next game";
    EXPECT_EQ(desk.room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmScore}));
}

TEST(TileGame, WithTenTilesTheTilesGoWhenTheLettersHaveRunOut) {
    Desk desk;
    desk.begins_with_tiles(kManyTiles, 10);
    for (int drops = 0; drops < 36; ++drops) {
        EXPECT_EQ(desk.letters().size(), std::min<std::size_t>(10, 36 - static_cast<std::size_t>(drops)));
        EXPECT_EQ(desk.filled(), drops);
        desk.ann.drags_letter(desk.letters().substr(static_cast<std::size_t>(drops) % desk.letters().size(), 1));
    }
    EXPECT_TRUE(desk.room.is_open(FormId::frmScore));
}

TEST(TileGame, EveryOneIsPlayedToTheLastKeyWithTheMouseAndSomeByTyping) {
    const std::set<int> dragged_only{2, 3, 4, 5, 6, 9, 24};
    for (int game = 2; game <= 30; ++game) {
        if (game == 13 || game == 14 || (game >= 25 && game <= 29)) continue;
        SCOPED_TRACE(game);
        Desk desk;
        desk.ann.begins(game);
        desk.ann.press(desk.key(desk.letters().substr(0, 1)));
        EXPECT_EQ(desk.filled(), 0) << "a click on a key means nothing here";
        desk.ann.types(desk.letters().substr(0, 1));
        EXPECT_EQ(desk.filled(), dragged_only.contains(game) ? 0 : 1);
        EXPECT_EQ(desk.room.heard_and_forgotten().size(), static_cast<std::size_t>(desk.filled()));
        desk.ann.fills_keys(36 - desk.filled());
        desk.ann.presses(&frmScore::HallDe);
        EXPECT_EQ(desk.room.results(), (std::vector<Kept>{{"Ann", "0:00", 60, 100, game}}));
    }
}

TEST(TileGame, AWrongDropChangesNothing) {
    Desk desk;
    desk.ann.begins(kManyTiles);
    const std::string filled = desk.letters().substr(0, 1);
    desk.ann.drags_letter(filled);
    (void)desk.room.heard_and_forgotten();
    const std::string letters = desk.letters();
    const Picture face = desk.key(filled).Picture;
    desk.ann.drags(desk.tile(3), desk.key(filled));
    desk.ann.drags(desk.tile(3), desk.key(other_than(desk.tile(3).Tag)));
    EXPECT_EQ(desk.room.heard_and_forgotten(), (Cues{"Steely~1.au", "Steely~1.au"}));
    desk.ann.drags(desk.tile(3), desk.board().close_De);
    desk.ann.drags(desk.tile(3), desk.tile(4));
    EXPECT_EQ(desk.room.heard_and_forgotten(), Cues{}) << "a release elsewhere is no answer";
    EXPECT_EQ(desk.letters(), letters);
    EXPECT_EQ(desk.key(filled).Picture, face);
    EXPECT_EQ(desk.filled(), 1);
}

TEST(TileGame, SoundsFollowTheSwitchesAndTheHandThatPlays) {
    const std::string bell = "Cling.au", clank = "Steely~1.au", cheer = "Applause.wav", letter = "(letter)";
    struct Case {
        bool sound, phonics;
        Cues dragged_wrong_and_right, typed_wrong_and_right, last_dragged, last_typed;
    };
    const std::vector<Case> cases{
        {true, true, {clank, letter}, {letter}, {cheer}, {letter, cheer}},
        {true, false, {bell}, {clank, bell}, {cheer}, {cheer}},
        {false, true, {}, {}, {}, {}},
        {false, false, {}, {}, {}, {}},
    };
    for (const Case& c : cases) {
        for (const bool last_is_typed : {false, true}) {
            SCOPED_TRACE(std::string(c.sound ? "sound " : "") + (c.phonics ? "phonics " : "") +
                         (last_is_typed ? "typed" : "dragged"));
            Desk desk;
            desk.ann.comes_in();
            if (!c.sound) desk.ann.presses(&frmGames::Snd_On);
            if (!c.phonics) desk.ann.presses(&frmGames::Phon_On);
            desk.ann.picks_game(kOneTile);
            desk.ann.joins(kRedTeam);
            desk.ann.starts_the_clock();
            std::string shown;
            const auto heard = [&] {
                Cues cues = desk.room.heard_and_forgotten();
                std::ranges::replace(cues, sound_of(shown), letter);
                return cues;
            };
            shown = desk.letters();
            desk.ann.drags(desk.tile(0), desk.key(other_than(shown)));
            desk.ann.drags_letter(shown);
            EXPECT_EQ(heard(), c.dragged_wrong_and_right);
            shown = desk.letters();
            desk.ann.types(other_than(shown) + shown);
            EXPECT_EQ(heard(), c.typed_wrong_and_right);
            desk.ann.fills_keys(33);
            (void)heard();
            shown = desk.letters();
            last_is_typed ? desk.ann.types(shown) : desk.ann.drags_letter(shown);
            EXPECT_EQ(heard(), last_is_typed ? c.last_typed : c.last_dragged);
            EXPECT_TRUE(desk.room.is_open(FormId::frmScore));
        }
    }
}

TEST(TileGame, TypingServesTheFirstTileInEitherCase) {
    Desk desk;
    desk.room.random.script_draw(2, 35);   // C
    desk.room.random.script_draw(26, 35);  // 1
    desk.room.random.script_draw(3, 35);   // D
    desk.room.random.script_draw(35, 36);  // 0, after the first answer
    desk.begins_with_tiles(kOneTile, 3);
    ASSERT_EQ(desk.letters(), "C1D");
    desk.ann.types("1d \r.!?\b");
    EXPECT_EQ(desk.filled(), 0) << "letters of other tiles are wrong, and other keys are nothing at all";
    desk.ann.types("c");
    EXPECT_EQ(desk.letters(), "01D");
    desk.ann.types("0");
    EXPECT_EQ(desk.filled(), 2);
    EXPECT_EQ(desk.room.heard_and_forgotten(), (Cues{sound_of("C"), sound_of("0")}));
}

TEST(TileGame, TheLetterAIsNeverAmongTheFirstTiles) {
    Desk desk;
    const float almost_one = 0.9999F;
    desk.room.random.script({almost_one, almost_one, 0.0F, 0.1F, almost_one});
    desk.begins_with_tiles(kOneTile, 3);
    EXPECT_EQ(desk.letters(), "0BE") << "a letter that is out is not dealt again";
    desk.ann.drags_letter("B");
    EXPECT_EQ(desk.letters(), "0AE");
}

// In the folder of the key pictures; B is a key of the right hand, C one of the left.
TEST(TileGame, KeysAndTilesTakeTheirPicturesFromTheFoldersOfTheGame) {
    struct Case {
        int game;
        std::string key_b, key_c, tile_b, tile_c;
    };
    const std::vector<Case> cases{
        {4, "Back\\Upper\\B.BMP", "Back\\Upper\\C.BMP", "Lower\\B.bmp", "Lower\\C.bmp"},
        {9, "Back\\Pictures\\ball.BMP", "Back\\Pictures\\cat.BMP", "Pictures\\B.bmp", "Pictures\\C.bmp"},
        {16, "RightHand\\Lower\\B.BMP", "Back\\Lower\\C.BMP", "Back\\RightHand\\Upper\\B.bmp", "Upper\\C.bmp"},
        {17, "RightHand\\Upper\\B.BMP", "Back\\Upper\\C.BMP", "Back\\RightHand\\Pictures\\B.bmp", "Pictures\\C.bmp"},
        {18, "", "", "Back\\RightHand\\Upper\\B.bmp", "Upper\\C.bmp"},
        {22, "", "", "Pictures\\B.bmp", "Pictures\\C.bmp"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.game);
        Desk desk;
        const std::string folder = desk.room.program.path("\\KeyPictures\\Simple\\");
        const auto shown = [&](const PictureBox& field) {
            const std::string& name = field.Picture->name();
            return name.starts_with(folder) ? name.substr(folder.size()) : name;
        };
        desk.room.random.script_draw(1, 35);
        desk.room.random.script_draw(2, 36);
        desk.ann.begins(c.game);
        EXPECT_EQ(shown(desk.key("B")), c.key_b);
        EXPECT_EQ(shown(desk.key("C")), c.key_c);
        ASSERT_EQ(desk.tile(0).Tag, "B");
        EXPECT_EQ(shown(desk.tile(0)), c.tile_b);
        const bool one_tile = desk.letters().size() == 1;
        if (one_tile) desk.ann.drags_letter("B");
        ASSERT_EQ(desk.tile(one_tile ? 0 : 1).Tag, "C");
        EXPECT_EQ(shown(desk.tile(one_tile ? 0 : 1)), c.tile_c);
    }
}

TEST(TileGame, TheRightHandHasItsSideOfTheKeyboard) {
    Desk desk;
    desk.ann.begins(5);
    std::string right;
    for (const PictureBox& key : desk.board().Keys) {
        if (key.Picture->name().find("\\RightHand\\") != std::string::npos) right += key.Tag;
    }
    std::ranges::sort(right);
    EXPECT_EQ(right, "0789BHIJKLMNOPUY");
}

TEST(TileGame, TheKeysLieAsOnTheKeyboardOnTheDesk) {
    const auto read = [](auto& keys) {
        std::vector<const PictureBox*> in_rows;
        for (const PictureBox& key : keys) in_rows.push_back(&key);
        std::ranges::sort(in_rows, {},
                          [](const PictureBox* key) { return std::pair(Twips{key->Top}, Twips{key->Left}); });
        std::string row;
        for (const PictureBox* key : in_rows) row += key->Tag;
        return row;
    };
    Desk desk;
    desk.ann.opens(kOneTile);
    EXPECT_EQ(read(desk.board().Keys), "1234567890QWERTYUIOPASDFGHJKLZXCVBNM");
    desk.ann.presses(&frmSimpleKeyBoard::close_De);
    desk.ann.picks_game(27);
    EXPECT_EQ(read(desk.room.form<frmTypingTest>().Keys), "1234567890QWERTYUIOPASDFGHJKLZXCVBNM");
}

TEST(TileGame, AMarkFollowsThePointerOverTilesAndTheDragOverKeys) {
    Desk desk;
    desk.ann.begins(kManyTiles);
    const Shape& mark = desk.board().PanBorder;
    const auto marks = [&](const Control& field) {
        return mark.Visible && mark.Left == field.Left - 2 && mark.Top == field.Top - 2;
    };
    EXPECT_FALSE(mark.Visible);
    desk.ann.points_at(desk.tile(7));
    EXPECT_TRUE(marks(desk.tile(7)));
    desk.ann.points_at(desk.key("A"));
    EXPECT_TRUE(marks(desk.tile(7))) << "it stays where it was last";
    desk.room.display.press(centre_on_screen(desk.tile(2)));
    desk.room.display.move(centre_on_screen(desk.key("A")));
    EXPECT_TRUE(marks(desk.key("A")));
    EXPECT_EQ(desk.board().controls().back(), &mark) << "above the keys";
    desk.room.display.move(centre_on_screen(desk.key("4")));
    EXPECT_TRUE(marks(desk.key("4")));
    desk.room.display.move(centre_on_screen(desk.board().close_De));
    EXPECT_FALSE(mark.Visible);
    desk.room.display.move(centre_on_screen(desk.key("4")));
    desk.room.display.release(centre_on_screen(desk.key("4")));
    EXPECT_FALSE(mark.Visible);
}

TEST(TileGame, ATileThatIsTypedAwayWhileItIsHeldLeavesNoMark) {
    for (const bool over_a_key : {false, true}) {
        Desk desk;
        desk.begins_with_tiles(18, 2);
        desk.ann.fills_keys(34);
        desk.ann.points_at(desk.tile(0));
        desk.room.display.press(centre_on_screen(desk.tile(0)));
        if (over_a_key) desk.room.display.move(centre_on_screen(desk.key("A")));
        EXPECT_TRUE(desk.board().PanBorder.Visible);
        desk.ann.types(desk.tile(0).Tag.get());
        EXPECT_FALSE(desk.tile(0).Visible);
        desk.room.display.release(centre_on_screen(desk.key("A")));
        EXPECT_FALSE(desk.board().PanBorder.Visible);
        EXPECT_EQ(desk.filled(), 35);
    }
}

TEST(TileGame, AClosedGameLeavesNothingBehind) {
    Desk desk;
    desk.ann.begins(kManyTiles);
    desk.ann.fills_keys(5);
    desk.room.seconds_pass(3);
    desk.ann.presses(&frmSimpleKeyBoard::close_De);
    desk.room.seconds_pass(300);
    EXPECT_EQ(desk.room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmGames}));
    EXPECT_TRUE(desk.room.results().empty());
    desk.ann.picks_game(kOneTile);
    desk.ann.joins(kBlueTeam);
    desk.ann.types(desk.letters());
    EXPECT_EQ(desk.filled(), 0) << "the next game has not begun";
    desk.ann.starts_the_clock();
    desk.ann.fills_keys(36);
    EXPECT_EQ(desk.room.form<frmScore>().txtTime.Text, "0:00");
}

TEST(TileGame, AGameThatIsNotInTheStoreIsToldAndLeadsBackToTheList) {
    Desk desk;
    desk.ann.comes_in();
    desk.ann.picks_game(kOneTile);
    desk.room.state().TemplateID = 99;
    desk.ann.joins(kRedTeam);
    EXPECT_NE(desk.room.message(), "");
    desk.ann.presses(&frmErrmsg::ContinueDe);
    EXPECT_EQ(desk.room.open_forms(), (std::vector{FormId::frmBackGround, FormId::frmGames}));
}

}  // namespace
}  // namespace marrowfen
