#pragma once

#include <QImage>

#include "desktop/operation_painter.h"
#include "desktop/view.h"

class QMouseEvent;
class QPaintEvent;
class QPainter;
class QWheelEvent;

namespace kvt {

// A field that is drawn on. Of a large field only what is in sight is painted: new operations as they come, all of
// them when the size of a pixel changes, and what a movement has brought into sight.
class PictureBoxView : public View {
public:
    PictureBoxView(DesktopContext& desktop, PictureBox& control, QWidget* parent);
    ~PictureBoxView() override { box_.OnFull = nullptr; }

    void Paint();

protected:
    void Follow(PropertyId id) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    double PixelRatio() const;
    // What is in sight, in pixels of the screen from the field's corner.
    QRect InSight(double ratio) const;
    void ShowArea(const QRect& area, double ratio);
    // What is in sight, with the lit operations over it.
    QImage WithLit() const;
    void PaintCross(QPainter& painter) const;
    FieldPiece Piece() const;
    void FollowToolTip();
    void PaintPart(const QRect& part, std::span<const DrawOperation> operations);
    bool KeepAsPicture();
    void Moved(const QMouseEvent& event);
    void Pressed(const QMouseEvent& event);
    void Turned(const QWheelEvent& event);
    float TwipsAt(double pixel) const;

    PictureBox& box_;
    QImage shown_;  // the field's area_, in pixels of the screen
    QRect area_;
    double ratio_ = 0;
    // Which operations it shows: the first one's number, and how many from there on.
    long long first_ = -1;
    std::size_t painted_ = 0;
    QImage kept_;
};

}  // namespace kvt
