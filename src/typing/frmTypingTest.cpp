#include "typing/frmTypingTest.h"

#include "core/game_table.h"
#include "core/key_pictures.h"

namespace marrowfen {

namespace {

constexpr std::string_view kSentence = "the quick brown fox jumps over the lazy dog";
constexpr Size kTestKeySize{720, 660};
constexpr Twips kBorderOffset = 25;

/// A key of the drawn keyboard, which is a little larger than the board's.
struct TestKey {
    char tag;
    Twips left, top;
};

constexpr std::array<TestKey, 36> kTestKeys{{
    {'A', 1050, 3720}, {'B', 4905, 4440}, {'C', 3300, 4440}, {'D', 2685, 3720}, {'E', 2460, 3015}, {'F', 3510, 3720},
    {'G', 4335, 3720}, {'H', 5160, 3720}, {'I', 6510, 3015}, {'J', 5970, 3720}, {'K', 6795, 3720}, {'L', 7620, 3720},
    {'M', 6495, 4440}, {'N', 5700, 4440}, {'O', 7320, 3015}, {'P', 8130, 3015}, {'Q', 840, 3015},  {'R', 3270, 3015},
    {'S', 1875, 3720}, {'T', 4080, 3015}, {'U', 5700, 3015}, {'V', 4095, 4440}, {'W', 1650, 3015}, {'X', 2505, 4440},
    {'Y', 4890, 3015}, {'Z', 1725, 4440}, {'1', 495, 2265},  {'2', 1305, 2265}, {'3', 2115, 2265}, {'4', 2910, 2265},
    {'5', 3720, 2265}, {'6', 4530, 2265}, {'7', 5340, 2265}, {'8', 6150, 2265}, {'9', 6945, 2265}, {'0', 7755, 2265},
}};

}  // namespace

frmTypingTest::frmTypingTest(Program& program)
    : ProgramForm(program, {.size = {9570, 6765}, .level = Level::Ordinary, .spoken = "Typing test"}),
      PanBorder(*this, {7365, 4425, 795, 750}, {.outline = rgb(192, 0, 0), .outline_pixels = 2}) {
    for (const TestKey& key : kTestKeys) {
        Keys.add(*this, Rect{key.left, key.top, kTestKeySize.width, kTestKeySize.height}, kYellow).Tag =
            std::string(1, key.tag);
    }
    PanBorder.Visible = false;
    PanBorder.bring_to_front();
    Picture1.on_key_press = [this](KeyPress& press) { type(press); };
    Picture1.on_key_up = [this](const KeyEvent&) { PanBorder.Visible = false; };
    Picture1.on_lost_focus = [this] { desktop().set_focus(Picture1); };
}

void frmTypingTest::SetTest() {
    for (std::size_t i = 0; i < kLetters; ++i) TestLetters[i].assign(1, kSentence[i]);
}

void frmTypingTest::load() {
    State& state = program_.state;
    state.TimeElapsed = 0;
    TestSeconds = 0;
    if (const auto failure = program_.open_store()) {
        program_.tell("The list of results can't be reached just now: " + failure->reason + ".");
    }
    TestPos = 0;
    SetTest();
    const Game* game = find_game(state.TemplateID);
    const std::string_view set = game == nullptr ? std::string_view{} : game->typing_test_pictures;
    for (PictureBox& key : Keys) {
        key.Picture = Picture::file(program_.path(key_picture(CapKind::Face, set, key.Tag.get())));
    }
}

void frmTypingTest::type(KeyPress& press) {
    if (TestPos == kLetters) return;  // the last letter is typed, and the form about to go
    TestTimer.enable();
    const std::string pressed = press.code < 0x80 ? std::string(1, static_cast<char>(press.code)) : std::string{};
    press.swallow();
    mark_due_key();
    if (!is_right(pressed)) return;
    BuildTest.Caption = BuildTest.Caption.get() + TestLetters[static_cast<std::size_t>(TestPos)];
    desktop().repaint_now(*this);
    ++TestPos;
    desktop().set_focus(Picture1);
    if (TestPos == kLetters) finish();
}

void frmTypingTest::mark_due_key() {
    const std::string due = in_capitals(TestLetters[static_cast<std::size_t>(TestPos)]);
    for (const PictureBox& key : Keys) {
        if (key.Tag != due) continue;
        PanBorder.Visible = true;
        PanBorder.Top = key.Top - kBorderOffset;
        PanBorder.Left = key.Left - kBorderOffset;
    }
}

// Only the first letter may be a capital, as it begins the sentence.
bool frmTypingTest::is_right(std::string_view pressed) const {
    const std::string& due = TestLetters[static_cast<std::size_t>(TestPos)];
    return TestPos == 0 ? in_capitals(pressed) == in_capitals(due) : pressed == due;
}

void frmTypingTest::finish() {
    TestTimer.disable();
    program_.state.TimeElapsed = TestSeconds;
    desktop().yield();
    if (!desktop().is_loaded(*this)) return;  // skipped at the very last moment
    program_.forms.show(FormId::frmScore);
    program_.forms.unload(kId);
}

void frmTypingTest::skip() {
    program_.forms.show(FormId::frmGames);
    program_.forms.unload(kId);
}

}  // namespace marrowfen
