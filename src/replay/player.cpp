#include "replay/player.h"

#include <utility>

#include "replay/words.h"

namespace marrowfen {

Player::Player(std::vector<std::string> lines, Files& files, const Audience& audience)
    : tape_(std::move(lines)),
      display_(*this, audience.screen, read_screen()),
      store_(tape_, nullptr),
      sound_(tape_, audience.sound),
      clock_(tape_, nullptr),
      random_(tape_, nullptr),
      files_(files) {}

Size Player::read_screen() {
    constexpr std::string_view kScreen = "> screen";
    const std::string line = tape_.next() == nullptr ? std::string{} : *tape_.next();
    if (!line.starts_with(kScreen)) {
        tape_.diverge(std::string(kScreen));
        return {};
    }
    Words words(std::string_view(line).substr(kScreen.size()));
    const auto width = words.take_number();
    const auto height = words.take_number();
    tape_.expect(line);
    return {static_cast<Twips>(width.value_or(0)), static_cast<Twips>(height.value_or(0))};
}

void Player::started() { look(); }

std::optional<EventLine> Player::next_event(std::size_t yield) const {
    const std::string* line = tape_.next();
    if (line == nullptr) return std::nullopt;
    auto event = to_event_line(*line);
    return event && event->yield == yield ? event : std::nullopt;
}

std::optional<std::chrono::milliseconds> Player::next_after() {
    if (tape_.next() == nullptr || ended()) return std::nullopt;
    const auto event = next_event(0);
    if (!event) {
        tape_.diverge("nothing more");
        return std::nullopt;
    }
    return event->after;
}

void Player::step() {
    const auto event = next_event(0);
    if (!event) return;
    hand_over(*event);
    look();
}

void Player::play_yield(std::size_t number) {
    while (true) {
        const auto event = next_event(number);
        if (!event) return;
        hand_over(*event);
    }
}

void Player::hand_over(const EventLine& line) {
    auto what = to_event(line.what, program_->forms);
    if (!what) {
        tape_.diverge("an event that nothing here can take");
        return;
    }
    tape_.take_event();
    now_ += line.after;
    const Form* active = program_->desktop.active();
    form_ = active == nullptr ? "" : program_->forms.name_of(*active);
    const auto* size = std::get_if<ScreenSize>(&*what);
    if (size != nullptr && on_screen_size) on_screen_size(size->screen);
    program_->desktop.handle({now_, std::move(*what)});
}

void Player::look() {
    if (!display_.take_dirty()) return;
    for (const std::string& line : watch_.changes(program_->desktop, program_->forms, files_.program_folder())) {
        tape_.note(line);
    }
}

std::string Player::complaint() const {
    const auto& divergence = tape_.divergence();
    if (!divergence) return {};
    const std::string event = divergence->event.empty() ? "the start" : "\"" + divergence->event + "\"";
    return "The run goes another way than its recording, at line " + std::to_string(divergence->line) + ", after " +
           event + (form_.empty() ? "" : " on " + form_) + ".\nExpected: " + divergence->expected +
           "\nFound:    " + divergence->found;
}

}  // namespace marrowfen
