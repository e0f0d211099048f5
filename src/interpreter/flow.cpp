// Codes that change the row to run next. A target line L is row L + 1, and each step adds 1 to the row at its
// head, so setting the row to L runs line L next.

#include "basic/run_time_error.h"
#include "interpreter/check_pass.h"

namespace kvt {

CheckPass::Next CheckPass::SubroutineCall() {
    const int target = raw_.F;
    // The row index is the line number and 1, so the next line is refused too.
    if (target <= row_) return EndWith(text::InvalidSub);
    if (depth_ > 5) return EndWith(text::MaxNestedSubs);
    if (target > store_.LineCount() - 1) return EndWith(text::NoSuchLine);
    // The stack of the control holds five. A sixth call is reported, and the run goes on as if it had been stored.
    ++depth_;
    Attempt(interpreterName, [&] {
        if (depth_ > 5) throw RunTimeError(fault::SubscriptOutOfRange);
        returnStack_[static_cast<std::size_t>(depth_)] = row_ + 1;
    });
    row_ = target;
    return Next::GoOn;
}

CheckPass::Next CheckPass::Jump() {
    const int target = raw_.F;
    if (target > store_.LineCount() - 1) return EndWith(text::NoSuchLine);
    // A line below 0 is no row: reported, and the next line runs.
    Next next = Next::GoOn;
    Attempt(interpreterName, [&] {
        const std::string_view toolX = list_.Row(target + 1)[column::ToolX];
        if (toolX.empty() || toolX.back() != '?') {
            next = EndlessLoop(target);
        } else {
            row_ = target;
        }
    });
    return next;
}

// A target that has run already counts as an endless loop, even where the program would leave it by another way.
CheckPass::Next CheckPass::EndlessLoop(int target) {
    const std::string_view message = texts_.ProgramErrorTexts(text::EndlessLoop);
    for (int row = target + 1; row <= row_; ++row) {
        ListRow& crossed = list_.Row(row);
        for (const int c : {column::ToolX, column::ToolY, column::ToolZ}) crossed[c] = " xxxxx";
        crossed[column::Angle] = " xx";
        crossed[column::Error] = message;
    }
    interpreter_.controls_.lblPPMachineTime.Caption = "xx:xx:xx";
    store_.ErrorRow = row_;
    interpreter_.FlagError(store_.ErrorRow - 1);
    return Next::EndRun;
}

CheckPass::Next CheckPass::Return() {
    if (depth_ == 0) return EndWith(text::ReturnWithoutSub);
    // From depth 6 the read fails as the store did, and the row stays.
    Attempt(interpreterName, [&] {
        if (depth_ > 5) throw RunTimeError(fault::SubscriptOutOfRange);
        row_ = returnStack_[static_cast<std::size_t>(depth_)] - 1;
    });
    --depth_;
    return Next::GoOn;
}

void CheckPass::EndOfProgram() {
    if (store_.EditorRunMode) {
        interpreter_.controls_.cmdStep.Enabled = false;
        selectedRow_ = itemRow_;
    }
    row_ = store_.LineCount();
}

}  // namespace kvt
