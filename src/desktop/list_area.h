#pragma once

#include <QAbstractScrollArea>
#include <QFont>
#include <functional>

#include "desktop/scale.h"
#include "platform/list_view.h"

namespace kvt {

// Paints the rows of a list view that are in sight, straight from the control, in a fixed-pitch face: the cells
// carry their own padding. Scrolls by whole rows.
class ListArea : public QAbstractScrollArea {
public:
    ListArea(ListView& list, const Scale& lengths, QWidget* parent);

    // Lets the scroll bars follow rows, columns and the first row in sight.
    void FollowRows();

    // What it shows: the columns in use count from 0, rows from 1. Places are those in the viewport.
    ListView& List() const { return list_; }
    int ColumnsInUse() const { return static_cast<int>(Columns().size()); }
    QString HeaderText(int column) const;
    QString CellText(int row, int column) const;
    QRect HeaderPlace(int column) const;
    QRect CellPlace(int row, int column) const;
    // The row at a point, 0 for none.
    int RowAt(QPoint point) const;

    // A header was clicked, from 1; a row was pressed and selected, and let go or pressed with the right button.
    std::function<void(int header)> OnHeaderClick;
    std::function<void()> OnRowClick;
    std::function<void()> OnRowRightClick;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    struct Column {
        int SubItem;
        QRect Place;  // its header
    };
    void ChooseFont();
    std::vector<Column> Columns() const;
    int RowsInSight() const;
    QRect RowPlace(int row) const;
    // The header at a point, 0 for none.
    int HeaderAt(QPoint point) const;
    QString Cut(const QString& text, int width) const;
    void PaintHeaders(QPainter& painter, const std::vector<Column>& columns) const;
    void PaintMark(QPainter& painter, const QRect& row) const;
    void PaintRow(QPainter& painter, int row, const std::vector<Column>& columns) const;
    QColor CellColor(int row, int subItem, const QColor& ground) const;

    ListView& list_;
    const Scale& lengths_;
    QFont font_;
    int characterWidth_ = 1;
    int headerHeight_;
    int rowHeight_;
    int padding_;
    int pressedHeader_ = 0;
    bool rowPressed_ = false;
    bool following_ = false;
};

}  // namespace kvt
