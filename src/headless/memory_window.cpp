#include "headless/memory_window.h"

#include <utility>

namespace kvt {

MemoryWindow::MemoryWindow(Form& form, ScreenService& screen)
    : form_(form), screen_(screen), state_(form.State), normal_(PlaceNow()) {
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
