#include <filesystem>

#include "basic/number.h"
#include "draw_fixture.h"
#include "platform/picture_painter.h"

namespace kvt::test {
namespace {

TEST_F(DrawTest, TheMillMeasuresYUpwardsOnceAPointIsFixed) {
    DrawLines("F1", "91; M30");
    State().ZeroX = State().ZeroY = 1000;
    const auto texts = [&] {
        std::string all;
        for (const TextBox* field :
             {&Controls().txtX1, &Controls().txtZ1, &Controls().txtX2, &Controls().txtZ2,
              &Controls().txtDeltaX, &Controls().txtDeltaZ, &Controls().txtDeltaXZ})
            all += field->Text.Get() + "|";
        return all;
    };
    Draw().Measure.pbxDrawField_MouseMove(1100, 900);
    EXPECT_EQ(texts(), "100|-100||||||");
    Field().OnMouseDown(mouse::Left, 0, 1100, 900);
    EXPECT_EQ(Field().MousePointer, mouse::CrossPointer);
    Draw().Measure.pbxDrawField_MouseMove(1130, 860);
    EXPECT_EQ(texts(), "100|100|130|140|30|-40|50|");
    Field().OnMouseDown(mouse::Left, 0, 1130, 860);
    EXPECT_EQ(Field().MousePointer, mouse::DefaultPointer);
    // The zooming keys work again when a field has been left and the program was drawn.
    Controls().txtX1.OnGotFocus();
    EXPECT_EQ(Controls().txtDeltaZ.Text, "40");
    Draw().Form_KeyDown('R');
    EXPECT_EQ(Field().Operations().back().Mode, draw_mode::Invert);
    Controls().txtX1.OnLostFocus();
    Draw().Form_KeyDown('I');
    EXPECT_EQ(State().DrawScale, 1);
    Draw().Form_KeyDown('R');
    Draw().Form_KeyDown('I');
    EXPECT_EQ(State().DrawScale, 2);
    Draw().Unload();
    EXPECT_EQ(State().MeasureClicks, 0);
    // A finding in the program takes measuring away until the window comes to the front again.
    Controls().frmDraw.Visible = true;
    Workbench->Store.ErrorFlagged = true;
    Field().OnMouseDown(mouse::Left, 0, 1, 1);
    EXPECT_EQ(State().MeasureClicks, 0);
}

TEST_F(DrawTest, TheImageIsWhatTheViewShows) {
    Controls().frmDraw.ApplySize(6160, 4220);  // a view of 5700 by 3000
    DrawLines("MK4", "91; 01 X0 Z-10 F50; M30");
    Draw().PositionControls();
    Field().Left = -300;
    Field().Top = -150;
    Workbench->File.lblPath.Caption = Folder + "/pin.cnc";
    Controls().mnuSaveBMP.Click();
    const std::string bmp = Platform.Files.ReadWhole(Folder + "/pin.BMP");
    constexpr std::size_t width = 380;
    constexpr std::size_t height = 200;
    ASSERT_EQ(bmp.size(), 54 + width * height * 3);
    EXPECT_EQ(bmp.substr(0, 2), "BM");
    const auto at = [&](double x, double y) {
        const auto row = height - 1 - static_cast<std::size_t>((y - 150) / 15);
        return bmp.substr(54 + (row * width + static_cast<std::size_t>((x - 300) / 15)) * 3, 3);
    };
    EXPECT_EQ(at(2400, 1005), std::string("\0\0\xFF", 3)) << "the red zero line";
    EXPECT_EQ(at(2400, 600), std::string(3, '\0'));
    // A folder keeps the point in its name.
    std::filesystem::create_directory(Folder + "/v1.2");
    Workbench->File.lblPath.Caption = Folder + "/v1.2/pin";
    Controls().mnuSaveBMP.Click();
    EXPECT_TRUE(Platform.Files.Exists(Folder + "/v1.2/pin.BMP"));
    Controls().mnuSaveClipboard.Click();
    EXPECT_EQ(Platform.Clipboard.Picture.Points.size(), width * height);
    // A mark is black on white, wherever it stands; twice it is gone.
    Controls().mnuBackground.Checked = true;
    Draw().Redraw();
    const auto shown = [&] { return PaintPicture(Field(), {1500, 1500, 300, 300}, 1.0 / 15).Points; };
    const auto before = shown();
    Draw().Measure.DrawMark(1650, 1650);
    EXPECT_EQ(shown()[10 * 20 + 12], 0u);
    EXPECT_EQ(shown()[10 * 20 + 18], 0xFFFFFFu);
    Draw().Measure.DrawMark(1650, 1650);
    EXPECT_EQ(shown(), before);
}

TEST_F(DrawTest, AWatchedLineIsSelectedInTheEditorToo) {
    const char* const program = "91; 01 X0 Z-10 F50; 01 X0 Z-10 F50; M30";
    Platform.Focus.SetFocus(Field());
    ListView& list = Workbench->Store.lvCncProgram;
    Put("MK4", program);
    Platform.Focus.SetFocus(Field());
    Draw().Sim.SelectSim(simulation::Step);
    std::string rows;
    bool chooses = false;
    Platform.System.NextEvent = [&] {
        rows += PlainNumber(list.SelectedRow());
        EXPECT_EQ(Field().Cross.Get(), (FieldPlace{true, Field().CurrentX, Field().CurrentY}));
        if (chooses && list.SelectedRow() == 2) list.Select(1);
        Controls().cmdStep.Click();
        return true;
    };
    list.Select(5);
    Draw().Redraw();
    EXPECT_EQ(rows, "1234");
    EXPECT_EQ(list.SelectedRow(), 5);
    EXPECT_FALSE(Field().Cross.Get().Shown);
    chooses = true;
    rows.clear();
    Draw().Redraw();
    EXPECT_EQ(rows, "1211") << "a row that the user has chosen stays";
    EXPECT_EQ(list.SelectedRow(), 1);
    // Where the editor has the keys, or is not to be seen, its selection is left alone.
    Workbench->frmMain.Visible = false;
    rows.clear();
    Draw().Redraw();
    EXPECT_EQ(rows, "1111");
}

}  // namespace
}  // namespace kvt::test
