#pragma once

#include <QObject>
#include <QWidget>
#include <array>

#include "desktop/desktop_system.h"
#include "desktop/key_input.h"
#include "desktop/scale.h"
#include "platform/controls.h"

class QInputMethodEvent;
class QMouseEvent;

namespace kvt {

// What every view works with.
struct DesktopContext {
    Scale Lengths;
    DesktopFocus& Focus;
    DesktopSystem& System;
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

    void PropertyChanged(Control&, PropertyId id) override { Follow(id); }

    // The view of a control, null where it has none.
    static View* Of(const Control& control) { return dynamic_cast<View*>(control.View); }

protected:
    // Brings the widget in line with a property.
    virtual void Follow(PropertyId id);
    // Does what the control itself does with a key that its handlers have let pass; false leaves it to the
    // widget.
    virtual bool Act(const KeyInput&) { return false; }
    // Puts a character in; for text that comes by other ways than keys.
    virtual void PutIn(int) {}
    // Whether a press of the mouse gives it the focus.
    virtual bool TakesFocus() const { return true; }

    bool eventFilter(QObject* watched, QEvent* event) override;
    // Watches another widget too that belongs to the control.
    void Watch(QWidget* part) { part->installEventFilter(this); }
    // What an input does that comes from elsewhere than the keyboard, a menu for one.
    void Press(const KeyInput& input);
    // Text that comes a character at a time.
    void Type(const QString& text);

    DesktopContext& Desktop;

private:
    bool KeyPressed(QObject* watched, QKeyEvent& event);
    bool TextCommitted(QObject* watched, QInputMethodEvent& event);
    bool MousePressed();
    void PassOn(QObject* watched, QEvent& event);
    // These offer what is pressed to the handlers. False where one has cancelled it, has moved the focus or ended the
    // program: nothing is left to do then.
    std::array<Control*, 2> Receivers() const;
    bool OfferKey(const KeyInput& input);
    bool OfferCharacter(int& number);
    bool Offer(const KeyInput& input);

    Control& control_;
    QWidget* widget_;
    bool passing_ = false;
};

}  // namespace kvt
