#include "desktop/edged_style.h"

#include <QPainter>
#include <QStyleOption>

#include "desktop/colors.h"

namespace kvt {

void EdgedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isEdge = element == PE_FrameLineEdit || element == PE_PanelButtonCommand ||
                        element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton ||
                        element == PE_Frame;
    if (!isEdge || !IsDarkOrStrong(option->palette)) return;
    const bool focused = option->state.testFlag(State_HasFocus) && element != PE_Frame;
    painter->save();
    painter->setBrush(Qt::NoBrush);
    painter->setPen(focused ? SelectedEdge(option->palette) : EdgeColor(option->palette));
    const QRect edge = option->rect.adjusted(0, 0, -1, -1);
    if (element == PE_IndicatorRadioButton) {
        painter->setRenderHint(QPainter::Antialiasing);
        painter->drawEllipse(edge);
    } else {
        painter->drawRect(edge);
    }
    painter->restore();
}

}  // namespace kvt
