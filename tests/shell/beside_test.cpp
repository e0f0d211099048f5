#include "support/workbench_fixture.h"
#include "system/offscreen_window.h"

namespace kvt::test {
namespace {

// The editor of an MK4 wants 15,295 twips for its columns, or what a screen has; the drawing the rest, 5,700 at least.
TEST_F(WorkbenchFixture, SideBySideOnAnyScreenNothingIsOutside) {
    struct Case {
        int Screen, Editor, DrawingLeft;
    };
    constexpr Case cases[] = {
        {28'800, 15'295, 15'295}, {20'490, 14'790, 14'790}, {15'360, 11'800, 9'660}, {9'000, 9'000, 3'300}};
    for (const Case& one : cases) {
        Platform.Screen.WidthTwips = one.Screen;
        kvt::Workbench workbench(Platform.Services);
        std::vector<std::unique_ptr<OffscreenWindow>> windows;
        for (Form* form : workbench.Forms())
            windows.push_back(std::make_unique<OffscreenWindow>(*form, Platform.Screen, Platform.Focus));
        const Form& drawing = workbench.Draw.Controls.frmDraw;
        workbench.Draw.Show();
        drawing.FindControl("mnuBeside")->Click();
        EXPECT_EQ(workbench.frmMain.Left, 0);
        EXPECT_EQ(workbench.frmMain.Width, one.Editor) << one.Screen;
        EXPECT_EQ(drawing.Left, one.DrawingLeft) << one.Screen;
        EXPECT_EQ(drawing.Left + drawing.Width, one.Screen);
        EXPECT_EQ(drawing.Height, Platform.Screen.WorkAreaTwips);
    }
}

}  // namespace
}  // namespace kvt::test
