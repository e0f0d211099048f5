#pragma once

#include <QPushButton>
#include <string_view>

namespace kvt {

// A button with a picture of strokes (see CommandButton) above its caption. Where a caption is too
// wide for its button, all that lie side by side do without. The caller owns the button by way of its parent.
QPushButton* NewPictureButton(std::string_view strokes, double factor, QWidget* parent);

}  // namespace kvt
