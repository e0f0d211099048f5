#include "desktop/covered_lists.h"

#include <QEvent>
#include <algorithm>

#include "basic/stack_guard.h"

namespace kvt {

namespace {

constexpr int gap = 4;  // pixels

}  // namespace

CoveredLists::CoveredLists(const DesktopContext& desktop, const Form& form) : desktop_(desktop) {
    for (const Control* control : form.Controls()) {
        View* const view = View::Of(*control);
        if (!view || control->Container != &form) continue;
        const auto* const list = dynamic_cast<const ListBox*>(control);
        if (control->Kind() == ControlKind::Frame) {
            frames_.push_back(view->Widget());
        } else if (list && control->Kind() == ControlKind::ListBox && !list->InFront) {
            lists_.push_back(list);
        } else {
            continue;
        }
        view->Widget()->installEventFilter(this);
    }
    Shorten();
}

bool CoveredLists::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::Show:
        case QEvent::Hide: Shorten(); break;
        default: break;
    }
    return false;
}

void CoveredLists::Shorten() {
    const StackGuard guard(shortening_);
    if (!guard.Entered()) return;
    for (const ListBox* list : lists_) {
        QWidget* const widget = View::Of(*list)->Widget();
        QRect place = desktop_.Lengths.Rectangle(list->Left, list->Top, list->Width, list->Height);
        for (const QWidget* frame : frames_) {
            const QRect over = frame->geometry();
            const bool atEnd = over.top() > place.top() && over.intersects(place);
            if (!frame->isHidden() && atEnd) place.setBottom(over.top() - gap);
        }
        widget->setGeometry(place);
    }
}

}  // namespace kvt
