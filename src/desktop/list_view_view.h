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
    ListView& list_;
    ListArea* area_;
};

}  // namespace kvt
