#include "desktop/range_views.h"

#include <QEvent>
#include <QScrollBar>
#include <QToolButton>

#include "basic/stack_guard.h"
#include "desktop/text.h"

namespace kvt {

ComboBoxView::ComboBoxView(DesktopContext& desktop, ComboBox& control, QWidget* parent)
    : View(desktop, control, new QComboBox(parent)), box_(control), face_(static_cast<QComboBox*>(Widget())) {
    face_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(face_, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (following_) return;
        Desktop.System.Run(box_, "Click", [&] {
            box_.ListIndex = index;
            box_.Click();
        });
    });
}

void ComboBoxView::Follow(PropertyId id) {
    const StackGuard guard(following_);
    switch (id) {
        case PropertyId::Entries:
            face_->clear();
            for (const std::string& entry : box_.Entries()) face_->addItem(ToQt(entry));
            [[fallthrough]];
        case PropertyId::ListIndex: face_->setCurrentIndex(box_.ListIndex); break;
        default: View::Follow(id);
    }
}

// The wheel over a closed box chooses nothing: it may be on its way to something else.
bool ComboBoxView::eventFilter(QObject* watched, QEvent* event) {
    return event->type() == QEvent::Wheel || View::eventFilter(watched, event);
}

ScrollBarView::ScrollBarView(DesktopContext& desktop, ScrollBar& control, QWidget* parent)
    : View(desktop, control, new QScrollBar(control.Vertical ? Qt::Vertical : Qt::Horizontal, parent)),
      bar_(control),
      face_(static_cast<QAbstractSlider*>(Widget())) {
    connect(face_, &QAbstractSlider::valueChanged, this, [this](int value) {
        if (following_) return;
        Desktop.System.Run(bar_, "Change", [&] { bar_.SetValue(value); });
    });
}

void ScrollBarView::Follow(PropertyId id) {
    const StackGuard guard(following_);
    switch (id) {
        case PropertyId::Bounds:
        case PropertyId::Value:
            face_->setRange(bar_.Lowest(), bar_.Highest());
            face_->setInvertedAppearance(bar_.Max < bar_.Min);
            face_->setSingleStep(bar_.SmallChange);
            face_->setPageStep(bar_.LargeChange);
            face_->setValue(bar_.Value);
            break;
        default: View::Follow(id);
    }
}

ProgressBarView::ProgressBarView(DesktopContext& desktop, ProgressBar& control, QWidget* parent)
    : View(desktop, control, new QProgressBar(parent)),
      bar_(control),
      face_(static_cast<QProgressBar*>(Widget())) {
    face_->setTextVisible(false);
}

void ProgressBarView::Follow(PropertyId id) {
    if (id == PropertyId::Bounds || id == PropertyId::Value) {
        face_->setRange(bar_.Min, bar_.Max);
        face_->setValue(bar_.Value);
    } else {
        View::Follow(id);
    }
}

UpDownView::UpDownView(DesktopContext& desktop, UpDown& control, QWidget* parent)
    : View(desktop, control, new QWidget(parent)), range_(control) {
    const auto arrow = [&](Qt::ArrowType type, int step) {
        auto* button = new QToolButton(Widget());
        button->setArrowType(type);
        button->setAutoRepeat(true);
        button->setFocusPolicy(Qt::NoFocus);
        connect(button, &QToolButton::clicked, this, [this, step] {
            Desktop.System.Run(range_, "Change", [&] { range_.SetValue(range_.Value + step); });
        });
        return button;
    };
    up_ = arrow(Qt::UpArrow, 1);
    down_ = arrow(Qt::DownArrow, -1);
}

void UpDownView::Follow(PropertyId id) {
    if (id == PropertyId::ToolTip) {
        for (QWidget* button : {up_, down_}) button->setToolTip(ToQt(range_.ToolTip));
    }
    View::Follow(id);
}

void UpDownView::Place() {
    const int width = Widget()->width();
    const int half = Widget()->height() / 2;
    up_->setGeometry(0, 0, width, half);
    down_->setGeometry(0, half, width, Widget()->height() - half);
}

bool UpDownView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize) Place();
    return View::eventFilter(watched, event);
}

}  // namespace kvt
