#pragma once

#include <QAbstractButton>

#include "desktop/view.h"

namespace kvt {

// A control that is a button of some sort: its caption, and a click by hand.
class ButtonView : public View {
protected:
    ButtonView(DesktopContext& desktop, Control& control, const TextProperty& caption,
               QAbstractButton* button);
    void Follow(PropertyId id) override;
    // What a click by hand does to the control, before its handler runs.
    virtual void Choose() {}

    QAbstractButton* const Button;

private:
    const TextProperty& caption_;
};

// Enter clicks it too, not the blank alone.
class CommandButtonView : public ButtonView {
public:
    CommandButtonView(DesktopContext& desktop, CommandButton& control, QWidget* parent);

protected:
    bool Act(const KeyInput& input) override;
};

class CheckBoxView : public ButtonView {
public:
    CheckBoxView(DesktopContext& desktop, CheckBox& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    void Choose() override;

private:
    CheckBox& box_;
};

// The options of a container go out when one of them is chosen; the arrows choose the next of them.
class OptionButtonView : public ButtonView {
public:
    OptionButtonView(DesktopContext& desktop, OptionButton& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    void Choose() override;
    bool Act(const KeyInput& input) override;

private:
    OptionButton& option_;
};

}  // namespace kvt
