#pragma once

#include <QListView>

#include "desktop/view.h"

namespace kvt {

// The entries of a list box; what follows a tab is shown in a second column.
class ListBoxView : public View {
public:
    ListBoxView(DesktopContext& desktop, ListBox& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;

private:
    void Click();

    ListBox& list_;
    QListView* face_;
};

}  // namespace kvt
