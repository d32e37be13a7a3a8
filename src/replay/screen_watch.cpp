#include "replay/screen_watch.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

#include "platform/match.h"
#include "replay/words.h"

namespace marrowfen {

namespace {

// The form layer has forms of its own, which are not in the set.
std::string name_of(const Form& form, const FormSet& forms) {
    const auto name = forms.name_of(form);
    return std::string(name.empty() ? form.design().spoken : name);
}

std::string shown(const Picture& picture, const std::string& program_folder) {
    const std::string& name = picture.name();
    return name.starts_with(program_folder) ? name.substr(program_folder.size()) : name;
}

std::string shown(const Dial& dial) {
    std::string text = "discs " + std::to_string(dial.drawn().size());
    if (dial.drawn().empty()) return text;
    // In degrees, so that the last digit of a float is nobody's business.
    const auto& sector = dial.drawn().back().sector;
    return text + (sector ? " from " + std::to_string(std::lround(degrees(sector->start))) : "");
}

std::string shown(const ListBox& list) {
    std::string text = std::to_string(list.entries().size()) + " rows";
    return list.selected() ? text + ", " + in_quotes(list.text()) : text;
}

std::string shown(Control& control, const std::string& program_folder) {
    if (!control.Visible) return {};
    std::string text =
        std::visit(Match{
                       [](const Label* label) { return in_quotes(label->Caption.get()); },
                       [&](const Image* image) { return shown(image->Picture, program_folder); },
                       [&](const PictureBox* box) { return shown(box->Picture, program_folder); },
                       [](const Shape* shape) {
                           return "at " + std::to_string(shape->Left.get()) + " " + std::to_string(shape->Top.get());
                       },
                       [](const Dial* dial) { return shown(*dial); },
                       [](const TextBox* box) { return in_quotes(box->Text.get()); },
                       [](const ListBox* list) { return shown(*list); },
                       [](const ComboBox* combo) {
                           return std::to_string(combo->entries().size()) + " rows, " + in_quotes(combo->Text.get());
                       },
                   },
                   control.any());
    return text + (control.Enabled ? "" : " idle");
}

std::vector<std::string> shown(const Form& form, const std::string& program_folder) {
    std::vector<std::string> controls(form.controls().size());
    for (Control* control : form.controls()) controls[control->number()] = shown(*control, program_folder);
    return controls;
}

// FNV-1a: nobody has a reason to forge it.
std::string checksum(const std::vector<std::string>& texts) {
    std::uint32_t sum = 2166136261U;
    for (const std::string& text : texts) {
        for (const char c : text + "\n") sum = (sum ^ static_cast<unsigned char>(c)) * 16777619U;
    }
    std::array<char, 8> digits{};
    return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), sum, 16).ptr};
}

}  // namespace

std::vector<std::string> ScreenWatch::changes(const Desktop& desktop, const FormSet& forms,
                                              const std::string& program_folder) {
    std::vector<std::string> lines;
    const auto on_show = desktop.visible_forms();
    std::vector<std::string> gone;
    std::erase_if(seen_, [&](const auto& entry) {
        const bool stays = std::ranges::find(on_show, entry.first) != on_show.end() &&
                           entry.second.name == name_of(*entry.first, forms);
        if (!stays) gone.push_back("gone " + entry.second.name);
        return !stays;
    });
    std::ranges::sort(gone);
    lines.insert(lines.end(), gone.begin(), gone.end());
    for (const Form* form : on_show) {
        auto now = shown(*form, program_folder);
        const auto [seen, is_new] = seen_.try_emplace(form, Seen{name_of(*form, forms), {}});
        const std::string& name = seen->second.name;
        auto& before = seen->second.controls;
        if (is_new) {
            lines.push_back("here " + name + " " + checksum(now));
        } else {
            for (std::size_t i = 0; i < now.size(); ++i) {
                if (now[i] != before[i]) lines.push_back(name + "." + std::to_string(i) + " " + now[i]);
            }
        }
        before = std::move(now);
    }
    const Control* ringed = desktop.ring().at();
    std::string ring = ringed == nullptr
                           ? std::string{}
                           : " " + name_of(ringed->form(), forms) + "." + std::to_string(ringed->number());
    if (ring != ring_) lines.push_back("ring" + ring);
    ring_ = std::move(ring);
    return lines;
}

}  // namespace marrowfen
