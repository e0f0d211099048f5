#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace kvt {

class Control;

// What of a control has changed; a view is told by this.
enum class PropertyId : std::uint8_t {
    Left,
    Top,
    Width,
    Height,
    Visible,
    Enabled,
    Tag,
    ToolTip,
    TabIndex,
    Caption,
    Text,
    Value,
    Checked,
    ForeColor,
    ListIndex,
    Entries,
    Selection,
    WindowState,
    RestoredPlace,
    Rows,
    SelectedRow,
    TopRow,
    Headers,
    Bounds,
    BackColor,
    MousePointer,
    Operations,
    Front,
    Appended,
    Section,
    Sought,
    Cross,
    Lit,
    AccessibleName,
    Area,
    Lead,
    MarkedRow,
};

namespace detail {
void TellChanged(Control& owner, PropertyId id);
}

// A value of a control. Assigning a new value tells the control, which tells its view; assigning the value
// that it holds tells nobody.
template <class T>
class Property {
public:
    Property(Control& owner, PropertyId id, T value = {})
        : owner_(owner), id_(id), value_(std::move(value)) {}
    Property(const Property&) = delete;

    operator const T&() const { return value_; }
    const T& Get() const { return value_; }

    Property& operator=(T value) {
        if (value_ != value) {
            value_ = std::move(value);
            detail::TellChanged(owner_, id_);
        }
        return *this;
    }
    Property& operator=(const Property& other) { return *this = other.value_; }

private:
    Control& owner_;
    PropertyId id_;
    T value_;
};

// A text of a control, in the program's code page.
class TextProperty {
public:
    TextProperty(Control& owner, PropertyId id, std::string_view value = {})
        : owner_(owner), id_(id), value_(value) {}
    TextProperty(const TextProperty&) = delete;

    operator std::string_view() const { return value_; }
    const std::string& Get() const { return value_; }
    bool Empty() const { return value_.empty(); }

    TextProperty& operator=(std::string_view value) {
        if (value_ != value) {
            value_ = std::string(value);
            detail::TellChanged(owner_, id_);
        }
        return *this;
    }
    TextProperty& operator=(const TextProperty& other) { return *this = std::string_view(other.value_); }

    // Adds to the end and tells nobody, so that a long text can grow piece by piece.
    void Extend(std::string_view more) { value_ += more; }

    friend bool operator==(const TextProperty& text, std::string_view other) { return text.value_ == other; }

private:
    Control& owner_;
    PropertyId id_;
    std::string value_;
};

}  // namespace kvt
