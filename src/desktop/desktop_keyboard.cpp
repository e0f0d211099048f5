#include "desktop/desktop_keyboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "desktop/text.h"
#include "desktop/view.h"

namespace kvt {

DesktopKeyboard::DesktopKeyboard(DesktopFocus& focus, DesktopSystem& system)
    : focus_(focus), system_(system), keyboard_(focus, &clipboard_, *this) {}

bool DesktopKeyboard::Press(Form& form, const KeyPress& press) {
    const bool used = keyboard_.Press(form, press);
    system_.SendKeys();
    // A key that moves in a list runs no handler.
    system_.TellHandled();
    return used;
}

void DesktopKeyboard::Type(Form& form, int character) {
    if (character == 0) return;
    const Control* const focused = focus_.Focused();
    Press(focused ? focused->OwningForm() : form, KeyPress{{}, character});
}

std::string DesktopKeyboard::FieldClipboard::GetText() {
    return FromQt(Cleaned(QGuiApplication::clipboard()->text(), true));
}

void DesktopKeyboard::Run(const Control& control, const char* event, const std::function<void()>& act) {
    system_.Run(control, event, act);
}

void DesktopKeyboard::OpenList(ComboBox& box) {
    if (View* const view = View::Of(box)) view->OpenList();
}

bool DesktopKeyboard::EditInWidget(TextBox& box, const TextEdit& edit) {
    View* const view = View::Of(box);
    return view && view->EditInWidget(edit);
}

}  // namespace kvt
