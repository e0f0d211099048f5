#include "draw/program_window.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr int widthPixels = 786;
constexpr int heightPixels = 200;
constexpr int twipsPerPixel = 15;
// With these the margin around the list is as wide at the right and below as at the left.
constexpr int edgeWidth = 80;
constexpr int edgeHeight = 220;
constexpr int cellWidth = 7;
constexpr int lastListedColumn = 11;
constexpr int hidden = -1;
constexpr int stays = 0;

// Where the heads of a machine's columns stand, in twips.
struct HeadPlaces {
    Label ProgramWindow::*Head;
    int MK2, MK4, F1;
};

constexpr HeadPlaces headPlaces[] = {
    {&ProgramWindow::lblY, hidden, hidden, 2800}, {&ProgramWindow::lblZ, 2800, 2800, 3540},
    {&ProgramWindow::lblF, 3540, 3540, 4240},     {&ProgramWindow::lblH, hidden, 4240, hidden},
    {&ProgramWindow::lblToolX, 3800, 4540, 4540}, {&ProgramWindow::lblToolY, hidden, hidden, 5260},
    {&ProgramWindow::lblToolZ, 4540, 5260, 6000}, {&ProgramWindow::lblComment, 5420, 6140, 6880},
};

// The columns that a machine's rows leave out.
bool IsLeftOut(const ProgramStore& store, int c) {
    if (c == column::Error) return true;
    if (store.IsF1()) return c == column::H;
    return c == column::Y || c == column::ToolY || (c == column::H && store.IsMK2());
}

// A tool column's head in nine characters that end in the axis.
std::string ToolHead(std::string_view text, char axis) {
    std::string head(Left(text, 9));
    if (head.empty() || UpperChar(head.back()) != axis) head += axis;
    return head;
}

}  // namespace

ProgramWindow::ProgramWindow(DrawParts& parts)
    : frmProgramWindow("frmProgramWindow"),
      lblN(frmProgramWindow, "lblN", "N"),
      lblG(frmProgramWindow, "lblG", "G"),
      lblX(frmProgramWindow, "lblX", "X"),
      lblY(frmProgramWindow, "lblY", "Y"),
      lblZ(frmProgramWindow, "lblZ", "Z"),
      lblF(frmProgramWindow, "lblF", "F"),
      lblH(frmProgramWindow, "lblH", "H"),
      lblToolX(frmProgramWindow, "lblToolX", "Tool X"),
      lblToolY(frmProgramWindow, "lblToolY", "Tool Y"),
      lblToolZ(frmProgramWindow, "lblToolZ", "Tool Z"),
      lblComment(frmProgramWindow, "lblComment", "Comment"),
      lstCncLines(frmProgramWindow, "lstCncLines"),
      parts_(parts) {
    frmProgramWindow.Visible = false;
    frmProgramWindow.Caption = "Program Lines";
    frmProgramWindow.TopMost = true;
    frmProgramWindow.EdgeWidth = edgeWidth;
    frmProgramWindow.EdgeHeight = edgeHeight;
    frmProgramWindow.OnResize = [this] { Form_Resize(); };
    frmProgramWindow.OnQueryUnload = [this] { Unload(); };
    int left = 580;
    for (Label* head :
         {&lblN, &lblG, &lblX, &lblY, &lblZ, &lblF, &lblH, &lblToolX, &lblToolY, &lblToolZ, &lblComment}) {
        head->Left = left;
        head->Top = 60;
        head->Width = 720;
        head->Height = 240;
        left += 740;
    }
    lblComment.Width = 3000;
    lstCncLines.FixedPitch = true;
    lstCncLines.TabIndex = 0;
    lstCncLines.Left = 60;
    lstCncLines.Top = 320;
    frmProgramWindow.Width = widthPixels * twipsPerPixel;
    frmProgramWindow.Height = heightPixels * twipsPerPixel;
}

void ProgramWindow::Form_Load() {
    frmProgramWindow.Width = widthPixels * twipsPerPixel;
    frmProgramWindow.Height = heightPixels * twipsPerPixel;
    const ListView& list = parts_.Store.lvCncProgram;
    int header = 2;
    for (Label* head : {&lblN, &lblG, &lblX, &lblY, &lblZ, &lblF, &lblH})
        head->Caption = list.Header(header++).Text;
    lblToolX.Caption = ToolHead(list.Header(10).Text, 'X');
    lblToolY.Caption = ToolHead(list.Header(11).Text, 'Y');
    lblToolZ.Caption = ToolHead(list.Header(12).Text, 'Z');
    loaded_ = true;
}

void ProgramWindow::Form_Resize() {
    lstCncLines.Width = std::max(0, frmProgramWindow.Width - 200);
    lstCncLines.Height = std::max(0, frmProgramWindow.Height - 600);
}

void ProgramWindow::ArrangeHeads() {
    const ProgramStore& store = parts_.Store;
    for (const HeadPlaces& places : headPlaces) {
        Label& head = this->*places.Head;
        const int place = store.IsF1() ? places.F1 : store.IsMK2() ? places.MK2 : places.MK4;
        head.Visible = place != hidden;
        if (place > stays) head.Left = place;
    }
}

// Comments are left out, so that the listing stays narrow.
void ProgramWindow::FillRows() {
    const ProgramStore& store = parts_.Store;
    std::vector<std::string> rows;
    const int count = store.LineCount();
    for (int row = 1; row <= count; ++row) {
        std::string text;
        for (int c = column::Number; c <= lastListedColumn; ++c) {
            if (!IsLeftOut(store, c)) text += RightPad(Trim(store.lvCncProgram.Row(row)[c]), cellWidth);
        }
        rows.push_back(text + "  ");
    }
    lstCncLines.SetEntries(std::move(rows));
}

void ProgramWindow::Begin() {
    if (!parts_.Controls.mnuProgramWindow.Checked) return Hide();
    if (!loaded_) Form_Load();
    ArrangeHeads();
    FillRows();
    Form_Resize();
    if (frmProgramWindow.State.Get() == WindowState::Minimised) frmProgramWindow.State = WindowState::Normal;
    frmProgramWindow.Visible = true;
    frmProgramWindow.BringToFront();
}

bool ProgramWindow::Follow(int lineIndex, int itemCount) {
    const auto select = [this](int index) {
        if (index < 0) throw RunTimeError(fault::SubscriptOutOfRange);
        // The open line has no row here, nor have lines added since.
        if (index < lstCncLines.Count()) lstCncLines.ListIndex = index;
    };
    if (lineIndex <= itemCount) select(lineIndex - 1);
    const Cell& finding = parts_.Store.lvCncProgram.Row(lineIndex)[column::Error];
    if (Left(finding, 1) != "!") return false;
    lstCncLines.AddEntry('"' + std::string(finding.View()) + "\" in line " +
                         NumberText(static_cast<float>(lineIndex - 1)));
    select(parts_.Store.LineCount());
    return true;
}

}  // namespace kvt
