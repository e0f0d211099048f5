#pragma once

#include <memory>

#include "web/web_view.h"

namespace kvt {

// Makes the view of a control by its kind; null for those that are not shown.
std::unique_ptr<ControlView> NewView(WebContext& web, Control& control);

}  // namespace kvt
