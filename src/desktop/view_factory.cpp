#include "desktop/view_factory.h"

#include "desktop/button_views.h"
#include "desktop/list_box_view.h"
#include "desktop/list_view_view.h"
#include "desktop/picture_box_view.h"
#include "desktop/plain_views.h"
#include "desktop/range_views.h"
#include "desktop/text_views.h"

namespace kvt {

std::unique_ptr<ControlView> NewView(DesktopContext& desktop, Control& control, QWidget* parent) {
    switch (control.Kind()) {
        case ControlKind::Label:
            return std::make_unique<LabelView>(desktop, static_cast<Label&>(control), parent);
        case ControlKind::TextBox: {
            auto& box = static_cast<TextBox&>(control);
            if (box.MultiLine) return std::make_unique<NotesView>(desktop, box, parent);
            return std::make_unique<LineView>(desktop, box, parent);
        }
        case ControlKind::CheckBox:
            return std::make_unique<CheckBoxView>(desktop, static_cast<CheckBox&>(control), parent);
        case ControlKind::OptionButton:
            return std::make_unique<OptionButtonView>(desktop, static_cast<OptionButton&>(control), parent);
        case ControlKind::CommandButton:
            return std::make_unique<CommandButtonView>(desktop, static_cast<CommandButton&>(control), parent);
        case ControlKind::Frame:
            return std::make_unique<FrameView>(desktop, static_cast<Frame&>(control), parent);
        case ControlKind::ListBox:
            return std::make_unique<ListBoxView>(desktop, static_cast<ListBox&>(control), parent);
        case ControlKind::ListView:
            return std::make_unique<ListViewView>(desktop, static_cast<ListView&>(control), parent);
        case ControlKind::PictureBox:
            return std::make_unique<PictureBoxView>(desktop, static_cast<PictureBox&>(control), parent);
        case ControlKind::RichText:
            return std::make_unique<RichTextView>(desktop, static_cast<RichText&>(control), parent);
        case ControlKind::TabStrip:
            return std::make_unique<TabStripView>(desktop, static_cast<TabStrip&>(control), parent);
        case ControlKind::ComboBox:
            return std::make_unique<ComboBoxView>(desktop, static_cast<ComboBox&>(control), parent);
        case ControlKind::ScrollBar:
            return std::make_unique<ScrollBarView>(desktop, static_cast<ScrollBar&>(control), parent);
        case ControlKind::UpDown:
            return std::make_unique<UpDownView>(desktop, static_cast<UpDown&>(control), parent);
        case ControlKind::ProgressBar:
            return std::make_unique<ProgressBarView>(desktop, static_cast<ProgressBar&>(control), parent);
        case ControlKind::Timer: return std::make_unique<TimerView>(desktop, static_cast<Timer&>(control));
        case ControlKind::Form:
        case ControlKind::Menu:
        case ControlKind::FileDialog: return nullptr;
    }
    return nullptr;
}

}  // namespace kvt
