#include "desktop/list_accessible.h"

#include "desktop/list_area.h"
#include "desktop/text.h"

namespace kvt {

namespace {

// A header or a cell: what is common to both.
class PartAccessible : public QAccessibleInterface {
public:
    PartAccessible(const ListAccessible& table, int column) : Table(table), Column(column) {}

    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return const_cast<ListAccessible*>(&Table); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        const QWidget& field = *Area().viewport();
        return Place().translated(field.mapToGlobal(QPoint()));
    }
    // Which child of the table it is.
    virtual int Index() const = 0;

protected:
    virtual QRect Place() const = 0;
    ListArea& Area() const { return Table.Area(); }
    bool OutOfSight() const { return !Area().isVisible() || !Area().viewport()->rect().intersects(Place()); }

    const ListAccessible& Table;
    const int Column;
};

class HeaderAccessible : public PartAccessible {
public:
    using PartAccessible::PartAccessible;
    bool isValid() const override { return Column < Table.columnCount(); }
    QAccessible::Role role() const override { return QAccessible::ColumnHeader; }
    QString text(QAccessible::Text what) const override {
        return what == QAccessible::Name ? Table.columnDescription(Column) : QString();
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = OutOfSight();
        state.disabled = !Area().isEnabled();
        return state;
    }
    int Index() const override { return Column; }

protected:
    QRect Place() const override { return Area().HeaderPlace(Column); }
};

class CellAccessible : public PartAccessible, public QAccessibleTableCellInterface {
public:
    CellAccessible(const ListAccessible& table, int row, int column)
        : PartAccessible(table, column), row_(row) {}

    bool isValid() const override { return row_ < Table.rowCount() && Column < Table.columnCount(); }
    QAccessible::Role role() const override { return QAccessible::Cell; }
    QString text(QAccessible::Text what) const override {
        if (!isValid()) return {};
        if (what == QAccessible::Name) return Area().CellText(row_ + 1, Column).trimmed();
        return what == QAccessible::Description ? Table.columnDescription(Column) : QString();
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.selectable = true;
        state.focusable = true;
        state.readOnly = true;
        state.selected = isSelected();
        state.focused = state.selected && Column == 0 && Area().hasFocus();
        state.invisible = OutOfSight();
        state.disabled = !Area().isEnabled();
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                       : nullptr;
    }
    int Index() const override { return Table.ChildOfRow(row_) + Column; }

    bool isSelected() const override { return Table.isRowSelected(row_); }
    QList<QAccessibleInterface*> columnHeaderCells() const override { return {Table.HeaderCell(Column)}; }
    QList<QAccessibleInterface*> rowHeaderCells() const override {
        if (Column == 0) return {};
        return {Table.cellAt(row_, 0)};
    }
    int columnIndex() const override { return Column; }
    int rowIndex() const override { return row_; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

protected:
    QRect Place() const override { return Area().CellPlace(row_ + 1, Column); }

private:
    const int row_;
};

}  // namespace

ListAccessible::ListAccessible(ListArea& area) : QAccessibleWidget(&area, QAccessible::Table), area_(area) {}

ListAccessible::~ListAccessible() { ForgetChildren(); }

void ListAccessible::ForgetChildren() {
    const QHash<int, QAccessible::Id> before = std::exchange(children_, {});
    for (const QAccessible::Id id : before) QAccessible::deleteAccessibleInterface(id);
}

void* ListAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

int ListAccessible::columnCount() const { return area_.ColumnsInUse(); }

int ListAccessible::rowCount() const { return area_.List().Count(); }

int ListAccessible::childCount() const { return columnCount() * (rowCount() + 1); }

QAccessibleInterface* ListAccessible::child(int index) const {
    if (index < 0 || index >= childCount()) return nullptr;
    if (const auto known = children_.constFind(index); known != children_.constEnd())
        return QAccessible::accessibleInterface(*known);
    const int columns = columnCount();
    QAccessibleInterface* const made =
        index < columns ? static_cast<QAccessibleInterface*>(new HeaderAccessible(*this, index))
                        : new CellAccessible(*this, index / columns - 1, index % columns);
    children_.insert(index, QAccessible::registerAccessibleInterface(made));
    return made;
}

QAccessibleInterface* ListAccessible::HeaderCell(int column) const { return child(column); }

QAccessibleInterface* ListAccessible::cellAt(int row, int column) const {
    const bool inside = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return inside ? child(ChildOfRow(row) + column) : nullptr;
}

QAccessibleInterface* ListAccessible::childAt(int x, int y) const {
    const QPoint point = area_.viewport()->mapFromGlobal(QPoint(x, y));
    for (int column = 0; column < columnCount(); ++column) {
        if (area_.HeaderPlace(column).contains(point)) return HeaderCell(column);
        const int row = area_.RowAt(point);
        if (row > 0 && area_.CellPlace(row, column).contains(point)) return cellAt(row - 1, column);
    }
    return nullptr;
}

int ListAccessible::indexOfChild(const QAccessibleInterface* child) const {
    const auto* part = dynamic_cast<const PartAccessible*>(child);
    return part ? part->Index() : -1;
}

QAccessibleInterface* ListAccessible::focusChild() const {
    return area_.hasFocus() ? cellAt(area_.List().SelectedRow() - 1, 0) : nullptr;
}

int ListAccessible::selectedCellCount() const { return selectedRowCount() * columnCount(); }

QList<QAccessibleInterface*> ListAccessible::selectedCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows()) {
        for (int column = 0; column < columnCount(); ++column) cells += cellAt(row, column);
    }
    return cells;
}

QString ListAccessible::columnDescription(int column) const { return area_.HeaderText(column); }

QString ListAccessible::rowDescription(int row) const {
    return row >= 0 && row < rowCount() && columnCount() > 0 ? area_.CellText(row + 1, 0).trimmed()
                                                             : QString();
}

int ListAccessible::selectedRowCount() const { return static_cast<int>(selectedRows().size()); }

QList<int> ListAccessible::selectedRows() const {
    const int selected = area_.List().SelectedRow();
    return selected > 0 ? QList<int>{selected - 1} : QList<int>{};
}

bool ListAccessible::isRowSelected(int row) const { return area_.List().SelectedRow() == row + 1; }

// As a click on the row does.
bool ListAccessible::selectRow(int row) {
    if (row < 0 || row >= rowCount() || !area_.isEnabled()) return false;
    area_.List().Select(row + 1);
    if (area_.OnRowClick) area_.OnRowClick();
    return true;
}

}  // namespace kvt
