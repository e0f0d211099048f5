#include "desktop/picture_button.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/controls.h"

namespace kvt {

namespace {

// "x,y x,y; x,y x,y": the points of a stroke, and the strokes.
QPainterPath PathOf(std::string_view strokes) {
    QPainterPath path;
    const char* at = strokes.data();
    const char* const end = at + strokes.size();
    bool begins = true;
    while (at < end) {
        int x = 0;
        int y = 0;
        const auto first = std::from_chars(at, end, x);
        if (first.ec != std::errc() || first.ptr == end) break;
        const auto second = std::from_chars(first.ptr + 1, end, y);
        if (second.ec != std::errc()) break;
        if (begins) {
            path.moveTo(x, y);
        } else {
            path.lineTo(x, y);
        }
        at = second.ptr;
        begins = at < end && *at == ';';
        while (at < end && (*at == ';' || *at == ' ')) ++at;
    }
    return path;
}

}  // namespace

PictureButton::PictureButton(std::string_view strokes, QWidget* parent)
    : QPushButton(parent), picture_(PathOf(strokes)) {}

void PictureButton::paintEvent(QPaintEvent*) {
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    const QString words = std::exchange(option.text, QString());
    painter.drawControl(QStyle::CE_PushButton, option);

    QRectF room = rect().adjusted(3, 3, -3, -3);
    if (!words.isEmpty()) {
        const int height = fontMetrics().height();
        const QRectF below(room.left(), room.bottom() - height, room.width(), height);
        painter.setPen(option.palette.color(QPalette::ButtonText));
        painter.drawText(below, Qt::AlignCenter, words);
        room.setBottom(below.top());
    }
    const double side = std::min({room.width(), room.height(), 2.0 * fontMetrics().height()});
    const double scale = side / CommandButton::PictureSide;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(room.center() - QPointF(side / 2, side / 2));
    painter.scale(scale, scale);
    QPen pen(option.palette.color(QPalette::ButtonText), 1.5);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.drawPath(picture_);
}

}  // namespace kvt
