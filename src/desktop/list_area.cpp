#include "desktop/list_area.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionHeader>
#include <QToolTip>
#include <algorithm>

#include "basic/stack_guard.h"
#include "desktop/colors.h"
#include "desktop/form_font.h"
#include "desktop/text.h"

namespace kvt {

namespace {

// Twips. Columns are made for characters of this width, with this room at either side.
constexpr int characterTwips = 105;
constexpr int paddingTwips = 75;

}  // namespace

ListArea::ListArea(ListView& list, const Scale& lengths, QWidget* parent)
    : QAbstractScrollArea(parent),
      list_(list),
      lengths_(lengths),
      headerHeight_(lengths.Pixels(ListView::HeaderHeight)),
      rowHeight_(lengths.Pixels(ListView::RowHeight)),
      padding_(lengths.Pixels(paddingTwips)) {
    ChooseFont();
    viewport()->setBackgroundRole(QPalette::Base);
    horizontalScrollBar()->setSingleStep(characterWidth_);
}

// The largest face whose characters fit the columns.
void ListArea::ChooseFont() {
    font_ = FixedPitchFont();
    const int widest = lengths_.Pixels(characterTwips);
    for (int size = rowHeight_ - 2; size >= 6; --size) {
        font_.setPixelSize(size);
        characterWidth_ = std::max(1, QFontMetrics(font_).horizontalAdvance(u'0'));
        if (characterWidth_ <= widest) break;
    }
}

std::vector<ListArea::Column> ListArea::Columns() const {
    std::vector<Column> columns;
    int twips = 0;
    for (int subItem = 0; subItem < ListRow::Capacity; ++subItem) {
        const int width = list_.Header(subItem + 1).Width;
        if (width <= 0) continue;
        const int left = lengths_.Pixels(twips);
        twips += width;
        columns.push_back(
            {subItem,
             {left - horizontalScrollBar()->value(), 0, lengths_.Pixels(twips) - left, headerHeight_}});
    }
    // The last one has the room that the list has left.
    if (!columns.empty())
        columns.back().Place.setRight(std::max(columns.back().Place.right(), viewport()->width() - 1));
    return columns;
}

int ListArea::RowsInSight() const { return std::max(1, (viewport()->height() - headerHeight_) / rowHeight_); }

void ListArea::FollowRows() {
    const StackGuard guard(following_);
    int twips = 0;
    for (int header = 1; header <= ListRow::Capacity; ++header)
        twips += std::max(0, list_.Header(header).Width);
    const int width = lengths_.Pixels(twips);
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));

    const int rows = RowsInSight();
    list_.SetRowsInSight(rows);
    verticalScrollBar()->setPageStep(rows);
    verticalScrollBar()->setRange(0, std::max(0, list_.Count() - rows));
    verticalScrollBar()->setValue(list_.TopRow() - 1);
    // Where there are too few rows below, the first in sight is another one.
    if (list_.Count() > 0) list_.ScrollTo(verticalScrollBar()->value() + 1);
    viewport()->update();
}

void ListArea::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    FollowRows();
}

void ListArea::scrollContentsBy(int, int) {
    if (!following_ && list_.Count() > 0) {
        list_.ScrollTo(std::clamp(verticalScrollBar()->value() + 1, 1, list_.Count()));
    }
    viewport()->update();
}

// Edge and rows show where the keys are.
void ListArea::focusInEvent(QFocusEvent*) {
    update();
    viewport()->update();
}

void ListArea::focusOutEvent(QFocusEvent*) {
    update();
    viewport()->update();
}

void ListArea::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    viewport()->update();
}

QRect ListArea::RowPlace(int row) const {
    return {0, headerHeight_ + (row - list_.TopRow()) * rowHeight_, viewport()->width(), rowHeight_};
}

int ListArea::RowAt(QPoint point) const {
    if (point.y() < headerHeight_) return 0;
    const int row = list_.TopRow() + (point.y() - headerHeight_) / rowHeight_;
    return row <= list_.Count() ? row : 0;
}

