#pragma once

#include <QAction>
#include <QMenu>

#include "desktop/view.h"

namespace kvt {

// An entry of a menu, or a menu with entries of its own. Its shortcut acts in the whole window.
class MenuView : public QObject, public ControlView {
public:
    // parent is the menu bar or the menu that it belongs to.
    MenuView(DesktopContext& desktop, Menu& control, QWidget* parent, bool hasEntries);
    ~MenuView() override { menu_.View = nullptr; }

    void PropertyChanged(Control&, PropertyId id) override;

    // The widget of its entries; null for an entry.
    QMenu* Entries() const { return entries_; }
    // Shows the entries at a point of the screen until one is chosen or none.
    void PopUp(QPoint at);

private:
    void FollowCheck();

    Menu& menu_;
    QWidget* parent_;
    QMenu* entries_;
    QAction* action_;
};

}  // namespace kvt
