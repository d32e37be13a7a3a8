#include "core/form_set.h"

#include <algorithm>
#include <utility>

namespace marrowfen {

void FormSet::define(FormId id, Maker maker) { makers_[index(id)] = std::move(maker); }

Form* FormSet::load(FormId id) {
    Form*& place = loaded_[index(id)];
    if (place != nullptr) return place;
    auto form = makers_[index(id)]();
    Form* made = place = form.get();  // known before its load runs, which may speak of it by name
    desktop_.load(std::move(form));
    return made;
}

Form* FormSet::find(std::string_view name) const {
    const auto* place = std::ranges::find(kFormNames, name);
    return place == kFormNames.end() ? nullptr : loaded_.at(static_cast<std::size_t>(place - kFormNames.begin()));
}

std::string_view FormSet::name_of(const Form& form) const {
    const auto* place = std::ranges::find(loaded_, &form);
    return place == loaded_.end() ? std::string_view{}
                                  : kFormNames.at(static_cast<std::size_t>(place - loaded_.begin()));
}

void FormSet::show(FormId id) {
    load(id);
    if (Form* form = find(id)) desktop_.show(*form);
}

void FormSet::hide(FormId id) {
    if (Form* form = find(id)) desktop_.hide(*form);
}

void FormSet::unload(FormId id) {
    if (Form* form = std::exchange(loaded_[index(id)], nullptr)) desktop_.unload(*form);
}

void FormSet::unload(std::initializer_list<FormId> ids) {
    for (const FormId id : ids) unload(id);
}

void FormSet::unload_all() {
    for (std::size_t i = 0; i < kFormCount; ++i) unload(static_cast<FormId>(i));
}

}  // namespace marrowfen
