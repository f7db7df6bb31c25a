// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace display {

/// Something that counts its changes. Once a frame a display asks whether the revision is newer
/// than what it drew. Controls and forms share the clock of their form, so one comparison tells
/// whether anything of a form changed at all.
class Revised {
 public:
    explicit Revised(std::uint64_t& clock) : clock_(&clock), revision_(++clock) {}
    Revised(const Revised&) = delete;
    Revised& operator=(const Revised&) = delete;

    std::uint64_t revision() const { return revision_; }
    void touch() { revision_ = ++*clock_; }

 protected:
    ~Revised() = default;

 private:
    std::uint64_t* clock_;
    std::uint64_t revision_;
};

/// A value that raises its owner's revision when it changes. Assigning an equal value is one
/// comparison and draws nothing.
template <class T>
class Property {
 public:
    explicit Property(Revised& owner, T initial = {})
        : owner_(&owner), value_(initial), atRest_(initial) {}
    Property(const Property&) = delete;
    Property& operator=(const Property& other) { return *this = other.value_; }

    Property& operator=(const T& value) {
        if (!(value_ == value)) {
            value_ = value;
            owner_->touch();
        }
        return *this;
    }

    operator const T&() const { return value_; }
    const T& get() const { return value_; }

    /// Sets it back to its initial value.
    void reset() { *this = atRest_; }

 private:
    Revised* owner_;
    T value_;
    T atRest_;
};

/// The same for text. Short texts are stored in place, so that readouts do not allocate.
template <>
class Property<std::string> {
 public:
    explicit Property(Revised& owner) : owner_(&owner) {}
    Property(const Property&) = delete;
    Property& operator=(const Property& other) { return *this = std::string_view(other.value_); }

    Property& operator=(std::string_view value) {
        if (value_ != value) {
            value_.assign(value);
            owner_->touch();
        }
        return *this;
    }
    Property& operator=(const std::string& value) { return *this = std::string_view(value); }
    Property& operator=(const char* value) { return *this = std::string_view(value); }

    operator std::string_view() const { return value_; }
    const std::string& get() const { return value_; }
    bool empty() const { return value_.empty(); }
    void reset() { *this = std::string_view(); }
    friend bool operator==(const Property& a, std::string_view b) { return a.value_ == b; }

 private:
    Revised* owner_;
    std::string value_;
};

using Text = Property<std::string>;

}  // namespace display
