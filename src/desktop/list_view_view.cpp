#include "desktop/list_view_view.h"

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
        case PropertyId::MarkedRow:
        case PropertyId::SelectedRow: area_->viewport()->update(); break;
        default: View::Follow(id);
    }
}

}  // namespace kvt
