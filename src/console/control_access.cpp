#include "console/control_access.h"

#include <algorithm>
#include <charconv>

#include "basic/number.h"
#include "basic/text.h"
#include "platform/list_view.h"
#include "platform/picture_box.h"

namespace kvt {

namespace {

using Found = std::optional<PlainValue>;

// Reads from the control as the first of the classes that it is of.
template <class Kind, class... More, class Read>
Found As(const Control& control, Read read) {
    if (const auto* one = dynamic_cast<const Kind*>(&control)) return Found(read(*one));
    if constexpr (sizeof...(More) > 0) {
        return As<More...>(control, read);
    } else {
        return std::nullopt;
    }
}

Found Text(const Control& control) {
    if (const auto* list = dynamic_cast<const ListBox*>(&control)) {
        return list->ListIndex < 0 ? std::string() : list->Entry(list->ListIndex);
    }
    return As<TextBox, RichText>(control, [](const auto& box) -> PlainValue { return box.Text.Get(); });
}

Found Caption(const Control& control) {
    return As<Label, CheckBox, OptionButton, CommandButton, Frame, Menu, Form>(
        control, [](const auto& one) -> PlainValue { return one.Caption.Get(); });
}

Found Selection(const Control& control, int TextSelection::*part) {
    return As<TextBox>(control,
                       [part](const TextBox& box) -> PlainValue { return box.Selection.Get().*part; });
}

// The row whose strokes are lit, or the rows of an arc and its centre as "4-5"; empty for none.
Found Lit(const Control& control) {
    return As<PictureBox>(control, [](const PictureBox& box) -> PlainValue {
        const SourceRange& lit = box.Lit.Get();
        if (lit.First == 0) return std::string();
        return PlainNumber(lit.First) + (lit.Last == lit.First ? "" : "-" + PlainNumber(lit.Last));
    });
}

bool IsForm(const Control& control) { return control.Kind() == ControlKind::Form; }

// Timers and dialogs are not to be seen; menus have no place of their own.
bool IsSeen(const Control& control) {
    return control.Kind() != ControlKind::Timer && control.Kind() != ControlKind::FileDialog;
}

template <class Member>
Found Placed(const Control& control, Member member) {
    if (!IsSeen(control) || control.Kind() == ControlKind::Menu) return std::nullopt;
    return (control.*member).Get();
}

template <class Member>
Found NotOfForms(const Control& control, Member member) {
    if (IsForm(control)) return std::nullopt;
    return Found((control.*member).Get());
}

struct PropertyAccess {
    const char* Name;
    Found (*Read)(const Control&);
};

// In the order in which they are listed.
constexpr PropertyAccess properties[] = {
    {"text", Text},
    {"caption", Caption},
    {"lead",
     [](const Control& c) {
         const auto* const frame = dynamic_cast<const Frame*>(&c);
         return frame && !frame->Lead.Empty() ? Found(frame->Lead.Get()) : std::nullopt;
     }},
    {"value",
     [](const Control& c) {
         return As<CheckBox, OptionButton, TabStrip, ScrollBar, UpDown, ProgressBar>(
             c, [](const auto& one) -> PlainValue { return one.Value.Get(); });
     }},
    {"visible", [](const Control& c) { return IsSeen(c) ? Found(c.Visible.Get()) : std::nullopt; }},
    {"enabled", [](const Control& c) { return NotOfForms(c, &Control::Enabled); }},
    {"tag", [](const Control& c) { return NotOfForms(c, &Control::Tag); }},
    {"toolTip", [](const Control& c) { return IsForm(c) ? std::nullopt : Placed(c, &Control::ToolTip); }},
    {"listIndex",
     [](const Control& c) {
         return As<ListBox>(c, [](const ListBox& list) -> PlainValue { return list.ListIndex.Get(); });
     }},
    {"checked",
     [](const Control& c) {
         return As<Menu>(c, [](const Menu& menu) -> PlainValue { return menu.Checked.Get(); });
     }},
    {"windowState",
     [](const Control& c) {
         return As<Form>(c,
                         [](const Form& form) -> PlainValue { return static_cast<int>(form.State.Get()); });
     }},
    {"left", [](const Control& c) { return Placed(c, &Control::Left); }},
    {"top", [](const Control& c) { return Placed(c, &Control::Top); }},
    {"width", [](const Control& c) { return Placed(c, &Control::Width); }},
    {"height", [](const Control& c) { return Placed(c, &Control::Height); }},
    {"lit", Lit},
    {"selStart", [](const Control& c) { return Selection(c, &TextSelection::Start); }},
    {"selLength", [](const Control& c) { return Selection(c, &TextSelection::Length); }},
};

const PropertyAccess* AccessTo(std::string_view property) {
    const auto* const found =
        std::find_if(std::begin(properties), std::end(properties),
                     [&](const PropertyAccess& access) { return EqualIgnoringCase(access.Name, property); });
    return found == std::end(properties) ? nullptr : found;
}

// Takes "(3)" off the end of a name.
int TakeIndex(std::string_view& name) {
    const std::size_t open = name.find('(');
    if (open == std::string_view::npos || name.back() != ')') return -1;
    int index = -1;
    const char* const end = name.data() + name.size() - 1;
    const auto read = std::from_chars(name.data() + open + 1, end, index);
    if (read.ec != std::errc() || read.ptr != end) return -1;
    name = name.substr(0, open);
    return index;
}

}  // namespace

Control* FindByName(const std::vector<Form*>& forms, std::string_view name, int index) {
    const int own = TakeIndex(name);
    if (own >= 0) index = own;
    const std::string_view formName = name.substr(0, name.find('.'));
    for (Form* form : forms) {
        if (!EqualIgnoringCase(form->Name(), formName)) continue;
        if (formName.size() == name.size()) return form;
        return form->FindControl(name.substr(formName.size() + 1), index);
    }
    Control* found = nullptr;
    for (Form* form : forms) {
        Control* const here = form->FindControl(name, index);
        if (!here) continue;
        if (found) return nullptr;
        found = here;
        if (form == forms.front()) return found;
    }
    return found;
}

std::string NameOf(const std::vector<Form*>& forms, const Control& control) {
    std::string name = control.Name();
    if (control.Index() >= 0) name += "(" + PlainNumber(control.Index()) + ")";
    if (IsForm(control) || &control.OwningForm() == forms.front()) return name;
    return control.OwningForm().Name() + "." + name;
}

bool IsProperty(std::string_view property) { return AccessTo(property) != nullptr; }

std::optional<PlainValue> ReadProperty(const Control& control, std::string_view property) {
    const PropertyAccess* const access = AccessTo(property);
    return access ? access->Read(control) : std::nullopt;
}

std::vector<std::pair<std::string_view, PlainValue>> PropertiesOf(const Control& control) {
    std::vector<std::pair<std::string_view, PlainValue>> all;
    for (const PropertyAccess& access : properties) {
        if (Found value = access.Read(control)) all.emplace_back(access.Name, std::move(*value));
    }
    return all;
}

}  // namespace kvt
