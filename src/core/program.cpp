#include "core/program.h"

#include <algorithm>
#include <utility>

namespace marrowfen {

Program::Program(Desktop& desktop_, const Ports& ports_) : desktop(desktop_), ports(ports_), forms(desktop_) {
    desktop.on_close_request = [this] { close_requested(); };
}

std::optional<StoreFailure> Program::open_store() {
    auto opened = ports.store.open(path("\\data.mdb"));
    if (const auto* failure = opened.failure()) return *failure;
    state.GameDb = std::move(opened).value();
    return std::nullopt;
}

std::optional<StoreFailure> Program::start() {
    if (auto failure = open_store()) return failure;
    state.PupilID = 0;
    state.PhonicsOn = true;
    state.AppShortPath = ports.files.short_program_folder();
    forms.show(FormId::frmBackGround);
    desktop.yield();
    if (forms.find(FormId::frmBackGround) == nullptr) return std::nullopt;  // closed before it had begun
    forms.show(FormId::frmSelectGame);
    ports.random.seed_from_clock();
    state.SoundOn = true;
    return std::nullopt;
}

void Program::PlayCue(std::string_view name) {
    if (!state.SoundOn) return;
    ports.sound.start(state.AppShortPath + "\\Sound\\" + std::string(name));
    desktop.yield();
}

std::unique_ptr<RowSet> Program::open_rows(std::string_view table_or_query) {
    return state.GameDb->open(table_or_query);
}

Result<Value> Program::LookupField(std::string_view table, std::string_view field, std::string_view criterion) {
    const auto rows = open_rows(table);
    const auto found = rows->find_first(criterion);
    if (const auto* failure = found.failure()) return *failure;
    return found.value() ? rows->field(field) : Value{std::int64_t{0}};
}

Result<Value> Program::LookupWord(std::string_view table, std::string_view field, std::string_view word) {
    return LookupField(table, field, where_text("Word", word));
}

void Program::tell(const std::string& message) {
    forms.show(FormId::frmErrmsg);
    if (auto* teller = dynamic_cast<Teller*>(forms.find(FormId::frmErrmsg))) teller->tell(message);
}

void Program::tell_unreadable(const StoreFailure& failure) {
    if (failure.trouble == Trouble::Busy) return tell("Sorry, " + failure.reason + " just now. Please try again.");
    tell("Sorry, that can't be read just now: " + failure.reason + ". Please tell your teacher.");
}

void Program::close_requested() {
    auto* keeper = dynamic_cast<Keeper*>(forms.find(FormId::frmScore));
    if (keeper == nullptr || keeper->keep_before_the_end()) forms.unload_all();
}

void Program::leave(Exit exit) {
    using enum FormId;
    switch (exit) {
        case Exit::FromSelectGame:
            forms.unload({frmSelectGame, frmPictureCard, frmTimer, frmWord, frmWordsUsed, frmSentence, frmBackGround});
            break;
        case Exit::FromGames:
            forms.unload(
                {frmGames, frmPictureCard, frmTimer, frmWord, frmWordsUsed, frmSentence, frmBackGround, frmSelectGame});
            break;
        case Exit::FromHalloffame:
            forms.unload({frmPictureCard, frmTimer, frmWord, frmWordsUsed, frmSentence, frmBackGround, frmHalloffame,
                          frmGames, frmSelectGame});
            break;
        case Exit::FromTimeUp:
            forms.unload({frmTimeUp, frmPictureCard, frmTimer, frmWord, frmWordsUsed, frmSentence, frmBackGround,
                          frmSelectGame, frmGames});
            break;
    }
    // A message, or a board that was left open behind, must not keep a program alive that nobody can see any more.
    forms.unload_all();
}

std::string Program::path(std::string_view below) const { return ports.files.program_folder() + std::string(below); }

Result<std::vector<std::string>> lines_of(RowSet& rows, const std::function<std::string(const RowSet&)>& line) {
    std::vector<std::string> lines;
    auto row = rows.move_first();
    for (; row.value_or(false); row = rows.move_next()) lines.push_back(line(rows));
    if (const auto* failure = row.failure()) return *failure;
    return lines;
}

std::string where_text(std::string_view field, std::string_view text) {
    std::string criterion = std::string(field) + "='";
    for (const char c : text) criterion.append(c == '\'' ? 2 : 1, c);
    return criterion + "'";
}

std::string where_number(std::string_view field, std::int64_t number) {
    return std::string(field) + "=" + std::to_string(number);
}

std::string phonic(std::string_view letter) { return "\\Phonics\\Lower_Case\\" + std::string(letter) + ".wav"; }

std::string in_capitals(std::string_view text) {
    std::string capitals(text);
    std::ranges::transform(capitals, capitals.begin(),
                           [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return capitals;
}

}  // namespace marrowfen
