// Which result columns are in sight, the width of the window, and the automatic comments.

#include "shell/layout.h"
#include "support/short_program.h"
#include "support/table.h"

namespace kvt::test {

namespace {

class View : public WorkbenchFixture {
protected:
    // Widths of the headers from first to last.
    std::vector<int> Widths(int first, int last) const {
        std::vector<int> widths;
        for (int header = first; header <= last; ++header)
            widths.push_back(Workbench->Store.lvCncProgram.Header(header).Width);
        return widths;
    }
    static void Click(CheckBox& box, int value) {
        box.Value = value;
        box.Click();
    }
    std::string Comment(int line) const { return Cell(line, column::Comment); }
};

using Twips = std::vector<int>;
const char* const arc = "02 X100 Z100 F50";

}  // namespace

// 104 for each character of the header and 193, or the minimum.
TEST_F(View, ToolColumns) {
    Check("MK4", Program(arc));
    EXPECT_EQ(Widths(10, 12), (Twips{817, 0, 817}));
    Workbench->Store.lvCncProgram.SetHeaderText(10, "Werkzeug X");
    Workbench->Store.lvCncProgram.SetHeaderText(12, "TZ");
    Workbench->View.MakeToolpositionColums();
    EXPECT_EQ(Widths(10, 12), (Twips{1233, 0, 811}));
    Check("F1", Program(arc));
    EXPECT_EQ(Widths(10, 12), (Twips{1233, 817, 811}));
    Check("MK2", Program("21"));
    EXPECT_EQ(Widths(10, 12), (Twips{1233, 0, 811}));
    Click(Workbench->View.chkViewToolPos, 0);
    EXPECT_EQ(Widths(10, 12), (Twips{0, 0, 0}));
}

TEST_F(View, WindowFitsTheColumns) {
    // 17 columns of 100, 8093, and what the machine needs more or less.
    for (const auto& [machine, width] :
         {std::pair("MK2", 10288), std::pair("MK4", 9793), std::pair("F1", 9372)}) {
        SCOPED_TRACE(machine);
        Check(machine, Program("21"));
        for (int header = 1; header <= column::Count; ++header)
            Workbench->Store.lvCncProgram.SetHeaderWidth(header, header == 1 || header == 19 ? 5000 : 100);
        Form& form = Workbench->frmMain;
        form.Width = 7;
        Workbench->View.chkSettingsAutowidth.Value = 0;
        Workbench->View.SetAutoWidth();
        EXPECT_EQ(form.Width, 7);
        Workbench->View.chkSettingsAutowidth.Value = 1;
        form.State = WindowState::Maximised;
        Workbench->View.SetAutoWidth();
        EXPECT_EQ(form.Width, 7);
        form.State = WindowState::Normal;
        Workbench->View.SetAutoWidth();
        EXPECT_EQ(form.Width, width);
        Platform.Screen.WidthTwips = 9000;
        Workbench->View.SetAutoWidth();
        EXPECT_EQ(form.Width, 9000);
        Platform.Screen.WidthTwips = 28800;
    }
    // The line properties fit it, shown or not.
    Check("MK4", Program("21"));
    const int shown = Workbench->frmMain.Width;
    Click(Workbench->View.chkViewLineProperties, 0);
    EXPECT_EQ(Workbench->frmMain.Width, std::max(SmallestWidth, shown - 811));
}

TEST_F(View, CommentsForEmptyCells) {
    for (const char* line :
         {"MK4|00|@  Rapid Traverse", "MK4|00 #typed|typed", "MK4|M03|@  Spindle ON", "MK4|m03|@  Spindle ON",
          "MK4|72|", "MK2|91|@  Incremental Mode", "F1|92|@  Set XYZ Register (ABS)",
          // M codes come from the lathe's list, which has no M20.
          "F1|M06 D100|@  Tool Change and Compensation", "F1|M20|"}) {
        SCOPED_TRACE(line);
        const auto one = Fields(line);
        Workbench->View.chkViewGcode.Value = 0;
        Check(one[0], Program("21; " + one[1] + "; 21"));
        Workbench->Store.lvCncProgram.Select(3);
        Click(Workbench->View.chkViewGcode, 1);
        EXPECT_EQ(Comment(1), one[2]);
        EXPECT_EQ(Comment(2), "@  Empty Line");
        EXPECT_EQ(Comment(3), " ");  // the open line
        EXPECT_EQ(Workbench->Store.lvCncProgram.SelectedRow(), 3);
        EXPECT_TRUE(Workbench->Store.ProgramChanged);
    }
}

TEST_F(View, CommentsAreTakenOutAgain) {
    Check("MK4", {{"00", "", "", "", "", "", "typed"},
                  {"00", "", "", "", "", "", "@  mine"},
                  {"00", "", "", "", "", "", "@ mine"},
                  {"00"},
                  {"73", "", "", "-500", "100"}});
    Workbench->Lists.lstMK4Gcodes.ListIndex = 1;
    Workbench->Lists.lstMK4Mcodes.ListIndex = 2;
    Click(Workbench->View.chkViewGcode, 1);
    EXPECT_EQ(Workbench->Lists.lstMK4Gcodes.ListIndex, -1);
    EXPECT_EQ(Workbench->Lists.lstMK4Mcodes.ListIndex, -1);
    EXPECT_EQ(Comment(3), "@  Rapid Traverse");
    std::string focused = "none";
    Workbench->Calls.FirstFieldFocus = [&](std::string_view initial) { focused = initial; };
    Click(Workbench->View.chkViewGcode, 0);
    EXPECT_EQ(Comment(0), "typed");
    EXPECT_EQ(Comment(1), "");
    EXPECT_EQ(Comment(2), "@ mine");
    EXPECT_EQ(Comment(3), "");
    // The run that follows counts the cycle again.
    EXPECT_EQ(Comment(4), "@  (3x)Drilling Cycle with Chip Breakage");
    EXPECT_EQ(focused, "");

    Check("MK4", {});
    Click(Workbench->View.chkViewGcode, 1);
    EXPECT_FALSE(Workbench->Store.ProgramChanged);
}

}  // namespace kvt::test
