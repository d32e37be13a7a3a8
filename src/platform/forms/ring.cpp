#include "platform/forms/ring.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <ranges>
#include <utility>

#include "platform/forms/desktop.h"
#include "platform/forms/reading_order.h"

namespace marrowfen {

namespace {

constexpr Twips kSmallestStop = 8 * kTwipsPerPixel;  // what is smaller can't be seen, let alone its ring

bool acts(const Control& control) { return control.on_mouse_down || control.on_mouse_up || control.on_click; }

// The keys of a board are one group, its tiles another; everything else stands alone.
bool in_one_group(Control& a, Control& b) {
    if (&a == &b) return true;
    const auto* one = as<PictureBox>(&a);
    const auto* other = as<PictureBox>(&b);
    return one != nullptr && other != nullptr && &a.form() == &b.form() && one->drag_mode == other->drag_mode;
}

// Characters are for a control that is no field: they are answers there, a space among them.
bool takes_answers(const Form& form) {
    return form.focus() != nullptr && !form.focus()->is_field() && form.focus()->on_key_press;
}

// In the lower right of a key, so that a tile that is held there leaves the key's letter in sight.
Point spot_for_tile(const Control& key) {
    const Rect bounds = on_screen(key);
    return {bounds.right() - 1, bounds.bottom() - 1};
}

template <class T>
T* after(const std::vector<T*>& all, const T* one, int step) {
    const auto size = static_cast<std::ptrdiff_t>(all.size());
    const auto place = std::ranges::find(all, one) - all.begin();
    return all[static_cast<std::size_t>((place + step + size) % size)];
}

}  // namespace

bool Ring::is_stop(Control& control) const {
    if (!control.Visible || !control.Enabled || control.Width < kSmallestStop || control.Height < kSmallestStop) {
        return false;
    }
    const Form& form = control.form();
    const Form* message = desktop_.message();
    if (!form.visible() || (message != nullptr && message != &form)) return false;
    const auto* box = as<PictureBox>(&control);
    if (desktop_.drag() && (box == nullptr || !box->on_drag_drop)) return false;
    const bool is_tile = box != nullptr && box->drag_mode == DragMode::Automatic;
    if (!desktop_.drag() && !control.is_field() && !acts(control) && !is_tile) return false;
    return desktop_.form_at(on_screen(control).centre()) == &form &&
           form.control_at(control.bounds().centre()) == &control;
}

std::vector<Control*> Ring::stops() const {
    std::vector<Control*> stops;
    for (const Form* form : desktop_.visible_forms()) {
        std::ranges::copy_if(form->controls(), std::back_inserter(stops), [this](Control* c) { return is_stop(*c); });
    }
    sort_for_reading(stops);
    return stops;
}

void Ring::go_to(Control& stop) {
    at_ = &stop;
    shown_ = true;
    stop.form().ring_ = at_;
    desktop_.rearranged();
    if (stop.is_field()) desktop_.set_focus(stop);
    if (desktop_.drag()) mouse_.carry_to(spot_for_tile(stop));
}

void Ring::hide() {
    if (std::exchange(shown_, false)) desktop_.rearranged();
}

void Ring::forget(const Form& form) {
    if (at_ != nullptr && &at_->form() == &form) at_ = nullptr;
}

void Ring::settle() {
    if (!shown_ || (at_ != nullptr && is_stop(*at_))) return;
    // The other side of a switch has come to lie upon the one that was pressed.
    Control* upon = at_ != nullptr ? at_->form().control_at(at_->bounds().centre()) : nullptr;
    if (upon != nullptr && is_stop(*upon)) return go_to(*upon);
    at_ = nullptr;
    desktop_.rearranged();
    Control* next = entry();
    if (next != nullptr) go_to(*next);
}

Control* Ring::entry() const {
    const Form* form = desktop_.active();
    // Where every key is an answer nothing is ringed before it is asked for.
    if (form == nullptr || takes_answers(*form)) return nullptr;
    for (Control* candidate : {form->ring_, form->focus()}) {
        if (candidate != nullptr && is_stop(*candidate)) return candidate;
    }
    const auto all = stops();
    const auto own = std::ranges::find_if(all, [&](const Control* c) { return &c->form() == form; });
    return own != all.end() ? *own : all.empty() ? nullptr : all.front();
}

Control* Ring::entry_of_group(Control& member, const std::vector<Control*>& stops) const {
    Control* last = member.form().ring_;
    if (last != nullptr && in_one_group(*last, member) && is_stop(*last)) return last;
    return *std::ranges::find_if(stops, [&](Control* c) { return in_one_group(*c, member); });
}

void Ring::step(Way way) {
    const auto all = stops();
    if (all.empty()) return;
    const Form* form = desktop_.active();
    Control* from = at_ != nullptr ? at_ : form != nullptr ? form->focus() : nullptr;
    if (from == nullptr || std::ranges::find(all, from) == all.end()) {
        return go_to(*(way == Way::On ? all.front() : entry_of_group(*all.back(), all)));
    }
    Control* next = from;
    do {
        next = after(all, next, static_cast<int>(way));
    } while (next != from && in_one_group(*next, *from));
    go_to(next == from ? *from : *entry_of_group(*next, all));
}

void Ring::move(Key arrow) {
    const Point from = on_screen(*at_).centre();
    const auto distance = [&](const Control* c) {
        constexpr Twips kAside = 3;  // what lies straight ahead comes first
        const Point to = on_screen(*c).centre();
        const Point way{to.x - from.x, to.y - from.y};
        const bool sideways = arrow == Key::Left || arrow == Key::Right;
        const Twips along = arrow == Key::Left    ? -way.x
                            : arrow == Key::Right ? way.x
                            : arrow == Key::Up    ? -way.y
                                                  : way.y;
        const Twips aside = std::abs(sideways ? way.y : way.x);
        return along <= 0 || along < aside / 2 ? std::numeric_limits<Twips>::max() : along + kAside * aside;
    };
    const auto all = stops();
    const auto nearest = std::ranges::min_element(all, {}, distance);
    if (nearest != all.end() && distance(*nearest) != std::numeric_limits<Twips>::max()) go_to(**nearest);
}

void Ring::go_to_button(int number) {
    std::vector<Control*> buttons;
    for (const Form* form : desktop_.visible_forms()) {
        // One that is hidden keeps its number, so that the others keep theirs.
        std::ranges::copy_if(form->controls(), std::back_inserter(buttons), [this](Control* c) {
            return as<Image>(c) != nullptr && acts(*c) && (!c->Visible || is_stop(*c));
        });
    }
    sort_for_reading(buttons);
    if (number > static_cast<int>(buttons.size())) return;
    Control& button = *buttons[static_cast<std::size_t>(number - 1)];
    if (is_stop(button)) go_to(button);
}

Control* Ring::way_out() const {
    std::vector<Form*> forms = desktop_.visible_forms();
    if (desktop_.active() != nullptr) forms.push_back(desktop_.active());
    for (Form* form : forms | std::views::reverse) {
        Control* way = form->way_out();
        if (way != nullptr && is_stop(*way)) return way;
    }
    return nullptr;
}

bool Ring::leave() {
    if (mouse_.is_carrying()) {
        put_back();
        return true;
    }
    Control* way = way_out();
    if (way == nullptr) return false;
    const bool asked = at() == way;
    if (asked) {
        act(*way);
    } else {
        go_to(*way);
    }
    return asked;
}

void Ring::put_back() {
    const auto& drag = desktop_.drag();
    if (!drag) return;
    PictureBox* tile = drag->source;
    mouse_.put_back();
    if (is_stop(*tile)) go_to(*tile);
}

Control* Ring::only_button() const {
    const Form* form = desktop_.active();
    // Where keys are answers, Enter is one, too: a wrong one.
    if (form == nullptr || form->design().key_preview == KeyPreview::Yes || takes_answers(*form)) return nullptr;
    const auto all = stops();
    return all.size() == 1 && as<Image>(all.front()) != nullptr ? all.front() : nullptr;
}

void Ring::act(Control& control) {
    auto* tile = as<PictureBox>(&control);
    if (tile == nullptr || tile->drag_mode != DragMode::Automatic) return mouse_.press_by_key(control);
    mouse_.take_up(*tile);
    const auto keys = stops();
    if (keys.empty()) return mouse_.put_back();
    go_to(*entry_of_group(*keys.front(), keys));
}

std::optional<Taker> Ring::press(const KeyDown& key, Stroke stroke) {
    Control* control = at();
    if (control == nullptr && key.key == Key::Enter) control = only_button();
    const Form* form = desktop_.active();
    if (control == nullptr || (key.key == Key::Space && form != nullptr && takes_answers(*form))) return std::nullopt;
    if (control->is_field()) {
        return as<ComboBox>(control) != nullptr && stroke == Stroke::Fresh ? std::optional(Taker::Field) : std::nullopt;
    }
    if (stroke == Stroke::Repeated || !is_stop(*control)) return Taker::Nobody;
    if (const auto& drag = desktop_.drag(); drag && mouse_.is_carrying()) {
        PictureBox* tile = drag->source;
        const Form& board = tile->form();
        mouse_.put_down();
        if (desktop_.is_loaded(board) && is_stop(*tile)) go_to(*tile);
    } else {
        act(*control);
    }
    return Taker::Nobody;
}

std::optional<Taker> Ring::take(const KeyDown& key, Stroke stroke) {
    if (key.alt || key.control || key.command) return std::nullopt;
    Control* here = at();
    switch (key.key) {
        case Key::Tab:
            step(key.shift ? Way::Back : Way::On);
            return Taker::Nobody;
        case Key::Escape:
            if (stroke == Stroke::Fresh && leave()) return Taker::Nobody;
            return std::nullopt;
        case Key::Enter:
        case Key::Space:
            return press(key, stroke);
        case Key::Left:
        case Key::Right:
            if (here == nullptr || as<TextBox>(here) != nullptr) return std::nullopt;
            move(key.key);
            return Taker::Nobody;
        case Key::Up:
        case Key::Down:
            if (here == nullptr || as<ListBox>(here) != nullptr || as<ComboBox>(here) != nullptr) return std::nullopt;
            move(key.key);
            return Taker::Nobody;
        case Key::Other:
        case Key::D:
            return std::nullopt;
        default:
            go_to_button(static_cast<int>(key.key) - static_cast<int>(Key::F1) + 1);
            return Taker::Nobody;
    }
}

}  // namespace marrowfen
