#pragma once

#include <span>
#include <string_view>

#include "platform/controls.h"

namespace kvt {

struct CodeEntry {
    const char* Code;  // four characters
    const char* Description;
};

// The codes that each machine knows, in the order of its list.
std::span<const CodeEntry> MK2Gcodes();
std::span<const CodeEntry> MK4Gcodes();
std::span<const CodeEntry> MK4Mcodes();
std::span<const CodeEntry> F1Gcodes();
std::span<const CodeEntry> F1Mcodes();

// The list boxes that show them. An entry is the code in four characters, a tab and the description; the
// description is language text and may be replaced.
struct CodeLists {
    explicit CodeLists(Form& form);

    ListBox lstMK2Gcodes, lstMK4Gcodes, lstMK4Mcodes, lstF1Gcodes, lstF1Mcodes;

    // The one that a control is; null for another control.
    const ListBox* Find(const Control* control) const;
    // No entry of any is selected then.
    void Unselect();
};

// The description of a list entry: from its fifth character on, trimmed, without tabs.
std::string EntryDescription(std::string_view entry);

}  // namespace kvt
