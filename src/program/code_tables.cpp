#include "program/code_tables.h"

#include "basic/text.h"

namespace kvt {

namespace {

constexpr CodeEntry mk2Gcodes[] = {
    {"G00 ", "Rapid Traverse"},
    {"G01 ", "Linear Interpolation"},
    {"G02 ", "CW Circular Interpolation"},
    {"G03 ", "CCW Circular Interpolation"},
    {"G20 ", "Programmed Stop (Pause)"},
    {"G21 ", "Empty Line"},
    {"G22 ", "End of Program"},
    {"G23 ", "Output switch or pulse X62"},
    {"G24 ", "Radius Mode (ABS mode only)"},
    {"G26 ", "Tool Change and Compensation"},
    {"G33 ", "Threading"},
    {"G78 ", "Threading Cycle"},
    {"G84 ", "Longitudinal Cycle"},
    {"G90 ", "Absolute (diameter) Mode"},
    {"G91 ", "Incremental Mode"},
    {"G92 ", "Set XZ Register (+ ABS/diameter  mode)"},
    {"G94 ", "Feed in mm/min (or inch/min)"},
    {"G95 ", "Feed in mm/rev (or inch/rev)"},
};

constexpr CodeEntry mk4Gcodes[] = {
    {"G00 ", "Rapid Traverse"},
    {"G01 ", "Linear Interpolation"},
    {"G02 ", "CW Circular Interpolation"},
    {"G03 ", "CCW Circular Interpolation"},
    {"G04 ", "Dwell xxxx/100 sec."},
    {"G21 ", "Empty Line"},
    {"G24 ", "Radius Mode (ABS mode only)"},
    {"G25 ", "Sub-routine call"},
    {"G27 ", "Jump Instruction"},
    {"G33 ", "Threading"},
    {"G73 ", "Drilling Cycle with Chip Breakage"},
    {"G78 ", "Threading Cycle"},
    {"G81 ", "Drilling Cycle"},
    {"G82 ", "Drilling Cycle with Dwell"},
    {"G83 ", "Drilling Cycle with Withdrawal"},
    {"G84 ", "Longitudinal Cycle"},
    {"G85 ", "Reaming Cycle"},
    {"G86 ", "Grooving Cycle"},
    {"G88 ", "Facing Cycle"},
    {"G89 ", "Reaming Cycle with Dwell"},
    {"G90 ", "Absolute (diameter) Mode"},
    {"G91 ", "Incremental (radius) Mode"},
    {"G92 ", "Set XZ Register (+ ABS/diameter  mode)"},
    {"G94 ", "Feed in mm/min (or inch/min)"},
    {"G95 ", "Feed in mm/rev (or inch/rev)"},
};

constexpr CodeEntry mk4Mcodes[] = {
    {"M00 ", "Programmed Stop (Pause)"},
    {"M03 ", "Spindle ON"},
    {"M05 ", "Spindle OFF"},
    {"M06 ", "Tool Change and Compensation"},
    {"M08 ", "Switch output X62 PIN 15 HIGH"},
    {"M09 ", "Switch output X62 PIN 15 LOW"},
    {"M17 ", "Return to Main Program"},
    {"M22 ", "Switch output X62 PIN 18 HIGH"},
    {"M23 ", "Switch output X62 PIN 18 LOW"},
    {"M26 ", "Output pulses X62 PIN 20"},
    {"M30 ", "End of Program"},
    {"M98 ", "Compensation of Play"},
    {"M99 ", "Partial Arc Center"},
    {"M99R", "Partial Arc Radius"},
};

constexpr CodeEntry f1Gcodes[] = {
    {"G00 ", "Rapid Traverse"},
    {"G01 ", "Linear Interpolation"},
    {"G02 ", "CW Circular Interpolation"},
    {"G03 ", "CCW Circular Interpolation"},
    {"G04 ", "Dwell xxxx/100 sec."},
    {"G21 ", "Empty Line"},
    {"G25 ", "Sub-routine call"},
    {"G27 ", "Jump Instruction"},
    {"G40 ", "Tool Radius compensation cancelled"},
    {"G45 ", "Add Tool Radius"},
    {"G46 ", "Subtract Tool Radius"},
    {"G47 ", "Add Tool Radius twice"},
    {"G48 ", "Subtract Tool Radius twice"},
    {"G72 ", "Pocket milling Cycle"},
    {"G73 ", "Chip Breaking Cycle"},
    {"G81 ", "Fixed Boring Cycle"},
    {"G82 ", "Fixed Boring Cycle with Dwell"},
    {"G83 ", "Fixed Boring Cycle with Withdrawal"},
    {"G85 ", "Fixed Reaming Cycle"},
    {"G89 ", "Fixed Reaming Cycle with Dwell"},
    {"G90 ", "Absolute Mode"},
    {"G91 ", "Incremental Mode"},
    {"G92 ", "Set XYZ Register (ABS)"},
};

constexpr CodeEntry f1Mcodes[] = {
    {"M00 ", "Programmed Stop (Pause)"},
    {"M03 ", "Spindle ON"},
    {"M05 ", "Spindle OFF"},
    {"M06 ", "Tool Change and Radius"},
    {"M08 ", "Switch output X62 PIN 15 HIGH"},
    {"M09 ", "Switch output X62 PIN 15 LOW"},
    {"M17 ", "Return to Main Program"},
    {"M20 ", "Switch output X62 PIN 7 HIGH"},
    {"M21 ", "Switch output X62 PIN 7 LOW"},
    {"M22 ", "Switch output X62 PIN 18 HIGH"},
    {"M23 ", "Switch output X62 PIN 18 LOW"},
    {"M26 ", "Output pulses X62 PIN 20"},
    {"M30 ", "End of Program"},
    {"M98 ", "Compensation of Play"},
    {"M99 ", "Partial Arc Center"},
    {"M99R", "Partial Arc Radius"},
};

void Fill(ListBox& list, std::span<const CodeEntry> entries) {
    list.EnterChooses = true;
    for (const CodeEntry& entry : entries) {
        list.AddEntry(std::string(entry.Code) + "\t" + entry.Description);
    }
}

}  // namespace

std::span<const CodeEntry> MK2Gcodes() { return mk2Gcodes; }
std::span<const CodeEntry> MK4Gcodes() { return mk4Gcodes; }
std::span<const CodeEntry> MK4Mcodes() { return mk4Mcodes; }
std::span<const CodeEntry> F1Gcodes() { return f1Gcodes; }
std::span<const CodeEntry> F1Mcodes() { return f1Mcodes; }

CodeLists::CodeLists(Form& form)
    : lstMK2Gcodes(form, "lstMK2Gcodes"),
      lstMK4Gcodes(form, "lstMK4Gcodes"),
      lstMK4Mcodes(form, "lstMK4Mcodes"),
      lstF1Gcodes(form, "lstF1Gcodes"),
      lstF1Mcodes(form, "lstF1Mcodes") {
    Fill(lstMK2Gcodes, mk2Gcodes);
    Fill(lstMK4Gcodes, mk4Gcodes);
    Fill(lstMK4Mcodes, mk4Mcodes);
    Fill(lstF1Gcodes, f1Gcodes);
    Fill(lstF1Mcodes, f1Mcodes);
}

const ListBox* CodeLists::Find(const Control* control) const {
    for (const ListBox* list : {&lstMK2Gcodes, &lstMK4Gcodes, &lstMK4Mcodes, &lstF1Gcodes, &lstF1Mcodes}) {
        if (list == control) return list;
    }
    return nullptr;
}

void CodeLists::Unselect() {
    for (ListBox* list : {&lstMK2Gcodes, &lstMK4Gcodes, &lstMK4Mcodes, &lstF1Gcodes, &lstF1Mcodes})
        list->ListIndex = -1;
}

std::string EntryDescription(std::string_view entry) { return Replace(Trim(Mid(entry, 5)), "\t", ""); }

}  // namespace kvt
