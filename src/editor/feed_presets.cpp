#include "editor/feed_presets.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/text.h"
#include "platform/keys.h"

namespace kvt {

namespace {

constexpr double lowestFeed = 2;

}  // namespace

std::string PresetText(const TextBox& preset) {
    return std::string(Right("   " + std::string(Trim(preset.Text)), 4));
}

FeedPresets::FeedPresets(EntryRow& entry, const ProgramStore& store, FocusService& focus)
    : entry_(entry), store_(store), focus_(focus) {
    entry_.cmdFeedA.OnClick = [this] { cmdFeedA_Click(); };
    entry_.cmdFeedB.OnClick = [this] { cmdFeedB_Click(); };
    // Leaving a preset sets it for later lines; the other one's old value stays known.
    entry_.txtFeedA.OnLostFocus = [this] { entry_.OldFeedA = " " + std::string(Trim(entry_.txtFeedA.Text)); };
    entry_.txtFeedB.OnLostFocus = [this] { entry_.OldFeedB = " " + std::string(Trim(entry_.txtFeedB.Text)); };
    for (TextBox* preset : {&entry_.txtFeedA, &entry_.txtFeedB}) {
        preset->OnKeyPress = [](int& character) {
            const bool passes = character == key::Backspace || (character >= '0' && character <= '9');
            if (!passes) character = 0;
        };
    }
}

void FeedPresets::SetFeedLimits() {
    // 1.
    const double highest = store_.Metric ? 499 : 199;
    for (TextBox* preset : {&entry_.txtFeedA, &entry_.txtFeedB}) {
        // 2., 3.
        const double feed = std::max(std::min(Val(preset->Text), highest), lowestFeed);
        preset->Text = RightPad(PlainNumber(static_cast<float>(feed)), 5);
        // 4.
        preset->Tag = store_.Metric ? "2TO499" : "2TO199";
        preset->ToolTip = Replace(preset->Tag, "TO", " = Low, Hi = ");
    }
}

void FeedPresets::Take(const TextBox& preset) {
    entry_.txtFKTL.Text = PresetText(preset);
    focus_.SetFocus(entry_.txtComment);
}

}  // namespace kvt
