#include "desktop/desktop_focus.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QWidget>

#include "desktop/colors.h"
#include "desktop/view.h"
#include "platform/tab_order.h"

namespace kvt {

bool DesktopFocus::Take(Control& control) {
    SetFocus(control);
    return Focused() == &control;
}

bool DesktopFocus::IsOn(const Form& form) {
    const Control* const now = Focused();
    return now && &now->OwningForm() == &form;
}

bool DesktopFocus::RestoreFocus(Form& form) {
    const auto last = last_.find(&form);
    if (!IsOn(form) && last != last_.end()) SetFocus(*last->second);
    RestoreSoon();
    return last != last_.end();
}

void DesktopFocus::TakeFirst(Form& form) {
    Control* const first = FirstInTabOrder(form);
    if (first && !IsOn(form)) SetFocus(*first);
    RestoreSoon();
}

void DesktopFocus::RestoreSoon() {
    if (restoring_) return;
    restoring_ = true;
    QMetaObject::invokeMethod(
        &later_,
        [this] {
            restoring_ = false;
            Restore();
        },
        Qt::QueuedConnection);
}

void DesktopFocus::Restore() {
    if (!Focused()) return;
    View* const view = View::Of(*Focused());
    if (!view) return;
    QWidget* const window = view->Widget()->window();
    QWidget* const wanted =
        view->Widget()->isVisible() && view->Widget()->isEnabled() ? view->Widget() : window;
    if (window->focusWidget() != wanted) wanted->setFocus(Qt::OtherFocusReason);
}

// Lists, documents, words, pictures and scroll bars have no mark of their own around them.
void DesktopFocus::Frame(const Control& control, QWidget* widget) {
    const ControlKind kind = control.Kind();
    // A picture larger than what shows it has the mark around that.
    if (kind == ControlKind::PictureBox && widget->parentWidget()->width() < widget->width())
        widget = widget->parentWidget();
    const bool bare = kind == ControlKind::ScrollBar || kind == ControlKind::UpDown ||
                      kind == ControlKind::Label || kind == ControlKind::PictureBox ||
                      qobject_cast<QAbstractScrollArea*>(widget);
    if (bare && !frame_) {
        frame_ = new QFocusFrame(widget);
        frame_->setStyle(&frameStyle_);
    }
    if (bare) {
        // The desktop's palette may be another one since it was last seen.
        QPalette palette = QApplication::palette();
        palette.setColor(QPalette::WindowText, SelectedEdge(palette));
        frame_->setPalette(palette);
    }
    if (frame_) frame_->setWidget(bare ? widget : nullptr);
}

void DesktopFocus::ShowFocus(Control& control) {
    last_[&control.OwningForm()] = &control;
    View* const view = View::Of(control);
    if (!view) return;
    view->Widget()->setFocus(Qt::OtherFocusReason);
    Frame(control, view->Widget());
    // The mark of the focus shows however the focus came.
    view->Widget()->window()->setAttribute(Qt::WA_KeyboardFocusChange);
    // To another window of the program; never away from another program.
    QWidget* const window = view->Widget()->window();
    QWidget* const active = QApplication::activeWindow();
    if (active && active != window && !QApplication::activeModalWidget() && window->isVisible()) {
        window->activateWindow();
    }
}

}  // namespace kvt
