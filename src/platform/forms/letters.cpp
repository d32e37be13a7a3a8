#include "platform/forms/letters.h"

#include <algorithm>
#include <array>

#include "platform/forms/desktop.h"

namespace marrowfen {

namespace {

constexpr Twips kGap = 5 * kTwipsPerPixel;
constexpr Size kKey{72 * kTwipsPerPixel, 52 * kTwipsPerPixel};
constexpr Twips kStep = kKey.width + kGap;
constexpr int kKeysInARow = 10;

struct Row {
    std::string_view characters;
    Twips indent;
};
constexpr std::array<Row, 3> kRows{{{"qwertyuiop", 0}, {"asdfghjkl'", kStep / 4}, {"zxcvbnm-", kStep * 3 / 4}}};
constexpr std::string_view kTakeBack = "←";
constexpr Size kWhole{kKeysInARow * kStep + kGap + kStep / 4,
                      (static_cast<Twips>(kRows.size()) + 1) * (kKey.height + kGap) + kGap};

char in_capitals(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char in_small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

Letters::Letters(Desktop& desktop, TextBox& box)
    : Form(desktop, {.size = kWhole,
                     .placement = Placement::Own,
                     .border = Border::Thin,
                     .back = rgb(0x16, 0x3F, 0x80),
                     .takes_over = false,
                     .spoken = "Letters"}),
      box_(box) {
    Twips top = kGap;
    for (const Row& row : kRows) {
        Twips left = kGap + row.indent;
        for (const char& character : row.characters) {
            add({&character, 1}, {left, top}, kKey.width);
            left += kStep;
        }
        top += kKey.height + kGap;
    }
    add(" ", {kGap + 2 * kStep, top}, 5 * kStep - kGap);
    add(kTakeBack, {kGap + 8 * kStep, top}, 2 * kStep - kGap);
    show_case();
}

void Letters::add(std::string_view character, Point at, Twips width) {
    Label& key = keys_.add(*this, Rect{at.x, at.y, width, kKey.height}, std::string(character), comic_bold(24), kBlack,
                           Align::Middle, kWhite);
    if (character == kTakeBack) {
        key.Spoken = "Take back";
        key.on_mouse_down = [this] { take_back(); };
        return;
    }
    if (character == " ") key.Spoken = "Space";
    key.on_mouse_down = [this, &key] { write(key.Caption.get()); };
}

bool Letters::begins_a_name() const {
    const std::string& text = box_.Text;
    return text.empty() || text.ends_with(' ') || text.ends_with('-') || text.ends_with('\'');
}

void Letters::show_case() {
    const bool capital = begins_a_name();
    for (Label& key : keys_) {
        std::string letter = key.Caption;
        for (char& c : letter) c = capital ? in_capitals(c) : in_small(c);
        key.Caption = letter;
    }
}

void Letters::place() {
    const Form& above = box_.form();
    const Size screen = desktop().screen();
    Left = (screen.width - Width) / 2;
    Top = std::min(above.Top + above.Height + kGap, screen.height - Height);
}

void Letters::write(std::string_view character) {
    box_.edit(box_.Text.get() + std::string(character));
    show_case();
}

void Letters::take_back() {
    std::string text = box_.Text;
    while (!text.empty() && (static_cast<unsigned char>(text.back()) & 0xC0U) == 0x80U) text.pop_back();
    if (!text.empty()) text.pop_back();
    box_.edit(text);
    show_case();
}

}  // namespace marrowfen
