#include "desktop/form_view.h"

#include <QApplication>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QUrl>
#include <QWindow>
#include <algorithm>
#include <utility>

#include "basic/stack_guard.h"
#include "desktop/form_font.h"
#include "desktop/text.h"
#include "desktop/text_views.h"
#include "desktop/view_factory.h"

namespace kvt {

namespace {

constexpr PropertyId allProperties[] = {
    PropertyId::Left,           PropertyId::Height,       PropertyId::ToolTip,   PropertyId::Caption,
    PropertyId::Entries,        PropertyId::Bounds,       PropertyId::Rows,      PropertyId::Headers,
    PropertyId::Text,           PropertyId::Value,        PropertyId::ListIndex, PropertyId::ForeColor,
    PropertyId::AccessibleName, PropertyId::MousePointer, PropertyId::Enabled,   PropertyId::Visible,
};

constexpr int lastingTime = 300;  // milliseconds
// How long what a frame takes is waited for; there are systems without frames.
constexpr int frameInterval = 40;
constexpr int mostAsked = 25;
// A busy system may put it around the window later all the same.
constexpr int lateInterval = 250;
constexpr int mostAskedLate = 60;

// What lies over what: documents, pictures and lists of codes over the list, frames and tabs over these, the rest on
// top.
int Layer(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::ListView: return 0;
        case ControlKind::PictureBox: return 1;
        case ControlKind::RichText: return 2;
        case ControlKind::Frame:
        case ControlKind::TabStrip: return 3;
        case ControlKind::ListBox: return static_cast<const ListBox&>(control).InFront ? 5 : 2;
        default: return 4;
    }
}

// In a title the toolkit takes one of these for a mark of its own, and two for one.
QString PlainTitle(std::string_view caption) {
    return ShownToQt(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

}  // namespace

FormView::FormView(DesktopContext& desktop, Form& form)
    : View(desktop, form, new QMainWindow), form_(form), window_(static_cast<QMainWindow*>(Widget())) {
    sight_ = new QScrollArea(window_.get());
    sight_->setFrameShape(QFrame::NoFrame);
    sight_->setFocusPolicy(Qt::NoFocus);
    field_ = new QWidget;
    sight_->setWidget(field_);
    window_->setCentralWidget(sight_);
    Watch(sight_->viewport());
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget*, const QWidget* now) {
        if (now && field_->isAncestorOf(now)) BringIntoSight(*now);
    });
    if (form.TopMost) {
        window_->setWindowFlag(Qt::WindowStaysOnTopHint);
    }
    window_->setAcceptDrops(true);
    Watch(field_);
    lasting_.setSingleShot(true);
    lasting_.setInterval(lastingTime);
    connect(&lasting_, &QTimer::timeout, this, [this] { lasted_ = form_.RestoredPlace(); });
    MakeViews();
    Stack();
    covered_ = std::make_unique<CoveredLists>(desktop, form);
    SetSmallestSize();
    Follow(PropertyId::Caption);
    Follow(PropertyId::Enabled);
    Follow(PropertyId::Width);
    lasted_ = form.RestoredPlace();
    if (lasted_.Left != 0 || lasted_.Top != 0) Follow(PropertyId::Left);
    Follow(PropertyId::WindowState);
    Follow(PropertyId::Visible);
    desktop.Focus.RestoreSoon();
}

FormView::~FormView() {
    if (Desktop.Front == &form_) Desktop.Front = nullptr;
    covered_.reset();
    views_.clear();
    window_->removeEventFilter(this);
    field_->removeEventFilter(this);
    sight_->viewport()->removeEventFilter(this);
}

void FormView::MakeViews() {
    for (Control* control : form_.Controls()) MakeView(*control);
    // Menus stand in the bar or not before the window takes its size.
    window_->menuBar()->setVisible(!window_->menuBar()->actions().isEmpty());
}

// What contains the control gets its view first.
ControlView* FormView::MakeView(Control& control) {
    if (control.View || &control == &form_) return control.View;
    if (control.Kind() == ControlKind::Menu) {
        auto& menu = static_cast<Menu&>(control);
        const bool hasEntries =
            std::any_of(form_.Controls().begin(), form_.Controls().end(),
                        [&](const Control* other) { return other->Container == &control; });
        views_.push_back(std::make_unique<MenuView>(Desktop, menu, MenuParent(menu), hasEntries));
        return views_.back().get();
    }
    auto* container = dynamic_cast<View*>(MakeView(*control.Container));
    auto view = NewView(Desktop, control, container ? container->Inside() : field_);
    if (!view) return nullptr;
    for (const PropertyId id : allProperties) view->PropertyChanged(control, id);
    views_.push_back(std::move(view));
    return views_.back().get();
}

