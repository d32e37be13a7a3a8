#include <algorithm>
#include <fstream>

#include "lesson.h"
#include "replaying.h"

namespace marrowfen {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

Lines lines_of(const fs::path& file) {
    std::string reason;
    const auto lines = read_recording(file, reason);
    EXPECT_TRUE(lines) << file << ": " << reason;
    return lines.value_or(Lines{});
}

std::vector<fs::path> recordings() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(MARROWFEN_RECORDINGS)) files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

TEST(Recordings, OfAllGamesComeToTheSameEndWhenTheyArePlayedAgain) {
    EXPECT_EQ(recordings().size(), 37U);
    for (const fs::path& file : recordings()) {
        bool ended = false;
        EXPECT_EQ(replay(lines_of(file), &ended), "") << file;
        EXPECT_TRUE(ended) << file;
    }
}

TEST(Recordings, ARunThatGoesAnotherWayIsToldWithItsEventAndForm) {
    const Lines lines = lines_of(fs::path(MARROWFEN_RECORDINGS) / "game-26.txt");
    const auto line = [&](std::string_view beginning) {
        const auto found = std::ranges::find_if(lines, [&](const auto& l) { return l.starts_with(beginning); });
        EXPECT_NE(found, lines.end()) << beginning;
        return static_cast<std::size_t>(found - lines.begin());
    };
    struct Case {
        std::size_t line;
        std::string instead, found;
    };
    const std::vector<Case> cases{
        {line("> cue"), "> cue moo.au", "Found:    > cue "},
        {line("> frmPictureCard.0"), "> frmPictureCard.0 elephant", "Found:    > frmPictureCard.0 "},
        {line("< rows 2 find"), "< rows 2 find \"x\" = 1", "Found:    < rows 2 find"},
        {line("> here frmSettings"), "> here frmScore", "Found:    > here frmSettings"},
        {line("< draw"), "> draw", "Found:    < draw"},
        {line("+"), "+0 text frmGames.99 \"x\"", "Found:    an event that nothing here can take"},
        {line("> gone frmGames"), "+0 press 0 0", "Found:    > gone frmGames"},
    };
    for (const Case& c : cases) {
        Lines changed = lines;
        changed[c.line] = c.instead;
        const std::string complaint = replay(changed);
        EXPECT_TRUE(complaint.starts_with("The run goes another way than its recording, at line " +
                                          std::to_string(c.line + 2) + ", after "))
            << complaint;
        EXPECT_NE(complaint.find("\nExpected: " + c.instead), std::string::npos) << complaint;
        EXPECT_NE(complaint.find(c.found), std::string::npos) << complaint;
    }
    Lines more = lines;
    more.insert(more.begin() + static_cast<std::ptrdiff_t>(line("+2")), "> cue moo.au");
    EXPECT_NE(replay(more).find("Found:    nothing more"), std::string::npos);
}

TEST(Recordings, OneThatBreaksOffAnywhereIsPlayedUpToThere) {
    const Lines lines = lines_of(fs::path(MARROWFEN_RECORDINGS) / "game-27.txt");
    for (std::size_t length = 0; length < lines.size(); ++length) {
        EXPECT_EQ(replay({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(length)}), "") << length;
    }
}

TEST(Recordings, HoldAllThatHappens) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "run.txt";
    {
        Lesson lesson({"Ann", "Zoë \"Zo\" O'Neill\\\t"}, file);
        HeadlessDisplay& display = lesson.room.display;
        lesson.ann.double_clicks_below(lesson.room.form<frmGames>().List1);
        lesson.ann.presses(&frmErrmsg::ContinueDe);
        display.tell(WheelTurn{{300, 400}});
        lesson.begins(26);
        for (const bool down : {true, false}) {
            const KeyDown key{.key = Key::D,
                              .alt = true,
                              .control = true,
                              .command = true,
                              .repeats = true,
                              .character = U'1',
                              .code = 10};
            down ? display.tell(key) : display.tell(KeyUp{key.key, key.alt, key.repeats, key.code});
        }
        display.press({300, 400}), display.press({300, 400}, {}, MouseButton::Right), display.move({1, 2});
        display.release({300, 400}, MouseButton::Right), display.release({300, 400});
        display.during_yield([&] { lesson.ann.types("2"); });
        lesson.ann.types("1");
        while (lesson.plays()) lesson.gives(lesson.right_letter(), Way::Mixed);
        lesson.room.engine.refuses_writes = true;
        lesson.ann.presses(&frmScore::HallDe);
        lesson.ann.presses(&frmErrmsg::ContinueDe);
        lesson.room.engine.refuses_writes = false, lesson.room.engine.refuses_reads = true;
        lesson.ann.presses(&frmScore::HallDe);
        display.tell(CloseRequest{});
    }
    const Lines lines = lines_of(file);
    for (const char* line : {"+0 key D U+31 c10 alt control command repeats", "+0 up D c10 alt repeats",
                             "+0 press 300 400 b2 h3", "+0 move 1 2 h3", "+0 release 300 400 b2", "+0 wheel 300 400"}) {
        EXPECT_NE(std::ranges::find(lines, line), lines.end()) << line;
    }
    bool ended = false;
    EXPECT_EQ(replay(lines, &ended), "");
    EXPECT_TRUE(ended);
}

TEST(Recordings, AreReadOnlyIfTheyAreRecordings) {
    const TemporaryFolder folder;
    const fs::path file = folder.path() / "run.txt";
    const auto write = [&](const std::string& text) { std::ofstream(file, std::ios::binary) << text; };
    std::string reason;
    EXPECT_FALSE(read_recording(file, reason));
    write("marrowfen recording 2\n");
    EXPECT_FALSE(read_recording(file, reason));
    EXPECT_NE(reason.find("another version"), std::string::npos);
    write("marrowfen recording 1\r\n> screen 1 2\r\n+5 key U+6");
    EXPECT_EQ(read_recording(file, reason), Lines{"> screen 1 2"}) << "a line that was cut short does not count";
}

}  // namespace
}  // namespace marrowfen
