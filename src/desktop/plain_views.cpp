#include "desktop/plain_views.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QTextOption>
#include <algorithm>

#include "basic/stack_guard.h"
#include "desktop/accessible.h"
#include "desktop/colors.h"
#include "desktop/text.h"

namespace kvt {

namespace {

constexpr int documentMargin = 12;  // pixels
constexpr int severalLines = 480;   // twips of height from which on a label has them

constexpr int leastEdge = 6;  // pixels of a frame's upper edge behind its caption

// A text shortened in its middle where it is wider than its place.
QString Fitted(const QString& text, const QFontMetrics& metrics, int width) {
    if (metrics.horizontalAdvance(text) <= width) return text;
    return metrics.elidedText(text, Qt::ElideMiddle, width);
}

class CaptionLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override {
        const QRect place = contentsRect();
        QPainter painter(this);
        if (wordWrap()) {
            // A name that is wider than the label is broken, too.
            QTextOption option(alignment());
            option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
            painter.setPen(palette().color(foregroundRole()));
            return painter.drawText(QRectF(place), text(), option);
        }
        style()->drawItemText(&painter, place, static_cast<int>(alignment()) | Qt::TextDontClip, palette(),
                              isEnabled(), Fitted(text(), fontMetrics(), place.width()), foregroundRole());
    }
};

class FrameFace : public QWidget {
public:
    FrameFace(const Frame& frame, QWidget* parent) : QWidget(parent), frame_(frame) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QString lead = ToQt(frame_.Lead);
        const QString caption = lead.isEmpty() || frame_.Caption.Empty()
                                    ? lead + ToQt(frame_.Caption)
                                    : lead + QStringLiteral(" \u00B7 ") + ToQt(frame_.Caption);
        const int height = fontMetrics().height();
        const int left = height / 2;
        const int top = caption.isEmpty() ? 0 : height / 2;
        const QRectF edge = QRectF(rect()).adjusted(0.5, top + 0.5, -0.5, -0.5);
        painter.setPen(EdgeColor(palette()));
        painter.drawRoundedRect(edge, 3, 3);
        if (caption.isEmpty()) return;
        const QString text = Fitted(caption, fontMetrics(), width() - left - leastEdge);
        const QRect place(left, 0, fontMetrics().horizontalAdvance(text), height);
        painter.fillRect(place.adjusted(-3, 0, 3, 0), palette().color(QPalette::Window));
        style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, palette(),
                              isEnabled(), text, QPalette::WindowText);
    }

private:
    const Frame& frame_;
};

// Whether an event is the left button let go over the widget that it was pressed on.
bool IsClick(const QWidget& widget, const QEvent& event) {
    if (event.type() != QEvent::MouseButtonRelease || !widget.isEnabled()) return false;
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    return mouse.button() == Qt::LeftButton && widget.rect().contains(mouse.position().toPoint());
}

}  // namespace

LabelView::LabelView(DesktopContext& desktop, Label& control, QWidget* parent)
    : View(desktop, control, new CaptionLabel(parent)),
      label_(control),
      face_(static_cast<QLabel*>(Widget())) {
    face_->setTextFormat(Qt::PlainText);
    // What lies on the form itself may lie over a frame and what is in it.
    face_->setAutoFillBackground(!control.Container || control.Container == &control.OwningForm());
}

void LabelView::Follow(PropertyId id) {
    switch (id) {
        case PropertyId::Caption:
            face_->setText(ShownToQt(label_.Caption));
            if (label_.Announced && face_->isVisible()) Announce(*face_, face_->text());
            break;
        case PropertyId::ForeColor: SetTextColor(*face_, label_.ForeColor); break;
        case PropertyId::Height: {
            const bool wraps = label_.Height >= severalLines;
            face_->setWordWrap(wraps);
            const Qt::Alignment side = label_.AtRight ? Qt::AlignRight : Qt::AlignLeft;
            face_->setAlignment(side | (wraps ? Qt::AlignTop : Qt::AlignVCenter));
            View::Follow(id);
            break;
        }
        default: View::Follow(id);
    }
}

bool LabelView::eventFilter(QObject* watched, QEvent* event) {
    if (!IsClick(*face_, *event)) return View::eventFilter(watched, event);
    Desktop.System.Run(label_, "Click", [this] { label_.Click(); });
    return true;
}

FrameView::FrameView(DesktopContext& desktop, Frame& control, QWidget* parent)
    : View(desktop, control, new FrameFace(control, parent)) {
    // It may lie over a picture or another frame, which must not shine through.
    Widget()->setAutoFillBackground(true);
}

void FrameView::Follow(PropertyId id) {
    if (id == PropertyId::Caption || id == PropertyId::Lead) {
        Widget()->update();
    } else {
        View::Follow(id);
    }
}

