#include "shell/finding_guide.h"

#include "basic/text.h"
#include "program/explanations.h"

namespace kvt {

FindingGuide::FindingGuide(const Parts& parts) : parts_(parts) {
    parts_.Store.lvCncProgram.CellToolTip = [this](int row, int subItem) { return ToolTipOf(row, subItem); };
}

std::string FindingGuide::ToolTipOf(int row, int subItem) const {
    if (subItem != column::Error) return {};
    return Explanation(parts_.Store.lvCncProgram.Row(row)[column::Error], parts_.Language);
}

int FindingGuide::RowBehind(int row) const {
    const ListView& list = parts_.Store.lvCncProgram;
    const int lines = parts_.Store.LineCount();
    for (int step = 1; step <= lines; ++step) {
        const int looked = (row - 1 + step) % lines + 1;
        if (!Trim(list.Row(looked)[column::Error]).empty()) return looked;
    }
    // An endless loop can have its end in front of its beginning: no line is marked then.
    return parts_.Store.ErrorFlagged && parts_.Store.ErrorRow <= lines ? parts_.Store.ErrorRow : 0;
}

void FindingGuide::GoToError() {
    ListView& list = parts_.Store.lvCncProgram;
    const Texts& texts = parts_.Language;
    Run(parts_.Calls.cmdReturn_Click);
    Run(parts_.Calls.HideSettings);
    // The focus first: it gives back the row that the drawing has taken.
    parts_.Focus.SetFocus(list);
    const int row = RowBehind(list.SelectedRow());
    if (row < 1) return Run(parts_.Calls.Tell, texts.NoticeTexts(text::NoFinding));
    list.Select(row);
    list.EnsureVisible(row);
    const ListRow& line = list.Row(row);
    std::string finding(Trim(line[column::Error]));
    if (finding.empty()) finding = texts.ProgramErrorTexts(text::EndlessLoop);
    Run(parts_.Calls.Tell,
        Filled(texts.NoticeTexts(text::FindingAt), {std::string(Trim(line[column::Number])), finding}));
}

}  // namespace kvt
