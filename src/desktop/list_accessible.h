#pragma once

#include <QAccessibleWidget>
#include <QHash>

namespace kvt {

class ListArea;

// A list as a table: a header for each column in sight, and the cells of all rows. Counts from 0; the headers are its
// first children, the cells row by row the others. A row is headed by its first cell.
class ListAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit ListAccessible(ListArea& area);
    ~ListAccessible() override;

    ListArea& Area() const { return area_; }
    // The child that stands for a row when the list has the keys.
    int ChildOfRow(int row) const { return columnCount() * (row + 1); }
    QAccessibleInterface* HeaderCell(int column) const;

    void* interface_cast(QAccessible::InterfaceType type) override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* focusChild() const override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int selectedCellCount() const override;
    QList<QAccessibleInterface*> selectedCells() const override;
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override;
    int columnCount() const override;
    int rowCount() const override;
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override;
    bool selectRow(int row) override;
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override { ForgetChildren(); }

private:
    void ForgetChildren();

    ListArea& area_;
    mutable QHash<int, QAccessible::Id> children_;  // those that have been asked for
};

}  // namespace kvt
