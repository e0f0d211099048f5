#include "shell/beside.h"

#include <algorithm>
#include <utility>

#include "shell/control_table.h"

namespace kvt {

namespace {

// What the drawing gets at least, even where it lies over the editor then. Twips.
constexpr int leastDrawing = 5700;

Beside::OwnPlace PlaceNow(const Form& window) { return {window.RestoredPlace(), window.FillsScreen()}; }

}  // namespace

Beside::Beside(const Parts& parts)
    : mnuBeside(parts.Drawing.frmDraw, "mnuBeside", "Beside the program"), parts_(parts) {
    mnuBeside.Container = &parts.Drawing.mnuView;
    mnuBeside.Shortcut = "Ctrl+B";
    mnuBeside.OnClick = [this] { mnuBeside_Click(); };
}

Beside::OwnPlace Beside::Own(const Form& window) const {
    const std::optional<OwnPlace>& own = &window == &parts_.Editor ? editor_ : drawing_;
    return own ? *own : PlaceNow(window);
}

void Beside::mnuBeside_Click() {
    mnuBeside.Checked = !mnuBeside.Checked;
    if (mnuBeside.Checked) return Arrange();
    Restore(parts_.Editor, editor_);
    Restore(parts_.Drawing.frmDraw, drawing_);
}

void Beside::Arrange() {
    if (!mnuBeside.Checked) return;
    Form& editor = parts_.Editor;
    Form& drawing = parts_.Drawing.frmDraw;
    if (!editor_) editor_ = PlaceNow(editor);
    if (!drawing_) drawing_ = PlaceNow(drawing);
    const WindowPlace area = parts_.Screen.WorkArea({editor.Height, editor.Left, editor.Top, editor.Width});
    // On a narrow screen the editor is made as small as it can be, and the drawing lies over its right side.
    const int least = std::min(SmallestWidth, area.Width);
    const int wanted = std::min(parts_.View.FittingWidth(), area.Width - leastDrawing);
    const int left = std::max(wanted, least);
    const int right = std::min(std::max(area.Width - left, leastDrawing), area.Width);
    editor.FillArea({area.Height, area.Left, area.Top, left});
    drawing.FillArea({area.Height, area.Left + area.Width - right, area.Top, right});
}

void Beside::FollowColumns() {
    if (parts_.Drawing.frmDraw.Visible) Arrange();
}

void Beside::DrawingPlaced() {
    drawing_.reset();
    Arrange();
}

void Beside::EditorPlaced() {
    editor_.reset();
    mnuBeside.Checked = false;
}

void Beside::Restore(Form& window, std::optional<OwnPlace>& own) {
    const std::optional<OwnPlace> before = std::exchange(own, {});
    if (!before) return;
    window.SetRestoredPlace(before->Place);
    if (before->FillsScreen) window.State = WindowState::Maximised;
}

}  // namespace kvt
