#include "system/offscreen_window.h"

namespace kvt {

OffscreenWindow::OffscreenWindow(Form& form, ScreenService& screen, WindowFocus& focus)
    : form_(form), screen_(screen), focus_(focus) {
    form_.View = this;
}

OffscreenWindow::~OffscreenWindow() { form_.View = nullptr; }

void OffscreenWindow::Resize(int width, int height) {
    Put({height, form_.Left, form_.Top, width});
    TellResize();
}

void OffscreenWindow::PropertyChanged(Control&, PropertyId id) {
    if (placing_) return;
    if (id == PropertyId::Visible && !form_.Visible) return focus_.WindowHidden(form_);
    const bool comesToFront = id == PropertyId::Front || (id == PropertyId::Visible && !form_.ComesBehind());
    if (comesToFront && !form_.TopMost) focus_.BringToFront(form_);
    if (id == PropertyId::Area) return form_.SetRestoredPlace(WindowPlace(*form_.AreaToFill()));
    if (id != PropertyId::WindowState) return;
    if (form_.State == WindowState::Maximised) Put({screen_.WorkAreaHeight(), 0, 0, screen_.Width()});
    TellResize();
}

void OffscreenWindow::Put(const WindowPlace& place) {
    placing_ = true;
    form_.Left = place.Left;
    form_.Top = place.Top;
    form_.ApplySize(place.Width, place.Height);
    placing_ = false;
}

void OffscreenWindow::TellResize() const {
    if (form_.OnResize) form_.OnResize();
}

}  // namespace kvt
