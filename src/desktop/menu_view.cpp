#include "desktop/menu_view.h"

#include "desktop/text.h"

namespace kvt {

namespace {

constexpr const char* shownKey = "shownKey";

// Gives each entry of a menu the first letter of its caption that no entry before it has, as the key that chooses it
// while the menu is open.
void GiveAccessKeys(const QWidget& menu) {
    QString taken;
    for (QAction* entry : menu.actions()) {
        // A separating line would have its text put into it.
        if (entry->isSeparator()) continue;
        QString caption = entry->data().toString();
        qsizetype at = 0;
        while (at < caption.size() &&
               (!caption.at(at).isLetterOrNumber() || taken.contains(caption.at(at).toUpper()))) {
            ++at;
        }
        const bool hasKey = at < caption.size();
        if (hasKey) taken += caption.at(at).toUpper();
        const QString rest = caption.mid(at).replace(u'&', QStringLiteral("&&"));
        const QString key = entry->property(shownKey).toString();
        entry->setText(caption.left(at).replace(u'&', QStringLiteral("&&")) + (hasKey ? "&" : "") + rest +
                       (key.isEmpty() ? key : u'\t' + key));
    }
}

}  // namespace

MenuView::MenuView(DesktopContext& desktop, Menu& control, QWidget* parent, bool hasEntries)
    : menu_(control),
      parent_(parent),
      entries_(hasEntries ? new QMenu(parent) : nullptr),
      action_(hasEntries ? entries_->menuAction() : new QAction(parent)) {
    control.View = this;
    parent->addAction(action_);
    action_->setSeparator(!hasEntries && menu_.Caption == "-");
    if (!menu_.ShownShortcut.empty()) action_->setProperty(shownKey, ToQt(menu_.ShownShortcut));
    for (const PropertyId id :
         {PropertyId::Caption, PropertyId::Visible, PropertyId::Enabled, PropertyId::Checked}) {
        PropertyChanged(control, id);
    }
    if (hasEntries) return;
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
        case PropertyId::Caption:
            action_->setData(ShownToQt(menu_.Caption));
            if (entries_) entries_->setAccessibleName(ShownToQt(menu_.Caption));
            GiveAccessKeys(*parent_);
            break;
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
