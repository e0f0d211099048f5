#include "desktop/button_views.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/picture_button.h"
#include "desktop/text.h"
#include "platform/clicks.h"

namespace kvt {

ButtonView::ButtonView(DesktopContext& desktop, Control& control, const TextProperty& caption,
                       QAbstractButton* button)
    : View(desktop, control, button), Button(button), caption_(caption) {
    connect(button, &QAbstractButton::clicked, this, [this] {
        Desktop.System.Run(Subject(), "Click", [this] { ChooseAndClick(Subject()); });
        // The click has changed the mark of the widget too; the control has the last word.
        Follow(PropertyId::Value);
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

CheckBoxView::CheckBoxView(DesktopContext& desktop, CheckBox& control, QWidget* parent)
    : ButtonView(desktop, control, control.Caption, new QCheckBox(parent)), box_(control) {}

void CheckBoxView::Follow(PropertyId id) {
    if (id == PropertyId::Value) {
        Button->setChecked(box_.Value != 0);
    } else {
        ButtonView::Follow(id);
    }
}

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

}  // namespace kvt
