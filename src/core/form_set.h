#pragma once

#include <array>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string_view>

#include "core/form_id.h"
#include "platform/forms/desktop.h"

namespace marrowfen {

/// The forms of the program by name. A form is loaded when it is first used and built afresh after an unload.
/// A class of form names itself by a constant `kId`.
class FormSet {
public:
    using Maker = std::function<std::unique_ptr<Form>()>;

    explicit FormSet(Desktop& desktop) : desktop_(desktop) {}
    void define(FormId id, Maker maker);

    void show(FormId id);
    void hide(FormId id);
    void unload(FormId id);  ///< nothing happens when it is not loaded
    void unload(std::initializer_list<FormId> ids);
    void unload_all();

    /// Loads the form if need be. Never nullptr, but a form may decide in its load to go again.
    Form* load(FormId id);
    [[nodiscard]] Form* find(FormId id) const { return loaded_[index(id)]; }  ///< nullptr: not loaded

    [[nodiscard]] Form* find(std::string_view name) const;           ///< nullptr: not loaded, or no such form
    [[nodiscard]] std::string_view name_of(const Form& form) const;  ///< empty: not loaded

    template <class F>
    F& load() {
        return static_cast<F&>(*load(F::kId));
    }
    template <class F>
    [[nodiscard]] F* find() const {
        return static_cast<F*>(find(F::kId));
    }

private:
    static std::size_t index(FormId id) { return static_cast<std::size_t>(id); }

    Desktop& desktop_;
    std::array<Maker, kFormCount> makers_;
    std::array<Form*, kFormCount> loaded_{};
};

}  // namespace marrowfen
