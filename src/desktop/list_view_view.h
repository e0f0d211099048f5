#pragma once

#include "desktop/list_area.h"
#include "desktop/view.h"

namespace kvt {

// A list view: its rows in a ListArea, its selection by mouse and keys.
class ListViewView : public View {
public:
    ListViewView(DesktopContext& desktop, ListView& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    bool Act(const KeyInput& input) override;

private:
    ListView& list_;
    ListArea* area_;
};

}  // namespace kvt
