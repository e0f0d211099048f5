// Codes that change the row to run next. A target line L is row L + 1, and each step adds 1 to the row at its
// head, so setting the row to L runs line L next.

#include "basic/run_time_error.h"
#include "interpreter/check_pass.h"

namespace kvt {

bool CheckPass::SubroutineCall() {
    const int target = raw_.F;
    // 1. As the row index is the line number and 1, the next line is refused too.
    if (target <= row_) return EndWith(text::InvalidSub);
    // 2.
    if (depth_ > 5) return EndWith(text::MaxNestedSubs);
    // 3.
    if (target > store_.LineCount() - 1) return EndWith(text::NoSuchLine);
    // 4. The sixth call falls outside the stack: reported, and the run goes on as if it had been stored.
    ++depth_;
    Attempt(interpreterName, [&] {
        if (depth_ > 5) throw RunTimeError(fault::SubscriptOutOfRange);
        returnStack_[static_cast<std::size_t>(depth_)] = row_ + 1;
    });
    row_ = target;
    return false;
}

bool CheckPass::Jump() {
    const int target = raw_.F;
    // 1.
    if (target > store_.LineCount() - 1) return EndWith(text::NoSuchLine);
    // 2., 3. A line below 0 is no row: reported, and the next line runs.
    bool ends = false;
    Attempt(interpreterName, [&] {
        const std::string_view toolX = list_.Row(target + 1)[column::ToolX];
        if (toolX.empty() || toolX.back() != '?') {
            ends = EndlessLoop(target);
        } else {
            row_ = target;
        }
    });
    return ends;
}

// The target has run already, which is taken as an endless loop.
bool CheckPass::EndlessLoop(int target) {
    const std::string_view message = texts_.ProgramErrorTexts(text::EndlessLoop);
    for (int row = target + 1; row <= row_; ++row) {
        ListRow& crossed = list_.Row(row);
        for (const int c : {column::ToolX, column::ToolY, column::ToolZ}) crossed[c] = " xxxxx";
        crossed[column::Angle] = " xx";
        crossed[column::Error] = message;
    }
    room_.controls_.lblPPMachineTime.Caption = "xx:xx:xx";
    store_.ErrorRow = row_;
    room_.FlagError(store_.ErrorRow - 1);
    return true;
}

bool CheckPass::Return() {
    if (depth_ == 0) return EndWith(text::ReturnWithoutSub);
    // From depth 6 the read fails as the store did, and the row stays.
    Attempt(interpreterName, [&] {
        if (depth_ > 5) throw RunTimeError(fault::SubscriptOutOfRange);
        row_ = returnStack_[static_cast<std::size_t>(depth_)] - 1;
    });
    --depth_;
    return false;
}

void CheckPass::EndOfProgram() {
    if (store_.EditorRunMode) {
        room_.controls_.cmdStep.Enabled = false;
        selectedRow_ = itemRow_;
    }
    row_ = store_.LineCount();
}

}  // namespace kvt
