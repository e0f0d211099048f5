#include "desktop/menu_view.h"

#include "desktop/text.h"

namespace kvt {

MenuView::MenuView(DesktopContext& desktop, Menu& control, QWidget* parent, bool hasEntries)
    : menu_(control),
      entries_(hasEntries ? new QMenu(parent) : nullptr),
      action_(hasEntries ? entries_->menuAction() : new QAction(parent)) {
    control.View = this;
    parent->addAction(action_);
    for (const PropertyId id :
         {PropertyId::Caption, PropertyId::Visible, PropertyId::Enabled, PropertyId::Checked}) {
        PropertyChanged(control, id);
    }
    if (hasEntries) return;
    action_->setSeparator(menu_.Caption == "-");
    action_->setShortcut(QKeySequence::fromString(ToQt(menu_.Shortcut), QKeySequence::PortableText));
    connect(action_, &QAction::triggered, this, [this, &desktop] {
        // The handler decides about the mark, not the click.
        FollowCheck();
        desktop.System.Run(menu_, "Click", [this] { menu_.Click(); });
        desktop.System.SendKeys();
    });
}

void MenuView::PropertyChanged(Control&, PropertyId id) {
    switch (id) {
        case PropertyId::Caption: action_->setText(ToQt(menu_.Caption)); break;
        case PropertyId::Visible: action_->setVisible(menu_.Visible); break;
        case PropertyId::Enabled: action_->setEnabled(menu_.Enabled); break;
        case PropertyId::Checked: FollowCheck(); break;
        default: break;
    }
}

void MenuView::FollowCheck() {
    action_->setCheckable(menu_.Checked);
    action_->setChecked(menu_.Checked);
}

void MenuView::PopUp(QPoint at) {
    if (entries_) entries_->exec(at);
}

}  // namespace kvt
