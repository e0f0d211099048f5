#include "desktop/form_view.h"

#include <QApplication>
#include <QDropEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QScreen>
#include <QUrl>
#include <algorithm>

#include "basic/stack_guard.h"
#include "desktop/text.h"
#include "desktop/text_views.h"
#include "desktop/view_factory.h"

namespace kvt {

namespace {

constexpr PropertyId allProperties[] = {
    PropertyId::Left,         PropertyId::Height,  PropertyId::ToolTip,   PropertyId::Caption,
    PropertyId::Entries,      PropertyId::Bounds,  PropertyId::Rows,      PropertyId::Headers,
    PropertyId::Text,         PropertyId::Value,   PropertyId::ListIndex, PropertyId::ForeColor,
    PropertyId::MousePointer, PropertyId::Enabled, PropertyId::Visible,
};

// What lies over what: documents and pictures over the list, frames and tabs over these, the rest on top.
int Layer(const Control& control) {
    switch (control.Kind()) {
        case ControlKind::ListView: return 0;
        case ControlKind::PictureBox: return 1;
        case ControlKind::RichText: return 2;
        case ControlKind::Frame:
        case ControlKind::TabStrip: return 3;
        default: return 4;
    }
}

// In a title the toolkit takes one of these for a mark of its own, and two for one.
QString PlainTitle(std::string_view caption) {
    return ToQt(caption).replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

}  // namespace

FormView::FormView(DesktopContext& desktop, Form& form)
    : View(desktop, form, new QMainWindow), form_(form), window_(static_cast<QMainWindow*>(Widget())) {
    field_ = new QWidget(window_.get());
    window_->setCentralWidget(field_);
    if (form.TopMost) {
        window_->setWindowFlag(Qt::WindowStaysOnTopHint);
        window_->setAttribute(Qt::WA_ShowWithoutActivating);
    }
    window_->setAcceptDrops(true);
    Watch(field_);
    MakeViews();
    Stack();
    for (const PropertyId id : {PropertyId::Caption, PropertyId::Enabled, PropertyId::Width,
                                PropertyId::WindowState, PropertyId::Visible}) {
        Follow(id);
    }
    if (form.Left != 0 || form.Top != 0) ApplyPosition();
    desktop.Focus.RestoreSoon();
}

FormView::~FormView() {
    views_.clear();
    window_->removeEventFilter(this);
    field_->removeEventFilter(this);
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
        case PropertyId::Caption: window_->setWindowTitle(PlainTitle(form_.Caption)); break;
        case PropertyId::Width:
        case PropertyId::Height: ApplySize(); break;
        case PropertyId::Left:
        case PropertyId::Top: ApplyPosition(); break;
        case PropertyId::WindowState: ApplyState(); break;
        case PropertyId::Visible:
            // A window that comes back as large as it was hears of no new size: what the form believes may be another.
            if (form_.Visible && window_->testAttribute(Qt::WA_WState_Created))
                QMetaObject::invokeMethod(
                    this, [this] { Resized(); }, Qt::QueuedConnection);
            window_->setAttribute(Qt::WA_ShowWithoutActivating, form_.TopMost || form_.ShowsWithoutKeys);
            window_->setVisible(form_.Visible);
            if (form_.Visible && !form_.TopMost && !form_.ShowsWithoutKeys) window_->activateWindow();
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

void FormView::ApplySize() {
    if (window_->windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen)) return;
    const QSize size(Desktop.Lengths.PixelsUp(form_.Width - form_.EdgeWidth),
                     Desktop.Lengths.PixelsUp(form_.Height - form_.EdgeHeight));
    const QMenuBar* bar = window_->menuBar();
    const int barHeight =
        bar->isHidden() ? 0 : std::max(bar->heightForWidth(size.width()), bar->sizeHint().height());
    window_->resize(size.width(), size.height() + barHeight);
}

// A place that no screen has any more is left to the system.
void FormView::ApplyPosition() {
    const QPoint place(Desktop.Lengths.Pixels(form_.Left), Desktop.Lengths.Pixels(form_.Top));
    if (QGuiApplication::screenAt(place + QPoint(40, 20))) window_->move(place);
}

void FormView::ApplyState() {
    Qt::WindowStates state = window_->windowState();
    state &= ~(Qt::WindowMaximized | Qt::WindowMinimized | Qt::WindowFullScreen);
    if (form_.State == WindowState::Maximised) state |= Qt::WindowMaximized;
    if (form_.State == WindowState::Minimised) state |= Qt::WindowMinimized;
    if (state == window_->windowState()) return;
    window_->setWindowState(state);
    // A size that was set meanwhile.
    if (form_.State == WindowState::Normal) ApplySize();
}

void FormView::Resized() {
    if (following_ || window_->isMinimized()) return;
    bool changed = false;
    {
        const StackGuard guard(noting_);
        // A length that gives the same pixels stays as it was set.
        const auto twips = [&](int length, int edge, int pixels) {
            if (Desktop.Lengths.PixelsUp(length - edge) == pixels) return length;
            return Desktop.Lengths.Twips(pixels) + edge;
        };
        changed = form_.TakeSize(twips(form_.Width, form_.EdgeWidth, field_->width()),
                                 twips(form_.Height, form_.EdgeHeight, field_->height()));
    }
    if (changed && form_.OnResize) Desktop.System.Run(form_, "Resize", form_.OnResize);
}

void FormView::Moved() {
    if (following_ || (window_->windowState() & (Qt::WindowMaximized | Qt::WindowMinimized))) return;
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
    }
    if (form_.OnResize) Desktop.System.Run(form_, "Resize", form_.OnResize);
}

void FormView::Activated() {
    const bool toTheFront = Desktop.Front != &form_;
    Desktop.Front = &form_;
    Desktop.System.Run(form_, "GotFocus", [this] { Desktop.Focus.WindowActivated(form_); });
    if (toTheFront && form_.OnActivate) Desktop.System.Run(form_, "Activate", form_.OnActivate);
}

void FormView::Closed() {
    if (form_.OnQueryUnload) Desktop.System.Run(form_, "QueryUnload", form_.OnQueryUnload);
}

void FormView::Dropped(const QDropEvent& event) {
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
    switch (event->type()) {
        case QEvent::Move: Moved(); return false;
        case QEvent::WindowStateChange: StateChanged(); return false;
        case QEvent::WindowActivate: Activated(); return false;
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
            Dropped(*static_cast<QDropEvent*>(event));
            return true;
        default: return View::eventFilter(watched, event);
    }
}

}  // namespace kvt
