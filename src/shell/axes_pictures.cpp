#include "shell/axes_pictures.h"

#include <algorithm>

namespace kvt {

namespace {

constexpr Color ink = 0x404040;
constexpr Color workInk = 0x808080;
constexpr Color axisInk = 0xB05000;
constexpr Color toolInk = 0x2020C0;

// The drawing lies on a sheet of 240 by 160 that is fitted into the field.
class Sheet {
public:
    explicit Sheet(PictureBox& field) : field_(field) {
        const double width = field.Width;
        const double height = field.Height;
        scale_ = std::min(width / 240, height / 160);
        left_ = (width - 240 * scale_) / 2;
        top_ = (height - 160 * scale_) / 2;
        field.Cls();
        field.FillStyle = fill_style::Transparent;
        field.DrawStyle = draw_style::Solid;
    }

    void Pen(Color color, int width) {
        field_.ForeColor = color;
        field_.DrawWidth = width;
    }
    void Line(double x1, double y1, double x2, double y2) { field_.Line(X(x1), Y(y1), X(x2), Y(y2)); }
    void Dotted(double x1, double y1, double x2, double y2) {
        field_.DrawStyle = draw_style::Dotted;
        Line(x1, y1, x2, y2);
        field_.DrawStyle = draw_style::Solid;
    }
    void Box(double x1, double y1, double x2, double y2) {
        field_.MoveTo(X(x1), Y(y1));
        field_.BoxTo(X(x2), Y(y2));
    }
    void Circle(double x, double y, double radius) { field_.Circle(X(x), Y(y), radius * scale_); }
    // An arrow with its head at the second point; it runs along one axis of the sheet or at 45 degrees.
    void Arrow(double x1, double y1, double x2, double y2) {
        Line(x1, y1, x2, y2);
        const double dx = x2 == x1 ? 0 : (x2 > x1 ? 1 : -1);
        const double dy = y2 == y1 ? 0 : (y2 > y1 ? 1 : -1);
        Line(x2, y2, x2 - 5 * dx - 3 * dy, y2 - 5 * dy - 3 * dx);
        Line(x2, y2, x2 - 5 * dx + 3 * dy, y2 - 5 * dy + 3 * dx);
    }
    // A plus sign and the axis' letter, 10 high, with its upper left corner there.
    void Name(char axis, double x, double y) {
        Line(x, y + 5, x + 5, y + 5);
        Line(x + 2.5, y + 2.5, x + 2.5, y + 7.5);
        x += 8;
        if (axis == 'X') {
            Line(x, y, x + 7, y + 10);
            Line(x + 7, y, x, y + 10);
        } else if (axis == 'Y') {
            Line(x, y, x + 3.5, y + 5);
            Line(x + 7, y, x + 3.5, y + 5);
            Line(x + 3.5, y + 5, x + 3.5, y + 10);
        } else {
            Line(x, y, x + 7, y);
            Line(x + 7, y, x, y + 10);
            Line(x, y + 10, x + 7, y + 10);
        }
    }

private:
    double X(double x) const { return left_ + x * scale_; }
    double Y(double y) const { return top_ + y * scale_; }

    PictureBox& field_;
    double scale_, left_, top_;
};

}  // namespace

void DrawLatheAxes(PictureBox& field) {
    Sheet sheet(field);
    // Chuck with its jaws, and the work in it.
    sheet.Pen(ink, 2);
    sheet.Box(20, 35, 45, 115);
    sheet.Box(45, 45, 60, 57);
    sheet.Box(45, 93, 60, 105);
    sheet.Pen(workInk, 2);
    sheet.Box(45, 57, 110, 93);
    sheet.Box(110, 64, 140, 86);
    sheet.Pen(ink, 1);
    sheet.Dotted(10, 75, 220, 75);
    // The tool stands on the near side.
    sheet.Pen(toolInk, 2);
    sheet.Line(150, 95, 158, 100);
    sheet.Line(158, 100, 158, 130);
    sheet.Line(158, 130, 146, 130);
    sheet.Line(146, 130, 146, 100);
    sheet.Line(146, 100, 150, 95);
    // From the zero point at the end of the work.
    sheet.Pen(axisInk, 2);
    sheet.Circle(140, 75, 3);
    sheet.Arrow(140, 75, 205, 75);
    sheet.Name('Z', 190, 58);
    sheet.Arrow(140, 75, 140, 140);
    sheet.Name('X', 118, 128);
}

void DrawMillAxes(PictureBox& field) {
    Sheet sheet(field);
    // Table and work, seen from the front and from above.
    sheet.Pen(ink, 2);
    sheet.Line(30, 140, 190, 140);
    sheet.Line(190, 140, 222, 108);
    sheet.Line(222, 108, 62, 108);
    sheet.Line(62, 108, 30, 140);
    sheet.Pen(workInk, 2);
    sheet.Box(80, 100, 150, 128);
    sheet.Line(80, 100, 100, 80);
    sheet.Line(150, 100, 170, 80);
    sheet.Line(100, 80, 170, 80);
    sheet.Line(150, 128, 170, 108);
    sheet.Line(170, 108, 170, 80);
    // Spindle and cutter.
    sheet.Pen(toolInk, 2);
    sheet.Box(118, 15, 142, 45);
    sheet.Box(125, 45, 135, 82);
    // From the front left corner of the work.
    sheet.Pen(axisInk, 2);
    sheet.Circle(80, 100, 3);
    sheet.Arrow(80, 100, 80, 35);
    sheet.Name('Z', 58, 32);
    sheet.Arrow(80, 100, 205, 100);
    sheet.Name('X', 200, 86);
    sheet.Arrow(80, 100, 112, 68);
    sheet.Name('Y', 100, 56);
}

}  // namespace kvt
