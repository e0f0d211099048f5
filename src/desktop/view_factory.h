#pragma once

#include <memory>

#include "desktop/view.h"

namespace kvt {

// The view that belongs to a control's kind, not yet in line with its properties. Null for a kind that shows
// nothing; forms and menus are made by the form's own view.
std::unique_ptr<ControlView> NewView(DesktopContext& desktop, Control& control, QWidget* parent);

}  // namespace kvt