QWidget* FormView::MenuParent(const Menu& menu) {
    auto* above = dynamic_cast<MenuView*>(MakeView(*menu.Container));
    return above && above->Entries() ? static_cast<QWidget*>(above->Entries()) : window_->menuBar();
}

void FormView::Stack() {
    std::vector<Control*> controls = form_.Controls();
    std::stable_sort(controls.begin(), controls.end(),
                     [](const Control* a, const Control* b) { return Layer(*a) < Layer(*b); });
    for (const Control* control : controls) {
        if (View* view = Of(*control)) view->Widget()->raise();
    }
}

void FormView::Follow(PropertyId id) {
    if (noting_) return;
    const StackGuard guard(following_);
    switch (id) {
        case PropertyId::Caption:
            window_->setWindowTitle(PlainTitle(form_.Caption) + (form_.Unsaved ? " *" : ""));
            break;
        case PropertyId::Width:
        case PropertyId::Height: ApplySize(); break;
        case PropertyId::Left:
        case PropertyId::Top: ApplyPosition(); break;
        case PropertyId::RestoredPlace:
            ApplySize();
            ApplyPosition();
            break;
        case PropertyId::WindowState: ApplyState(); break;
        case PropertyId::Area:
            askedForFrame_ = 0;
            FillArea();
            break;
        case PropertyId::Visible:
            // A window that comes up smaller than it asked for, or comes back as large as it was, hears of no new size:
            // what the form believes may be another.
            if (form_.Visible)
                QMetaObject::invokeMethod(
                    this, [this] { Resized(); }, Qt::QueuedConnection);
            ApplyState();
            window_->setAttribute(Qt::WA_ShowWithoutActivating, form_.TopMost || form_.ComesBehind());
            window_->setVisible(form_.Visible);
            if (form_.Visible && !form_.TopMost && !form_.ComesBehind()) window_->activateWindow();
            break;
        case PropertyId::Front:
            window_->setWindowState(window_->windowState() & ~Qt::WindowMinimized);
            window_->raise();
            if (!form_.TopMost) window_->activateWindow();
            break;
        case PropertyId::Entries: MakeViews(); break;
        case PropertyId::Enabled: field_->setEnabled(form_.Enabled); break;
        default: break;
    }
}

// Of the field, in pixels, for a size of the form.
QSize FormView::FieldSize(int width, int height) const {
    return {Desktop.Lengths.PixelsUp(width - form_.EdgeWidth),
            Desktop.Lengths.PixelsUp(height - form_.EdgeHeight)};
}

// Of the window with its menus.
QSize FormView::SizeOf(int width, int height) const {
    const QSize size = FieldSize(width, height);
    const QMenuBar* bar = window_->menuBar();
    const int barHeight =
        bar->isHidden() ? 0 : std::max(bar->heightForWidth(size.width()), bar->sizeHint().height());
    return {size.width(), size.height() + barHeight};
}

// Before it was shown a window's frame is taken for that of the program's other windows.
QMargins FormView::FrameMargins() const {
    for (const QWindow* one : QGuiApplication::topLevelWindows()) {
        const bool framed = one->isVisible() && one->type() == Qt::Window && !one->frameMargins().isNull();
        if (framed && (one == window_->windowHandle() || !window_->isVisible())) return one->frameMargins();
    }
    return {};
}

// A window manager tells what a frame takes when it has put the first one around a window.
void FormView::FillArea() {
    if (!form_.AreaToFill()) return;
    const QMargins frame = FrameMargins();
    if (frame.isNull() && ++askedForFrame_ < mostAsked) {
        QTimer::singleShot(frameInterval, this, [this] { FillArea(); });
        return;
    }
    const WindowPlace area = *form_.AreaToFill();
    const Scale& lengths = Desktop.Lengths;
    const QRect wanted = lengths.Rectangle(area.Left, area.Top, area.Width, area.Height);
    const QSize field = wanted.marginsRemoved(frame).size();
    const int menus = SizeOf(lengths.Twips(field.width()) + form_.EdgeWidth, form_.EdgeHeight).height();
    form_.SetRestoredPlace({lengths.Twips(field.height() - menus) + form_.EdgeHeight, area.Left, area.Top,
                            lengths.Twips(field.width()) + form_.EdgeWidth});
    if (frame.isNull()) AwaitFrame(area, form_.RestoredPlace(), mostAskedLate);
}

