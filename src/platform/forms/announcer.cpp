#include "platform/forms/announcer.h"

#include <algorithm>
#include <array>
#include <set>

#include "platform/forms/spoken.h"

namespace marrowfen {

namespace {

bool is_worth_telling(Dial::Time time) {
    constexpr int kEvery = 30;
    constexpr std::array kLast{10, 5};
    const int left = time.left;
    return left > 0 && left < time.of && (left % kEvery == 0 || std::ranges::find(kLast, left) != kLast.end());
}

// Keys tell of themselves when they are asked: 36 of them would drown everything else.
bool is_announced(Control& control) {
    const auto* watch = as<Dial>(&control);
    if (watch != nullptr) return is_worth_telling(watch->SecondsLeft);
    const Part part = part_of(control);
    return part == Part::Text || part == Part::Picture || part == Part::Tile;
}

// Of a text that grows at its end, what has been added; nothing when it has only lost something.
std::string news_in(const std::string& now, const std::string& before) {
    if (before.starts_with(now)) return {};
    const std::string added = now.starts_with(before) ? now.substr(before.size()) : now;
    const auto begin = added.find_first_not_of(' ');
    return begin == std::string::npos ? std::string{} : added.substr(begin);
}

void append(std::string& said, const std::string& added) {
    if (added.empty()) return;
    if (!said.empty()) said += said.ends_with('.') || said.ends_with(':') ? " " : ". ";
    said += added;
}

}  // namespace

Announcer::News Announcer::news(const Desktop& desktop) {
    const auto forms = desktop.visible_forms();
    const std::set<const Form*> there(forms.begin(), forms.end());
    std::erase_if(heard_, [&](const auto& heard) { return !there.contains(heard.first); });
    News news;
    for (const Form* form : forms) {
        std::vector<std::string> now(form->controls().size());
        auto& [name, before] = heard_[form];
        const bool has_come = name != form->design().spoken;
        if (has_come) before.clear();
        name = form->design().spoken;
        before.resize(now.size());
        for (Control* control : spoken_parts(*form)) {
            const std::string& heard = before[control->number()];
            std::string& name_now = now[control->number()] = spoken_name(*control);
            if (name_now == heard) continue;
            if (!heard.empty()) news.renamed.push_back(control);
            if (!is_announced(*control) || form->design().level == Level::Message) continue;
            append(news.said, news_in(name_now, heard));
        }
        before = std::move(now);
    }
    return news;
}

}  // namespace marrowfen
