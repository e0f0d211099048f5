#pragma once

#include <QObject>
#include <QWidget>

#include "desktop/desktop_keyboard.h"
#include "desktop/scale.h"
#include "platform/controls.h"

class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

namespace kvt {

// What every view works with.
struct DesktopContext {
    Scale Lengths;
    DesktopFocus& Focus;
    DesktopSystem& System;
    DesktopKeyboard& Keys;
    // How many boxes and dialogs the user has been shown.
    int DialogsShown = 0;
    // The form whose window came to the front last.
    const Form* Front = nullptr;
};

// Shows a control as a widget. The base follows what all controls have, and brings keys and presses of the
// mouse to the control's handlers before the widget may use them.
class View : public QObject, public ControlView {
public:
    View(DesktopContext& desktop, Control& control, QWidget* widget);
    ~View() override;

    Control& Subject() const { return control_; }
    QWidget* Widget() const { return widget_; }
    // The widget that takes the keys.
    QWidget* KeyTarget() const { return widget_->focusProxy() ? widget_->focusProxy() : widget_; }
    // Where the controls lie that are contained in this one.
    virtual QWidget* Inside() const { return widget_; }

    void PropertyChanged(Control&, PropertyId id) override;

    // Does an edit in the widget, which has an editor of its own; false leaves it to the control.
    virtual bool EditInWidget(const TextEdit&) { return false; }
    // Shows the entries to choose from, where the control has some.
    virtual void OpenList() {}

    // The view of a control, null where it has none.
    static View* Of(const Control& control) { return dynamic_cast<View*>(control.View); }
    // The view whose widget it is, null where it is none's.
    static View* OfWidget(const QWidget& widget);

protected:
    // Brings the widget in line with a property.
    virtual void Follow(PropertyId id);
    // Whether keys that nothing has a use for scroll the widget.
    virtual bool Scrolls() const { return false; }

    bool eventFilter(QObject* watched, QEvent* event) override;
    // Watches another widget too that belongs to the control.
    void Watch(QWidget* part) { part->installEventFilter(this); }
    // What an input does that comes from elsewhere than the keyboard, a menu for one.
    void Press(const KeyPress& press) { Desktop.Keys.Press(control_.OwningForm(), press); }
    // Text that comes a character at a time.
    void Type(const QString& text);

    DesktopContext& Desktop;

private:
    // What screen readers call the widget, and those that go by it.
    void NameWidget();
    bool KeepsKey(QKeyEvent& event);
    bool KeyPressed(QObject* watched, QKeyEvent& event);
    bool TextCommitted(QObject* watched, QInputMethodEvent& event);
    bool MousePressed();
    void PassOn(QObject* watched, QEvent& event);

    Control& control_;
    QWidget* widget_;
    bool passing_ = false;
};

}  // namespace kvt
