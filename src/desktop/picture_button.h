#pragma once

#include <QPushButton>
#include <string_view>

namespace kvt {

// A button with a picture of strokes (see CommandButton) above its caption. A caption that is too wide for the button is
// left out. The caller owns the button by way of its parent.
QPushButton* NewPictureButton(std::string_view strokes, double factor, QWidget* parent);

}  // namespace kvt
