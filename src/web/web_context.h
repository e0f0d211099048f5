#pragma once

namespace kvt {

class WebFocus;
class WebKeyboard;
class WebPage;
class WebSystem;

// What every view works with.
struct WebContext {
    WebPage& Page;
    WebSystem& System;
    WebFocus& Focus;
    WebKeyboard& Keys;
};

}  // namespace kvt