RichTextView::RichTextView(DesktopContext& desktop, RichText& control, QWidget* parent)
    : View(desktop, control, new QTextBrowser(parent)),
      document_(control),
      browser_(static_cast<QTextBrowser*>(Widget())) {
    Watch(browser_->viewport());
    browser_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    browser_->setOpenLinks(false);
    browser_->document()->setDocumentMargin(documentMargin);
    connect(browser_, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& link) { browser_->scrollToAnchor(link.fragment()); });
}

void RichTextView::ShowText() {
    if (document_.Plain) return browser_->setPlainText(ShownToQt(document_.Text));
    browser_->setSearchPaths({ToQt(document_.Folder)});
    browser_->setHtml(ToQt(document_.Text));
}

void RichTextView::FindSought() {
    const QString sought = ToQt(document_.Sought);
    document_.WasFound = browser_->find(sought);
    if (document_.WasFound) return;
    // On from the beginning.
    const QTextCursor before = browser_->textCursor();
    browser_->moveCursor(QTextCursor::Start);
    document_.WasFound = browser_->find(sought);
    if (!document_.WasFound) browser_->setTextCursor(before);
}

void RichTextView::Follow(PropertyId id) {
    switch (id) {
        case PropertyId::Text: return ShowText();
        case PropertyId::Section: return browser_->scrollToAnchor(ToQt(document_.Section));
        case PropertyId::Sought: return FindSought();
        default: View::Follow(id);
    }
}

TabStripView::TabStripView(DesktopContext& desktop, TabStrip& control, QWidget* parent)
    : View(desktop, control, new QWidget(parent)),
      strip_(control),
      bar_(new QTabBar(Widget())),
      page_(new QFrame(Widget())) {
    page_->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
    page_->setAutoFillBackground(true);
    // It lies over other controls, which must not shine through.
    Widget()->setAutoFillBackground(true);
    Widget()->setFocusProxy(bar_);
    bar_->setFocusPolicy(Qt::NoFocus);
    bar_->setExpanding(false);
    Watch(bar_);
    FollowCaptions();
    connect(bar_, &QTabBar::currentChanged, this, [this](int page) {
        if (page < 0 || page == strip_.Value) return;
        Desktop.System.Run(strip_, "Click", [&] {
            strip_.Value = page;
            strip_.Click();
        });
    });
}

void TabStripView::Follow(PropertyId id) {
    switch (id) {
        case PropertyId::Caption: FollowCaptions(); break;
        case PropertyId::Value:
            bar_->setCurrentIndex(strip_.Value);
            for (Control* control : strip_.OwningForm().Controls()) {
                View* const view = control->Container == &strip_ ? Of(*control) : nullptr;
                if (view) view->PropertyChanged(*control, PropertyId::Visible);
            }
            break;
        default: View::Follow(id);
    }
}

void TabStripView::FollowCaptions() {
    const QSignalBlocker quiet(bar_);
    for (int i = 0; i < static_cast<int>(strip_.Captions.size()); ++i) {
        const QString caption = ToQt(strip_.Captions[static_cast<std::size_t>(i)]);
        if (i < bar_->count()) {
            bar_->setTabText(i, caption);
        } else {
            bar_->addTab(caption);
        }
    }
    bar_->setCurrentIndex(strip_.Value);
    PlacePage();
}

void TabStripView::PlacePage() {
    const int height = bar_->sizeHint().height();
    bar_->setGeometry(0, 0, Widget()->width(), height);
    // The tab in front covers the edge of the page.
    page_->setGeometry(0, height - 1, Widget()->width(), Widget()->height() - height + 1);
    page_->lower();
}

bool TabStripView::eventFilter(QObject* watched, QEvent* event) {
    if (watched != Widget()) return View::eventFilter(watched, event);
    // What is pressed on the page is none of the tabs' business.
    if (event->type() == QEvent::Resize) PlacePage();
    return false;
}

TimerView::TimerView(DesktopContext& desktop, Timer& control) : timer_(control) {
    control.View = this;
    clock_.setTimerType(Qt::PreciseTimer);
    connect(&clock_, &QTimer::timeout, this, [this, &desktop] {
        const StackGuard guard(ticking_);
        if (!guard.Entered() || desktop.System.Ended() || !timer_.OnTimer) return;
        desktop.System.Run(timer_, "Timer", [this] { timer_.OnTimer(); });
    });
    Set();
}

void TimerView::PropertyChanged(Control&, PropertyId id) {
    if (id == PropertyId::Enabled || id == PropertyId::Value) Set();
}

void TimerView::Set() {
    if (timer_.Enabled && timer_.Interval > 0) {
        clock_.start(timer_.Interval);
    } else {
        clock_.stop();
    }
}

}  // namespace kvt
