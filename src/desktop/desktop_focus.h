#pragma once

#include <QFocusFrame>
#include <QObject>
#include <QPointer>
#include <map>

#include "desktop/inner_frame_style.h"
#include "platform/focus_keeper.h"

namespace kvt {

// The focus with windows. Only the keeper says who has it: a click, a Tab or a handler tells the keeper, and
// the toolkit's own focus follows. So a window that loses the activation loses no focus.
class DesktopFocus : public FocusKeeper {
public:
    // By hand, to a control that was pressed. False where it did not stay there.
    bool Take(Control& control);
    // A window has come to the front: the control that had the focus there last gets it back. False where none had.
    bool RestoreFocus(Form& form);
    // A window that has come to the front must have the focus somewhere.
    void TakeFirst(Form& form);
    // Lets the toolkit's focus follow again, once the pending events have been handled; it strays when a
    // control is hidden or disabled. The window itself takes the keys of such a control.
    void RestoreSoon();

protected:
    void ShowFocus(Control& control) override;

private:
    void Restore();
    void Frame(const Control& control, QWidget* widget);
    bool IsOn(const Form& form);

    QObject later_;
    bool restoring_ = false;
    // The control of each form that had the focus last.
    std::map<const Form*, Control*> last_;
    InnerFrameStyle frameStyle_;
    QPointer<QFocusFrame> frame_;
};

}  // namespace kvt
