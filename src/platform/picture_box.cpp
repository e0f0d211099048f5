#include "platform/picture_box.h"

#include "basic/number.h"

namespace kvt {

using OperationKind = DrawOperation::Kind;

void PictureBox::Cls() {
    BeginList();
    CurrentX = 0;
    CurrentY = 0;
}

void PictureBox::MoveTo(double x, double y) {
    CurrentX = ToSingle(x);
    CurrentY = ToSingle(y);
}

void PictureBox::Line(double x1, double y1, double x2, double y2) {
    MoveTo(x1, y1);
    LineTo(x2, y2);
}

void PictureBox::LineTo(double x, double y) {
    DrawOperation line = Pen(OperationKind::Line);
    MoveTo(x, y);
    line.X2 = CurrentX;
    line.Y2 = CurrentY;
    Add(line);
}

void PictureBox::BoxTo(double x, double y) {
    DrawOperation box = Pen(OperationKind::Box);
    MoveTo(x, y);
    box.X2 = CurrentX;
    box.Y2 = CurrentY;
    Add(box);
}

void PictureBox::Circle(double x, double y, double radius) {
    MoveTo(x, y);
    DrawOperation circle = Pen(OperationKind::Circle);
    circle.X2 = ToSingle(radius);
    Add(circle);
}

void PictureBox::Circle(double x, double y, double radius, double start, double end) {
    MoveTo(x, y);
    DrawOperation arc = Pen(OperationKind::Circle);
    arc.X2 = ToSingle(radius);
    arc.Start = ToSingle(start);
    arc.End = ToSingle(end);
    Add(arc);
}

DrawOperation PictureBox::Pen(OperationKind what) const {
    DrawOperation operation;
    operation.What = what;
    operation.Style = static_cast<std::uint8_t>(DrawStyle);
    operation.Mode = static_cast<std::uint8_t>(DrawMode);
    operation.Fill =
        static_cast<std::uint8_t>(what == OperationKind::Line ? fill_style::Transparent : FillStyle);
    operation.Ink = ForeColor;
    operation.FillInk = FillColor;
    operation.X1 = CurrentX;
    operation.Y1 = CurrentY;
    operation.Width = DrawWidth;
    return operation;
}

void PictureBox::Add(const DrawOperation& operation) {
    if (operations_.empty()) BeginList();
    if (operations_.size() >= MostOperations && OnFull && OnFull()) {
        before_ += static_cast<long long>(operations_.size());
        operations_.clear();
        sources_.Clear();
        operations_.push_back({.What = OperationKind::Picture});
    }
    sources_.Added(operations_.size());
    operations_.push_back(operation);
    Control::Changed(PropertyId::Operations);
}

void PictureBox::BeginList() {
    before_ += static_cast<long long>(operations_.size());
    operations_.clear();
    sources_.Clear();
    Flattened = {};
    operations_.push_back({.What = OperationKind::Clear, .Ink = BackColor});
    Control::Changed(PropertyId::Operations);
}

FieldPlace PictureBox::EndOf(const SourceRun& run) const {
    if (sources_.IsOpen(run)) return {true, CurrentX, CurrentY};
    return {true, run.EndX, run.EndY};
}

// The pen stays where it is.
void PictureBox::Changed(PropertyId id) {
    if (id == PropertyId::BackColor) BeginList();
    Control::Changed(id);
}

}  // namespace kvt
