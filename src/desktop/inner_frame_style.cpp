#include "desktop/inner_frame_style.h"

#include <QPainter>
#include <QStyleHintReturnMask>
#include <QStyleOption>

namespace kvt {

namespace {

constexpr int thickness = 2;  // pixels

QRegion FrameIn(const QRect& rect) {
    return QRegion(rect) - rect.adjusted(thickness, thickness, -thickness, -thickness);
}

}  // namespace

int InnerFrameStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                                 const QWidget* widget) const {
    const bool isMargin = metric == PM_FocusFrameHMargin || metric == PM_FocusFrameVMargin;
    return isMargin ? 0 : QProxyStyle::pixelMetric(metric, option, widget);
}

int InnerFrameStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                               QStyleHintReturn* returned) const {
    if (hint == SH_FocusFrame_AboveWidget) return 1;
    if (hint != SH_FocusFrame_Mask) return QProxyStyle::styleHint(hint, option, widget, returned);
    if (auto* const mask = qstyleoption_cast<QStyleHintReturnMask*>(returned))
        mask->region = FrameIn(option->rect);
    return 1;
}

void InnerFrameStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
    if (element != CE_FocusFrame) return QProxyStyle::drawControl(element, option, painter, widget);
    for (const QRect& part : FrameIn(option->rect))
        painter->fillRect(part, option->palette.color(QPalette::WindowText));
}

}  // namespace kvt
