#pragma once

#include <QProxyStyle>

namespace kvt {

// Draws the mark of the focus along the inside of a widget's edge, so that nothing of it is left between its neighbours.
class InnerFrameStyle : public QProxyStyle {
public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

}  // namespace kvt