// Fills the area again when the frame has come, if the window still stands where it was put without one.
void FormView::AwaitFrame(const WindowPlace& area, const WindowPlace& given, int asks) {
    if (asks == 0) return;
    QTimer::singleShot(lateInterval, this, [this, area, given, asks] {
        if (form_.AreaToFill() || form_.FillsScreen() || form_.RestoredPlace().Width != given.Width) return;
        FrameMargins().isNull() ? AwaitFrame(area, given, asks - 1) : form_.FillArea(area);
    });
}

// The window manager holds it to that, except on a screen that is smaller still.
void FormView::SetSmallestSize() {
    if (form_.SmallestWidth == 0) return;
    window_->setMinimumSize(SizeOf(form_.SmallestWidth, form_.SmallestHeight)
                                .boundedTo(RoomIn(window_->screen()->availableGeometry()).size()));
}

// The field is as large as the window, but never smaller than its controls need.
void FormView::FillSight() {
    const int least = form_.LeastHeight > 0 ? form_.LeastHeight : form_.SmallestHeight;
    const QSize needed = form_.SmallestWidth > 0 ? FieldSize(form_.SmallestWidth, least) : QSize(0, 0);
    // The bars come where it is larger, and take their room then.
    const QSize room = sight_->maximumViewportSize();
    const int bar = sight_->style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    const bool sideways = needed.width() > room.width();
    const bool down = needed.height() > room.height() - (sideways ? bar : 0);
    field_->resize(std::max(needed.width(), room.width() - (down ? bar : 0)),
                   std::max(needed.height(), room.height() - (sideways ? bar : 0)));
}

// Where a part of the field alone can be seen, that is the part with the control that has the keys.
void FormView::BringIntoSight(const QWidget& widget) {
    const QSize room = sight_->viewport()->size();
    if (widget.width() > room.width() || widget.height() > room.height()) return;
    const QPoint corner = widget.mapTo(field_, QPoint());
    const QPoint end = corner + QPoint(widget.width(), widget.height());
    sight_->ensureVisible(end.x(), end.y());
    sight_->ensureVisible(corner.x(), corner.y());
}

// A window that is up and fills the screen goes back to its place by itself. A hidden one is to come up filling the
// screen, with that place behind it.
template <class Change>
void FormView::WhileRestored(Change&& change) {
    const Qt::WindowStates state = window_->windowState();
    const bool fills = (state & (Qt::WindowMaximized | Qt::WindowFullScreen)) != 0;
    if (fills && window_->isVisible()) return;
    if (fills) window_->setWindowState(Qt::WindowNoState);
    change();
    if (fills) window_->setWindowState(state);
}

void FormView::ApplySize() {
    const WindowPlace place = form_.RestoredPlace();
    const QSize screen = window_->screen()->availableGeometry().size();
    WhileRestored([&] { window_->resize(SizeOf(place.Width, place.Height).boundedTo(screen)); });
}

// A place that no screen has any more is left to the system.
void FormView::ApplyPosition() {
    const WindowPlace place = form_.RestoredPlace();
    const QPoint corner(Desktop.Lengths.Pixels(place.Left), Desktop.Lengths.Pixels(place.Top));
    if (!QGuiApplication::screenAt(corner + QPoint(40, 20))) return;
    WhileRestored([&] { window_->move(corner); });
}

// A hidden window takes its state when it comes up: with one the toolkit makes its native window, whose place counts
// without the frame from then on.
void FormView::ApplyState() {
    if (!form_.Visible) return;
    Qt::WindowStates state = window_->windowState();
    state &= ~(Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen);
    if (form_.State == WindowState::Maximised) state |= Qt::WindowMaximized;
    if (form_.State == WindowState::Minimised) state |= Qt::WindowMinimized;
    if (state == window_->windowState()) return;
    window_->setWindowState(state);
    // A size that was set meanwhile.
    if (form_.State == WindowState::Normal) ApplySize();
}

bool FormView::NoteSize() {
    const StackGuard guard(noting_);
    // A length that gives the same pixels stays as it was set.
    const auto twips = [&](std::initializer_list<int> lengths, int edge, int pixels) {
        for (const int length : lengths) {
            if (Desktop.Lengths.PixelsUp(length - edge) == pixels) return length;
        }
        return Desktop.Lengths.Twips(pixels) + edge;
    };
    return form_.ApplySize(twips({form_.Width, lasted_.Width}, form_.EdgeWidth, field_->width()),
                           twips({form_.Height, lasted_.Height}, form_.EdgeHeight, field_->height()));
}

