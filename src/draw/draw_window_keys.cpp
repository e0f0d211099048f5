#include "draw/draw_window.h"
#include "platform/keys.h"

namespace kvt {

namespace {

// How far a press of an arrow key moves the view, in twips.
constexpr double arrowStep = 900;

enum class Zooming { None, In, Out, Draw };

struct DrawKey {
    int Key;
    Zooming Does;
};

constexpr DrawKey drawKeys[] = {
    {107, Zooming::In},  {'I', Zooming::In},  {187, Zooming::In},   {109, Zooming::Out},
    {'O', Zooming::Out}, {189, Zooming::Out}, {'R', Zooming::Draw}, {120, Zooming::Draw},
};

}  // namespace

// A measurement stands above a walk that was drawn before it.
void DrawWindow::EndMode() {
    if (State.MeasureClicks != 0) return Measure.End();
    if (State.Walking()) Sim.DrawRest();
}

void DrawWindow::Form_KeyDown(int pressed) {
    if (pressed == key::F5) return mnuEditor_Click();
    if (pressed == key::Escape) return EndMode();
    if (State.MeasureFieldFocus) return;
    for (const DrawKey& one : drawKeys) {
        if (one.Key != pressed) continue;
        if (one.Does == Zooming::In) View.Zoom(1);
        if (one.Does == Zooming::Out) View.Zoom(-1);
        if (one.Does == Zooming::Draw) Redraw();
    }
}

// The listing has no menus, and lies over a drawing that may fill the screen.
void DrawWindow::Listing_KeyDown(KeyStroke pressed) {
    const bool leaves = pressed == KeyStroke{key::F5, 0} || pressed == KeyNamed(Controls.mnuEditor.Shortcut);
    if (leaves) return mnuEditor_Click();
    if (pressed == KeyStroke{key::Escape, 0}) EndMode();
}

// The arrows move the view over the drawing, the page keys by what is in sight.
void DrawWindow::pbxDrawField_KeyDown(int pressed) {
    const double page = Controls.pbxViewWindow.Height * 0.9;
    switch (pressed) {
        case key::Left: return View.ScrollBy(-arrowStep, 0);
        case key::Right: return View.ScrollBy(arrowStep, 0);
        case key::Up: return View.ScrollBy(0, -arrowStep);
        case key::Down: return View.ScrollBy(0, arrowStep);
        case key::PageUp: return View.ScrollBy(0, -page);
        case key::PageDown: return View.ScrollBy(0, page);
        case key::Home: return cmdAutoFit_Click();
        default: return;
    }
}

}  // namespace kvt
