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

    QAbstractButton* const Button;

private:
    const TextProperty& caption_;
};

class CommandButtonView : public ButtonView {
public:
    CommandButtonView(DesktopContext& desktop, CommandButton& control, QWidget* parent);
};

class CheckBoxView : public ButtonView {
public:
    CheckBoxView(DesktopContext& desktop, CheckBox& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;

private:
    CheckBox& box_;
};

class OptionButtonView : public ButtonView {
public:
    OptionButtonView(DesktopContext& desktop, OptionButton& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;

private:
    OptionButton& option_;
};

}  // namespace kvt