void FormView::Resized() {
    if (following_ || window_->isMinimized()) return;
    lasting_.start();
    if (NoteSize() && form_.OnResize) Desktop.System.Run(form_, "Resize", form_.OnResize);
}

void FormView::Moved() {
    if (following_ || (window_->windowState() & (Qt::WindowMaximized | Qt::WindowMinimized))) return;
    lasting_.start();
    const StackGuard guard(noting_);
    form_.Left = Desktop.Lengths.Twips(window_->x());
    form_.Top = Desktop.Lengths.Twips(window_->y());
}

void FormView::StateChanged() {
    const WindowState state = window_->isMinimized()                              ? WindowState::Minimised
                              : window_->isMaximized() || window_->isFullScreen() ? WindowState::Maximised
                                                                                  : WindowState::Normal;
    if (following_ || state == form_.State) return;
    {
        const StackGuard guard(noting_);
        form_.State = state;
        if (state != WindowState::Normal && lasting_.isActive()) form_.SetRestoredPlace(lasted_);
    }
    if (state != WindowState::Minimised) NoteSize();
    Moved();
    if (form_.OnResize) Desktop.System.Run(form_, "Resize", form_.OnResize);
}

void FormView::StayOnTop(bool stays) {
    if (form_.TopMost && window_->windowHandle())
        window_->windowHandle()->setFlag(Qt::WindowStaysOnTopHint, stays);
}

void FormView::Activated() {
    const Form* const before = std::exchange(Desktop.Front, &form_);
    bool known = false;
    Desktop.System.Run(form_, "GotFocus", [&] { known = Desktop.Focus.RestoreFocus(form_); });
    if (before != &form_) {
        if (before && before->OnLostFocus) Desktop.System.Run(*before, "LostFocus", before->OnLostFocus);
        if (form_.OnActivate) Desktop.System.Run(form_, "Activate", form_.OnActivate);
    }
    // Where the form itself has given the focus to nobody.
    if (!known) Desktop.System.Run(form_, "GotFocus", [this] { Desktop.Focus.TakeFirst(form_); });
}

void FormView::Closed() {
    if (form_.OnQueryUnload) Desktop.System.Run(form_, "QueryUnload", form_.OnQueryUnload);
}

void FormView::FilesDropped(const QDropEvent& event) {
    const QList<QUrl> urls = event.mimeData()->urls();
    const auto file =
        std::find_if(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
    if (file != urls.end()) {
        if (!form_.OnDropFile) return;
        const std::string path = PathText(file->toLocalFile());
        Desktop.System.Run(form_, "OLEDragDrop", [&] { form_.OnDropFile(path); });
        return;
    }
    const QWidget* under = window_->childAt(event.position().toPoint());
    for (const Control* control : form_.Controls()) {
        auto* box = dynamic_cast<TextBoxView*>(control->View);
        if (box && under && (box->Widget() == under || box->Widget()->isAncestorOf(under))) {
            box->Drop(event.mimeData()->text());
        }
    }
}

bool FormView::eventFilter(QObject* watched, QEvent* event) {
    if (watched == field_) {
        if (event->type() == QEvent::Resize) Resized();
        return false;
    }
    if (sight_ && watched == sight_->viewport()) {
        if (event->type() == QEvent::Resize) FillSight();
        return false;
    }
    switch (event->type()) {
        case QEvent::Move: Moved(); return false;
        case QEvent::WindowStateChange: StateChanged(); return false;
        case QEvent::WindowActivate: Activated(); return false;
        // Nothing lies above a question.
        case QEvent::WindowBlocked: StayOnTop(false); return false;
        case QEvent::WindowUnblocked: StayOnTop(true); return false;
        case QEvent::Close:
            if (Desktop.System.Ended()) return false;
            event->ignore();
            Closed();
            return true;
        case QEvent::DragEnter:
        case QEvent::DragMove: {
            auto& drag = static_cast<QDragMoveEvent&>(*event);
            if (drag.mimeData()->hasUrls() || drag.mimeData()->hasText()) drag.acceptProposedAction();
            return true;
        }
        case QEvent::Drop:
            static_cast<QDropEvent*>(event)->acceptProposedAction();
            FilesDropped(*static_cast<QDropEvent*>(event));
            return true;
        default: return View::eventFilter(watched, event);
    }
}

}  // namespace kvt
