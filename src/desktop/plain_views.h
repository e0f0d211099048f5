#pragma once

#include <QLabel>
#include <QTabBar>
#include <QTextBrowser>
#include <QTimer>

#include "desktop/view.h"

// The views of the controls that show something and take little from the user.
namespace kvt {

// A text, shortened in its middle where it is too long for its place. Several lines where it is high enough.
class LabelView : public View {
public:
    LabelView(DesktopContext& desktop, Label& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Label& label_;
    QLabel* face_;
};

// A box around its controls, with its caption in the upper edge.
class FrameView : public View {
public:
    FrameView(DesktopContext& desktop, Frame& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
};

// A document to read; the mouse may give it the keys, so that they scroll it.
class RichTextView : public View {
public:
    RichTextView(DesktopContext& desktop, RichText& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    bool Scrolls() const override { return true; }

private:
    void ShowText();
    void FindSought();

    RichText& document_;
    QTextBrowser* browser_;
};

// The tabs, above the page whose controls are to be seen.
class TabStripView : public View {
public:
    TabStripView(DesktopContext& desktop, TabStrip& control, QWidget* parent);

protected:
    void Follow(PropertyId id) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FollowCaptions();
    void PlacePage();

    TabStrip& strip_;
    QTabBar* bar_;
    QFrame* page_;
};

// No widget: a clock that ticks while the control is enabled. A tick that comes up while the handler of the one
// before still runs is left out.
class TimerView : public QObject, public ControlView {
public:
    TimerView(DesktopContext& desktop, Timer& control);
    ~TimerView() override { timer_.View = nullptr; }
    void PropertyChanged(Control&, PropertyId id) override;

private:
    void Set();

    Timer& timer_;
    QTimer clock_;
    bool ticking_ = false;
};

}  // namespace kvt
