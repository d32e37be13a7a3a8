#pragma once

#include <concepts>
#include <utility>

namespace marrowfen {

/// Somebody who wants to know that what it shows is about to change, or has changed.
class Touchable {
public:
    virtual void touched() = 0;

protected:
    Touchable() = default;
    ~Touchable() = default;
    Touchable(const Touchable&) = default;
    Touchable& operator=(const Touchable&) = default;
};

/// A value that tells its owner when it changes, so that a form only writes `lblIT.Caption = "..."`.
/// The owner is told before and after, since a control that moves leaves one place and takes another.
template <std::equality_comparable T>
class Property {
public:
    Property(Touchable& owner, T value) : owner_(owner), value_(std::move(value)) {}
    Property(const Property&) = delete;
    Property& operator=(const Property& other) { return *this = other.value_; }
    ~Property() = default;

    Property& operator=(T value) {
        if (value == value_) return *this;
        owner_.touched();
        value_ = std::move(value);
        owner_.touched();
        return *this;
    }

    [[nodiscard]] const T& get() const { return value_; }
    operator const T&() const { return value_; }  // NOLINT(google-explicit-constructor): it stands for its value
    const T* operator->() const { return &value_; }

    template <class U>
    friend bool operator==(const Property& property, const U& other) {
        return property.value_ == other;
    }

private:
    Touchable& owner_;
    T value_;
};

}  // namespace marrowfen
