#include "headless/memory_window.h"

#include <utility>

namespace kvt {

MemoryWindow::MemoryWindow(Form& form, ScreenService& screen, MemoryFocus& focus)
    : form_(form), screen_(screen), focus_(focus), state_(form.State), normal_(PlaceNow()) {
    form_.View = this;
}

MemoryWindow::~MemoryWindow() { form_.View = nullptr; }

void MemoryWindow::Resize(int width, int height) {
    Put({form_.Left, form_.Top, width, height});
    TellResize();
}

void MemoryWindow::PropertyChanged(Control&, PropertyId id) {
    if (placing_) return;
    if (id == PropertyId::WindowState) StateChanged();
    if (id == PropertyId::Visible && !form_.Visible) return focus_.Gone(form_);
    if ((id == PropertyId::Visible || id == PropertyId::Front) && !form_.TopMost) focus_.BringToFront(form_);
}

void MemoryWindow::StateChanged() {
    const WindowState before = std::exchange(state_, form_.State.Get());
    if (before == WindowState::Normal) normal_ = PlaceNow();
    if (state_ == WindowState::Maximised) Put({0, 0, screen_.Width(), screen_.WorkAreaHeight()});
    if (state_ == WindowState::Normal) Put(normal_);
    TellResize();
}

void MemoryWindow::Put(const Place& place) {
    placing_ = true;
    form_.Left = place.Left;
    form_.Top = place.Top;
    form_.TakeSize(place.Width, place.Height);
    placing_ = false;
}

void MemoryWindow::TellResize() const {
    if (form_.OnResize) form_.OnResize();
}

}  // namespace kvt
