#include "shell/control_table.h"

#include <algorithm>

#include "basic/failure.h"

namespace kvt {

namespace {

// The name of a row on one side of the port.
std::string NameOf(std::string_view name, std::string_view side) {
    std::string whole(name);
    if (const std::size_t at = whole.find('#'); at != std::string::npos) whole.replace(at, 1, side);
    return whole;
}

std::string_view NameFrom(std::string_view name) { return name; }
std::string_view NameFrom(const Control* control) { return control->Name(); }

// The controls of a form, by their names and indices.
std::vector<Control*> SortedByName(std::vector<Control*> controls) {
    std::sort(controls.begin(), controls.end(), [](const Control* a, const Control* b) {
        return std::pair(NameFrom(a), a->Index()) < std::pair(NameFrom(b), b->Index());
    });
    return controls;
}

// The control of a name, or the elements of an array in the order of their indices. No control is a failure.
std::span<Control* const> Named(std::span<Control* const> byName, std::string_view name) {
    const auto [first, end] =
        std::equal_range(byName.begin(), byName.end(), name,
                         [](const auto& a, const auto& b) { return NameFrom(a) < NameFrom(b); });
    if (first == end) throw Failure("No control " + std::string(name));
    return {&*first, static_cast<std::size_t>(end - first)};
}

}  // namespace

int Length::In(int width, int height) const {
    const int base = Follows == Of::Width ? width : Follows == Of::Height ? height : 0;
    return std::clamp(base / 100 * Percent + base % 100 * Percent / 100 + Twips, Least, Most);
}

ControlTable::ControlTable(Form& form) : form_(form) {
    const std::vector<Control*> byName = SortedByName(form.Controls());
    for (const ControlRow& row : ControlRows()) Add(row, {}, byName);
    for (const std::string_view side : {"TX", "RX"}) {
        for (const ControlRow& row : PortSideRows()) Add(row, side, byName);
    }
    for (const ControlRow& row : TransferRows()) Add(row, {}, byName);
}

void ControlTable::Add(const ControlRow& row, std::string_view side, std::span<Control* const> byName) {
    const std::string containerName = NameOf(row.Container, side);
    Control* const container = containerName.empty() ? nullptr : Named(byName, containerName).front();
    for (Control* const control : Named(byName, NameOf(row.Name, side))) AddOne(*control, row, container);
}

void ControlTable::AddOne(Control& control, const ControlRow& row, Control* container) {
    if (container) control.Container = container;
    if (row.Page >= 0) control.Page = row.Page;
    if (row.Traits & ControlRow::Hidden) control.Visible = false;
    if (row.Traits & ControlRow::TabStop) control.TabIndex = nextTab_++;
    if (row.Traits & ControlRow::AtRight) static_cast<Label&>(control).AtRight = true;
    entries_.push_back({&control, &row});
}

void ControlTable::Place(bool mill) const {
    const int width = form_.Width;
    const int height = form_.Height;
    for (const Entry& entry : entries_) {
        const ControlRow& row = *entry.Row;
        const Area& area = mill && row.OnMill.IsSet ? row.OnMill : row.Place;
        if (!area.IsSet) continue;
        Control& control = *entry.Of;
        const int element = std::max(control.Index(), 0);
        const Grid& grid = row.Elements;
        control.Left = area.Left.In(width, height) + element % grid.Columns * grid.Right;
        control.Top = area.Top.In(width, height) + element / grid.Columns * grid.Down;
        control.Width = area.Width.In(width, height);
        control.Height = area.Height.In(width, height);
    }
}

void ControlTable::EnableFrozen(bool enabled) const {
    for (const Entry& entry : entries_) {
        if (entry.Row->Traits & ControlRow::Frozen) entry.Of->Enabled = enabled;
    }
}

void ControlTable::HideOverlays() const {
    for (const Entry& entry : entries_) {
        if (entry.Row->Traits & ControlRow::Overlay) entry.Of->Visible = false;
    }
}

}  // namespace kvt
