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
constexpr std::string_view kAccent = "é";
constexpr Size kWhole{kKeysInARow * kStep + kGap + kStep / 4,
                      (static_cast<Twips>(kRows.size()) + 1) * (kKey.height + kGap) + kGap};

// The accents of a letter as they follow on each other, and round again; a blank after each.
constexpr std::array<std::string_view, 32> kAccents{"a á à â ä ã å ą ",
                                                    "A Á À Â Ä Ã Å Ą ",
                                                    "c ç ć č ",
                                                    "C Ç Ć Č ",
                                                    "d ď đ ",
                                                    "D Ď Đ ",
                                                    "e é è ê ë ę ě ",
                                                    "E É È Ê Ë Ę Ě ",
                                                    "g ğ ",
                                                    "G Ğ ",
                                                    "i í ì î ï ",
                                                    "I Í Ì Î Ï ",
                                                    "l ł ",
                                                    "L Ł ",
                                                    "n ñ ń ň ",
                                                    "N Ñ Ń Ň ",
                                                    "o ó ò ô ö õ ø ő ",
                                                    "O Ó Ò Ô Ö Õ Ø Ő ",
                                                    "r ř ",
                                                    "R Ř ",
                                                    "s ś š ş ",
                                                    "S Ś Š Ş ",
                                                    "t ť ţ ",
                                                    "T Ť Ţ ",
                                                    "u ú ù û ü ů ű ",
                                                    "U Ú Ù Û Ü Ů Ű ",
                                                    "w ŵ ",
                                                    "W Ŵ ",
                                                    "y ý ŷ ÿ ",
                                                    "Y Ý Ŷ Ÿ ",
                                                    "z ź ż ž ",
                                                    "Z Ź Ż Ž "};

std::string with_next_accent(const std::string& letter) {
    for (const std::string_view accents : kAccents) {
        const auto found = accents.find(letter + " ");
        if (found == std::string_view::npos) continue;
        const auto next = (found + letter.size() + 1) % accents.size();
        return std::string(accents.substr(next, accents.find(' ', next) - next));
    }
    return letter;
}

/// Empty when there is none.
std::string take_last_letter(std::string& text) {
    if (text.empty()) return {};
    const auto goes_on = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
    std::size_t begin = text.size() - 1;
    while (begin > 0 && goes_on(text[begin])) --begin;
    std::string last = text.substr(begin);
    text.resize(begin);
    return last;
}

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
    add(kAccent, {kGap + kRows.back().indent + 8 * kStep, top - kKey.height - kGap}, kKey.width);
    add(" ", {kGap + 2 * kStep, top}, 5 * kStep - kGap);
    add(kTakeBack, {kGap + 8 * kStep, top}, 2 * kStep - kGap);
    show_case();
}

void Letters::add(std::string_view character, Point at, Twips width) {
    Label& key = keys_.add(*this, Rect{at.x, at.y, width, kKey.height}, std::string(character), comic_bold(24), kBlack,
                           Align::Middle, kWhite);
    if (character == kTakeBack) {
        key.Spoken = "Take back";
        key.on_mouse_down = [this] { change_last([](const std::string&) { return std::string{}; }); };
    } else if (character == kAccent) {
        key.Spoken = "Next accent";
        key.on_mouse_down = [this] { change_last(with_next_accent); };
    } else {
        if (character == " ") key.Spoken = "Space";
        key.on_mouse_down = [this, &key] { write(key.Caption.get()); };
    }
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

void Letters::change_last(const std::function<std::string(const std::string&)>& change) {
    std::string text = box_.Text;
    const std::string last = take_last_letter(text);
    if (!last.empty()) box_.edit(text + change(last));
    show_case();
}

}  // namespace marrowfen
