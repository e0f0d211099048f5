#pragma once

#include <QMainWindow>
#include <QTimer>
#include <memory>
#include <vector>

#include "desktop/covered_lists.h"
#include "desktop/menu_view.h"
#include "desktop/view.h"

class QDropEvent;
class QScrollArea;

namespace kvt {

// A form as a window with a menu bar. The form's size is that of the field below the menu bar. Makes the views
// of all its controls; the form must outlive it.
class FormView : public View {
public:
    FormView(DesktopContext& desktop, Form& form);
    ~FormView() override;

    QWidget* Inside() const override { return field_; }
    QMainWindow& Window() const { return *window_; }

protected:
    void Follow(PropertyId id) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeViews();
    ControlView* MakeView(Control& control);
    QWidget* MenuParent(const Menu& menu);
    void Stack();

    void SetSmallestSize();
    template <class Change>
    void WhileRestored(Change&& change);
    void ApplySize();
    void ApplyPosition();
    void ApplyState();
    QSize FieldSize(int width, int height) const;
    QSize SizeOf(int width, int height) const;
    QMargins FrameMargins() const;
    void FillArea();
    void AwaitFrame(const WindowPlace& area, const WindowPlace& given, int asks);
    void FillSight();
    void BringIntoSight(const QWidget& widget);
    // True where the form has got another size.
    bool NoteSize();
    // The window has changed by the user's hand, or by the system's.
    void Resized();
    void Moved();
    void StateChanged();
    void StayOnTop(bool stays);
    void Activated();
    void Closed();
    void FilesDropped(const QDropEvent& event);

    Form& form_;
    int askedForFrame_ = 0;
    std::unique_ptr<QMainWindow> window_;
    // Shows the field, or a part of it where the window is smaller than what the controls are laid out for.
    QScrollArea* sight_ = nullptr;
    QWidget* field_ = nullptr;
    std::vector<std::unique_ptr<ControlView>> views_;
    std::unique_ptr<CoveredLists> covered_;
    // The window follows the form, or the form the window; never both.
    bool following_ = false;
    bool noting_ = false;
    // Some systems give a window that is being maximised its size before they say so: only a place that has lasted is
    // one to go back to.
    QTimer lasting_;
    WindowPlace lasted_ = {};
};

}  // namespace kvt
