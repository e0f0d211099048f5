#include "desktop/picture_button.h"

#include <QPainterPath>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <sstream>
#include <string>

namespace kvt {

namespace {

constexpr double grid = 24;
constexpr double pictureSize = 20;  // pixels at factor 1
constexpr double strokeWidth = 1.7;
constexpr int margin = 3;  // pixels

QPainterPath PathOf(std::string_view strokes) {
    QPainterPath path;
    std::istringstream text{std::string(strokes)};
    const auto point = [&text] {
        double x = 0;
        double y = 0;
        text >> x >> y;
        return QPointF(x, y);
    };
    for (char command = 0; text >> command;) {
        switch (command) {
            case 'M': path.moveTo(point()); break;
            case 'L': path.lineTo(point()); break;
            case 'C': {
                const QPointF first = point();
                const QPointF second = point();
                path.cubicTo(first, second, point());
                break;
            }
            case 'O': {
                const QPointF centre = point();
                double radius = 0;
                text >> radius;
                path.addEllipse(centre, radius, radius);
                break;
            }
            default: path.closeSubpath(); break;
        }
    }
    return path;
}

class PictureButton : public QPushButton {
public:
    PictureButton(std::string_view strokes, double factor, QWidget* parent)
        : QPushButton(parent), strokes_(PathOf(strokes)), scale_(pictureSize * factor / grid) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        option.text.clear();
        painter.drawControl(QStyle::CE_PushButton, option);

        const bool hasCaption = ShowsCaption();
        const int captionHeight = hasCaption ? fontMetrics().height() : 0;
        const double picture = grid * scale_;
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate((width() - picture) / 2, (height() - captionHeight - picture) / 2);
        painter.scale(scale_, scale_);
        const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
        painter.setPen(QPen(palette().color(group, QPalette::ButtonText), strokeWidth, Qt::SolidLine,
                            Qt::RoundCap, Qt::RoundJoin));
        painter.drawPath(strokes_);
        painter.restore();
        if (!hasCaption) return;
        const QRect place(0, height() - captionHeight - margin, width(), captionHeight);
        painter.drawItemText(place, Qt::AlignCenter, palette(), isEnabled(), text(), QPalette::ButtonText);
    }

private:
    bool HasRoom() const { return fontMetrics().horizontalAdvance(text()) <= width() - 2 * margin; }
    // Buttons side by side have captions all, or none.
    bool ShowsCaption() const {
        if (text().isEmpty() || !HasRoom()) return false;
        for (const QObject* other : parentWidget()->children()) {
            const auto* const button = dynamic_cast<const PictureButton*>(other);
            if (button && !button->isHidden() && !button->HasRoom()) return false;
        }
        return true;
    }

    QPainterPath strokes_;
    double scale_;
};

}  // namespace

QPushButton* NewPictureButton(std::string_view strokes, double factor, QWidget* parent) {
    return new PictureButton(strokes, factor, parent);
}

}  // namespace kvt
