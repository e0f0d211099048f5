#include "shell/draw_wiring.h"

#include "shell/workbench.h"

namespace kvt {

namespace {

constexpr std::size_t drawButton = 7;

// By hand: the window comes forward.
void mnuDraw_Click(Workbench& bench) {
    // A walk may take its time: the window comes forward before it.
    Form& window = bench.Draw.Controls.frmDraw;
    if (window.Visible && !bench.Draw.State.Opening()) {
        window.BringToFront();
        bench.Platform.Focus.SetFocus(bench.Draw.Controls.pbxDrawField);
    }
    bench.Draw.DrawForUser();
    bench.Draw.Controls.frmDraw.BringToFront();
}

void GoToCodeField(Workbench& bench) {
    if (bench.Entry.txtGMcode.ReallyVisible()) bench.Platform.Focus.SetFocus(bench.Entry.txtGMcode);
}

void ShowEditor(Workbench& bench) {
    bench.Draw.Editor.RestoreSelection();
    bench.Draw.Editor.RestoreScroll();
    bench.frmMain.Visible = true;
    // First, so that the field that had the keys last is not passed through on the way.
    GoToCodeField(bench);
    bench.frmMain.BringToFront();
}

}  // namespace

void WireDrawing(Workbench& bench) {
    CommandButton& button = *bench.Main.cmdTopButtons[drawButton];
    button.Visible = true;
    button.OnClick = [&bench] { mnuDraw_Click(bench); };
    bench.Main.mnuDraw.OnClick = [&bench] { mnuDraw_Click(bench); };
    DrawWindow& draw = bench.Draw;
    // From below the drawing is repainted where it is, not brought up: another program has come into the editor, and
    // that of a walk that stands has gone.
    bench.Calls.mnuDraw_Click = [&draw] {
        if (draw.State.Walking()) draw.State.StopRequested = true;
        if (draw.Controls.frmDraw.Visible) draw.State.FitNext = true;
        draw.ShowLater();
    };
    bench.Calls.RedrawAfterEdit = [&draw] {
        if (draw.Controls.mnuAutoRedraw.Checked) draw.ShowLater();
    };
    bench.Calls.UnloadDraw = [&draw] {
        if (draw.Controls.frmDraw.Visible) draw.Form_QueryUnload();
    };
    draw.ShowEditor = [&bench] { ShowEditor(bench); };
    draw.RestoreFocus = [&bench] { GoToCodeField(bench); };
    // Before a press on a row selects it: also on the row that the drawing has selected.
    bench.Store.lvCncProgram.OnGotFocus = [&draw] { draw.Editor.RestoreSelection(); };
}

void RefreshDrawCommands(Workbench& bench) {
    const bool hasLines = bench.Store.LineCount() > 0;
    bench.Main.mnuDraw.Enabled = hasLines;
    bench.Main.cmdTopButtons[drawButton]->Enabled = hasLines && !bench.Draw.State.Opening();
}

}  // namespace kvt
