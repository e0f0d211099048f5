#pragma once

#include "desktop/list_area.h"
#include "desktop/view.h"

namespace kvt {

// A list view: its rows in a ListArea, its selection by the mouse.
class ListViewView : public View {
public:
    ListViewView(DesktopContext& desktop, ListView& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    bool Scrolls() const override { return true; }

private:
    // For screen readers: the row with the keys, another number of rows or columns, and a new finding.
    void TellRow();
    void TellRows();
    void TellFindingSoon();
    void TellFinding();

    ListView& list_;
    ListArea* area_;
    int toldRows_ = 0, toldColumns_ = 0;
    QString toldFinding_;
    bool telling_ = false;
};

}  // namespace kvt
