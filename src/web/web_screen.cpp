#include "web/web_screen.h"

#include <algorithm>

namespace kvt {

WindowPlace WebScreen::OnScreen(const WindowPlace& place) {
    const int width = std::min(place.Width, width_);
    const int height = std::min(place.Height, height_);
    return {height, std::clamp(place.Left, 0, width_ - width), std::clamp(place.Top, 0, height_ - height),
            width};
}

void WebScreen::Follow(const PageEvent& event) {
    if (event.Number("width") > 0) width_ = event.Number("width");
    if (event.Number("height") > 0) height_ = event.Number("height");
    if (event.Real("pointsPerTwip") > 0) pointsPerTwip_ = event.Real("pointsPerTwip");
    if (event.Has("edgeWidth")) edges_.Width = std::max(0, event.Number("edgeWidth"));
    if (event.Has("edgeHeight")) edges_.Height = std::max(0, event.Number("edgeHeight"));
}

}  // namespace kvt
