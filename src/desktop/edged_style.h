#pragma once

#include <QProxyStyle>

namespace kvt {

// A style whose fields, buttons and boxes have an edge that can be seen on dark and high-contrast desktops, where their
// own is lost in the ground. On light ones it is the style that it stands for.
class EdgedStyle : public QProxyStyle {
public:
    // key is the name of that style.
    explicit EdgedStyle(const QString& key) : QProxyStyle(key) {}
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};

}  // namespace kvt
