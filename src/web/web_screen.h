#pragma once

#include <algorithm>

#include "platform/services.h"
#include "web/page_event.h"

namespace kvt {

// The page as a screen: windows lie inside it.
class WebScreen : public ScreenService {
public:
    int Width() override { return width_; }
    int Height() override { return height_; }
    int WorkAreaHeight() override { return height_; }
    WindowPlace OnScreen(const WindowPlace& place) override;
    WindowPlace WorkArea(const WindowPlace&) override { return {height_, 0, 0, width_}; }
    // A window that is larger scrolls.
    int WidthFor(int wanted) override { return std::min(wanted, width_); }
    int HeightFor(int wanted) override { return std::min(wanted, height_); }
    double PointsPerTwip() override { return pointsPerTwip_; }

    // Takes over how large the page is, how fine, and what title, edges and menus of a window take there.
    void Follow(const PageEvent& event);
    // Their widths and heights added up.
    const WindowPlace& Edges() const { return edges_; }

private:
    int width_ = 19200, height_ = 12000;
    double pointsPerTwip_ = 1.0 / 15;
    WindowPlace edges_ = {};
};

}  // namespace kvt
