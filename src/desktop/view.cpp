#include "desktop/view.h"

#include <QAbstractScrollArea>
#include <QInputMethodEvent>
#include <QPointer>
#include <QScrollBar>
#include <QVariant>

#include "basic/stack_guard.h"
#include "desktop/key_input.h"
#include "desktop/text.h"
#include "platform/accessible_name.h"
#include "platform/clicks.h"

namespace kvt {

namespace {

constexpr const char* viewProperty = "view";

// A tool tip that is shown letter by letter, whatever mark-up it looks like.
QString PlainToolTip(const QString& text) {
    return text.isEmpty() ? text
                          : "<qt><p style='white-space:pre-wrap'>" + text.toHtmlEscaped() + "</p></qt>";
}

}  // namespace

View::View(DesktopContext& desktop, Control& control, QWidget* widget)
    : Desktop(desktop), control_(control), widget_(widget) {
    control.View = this;
    widget_->setProperty(viewProperty, QVariant::fromValue(QPointer<QObject>(this)));
    widget_->setObjectName(QString::fromStdString(control.Name()));
    // Presses of the mouse and the Tab key give the focus by way of the keeper, not of the toolkit.
    widget_->setFocusPolicy(Qt::NoFocus);
    Watch(widget_);
}

View::~View() { control_.View = nullptr; }

View* View::OfWidget(const QWidget& widget) {
    return dynamic_cast<View*>(widget.property(viewProperty).value<QPointer<QObject>>().data());
}

void View::PropertyChanged(Control&, PropertyId id) {
    Follow(id);
    // A new view hears of the name last of these three, and is named once; what has been named is not null.
    const bool tells = id == PropertyId::Caption || id == PropertyId::ToolTip;
    if (id == PropertyId::AccessibleName || (tells && !widget_->accessibleName().isNull())) NameWidget();
}

void View::NameWidget() {
    const QString name = ShownToQt(AccessibleNameOf(control_));
    // What it tells behind the name. Without a description the toolkit gives the tool tip with its mark-up.
    QString tip = ShownToQt(control_.ToolTip);
    if (tip.startsWith(name) && tip.size() > name.size()) tip = tip.mid(name.size()).trimmed();
    const auto call = [&](QWidget& widget) {
        if (widget.accessibleName().isNull() || widget.accessibleName() != name)
            widget.setAccessibleName(name.isEmpty() ? QStringLiteral("") : name);
        if (widget.accessibleDescription() != tip) widget.setAccessibleDescription(tip);
    };
    call(*widget_);
    if (KeyTarget() != widget_) call(*KeyTarget());
    if (auto* area = qobject_cast<QAbstractScrollArea*>(widget_)) {
        call(*area->verticalScrollBar());
        call(*area->horizontalScrollBar());
    }
    const Control* const field = NamedBy(control_);
    View* const other = field ? Of(*field) : nullptr;
    if (other && !other->widget_->accessibleName().isNull()) other->NameWidget();
}

void View::Follow(PropertyId id) {
    switch (id) {
        case PropertyId::Left:
        case PropertyId::Top:
        case PropertyId::Width:
        case PropertyId::Height:
            widget_->setGeometry(
                Desktop.Lengths.Rectangle(control_.Left, control_.Top, control_.Width, control_.Height));
            break;
        case PropertyId::Visible:
            widget_->setVisible(control_.Visible && control_.OnFrontPage());
            Desktop.Focus.RestoreSoon();
            break;
        case PropertyId::Enabled:
            widget_->setEnabled(control_.Enabled);
            Desktop.Focus.RestoreSoon();
            break;
        case PropertyId::MousePointer:
            if (control_.MousePointer == pointer::ArrowAndHourglass) {
                widget_->setCursor(Qt::BusyCursor);
            } else if (control_.MousePointer == pointer::Cross) {
                widget_->setCursor(Qt::CrossCursor);
            } else {
                widget_->unsetCursor();
            }
            break;
        case PropertyId::ToolTip: widget_->setToolTip(PlainToolTip(ShownToQt(control_.ToolTip))); break;
        default: break;
    }
}

bool View::eventFilter(QObject* watched, QEvent* event) {
    if (passing_) return false;
    switch (event->type()) {
        case QEvent::ShortcutOverride: return KeepsKey(*static_cast<QKeyEvent*>(event));
        case QEvent::KeyPress: return KeyPressed(watched, *static_cast<QKeyEvent*>(event));
        case QEvent::InputMethod: return TextCommitted(watched, *static_cast<QInputMethodEvent*>(event));
        case QEvent::MouseButtonPress: return MousePressed();
        default: return false;
    }
}

// The shortcuts of menus are chosen by the keyboard as all keys are; those with Alt are the toolkit's.
bool View::KeepsKey(QKeyEvent& event) {
    if (PressesOf(event).empty()) return false;
    event.accept();
    return true;
}

bool View::KeyPressed(QObject* watched, QKeyEvent& event) {
    const std::vector<KeyPress> presses = PressesOf(event);
    if (presses.empty()) {
        // A letter with Alt is for menus: no text box may take it past its handlers.
        const bool letter = !event.text().isEmpty() && event.text().at(0).isPrint();
        event.ignore();
        return letter && control_.Kind() == ControlKind::TextBox;
    }
    const bool used = Desktop.Keys.Press(control_.OwningForm(), presses.front());
    for (std::size_t i = 1; i < presses.size(); ++i)
        Desktop.Keys.Type(control_.OwningForm(), presses[i].Character);
    if (!used && Scrolls()) PassOn(watched, event);
    event.accept();
    return true;
}

// What composed characters, dead keys and the like give is typed as well. What is still being composed is shown
// by the widget itself.
bool View::TextCommitted(QObject* watched, QInputMethodEvent& event) {
    if (event.commitString().isEmpty()) return false;
    const QString text = event.commitString().normalized(QString::NormalizationForm_C);
    QInputMethodEvent composing(event.preeditString(), event.attributes());
    PassOn(watched, composing);
    Type(text);
    event.accept();
    return true;
}

bool View::MousePressed() {
    const bool enabled = control_.EffectivelyEnabled();
    if (!enabled && control_.OnRefused)
        Desktop.System.Run(control_, "Refused", [this] { control_.OnRefused(); });
    if (!TakesFocus(control_) || !enabled) return false;
    const int dialogsBefore = Desktop.DialogsShown;
    bool stays = false;
    Desktop.System.Run(control_, "GotFocus", [&] { stays = Desktop.Focus.Take(control_); });
    // Where the control that was left has refused, or has asked something, the press is used up.
    return !stays || Desktop.DialogsShown != dialogsBefore;
}

// To the widget alone: what it has no use for must not come up again at the window, which has seen it.
void View::PassOn(QObject* watched, QEvent& event) {
    const StackGuard guard(passing_);
    watched->event(&event);
}

void View::Type(const QString& text) {
    for (const QChar character : text) Desktop.Keys.Type(control_.OwningForm(), CharacterNumber(character));
}

}  // namespace kvt
