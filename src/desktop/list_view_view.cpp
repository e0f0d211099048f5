#include "desktop/list_view_view.h"

#include <QAccessible>
#include <utility>

#include "desktop/accessible.h"
#include "desktop/text.h"

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
        case PropertyId::Headers:
            area_->FollowRows();
            TellRows();
            break;
        case PropertyId::MarkedRow: area_->viewport()->update(); break;
        case PropertyId::SelectedRow:
            area_->viewport()->update();
            TellRow();
            break;
        default: View::Follow(id);
    }
}

void ListViewView::TellRow() {
    if (!QAccessible::isActive() || !area_->hasFocus() || list_.SelectedRow() == 0) return;
    QAccessibleEvent event(area_, QAccessible::Focus);
    // The headers are the first children, the cells of row 1 the next.
    event.setChild(list_.SelectedRow() * area_->ColumnsInUse());
    QAccessible::updateAccessibility(&event);
}

void ListViewView::TellRows() {
    if (!QAccessible::isActive()) return;
    const int columns = area_->ColumnsInUse();
    if (std::exchange(toldRows_, list_.Count()) != list_.Count() ||
        std::exchange(toldColumns_, columns) != columns) {
        QAccessibleTableModelChangeEvent event(area_, QAccessibleTableModelChangeEvent::ModelReset);
        QAccessible::updateAccessibility(&event);
    }
    TellFindingSoon();
}

// Rows and headers change one after the other: told is what stands there in the end.
void ListViewView::TellFindingSoon() {
    if (std::exchange(telling_, true)) return;
    QMetaObject::invokeMethod(
        this, [this] { TellFinding(); }, Qt::QueuedConnection);
}

void ListViewView::TellFinding() {
    telling_ = false;
    const int column = list_.EmphasisedColumn;
    QString finding;
    for (int row = 1; row <= list_.Count() && column > 0 && finding.isEmpty(); ++row)
        finding = ToQt(list_.Row(row)[column]).trimmed();
    if (!finding.isEmpty()) finding = ToQt(list_.Header(column + 1).Text) + QStringLiteral(": ") + finding;
    if (std::exchange(toldFinding_, finding) != finding) Announce(*area_, finding);
}

}  // namespace kvt
