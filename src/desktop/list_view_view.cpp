#include "desktop/list_view_view.h"

#include <algorithm>

#include "platform/keys.h"

namespace kvt {

ListViewView::ListViewView(DesktopContext& desktop, ListView& control, QWidget* parent)
    : View(desktop, control, new ListArea(control, desktop.Lengths, parent)),
      list_(control),
      area_(static_cast<ListArea*>(Widget())) {
    Watch(area_->viewport());
    area_->OnHeaderClick = [this](int header) {
        if (!list_.OnColumnClick) return;
        Desktop.System.Run(list_, "ColumnClick", [&] { list_.OnColumnClick(header); });
    };
    area_->OnRowClick = [this] { Desktop.System.Run(list_, "Click", [this] { list_.Click(); }); };
    area_->OnRowRightClick = [this] {
        if (list_.OnRightClick) Desktop.System.Run(list_, "MouseUp", [this] { list_.OnRightClick(); });
    };
}

void ListViewView::Follow(PropertyId id) {
    switch (id) {
        case PropertyId::Rows:
        case PropertyId::TopRow:
        case PropertyId::Headers: area_->FollowRows(); break;
        case PropertyId::SelectedRow: area_->viewport()->update(); break;
        default: View::Follow(id);
    }
}

bool ListViewView::Act(const KeyInput& input) {
    if (list_.Count() == 0) return false;
    int row = list_.SelectedRow();
    switch (input.Key) {
        case key::Up: --row; break;
        case key::Down: ++row; break;
        case key::PageUp: row -= list_.VisibleRows(); break;
        case key::PageDown: row += list_.VisibleRows(); break;
        case key::Home: row = 1; break;
        case key::End: row = list_.Count(); break;
        default: return false;
    }
    row = std::clamp(row, 1, list_.Count());
    list_.Select(row);
    list_.EnsureVisible(row);
    return true;
}

}  // namespace kvt
