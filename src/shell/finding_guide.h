#pragma once

#include "platform/services.h"
#include "program/program_store.h"
#include "program/texts.h"
#include "program/workbench_calls.h"

namespace kvt {

// The way to the findings of the check, and what is told about them.
class FindingGuide {
public:
    struct Parts {
        ProgramStore& Store;
        const Texts& Language;
        FocusService& Focus;
        WorkbenchCalls& Calls;
    };
    explicit FindingGuide(const Parts& parts);

    // Selects the next line with a finding, from the top again behind the last one, and tells it in the quiet line;
    // that there is none as well.
    void GoToError();

private:
    // 0 where no row has one.
    int RowBehind(int row) const;
    std::string ToolTipOf(int row, int subItem) const;

    Parts parts_;
};

}  // namespace kvt
