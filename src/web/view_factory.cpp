#include "web/view_factory.h"

#include "web/list_views.h"
#include "web/picture_box_view.h"
#include "web/plain_views.h"
#include "web/rows_view.h"
#include "web/text_views.h"
#include "web/web_timer.h"

namespace kvt {

namespace {

template <class View, class Subject>
std::unique_ptr<ControlView> Made(WebContext& web, Control& control) {
    return std::make_unique<View>(web, static_cast<Subject&>(control));
}

}  // namespace

std::unique_ptr<ControlView> NewView(WebContext& web, Control& control) {
    switch (control.Kind()) {
        case ControlKind::Label: return Made<WebLabelView, Label>(web, control);
        case ControlKind::TextBox: return Made<WebTextBoxView, TextBox>(web, control);
        case ControlKind::CheckBox: return Made<WebCheckBoxView, CheckBox>(web, control);
        case ControlKind::OptionButton: return Made<WebOptionButtonView, OptionButton>(web, control);
        case ControlKind::CommandButton: return Made<WebCommandButtonView, CommandButton>(web, control);
        case ControlKind::Frame: return Made<WebFrameView, Frame>(web, control);
        case ControlKind::ComboBox:
        case ControlKind::ListBox: return Made<WebListBoxView, ListBox>(web, control);
        case ControlKind::ListView: return Made<WebRowsView, ListView>(web, control);
        case ControlKind::PictureBox: return Made<WebPictureBoxView, PictureBox>(web, control);
        case ControlKind::RichText: return Made<WebRichTextView, RichText>(web, control);
        case ControlKind::TabStrip: return Made<WebTabStripView, TabStrip>(web, control);
        case ControlKind::Menu: return Made<WebMenuView, Menu>(web, control);
        case ControlKind::ScrollBar:
        case ControlKind::UpDown:
        case ControlKind::ProgressBar: return Made<WebRangeView, RangeControl>(web, control);
        case ControlKind::Timer: return std::make_unique<WebTimer>(web.System, static_cast<Timer&>(control));
        case ControlKind::Form:
        case ControlKind::FileDialog: return nullptr;
    }
    return nullptr;
}

}  // namespace kvt
