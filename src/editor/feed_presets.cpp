#include "editor/feed_presets.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "editor/value_range.h"
#include "platform/keys.h"
#include "program/edit_step.h"

namespace kvt {

namespace {

// A preset as a replacement looks for it.
std::string OldText(const TextBox& preset) { return " " + std::string(Trim(preset.Text)); }

}  // namespace

std::string PresetText(const TextBox& preset) {
    return std::string(Right("   " + std::string(Trim(preset.Text)), 4));
}

FeedPresets::FeedPresets(EntryRow& entry, ProgramStore& store, ControlInterpreter& interpreter,
                         const Texts& texts, FocusService& focus, WorkbenchCalls& calls)
    : entry_(entry), store_(store), interpreter_(interpreter), texts_(texts), focus_(focus), calls_(calls) {
    entry_.cmdFeedA.OnClick = [this] { cmdFeedA_Click(); };
    entry_.cmdFeedB.OnClick = [this] { cmdFeedB_Click(); };
    entry_.txtFeedA.OnLostFocus = [this] { PresetLostFocus(entry_.txtFeedA, entry_.OldFeedA); };
    entry_.txtFeedB.OnLostFocus = [this] { PresetLostFocus(entry_.txtFeedB, entry_.OldFeedB); };
    entry_.txtFeedA.OnKeyPress = [this](int& character) { KeyPress("A", character); };
    entry_.txtFeedB.OnKeyPress = [this](int& character) { KeyPress("B", character); };
}

void FeedPresets::KeyPress(std::string_view which, int& character) {
    if (character == key::Enter) {
        character = 0;
        const EditStep step(calls_, {StepKind::Feeds});
        SetFeedLimits();
        ReplaceAndTell(which);
        focus_.SetFocus(entry_.txtComment);
        return;
    }
    const bool passes = character == key::Backspace || (character >= '0' && character <= '9');
    if (!passes) character = 0;
}

// The check takes away what was told before, so this comes behind it.
void FeedPresets::ReplaceAndTell(std::string_view which) {
    const std::string old(Trim(which == "A" ? entry_.OldFeedA : entry_.OldFeedB));
    const int lines = ReplaceFeed(which);
    interpreter_.Interpreter();
    if (store_.LineCount() == 0) return;
    const std::string now(Trim(which == "A" ? entry_.OldFeedA : entry_.OldFeedB));
    Run(calls_.Tell, lines > 0
                         ? Filled(texts_.NoticeTexts(text::FeedReplaced), {old, now, PlainNumber(lines)})
                         : Filled(texts_.NoticeTexts(text::NoSuchFeed), {old}));
}

int FeedPresets::ReplaceFeed(std::string_view which) {
    const TextBox& preset = which == "A" ? entry_.txtFeedA : entry_.txtFeedB;
    std::string& old = which == "A" ? entry_.OldFeedA : entry_.OldFeedB;
    const int lines = store_.LineCount();
    ListView& list = store_.lvCncProgram;
    const int selected = list.SelectedRow();
    double sought = 0;
    int replaced = 0;
    const bool known = Attempt("ReplaceFeed", [&] { sought = Val(old); });
    // Any line with the number is meant, whatever its code. A word with a letter and an empty cell hold no plain number, whatever the preset was.
    for (int row = 1; known && row <= lines; ++row) {
        Cell& feed = list.Row(row)[column::F];
        if (!IsNumeric(feed.View()) || Val(feed.View()) != sought) continue;
        feed = PresetText(preset);
        ++replaced;
        store_.ProgramChanged = true;
    }
    if (lines == 0) return replaced;
    old = OldText(preset);
    list.RowsChanged();
    list.Select(selected);
    return replaced;
}

void FeedPresets::SetFeedLimits() {
    const ValueRange& range = FeedRange.In(store_.Metric);
    for (TextBox* preset : {&entry_.txtFeedA, &entry_.txtFeedB}) {
        // One that cannot be read counts as too high.
        double feed = range.High;
        Attempt("SetFeedLimits", [&] { feed = Val(preset->Text); });
        feed = std::clamp<double>(feed, range.Low, range.High);
        preset->Text = RightPad(PlainNumber(static_cast<float>(feed)), 5);
        SetRange(*preset, range, texts_);
    }
}

// Leaving a preset sets it for later lines; the other one's old value stays known. A feed with more digits than a
// line has place for would reach it without the first one.
void FeedPresets::PresetLostFocus(TextBox& preset, std::string& old) {
    if (Val(preset.Text) > FeedRange.In(store_.Metric).High) SetFeedLimits();
    old = OldText(preset);
}

void FeedPresets::ApplyPreset(const TextBox& preset) {
    entry_.txtFKTL.Text = PresetText(preset);
    focus_.SetFocus(entry_.txtComment);
}

}  // namespace kvt
