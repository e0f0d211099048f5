#pragma once

#include "editor/entry_row.h"
#include "interpreter/interpreter.h"
#include "platform/services.h"
#include "program/program_store.h"
#include "program/texts.h"
#include "program/workbench_calls.h"

namespace kvt {

// The two feed presets beside the entry row.
class FeedPresets {
public:
    FeedPresets(EntryRow& entry, ProgramStore& store, ControlInterpreter& interpreter, const Texts& texts,
                FocusService& focus, WorkbenchCalls& calls);

    // Clamps the presets to the units in force, and sets their ranges.
    void SetFeedLimits();
    // Puts a preset into the feed field and goes on to the comment.
    void cmdFeedA_Click() { ApplyPreset(entry_.txtFeedA); }
    void cmdFeedB_Click() { ApplyPreset(entry_.txtFeedB); }

    // Gives every line whose plain number in column 6 is the old value of a preset ("A" or "B") the new one; how many
    // these are.
    int ReplaceFeed(std::string_view which);

private:
    void PresetLostFocus(TextBox& preset, std::string& old);
    void ApplyPreset(const TextBox& preset);
    void KeyPress(std::string_view which, int& character);
    void ReplaceAndTell(std::string_view which);

    EntryRow& entry_;
    ProgramStore& store_;
    ControlInterpreter& interpreter_;
    const Texts& texts_;
    FocusService& focus_;
    WorkbenchCalls& calls_;
};

// The last four characters of three blanks and the trimmed preset: as a feed field holds it.
std::string PresetText(const TextBox& preset);

}  // namespace kvt
