#include "platform/accessible_name.h"

#include <span>
#include <string_view>

#include "basic/line_end.h"

namespace kvt {

namespace {

constexpr std::size_t prefixLength = 3;  // "txt", "lbl"
constexpr const char* naming[] = {"lbl", "cmd"};
constexpr const char* named[] = {"txt", "cbo"};

std::string_view FirstLine(std::string_view text) { return text.substr(0, text.find(LineEnd)); }

template <class Kind, class... More>
const TextProperty* CaptionAs(const Control& control) {
    if (const auto* one = dynamic_cast<const Kind*>(&control)) return &one->Caption;
    if constexpr (sizeof...(More) > 0) {
        return CaptionAs<More...>(control);
    } else {
        return nullptr;
    }
}

std::string_view CaptionOf(const Control& control) {
    const TextProperty* const caption =
        CaptionAs<Label, CheckBox, OptionButton, CommandButton, Frame, Menu, Form>(control);
    return caption ? std::string_view(*caption) : std::string_view();
}

// The control of the same form whose name differs in its prefix alone.
Control* Sibling(const Control& control, std::string_view prefix) {
    if (control.Name().size() <= prefixLength) return nullptr;
    return control.OwningForm().FindControl(std::string(prefix) + control.Name().substr(prefixLength),
                                            control.Index());
}

bool BeginsWithOneOf(const Control& control, std::span<const char* const> prefixes) {
    for (const char* prefix : prefixes) {
        if (control.Name().starts_with(prefix)) return true;
    }
    return false;
}

// "G" with the tool tip "Code" is "Code G"; a value has its name in front as well.
std::string LabelText(const Control& label) {
    std::string text(label.AccessibleName.Empty() ? FirstLine(label.ToolTip) : label.AccessibleName.Get());
    const std::string_view caption = CaptionOf(label);
    if (text == caption) return text;
    if (!text.empty() && !caption.empty()) text += ' ';
    return text.append(caption);
}

std::string FieldName(const Control& field) {
    for (const char* prefix : naming) {
        const Control* const label = BeginsWithOneOf(field, named) ? Sibling(field, prefix) : nullptr;
        if (label && label->Kind() == ControlKind::Label) return LabelText(*label);
        if (label) return std::string(CaptionOf(*label));
    }
    const Control* const around = field.Container;
    const bool framed = around && around->Kind() == ControlKind::Frame && !CaptionOf(*around).empty();
    return std::string(framed ? CaptionOf(*around) : FirstLine(field.ToolTip));
}

}  // namespace

std::string AccessibleNameOf(const Control& control) {
    if (control.Kind() == ControlKind::Label) return LabelText(control);
    if (!control.AccessibleName.Empty()) return control.AccessibleName.Get();
    switch (control.Kind()) {
        case ControlKind::CommandButton:
            if (static_cast<const CommandButton&>(control).Picture.empty()) break;
            if (!control.ToolTip.Empty()) return std::string(FirstLine(control.ToolTip));
            break;
        case ControlKind::TextBox:
        case ControlKind::ComboBox:
        case ControlKind::ListBox:
        case ControlKind::ProgressBar:
        case ControlKind::UpDown:
        case ControlKind::ScrollBar:
        case ControlKind::RichText: return FieldName(control);
        default: break;
    }
    return std::string(CaptionOf(control));
}

Control* NamedBy(const Control& control) {
    if (!BeginsWithOneOf(control, naming)) return nullptr;
    for (const char* prefix : named) {
        if (Control* const field = Sibling(control, prefix)) return field;
    }
    return nullptr;
}

}  // namespace kvt
