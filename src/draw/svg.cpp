#include "draw/svg.h"

#include <algorithm>
#include <cmath>

#include "basic/code_page.h"
#include "basic/number.h"
#include "draw/geometry.h"
#include "platform/operations.h"
#include "platform/svg_strokes.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

constexpr double margin = 300;  // twips

bool SpansField(const DrawOperation& line, int width, int height) {
    if (line.What != Kind::Line) return false;
    return (line.X1 == 0 && line.X2 == static_cast<float>(width) && line.Y1 == line.Y2) ||
           (line.Y1 == 0 && line.Y2 == static_cast<float>(height) && line.X1 == line.X2);
}

// Of an arc only its ends and the quarters that it passes count.
Extent ArcExtent(const DrawOperation& arc) {
    const double half = arc.Width * TwipsPerPixel / 2.0;
    Extent extent{1e300, 1e300, -1e300, -1e300};
    const auto add = [&](double angle) {
        const double x = arc.X1 + arc.Radius() * std::cos(angle);
        const double y = arc.Y1 - arc.Radius() * std::sin(angle);
        extent = {std::min(extent.Left, x - half), std::min(extent.Top, y - half),
                  std::max(extent.Right, x + half), std::max(extent.Bottom, y + half)};
    };
    double end = arc.End;
    while (end <= double{arc.Start} + 1e-6) end += 2 * Pi;
    add(arc.Start);
    add(end);
    for (int quarter = static_cast<int>(std::ceil(arc.Start / (Pi / 2))); quarter * Pi / 2 < end; ++quarter)
        add(quarter * Pi / 2);
    return extent;
}

// What stands in front of the strokes.
std::string BeginOf(const FieldArea& area, const SvgHead& head, Color background) {
    const std::string title = SvgText(ToUtf8(head.Title));
    const std::string scale = PlainNumber(head.DrawScale);
    return "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
           SvgAttribute("width", SvgNumber(area.Width / TwipsPerPixel)) +
           SvgAttribute("height", SvgNumber(area.Height / TwipsPerPixel)) +
           SvgAttribute("viewBox", SvgNumber(area.Left) + " " + SvgNumber(area.Top) + " " +
                                       SvgNumber(area.Width) + " " + SvgNumber(area.Height)) +
           SvgAttribute("data-twips-a-unit", scale) + SvgAttribute("data-unit", head.Unit) + ">\n<title>" +
           title + "</title>\n<desc>Tool path at scale " + scale + ": " + scale + " twips for each unit of " +
           head.Unit + "; 15 twips are one pixel.</desc>\n" + SvgHatch() + "\n<rect" +
           SvgAttribute("x", SvgNumber(area.Left)) + SvgAttribute("y", SvgNumber(area.Top)) +
           SvgAttribute("width", SvgNumber(area.Width)) + SvgAttribute("height", SvgNumber(area.Height)) +
           SvgAttribute("fill", SvgColor(background)) + "/>\n";
}

}  // namespace

FieldArea AreaOf(std::span<const DrawOperation> operations, int fieldWidth, int fieldHeight) {
    Extent all{1e300, 1e300, -1e300, -1e300};
    for (const DrawOperation& one : operations) {
        if (one.What == Kind::Clear || one.What == Kind::Picture) continue;
        if (SpansField(one, fieldWidth, fieldHeight)) continue;
        const bool arc = one.What == Kind::Circle && !one.IsFullCircle();
        const Extent extent = arc ? ArcExtent(one) : ExtentOf(one);
        all = {std::min(all.Left, extent.Left), std::min(all.Top, extent.Top),
               std::max(all.Right, extent.Right), std::max(all.Bottom, extent.Bottom)};
    }
    const Extent field{0, 0, static_cast<double>(fieldWidth), static_cast<double>(fieldHeight)};
    if (all.Left > all.Right) all = field;
    // What lies beyond the field is nowhere to be seen.
    all = {std::clamp(all.Left, field.Left, field.Right), std::clamp(all.Top, field.Top, field.Bottom),
           std::clamp(all.Right, field.Left, field.Right), std::clamp(all.Bottom, field.Top, field.Bottom)};
    return {all.Left - margin, all.Top - margin, all.Right - all.Left + 2 * margin,
            all.Bottom - all.Top + 2 * margin};
}

Color BackgroundOf(std::span<const DrawOperation> operations) {
    return !operations.empty() && operations.front().What == Kind::Clear ? operations.front().Ink : 0;
}

std::string SvgOf(std::span<const DrawOperation> operations, const SvgHead& head) {
    const FieldArea area = AreaOf(operations, head.FieldWidth, head.FieldHeight);
    return BeginOf(area, head, BackgroundOf(operations)) + SvgStrokesOf(SeenIn(operations, area)) +
           "</svg>\n";
}

}  // namespace kvt
