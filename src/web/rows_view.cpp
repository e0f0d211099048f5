#include "web/rows_view.h"

#include <algorithm>
#include <utility>

#include "basic/text.h"
#include "platform/picture_box.h"
#include "web/web_page.h"
#include "web/web_system.h"

namespace kvt {

namespace {

// So many rows above and below those in sight, so that the next ones are there when they are scrolled to.
constexpr int rowsBeyond = 12;

}  // namespace

void WebRowsView::Describe(Message& message) const {
    message.Add("headerHeight", ListView::HeaderHeight).Add("rowHeight", ListView::RowHeight);
}

WebRowsView::Range WebRowsView::Around() const {
    return {std::max(1, list_.TopRow() - rowsBeyond),
            std::min(list_.Count(), list_.TopRow() + list_.VisibleRows() + rowsBeyond)};
}

void WebRowsView::WriteHeaders(Message& message) const {
    message.Name("headers").BeginArray();
    for (int header = 1; header <= ListRow::Capacity; ++header) {
        message.BeginArray().PutCode(list_.Header(header).Text).Put(list_.Header(header).Width).EndArray();
    }
    message.EndArray();
    message.Add("emphasised", list_.EmphasisedColumn).Name("colored").BeginArray();
    message.Put(list_.FirstColoredColumn).Put(list_.LastColoredColumn).EndArray();
}

// A column that is hidden has empty cells.
void WebRowsView::WriteRows(Message& message, const Range& rows) const {
    message.Add("first", rows.First).Name("rows").BeginArray();
    for (int row = rows.First; row <= rows.Last; ++row) {
        message.BeginArray();
        for (int column = 0; column < ListRow::Capacity; ++column) {
            const bool shown = list_.Header(column + 1).Width > 0;
            message.PutCode(shown ? std::string_view(list_.Row(row)[column]) : std::string_view());
        }
        message.EndArray();
    }
    message.EndArray().Name("colors").BeginArray();
    for (int row = rows.First; row <= rows.Last; ++row) message.Put(list_.Row(row).ForeColor);
    message.EndArray();
}

void WebRowsView::TellMore(const Properties& changed) {
    const bool rows = Holds(changed, PropertyId::Rows);
    const bool headers = Holds(changed, PropertyId::Headers);
    const Range around = Around();
    const bool moved = around != told_;
    const bool places = Holds(changed, PropertyId::TopRow) || Holds(changed, PropertyId::SelectedRow) ||
                        Holds(changed, PropertyId::MarkedRow);
    if (!rows && !headers && !moved && !places) return;
    Message message("rows");
    message.Add("id", Number()).Add("count", list_.Count()).Add("selected", list_.SelectedRow());
    message.Add("top", list_.TopRow()).Add("marked", list_.MarkedRow.Get());
    if (headers) WriteHeaders(message);
    if (rows || headers || moved) WriteRows(message, around);
    told_ = around;
    Web.Page.Link().Send(message.End());
    if (rows) TellFinding();
}

void WebRowsView::TellFinding() {
    const int column = list_.EmphasisedColumn;
    std::string finding;
    for (int row = 1; row <= list_.Count() && column > 0 && finding.empty(); ++row)
        finding = Trim(list_.Row(row)[column]);
    if (!finding.empty()) finding = list_.Header(column + 1).Text + ": " + finding;
    if (std::exchange(toldFinding_, finding) != finding)
        Web.Page.Link().Send(Message("say").Code("text", finding).End());
}

void WebRowsView::Act(const PageEvent& event) {
    if (event.Is("sight")) {
        TakeSight(event);
    } else if (event.Is("row")) {
        TakeRow(event);
    } else if (event.Is("tooltip")) {
        TellTip(event);
    } else if (event.Is("header")) {
        const int header = event.Number("column") + 1;
        if (header >= 1 && header <= ListRow::Capacity && list_.OnColumnClick)
            Web.System.Run(list_, "ColumnClick", [&] { list_.OnColumnClick(header); });
    }
}

// Where there are too few rows below, the first in sight is another one.
void WebRowsView::TakeSight(const PageEvent& event) {
    const int rows = std::max(1, event.Number("rows"));
    list_.SetRowsInSight(rows);
    if (list_.Count() > 0)
        list_.ScrollTo(std::clamp(event.Number("top"), 1, std::max(1, list_.Count() - rows + 1)));
    Mark(PropertyId::TopRow);
}

void WebRowsView::TakeRow(const PageEvent& event) {
    const int row = event.Number("row");
    if (row < 1 || row > list_.Count() || !Press() || !Usable() || row > list_.Count()) return;
    const bool right = event.Number("button") == mouse::Right;
    Web.System.Run(list_, "Selection", [&] { list_.Select(row); });
    if (right) {
        if (list_.OnRightClick) Web.System.Run(list_, "MouseUp", [this] { list_.OnRightClick(); });
    } else if (list_.SelectedRow() == row) {
        Web.System.Run(list_, "Click", [this] { list_.Click(); });
    }
}

void WebRowsView::TellTip(const PageEvent& event) {
    const int row = event.Number("row");
    const int column = event.Number("column");
    if (row < 1 || row > list_.Count() || column < 0 || column >= ListRow::Capacity) return;
    Message message("tip");
    message.Add("id", Number()).Add("row", row).Add("column", column);
    message.Code("cell", Trim(list_.Row(row)[column]));
    message.Code("text", list_.CellToolTip ? list_.CellToolTip(row, column) : std::string());
    Web.Page.Send(message);
}

}  // namespace kvt
