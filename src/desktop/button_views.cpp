#include "desktop/button_views.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "desktop/picture_button.h"
#include "desktop/text.h"
#include "platform/keys.h"

namespace kvt {

ButtonView::ButtonView(DesktopContext& desktop, Control& control, const TextProperty& caption,
                       QAbstractButton* button)
    : View(desktop, control, button), Button(button), caption_(caption) {
    connect(button, &QAbstractButton::clicked, this, [this] {
        Desktop.System.Run(Subject(), "Click", [this] {
            Choose();
            Subject().Click();
        });
    });
}

void ButtonView::Follow(PropertyId id) {
    if (id == PropertyId::Caption) {
        Button->setText(ToQt(caption_));
    } else {
        View::Follow(id);
    }
}

CommandButtonView::CommandButtonView(DesktopContext& desktop, CommandButton& control, QWidget* parent)
    : ButtonView(desktop, control, control.Caption,
                 control.Picture.empty()
                     ? new QPushButton(parent)
                     : NewPictureButton(control.Picture, desktop.Lengths.Factor(), parent)) {}

bool CommandButtonView::Act(const KeyInput& input) {
    if (input.Key != key::Enter) return false;
    Button->click();
    return true;
}

CheckBoxView::CheckBoxView(DesktopContext& desktop, CheckBox& control, QWidget* parent)
    : ButtonView(desktop, control, control.Caption, new QCheckBox(parent)), box_(control) {}

void CheckBoxView::Follow(PropertyId id) {
    if (id == PropertyId::Value) {
        Button->setChecked(box_.Value != 0);
    } else {
        ButtonView::Follow(id);
    }
}

void CheckBoxView::Choose() { box_.Value = Button->isChecked() ? 1 : 0; }

OptionButtonView::OptionButtonView(DesktopContext& desktop, OptionButton& control, QWidget* parent)
    : ButtonView(desktop, control, control.Caption, new QRadioButton(parent)), option_(control) {
    // The controls know which of them excludes which.
    Button->setAutoExclusive(false);
}

void OptionButtonView::Follow(PropertyId id) {
    if (id == PropertyId::Value) {
        Button->setChecked(option_.Value);
    } else {
        ButtonView::Follow(id);
    }
}

void OptionButtonView::Choose() {
    for (Control* control : option_.OwningForm().Controls()) {
        auto* other = dynamic_cast<OptionButton*>(control);
        if (other && other != &option_ && other->Container == option_.Container) other->Value = false;
    }
    option_.Value = true;
    // A second click has taken the mark away from the widget alone.
    Button->setChecked(true);
}

bool OptionButtonView::Act(const KeyInput& input) {
    const bool back = input.Key == key::Up || input.Key == key::Left;
    if (!back && input.Key != key::Down && input.Key != key::Right) return false;
    std::vector<Control*> options;
    for (Control* control : option_.OwningForm().Controls()) {
        if (control->Kind() == ControlKind::OptionButton && control->Container == option_.Container &&
            control->ReallyVisible() && control->ReallyEnabled()) {
            options.push_back(control);
        }
    }
    if (back) std::reverse(options.begin(), options.end());
    const auto at = std::find(options.begin(), options.end(), &option_);
    if (at == options.end()) return true;
    Control* const next = std::next(at) == options.end() ? options.front() : *std::next(at);
    auto* view = dynamic_cast<OptionButtonView*>(Of(*next));
    if (!view || view == this) return true;
    bool arrived = false;
    Desktop.System.Run(*next, "GotFocus", [&] { arrived = Desktop.Focus.Take(*next); });
    if (arrived) view->Button->click();
    return true;
}

}  // namespace kvt
