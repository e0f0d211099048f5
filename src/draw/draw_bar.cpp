#include "draw/draw_bar.h"

#include <algorithm>

#include "basic/text.h"

namespace kvt {

namespace {

// Twips.
constexpr int belowField = 945;  // from the form's lower edge
constexpr int besideField = 180;
constexpr int barHeight = DrawControls::BarHeight;
constexpr int rowTop = 45;
constexpr int rowHeight = 315;
constexpr int buttonWidth = 840;
constexpr int choiceWidth = 1350;
constexpr int narrowWidth = 7000;
constexpr int gap = 45;
constexpr int hintTop = 375;
constexpr int hintHeight = 210;

bool BeginsWithLetter(std::string_view text) {
    return !text.empty() && UpperChar(text[0]) >= 'A' && UpperChar(text[0]) <= 'Z';
}

}  // namespace

DrawBar::DrawBar(DrawParts& parts, Simulation& sim)
    : frBar(parts.Controls.frmDraw, "frBar"),
      cmdBarRun(parts.Controls.frmDraw, "cmdBarRun", "Run"),
      cmdBarStep(parts.Controls.frmDraw, "cmdBarStep", "Step"),
      cmdBarStop(parts.Controls.frmDraw, "cmdBarStop", "Abort"),
      cboBarSim(parts.Controls.frmDraw, "cboBarSim"),
      txtBarLine(parts.Controls.frmDraw, "txtBarLine"),
      lblBarHint(parts.Controls.frmDraw, "lblBarHint"),
      parts_(parts),
      controls_(parts.Controls),
      state_(parts.State),
      sim_(sim) {
    for (Control* control : std::initializer_list<Control*>{&cmdBarRun, &cmdBarStep, &cmdBarStop, &cboBarSim,
                                                            &txtBarLine, &lblBarHint}) {
        control->Container = &frBar;
        control->Top = rowTop;
        control->Height = rowHeight;
    }
    // In front of the scroll bars.
    int tab = controls_.hsbViewWindow.TabIndex;
    for (Control* stop :
         std::initializer_list<Control*>{&cmdBarRun, &cmdBarStep, &cmdBarStop, &cboBarSim,
                                         &controls_.hsbViewWindow, &controls_.vsbViewWindow}) {
        stop->TabIndex = tab++;
    }
    lblBarHint.Top = hintTop;
    lblBarHint.Height = hintHeight;
    frBar.Height = barHeight;
    txtBarLine.FixedPitch = true;
    txtBarLine.ReadOnly = true;
    cboBarSim.ToolTip = "Simulation";
    txtBarLine.ToolTip = "Line under way";
    txtBarLine.OnGotFocus = [this] { parts_.Platform.Focus.SetFocus(controls_.pbxDrawField); };
    cmdBarRun.OnClick = [this] { sim_.cmdRun_Click(); };
    cmdBarStep.OnClick = [this] {
        if (state_.Wait == UserWait::Step) return sim_.cmdStep_Click();
        sim_.SwitchTo(simulation::Step);
    };
    cmdBarStop.OnClick = [this] { sim_.EndWalk(); };
    cboBarSim.OnClick = [this] { sim_.SwitchTo(cboBarSim.ListIndex); };
    parts.ShowLine = [this](int row) { ShowLine(row); };
    ShowCaptions();
}

void DrawBar::Place() {
    const int width = controls_.frmDraw.Width - besideField;
    frBar.Top = controls_.frmDraw.Height - belowField;
    frBar.Width = width;
    int left = gap;
    for (Control* button : {&cmdBarRun, &cmdBarStep, &cmdBarStop}) {
        button->Left = left;
        button->Width = buttonWidth;
        left += buttonWidth + gap;
    }
    // In a narrow window the line needs its room; the menu has the choice too.
    cboBarSim.Visible = controls_.frmDraw.Width > narrowWidth;
    cboBarSim.Left = left;
    cboBarSim.Width = choiceWidth;
    txtBarLine.Left = cboBarSim.Visible ? left + choiceWidth + gap : left;
    txtBarLine.Width = std::max(0, width - txtBarLine.Left - gap);
    lblBarHint.Left = 2 * gap;
    lblBarHint.Width = width - 3 * gap;
}

void DrawBar::ShowCaptions() {
    std::vector<std::string> captions;
    for (const auto& entry : controls_.mnuSim) captions.push_back(entry->Caption.Get());
    if (captions != cboBarSim.Entries()) cboBarSim.SetEntries(captions);
    ShowState();
}

void DrawBar::ShowState() {
    const bool walks = state_.Walking();
    // A measurement has the menus disabled, and these with them.
    const bool free = walks || controls_.mnuSettings.Enabled;
    cmdBarRun.Enabled = free && (!walks || controls_.cmdRun.Enabled);
    cmdBarStep.Enabled = free && !state_.WaitingForClick();
    cmdBarStop.Enabled = walks;
    cboBarSim.Enabled = free;
    cboBarSim.ListIndex = sim_.CheckedSim();
    lblBarHint.Caption = HintText();
    // A narrow window cuts it.
    lblBarHint.ToolTip = lblBarHint.Caption;
}

std::string DrawBar::HintText() const {
    const auto sim = static_cast<std::size_t>(sim_.CheckedSim());
    return Filled(parts_.Language.DrawErrorTexts(Hint()), {controls_.mnuSim[sim]->Caption.Get()});
}

DrawErrorText DrawBar::AtRest() const {
    if (sim_.CheckedSim() != simulation::Run) return text::SimulationStays;
    return state_.ThinToolHidden ? text::ThinTool : text::MouseDoes;
}

DrawErrorText DrawBar::Hint() const {
    if (state_.MeasureClicks == 1) return text::MeasureEnd;
    if (state_.MeasureClicks == 2) return text::MeasureDone;
    if (!state_.Walking()) return AtRest();
    if (state_.Wait == UserWait::Step) return text::WaitsForStep;
    if (state_.WaitingForClick()) return text::WaitsForClick;
    return state_.Interval > 1 ? text::DrawsSlowly : text::Draws;
}

// With the letters of the columns, but for what brings one of its own; without the blanks of the columns.
void DrawBar::ShowLine(int row) {
    std::string line;
    const ListView& list = parts_.Store.lvCncProgram;
    if (row >= 1 && row <= list.Count()) {
        for (int c = column::Number; c <= column::H; ++c) {
            const std::string cell = Replace(list.Row(row)[c], " ", "");
            if (cell.empty()) continue;
            if (!line.empty()) line += ' ';
            if (!BeginsWithLetter(cell)) line += list.Header(c + 1).Text;
            line += cell;
        }
        const std::string_view comment = Trim(list.Row(row)[column::Comment]);
        if (!comment.empty()) line += "  " + std::string(comment);
    }
    txtBarLine.Text = line;
}

}  // namespace kvt
