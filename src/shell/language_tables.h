#pragma once

#include <span>

#include "program/texts.h"

namespace kvt {

// Which text of a control a key of a module sets. A tab is a page of tabSettings, found by its built-in caption. A name
// is for screen readers; its English is the key.
enum class ShownText { Caption, ToolTip, Tab, Name };

// A key of a label section and a control that shows its text; a key with several controls has several rows in a
// row. The control is that of the main window, or follows the name of its window and a point. What no window
// has is passed over.
struct LabelRow {
    const char* Section;
    const char* Key;
    const char* Control;
    ShownText What = ShownText::Caption;
    int Index = -1;  // of an element of a control array
};
std::span<const LabelRow> LabelRows();

// The sections whose lines fill a table, or the descriptions of a code list, in their order.
struct TableSection {
    const char* Section;
    TextTable& (*Table)(Texts& texts);
};
std::span<const TableSection> TableSections();
struct ListSection {
    const char* Section;
    const char* List;
};
std::span<const ListSection> ListSections();

namespace language_section {
inline constexpr const char* Toolbar = "Toolbar";
inline constexpr const char* Headers = "Column Headers";
inline constexpr const char* Entry = "Frame Entry";
}  // namespace language_section

}  // namespace kvt