QString ListArea::HeaderText(int column) const {
    const std::vector<Column> columns = Columns();
    if (column < 0 || column >= static_cast<int>(columns.size())) return {};
    return ToQt(list_.Header(columns[static_cast<std::size_t>(column)].SubItem + 1).Text);
}

QString ListArea::CellText(int row, int column) const {
    const std::vector<Column> columns = Columns();
    if (column < 0 || column >= static_cast<int>(columns.size()) || row < 1 || row > list_.Count()) return {};
    return ToQt(list_.Row(row)[columns[static_cast<std::size_t>(column)].SubItem]);
}

QRect ListArea::HeaderPlace(int column) const {
    const std::vector<Column> columns = Columns();
    if (column < 0 || column >= static_cast<int>(columns.size())) return {};
    return columns[static_cast<std::size_t>(column)].Place;
}

QRect ListArea::CellPlace(int row, int column) const {
    const QRect head = HeaderPlace(column);
    return head.isNull() ? head : QRect(head.left(), RowPlace(row).top(), head.width(), rowHeight_);
}

int ListArea::HeaderAt(QPoint point) const {
    for (const Column& column : Columns()) {
        if (column.Place.contains(point)) return column.SubItem + 1;
    }
    return 0;
}

void ListArea::mousePressEvent(QMouseEvent* event) {
    const QPoint point = event->position().toPoint();
    const bool left = event->button() == Qt::LeftButton;
    pressedHeader_ = left ? HeaderAt(point) : 0;
    const int row = RowAt(point);
    rowPressed_ = left && row > 0;
    if (pressedHeader_ > 0) viewport()->update();
    if (row == 0 || (!left && event->button() != Qt::RightButton)) return;
    list_.Select(row);
    if (!left && OnRowRightClick) OnRowRightClick();
}

void ListArea::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    const QPoint point = event->position().toPoint();
    const int header = std::exchange(pressedHeader_, 0);
    const bool rowPressed = std::exchange(rowPressed_, false);
    viewport()->update();
    if (header > 0 && HeaderAt(point) == header && OnHeaderClick) OnHeaderClick(header);
    if (rowPressed && RowAt(point) == list_.SelectedRow() && OnRowClick) OnRowClick();
}

// The mouse has its own way; this is for the key.
void ListArea::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard && list_.Count() > 0 && OnRowRightClick)
        OnRowRightClick();
}

// Shows a cell whole that its column cuts, and what is to be known about it.
bool ListArea::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QAbstractScrollArea::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int row = RowAt(help.pos());
    for (const Column& column : Columns()) {
        const bool inColumn = help.pos().x() >= column.Place.left() && help.pos().x() <= column.Place.right();
        if (row == 0 || !inColumn) continue;
        const QString cell = ToQt(list_.Row(row)[column.SubItem]);
        const QString more = list_.CellToolTip ? ToQt(list_.CellToolTip(row, column.SubItem)) : QString();
        if (more.isEmpty() && Cut(cell, column.Place.width()) == cell) break;
        QString shown = "<b>" + cell.trimmed().toHtmlEscaped() + "</b>";
        for (const QString& line : WithToolkitLineEnds(more).split(u'\n', Qt::SkipEmptyParts))
            shown += "<br>" + line.toHtmlEscaped();
        if (more.isEmpty()) shown = cell.trimmed().toHtmlEscaped();
        QToolTip::showText(help.globalPos(), "<qt>" + shown + "</qt>", viewport());
        return true;
    }
    QToolTip::hideText();
    return true;
}

QString ListArea::Cut(const QString& text, int width) const {
    const int fits = std::max(0, (width - padding_ - 1) / characterWidth_);
    if (text.size() <= fits) return text;
    // Blanks at the end are not missed.
    const QString shown = text.left(fits);
    if (QStringView(text).mid(fits).trimmed().isEmpty() || fits == 0) return shown;
    return text.left(fits - 1) + QChar(0x2026);
}

