#include "platform/headless/headless_display.h"

#include <algorithm>

namespace marrowfen {

namespace {

std::string utf8(char32_t code) {
    const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned char>(bits)); };
    const auto tail = [&](unsigned shift) { return byte(0x80U | (code >> shift & 0x3FU)); };
    if (code < 0x80U) return {byte(code)};
    if (code < 0x800U) return {byte(0xC0U | code >> 6U), tail(0)};
    if (code < 0x10000U) return {byte(0xE0U | code >> 12U), tail(6), tail(0)};
    return {byte(0xF0U | code >> 18U), tail(12), tail(6), tail(0)};
}

}  // namespace

void HeadlessDisplay::pass(std::chrono::milliseconds time) {
    const auto until = now_ + time;
    while (!due_.empty()) {
        const auto next = std::ranges::min_element(due_, {}, [](const auto& entry) { return entry.second; });
        if (next->second > until) break;
        now_ = next->second;
        Timer& timer = *next->first;
        next->second += timer.interval();
        tell(Tick{&timer});
    }
    now_ = until;
}

void HeadlessDisplay::idle(std::chrono::milliseconds time) {
    now_ += time;
    for (auto& [timer, due] : due_) due += time;
}

Taker HeadlessDisplay::press(Point at, std::optional<std::size_t> row, MouseButton button) {
    held_.bits |= static_cast<std::uint8_t>(button);
    return tell(MousePress{at, button, held_, row});
}

Taker HeadlessDisplay::touch(Point at) {
    held_.bits |= static_cast<std::uint8_t>(MouseButton::Left);
    return tell(MousePress{.at = at, .held = held_, .by_touch = true});
}

Taker HeadlessDisplay::release(Point at, MouseButton button) {
    held_.bits &= static_cast<std::uint8_t>(~static_cast<std::uint8_t>(button));
    return tell(MouseRelease{at, button});
}

void HeadlessDisplay::click(Point at, std::optional<std::size_t> row) {
    press(at, row);
    release(at);
}

void HeadlessDisplay::pick(ComboBox& list, std::size_t row, Point at) {
    const bool drops = press(at) == Taker::Field;
    if (drops) tell(ListDrop{&list, true});
    release(at);
    if (!drops) return;
    const bool picks = press(at, row) == Taker::Field;
    tell(ListDrop{&list, false});
    if (picks) tell(RowChoice{&list, row});
    release(at);
}

void HeadlessDisplay::strike(const KeyDown& key, const Desktop& desktop) {
    if (tell(key) == Taker::Field && key.character >= U' ' && !key.alt) {
        Form* active = desktop.active();
        if (auto* box = as<TextBox>(active == nullptr ? nullptr : active->focus())) {
            tell(TextEdit{box, box->Text.get() + utf8(key.character)});
        }
    }
    tell(KeyUp{key.key, key.alt});
}

void HeadlessDisplay::during_yield(std::function<void()> event, std::size_t skipped) {
    waiting_.emplace(yields_ + skipped, std::move(event));
}

void HeadlessDisplay::resize(Size screen) {
    screen_ = screen;
    tell(ScreenSize{screen});
}

void HeadlessDisplay::closed(const Form& form) { std::erase(repainted_, &form); }

void HeadlessDisplay::start(Timer& timer) { due_[&timer] = now_ + timer.interval(); }

void HeadlessDisplay::stop(Timer& timer) { due_.erase(&timer); }

void HeadlessDisplay::run_waiting_events() {
    const std::size_t now = yields_++;
    while (true) {
        const auto event = waiting_.find(now);
        if (event == waiting_.end()) return;
        const auto run = std::move(event->second);
        waiting_.erase(event);
        run();
    }
}

}  // namespace marrowfen
