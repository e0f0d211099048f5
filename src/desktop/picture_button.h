#pragma once

#include <QPainterPath>
#include <QPushButton>
#include <string_view>

namespace kvt {

// A button with a picture of strokes above its text, or alone where it has no text.
class PictureButton : public QPushButton {
public:
    PictureButton(std::string_view strokes, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QPainterPath picture_;
};

}  // namespace kvt