QColor ListArea::CellColor(int row, int subItem, const QColor& ground) const {
    const ListRow& cells = list_.Row(row);
    const QColor plain = Readable(palette().color(QPalette::Text), ground);
    if (!isEnabled()) return Readable(palette().color(QPalette::Disabled, QPalette::Text), ground);
    if (subItem == list_.EmphasisedColumn) return FindingColor(ground);
    const bool colored = subItem >= list_.FirstColoredColumn && subItem <= list_.LastColoredColumn;
    if (!colored || cells.ForeColor == 0) return plain;
    return Readable(ColorOf(cells.ForeColor), ground);
}

void ListArea::PaintHeaders(QPainter& painter, const std::vector<Column>& columns) const {
    QStyleOptionHeader option;
    option.initFrom(this);
    option.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
    option.state |= QStyle::State_Raised | QStyle::State_Horizontal;
    option.orientation = Qt::Horizontal;
    // The strip behind the last column.
    option.rect = QRect(0, 0, viewport()->width(), headerHeight_);
    option.section = -1;
    style()->drawControl(QStyle::CE_HeaderEmptyArea, &option, &painter, this);
    const QStyle::State plain = option.state;
    for (const Column& column : columns) {
        const bool pressed = pressedHeader_ == column.SubItem + 1;
        option.rect = column.Place;
        option.section = column.SubItem;
        option.position = QStyleOptionHeader::Middle;
        option.state = pressed ? (plain & ~QStyle::State_Raised) | QStyle::State_Sunken : plain;
        style()->drawControl(QStyle::CE_HeaderSection, &option, &painter, this);
        const QRect place = column.Place.adjusted(padding_, 0, -1, 0);
        const QString text = ToQt(list_.Header(column.SubItem + 1).Text);
        style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                              fontMetrics().elidedText(text, Qt::ElideRight, place.width()),
                              QPalette::ButtonText);
    }
}

// A pointer at the left edge, within the room beside the first column.
void ListArea::PaintMark(QPainter& painter, const QRect& row) const {
    const int high = row.height() / 4;
    const QPoint middle(row.left(), row.center().y());
    const QPolygon pointer({middle + QPoint(0, -high), middle + QPoint(high, 0), middle + QPoint(0, high)});
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Text));
    painter.drawPolygon(pointer);
    painter.setBrush(Qt::NoBrush);
}

void ListArea::PaintRow(QPainter& painter, int row, const std::vector<Column>& columns) const {
    const QRect place = RowPlace(row);
    const bool selected = row == list_.SelectedRow();
    const QColor ground = selected ? SelectedGround(palette(), hasFocus()) : palette().color(QPalette::Base);
    if (selected) {
        painter.fillRect(place, ground);
        if (hasFocus() || IsDarkOrStrong(palette())) {
            painter.setPen(SelectedEdge(palette()));
            painter.drawRect(place.adjusted(0, 0, -1, -1));
        }
    }
    if (row == list_.MarkedRow) PaintMark(painter, place);
    const QFontMetrics metrics(font_);
    const int baseline = place.top() + (rowHeight_ - metrics.height()) / 2 + metrics.ascent();
    for (const Column& column : columns) {
        const std::string_view cell = list_.Row(row)[column.SubItem];
        if (cell.find_first_not_of(' ') == std::string_view::npos) continue;
        painter.setPen(CellColor(row, column.SubItem, ground));
        painter.drawText(column.Place.left() + padding_, baseline, Cut(ToQt(cell), column.Place.width()));
    }
}

void ListArea::paintEvent(QPaintEvent*) {
    QPainter painter(viewport());
    std::vector<Column> columns = Columns();
    std::erase_if(columns, [this](const Column& column) {
        return column.Place.right() < 0 || column.Place.left() >= viewport()->width();
    });
    const int last = std::min(list_.Count(), list_.TopRow() + RowsInSight());
    painter.setFont(font_);
    for (int row = list_.TopRow(); row <= last; ++row) PaintRow(painter, row, columns);
    painter.setPen(GridColor(palette()));
    for (const Column& column : columns) {
        painter.drawLine(column.Place.right(), headerHeight_, column.Place.right(), viewport()->height());
    }
    painter.setFont(font());
    PaintHeaders(painter, columns);
}

}  // namespace kvt
