#include "draw/svg.h"

#include <algorithm>
#include <cmath>

#include "basic/code_page.h"
#include "basic/number.h"
#include "draw/geometry.h"
#include "platform/operations.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

constexpr double margin = 300;  // twips
constexpr int twipsPerPixel = 15;

std::string Number(double value) { return PlainNumber(static_cast<float>(std::round(value * 10) / 10)); }

std::string Attribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + '"';
}

std::string ColorText(Color color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", static_cast<unsigned>(color & 0xFF),
                  static_cast<unsigned>(color >> 8 & 0xFF), static_cast<unsigned>(color >> 16 & 0xFF));
    return text;
}

std::string Escaped(const std::string& utf8) {
    std::string text;
    for (const char c : utf8) {
        switch (c) {
            case '&': text += "&amp;"; break;
            case '<': text += "&lt;"; break;
            case '>': text += "&gt;"; break;
            case '"': text += "&quot;"; break;
            default:
                // Other control characters have no place in a document.
                if (static_cast<unsigned char>(c) >= 0x20) text += c;
        }
    }
    return text;
}

bool SpansField(const DrawOperation& line, int width, int height) {
    if (line.What != Kind::Line) return false;
    return (line.X1 == 0 && line.X2 == static_cast<float>(width) && line.Y1 == line.Y2) ||
           (line.Y1 == 0 && line.Y2 == static_cast<float>(height) && line.X1 == line.X2);
}

// Of an arc only its ends and the quarters that it passes count.
Extent ArcExtent(const DrawOperation& arc) {
    const double half = arc.Width * twipsPerPixel / 2.0;
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

class SvgWriter {
public:
    SvgWriter(const FieldArea& area, const SvgHead& head) : area_(area), head_(head) {}

    std::string Write(const std::vector<DrawOperation>& operations, Color ground) {
        Begin(ground);
        for (const DrawOperation& one : operations) {
            const bool stroke = one.What == Kind::Line || (one.What == Kind::Circle && !one.IsFullCircle());
            if (!stroke || !SameStroke(one)) EndPath();
            if (stroke) {
                AddToPath(one);
            } else if (one.What == Kind::Box) {
                AddBox(one);
            } else {
                AddCircle(one);
            }
        }
        EndPath();
        return out_ + "</g>\n</svg>\n";
    }

private:
    void Begin(Color ground) {
        const std::string title = Escaped(ToUtf8(head_.Title));
        const std::string scale = PlainNumber(head_.DrawScale);
        out_ = "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
               Attribute("width", Number(area_.Width / twipsPerPixel)) +
               Attribute("height", Number(area_.Height / twipsPerPixel)) +
               Attribute("viewBox", Number(area_.Left) + " " + Number(area_.Top) + " " + Number(area_.Width) +
                                        " " + Number(area_.Height)) +
               Attribute("data-twips-a-unit", scale) + Attribute("data-unit", head_.Unit) + ">\n<title>" +
               title + "</title>\n<desc>Tool path at scale " + scale + ": " + scale +
               " twips for each unit of " + head_.Unit + "; 15 twips are one pixel.</desc>\n" +
               "<defs><pattern id=\"hatch\" width=\"120\" height=\"120\" patternUnits=\"userSpaceOnUse\">" +
               "<path d=\"M0 0L120 120\" stroke=\"#000000\" stroke-width=\"15\"/></pattern></defs>\n<rect" +
               Attribute("x", Number(area_.Left)) + Attribute("y", Number(area_.Top)) +
               Attribute("width", Number(area_.Width)) + Attribute("height", Number(area_.Height)) +
               Attribute("fill", ColorText(ground)) +
               "/>\n<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
    }

    static std::string StrokeOf(const DrawOperation& one) {
        // Whatever the pen's colour, an inversion takes the difference to white.
        const bool inverts = one.Mode == draw_mode::Invert;
        std::string text = Attribute("stroke", ColorText(inverts ? 0xFFFFFF : one.Ink)) +
                           Attribute("stroke-width", PlainNumber(one.Width * twipsPerPixel));
        if (one.Style != draw_style::Solid && one.Width == 1) text += Attribute("stroke-dasharray", "30 30");
        if (inverts) text += Attribute("style", "mix-blend-mode:difference");
        return text;
    }

    static std::string FillOf(const DrawOperation& one) {
        if (one.Fill == fill_style::Solid) return Attribute("fill", ColorText(one.FillInk));
        return one.Fill == fill_style::Transparent ? std::string() : Attribute("fill", "url(#hatch)");
    }

    bool SameStroke(const DrawOperation& one) const {
        return path_.empty() || (one.Ink == pen_.Ink && one.Width == pen_.Width && one.Style == pen_.Style &&
                                 one.Mode == pen_.Mode && one.Mode == draw_mode::Copy);
    }

    void AddToPath(const DrawOperation& one) {
        pen_ = one;
        const auto point = [](double x, double y) { return Number(x) + " " + Number(y); };
        if (one.What == Kind::Line) {
            const std::string from = point(one.X1, one.Y1);
            if (from != end_ || path_.empty()) path_ += "M" + from;
            end_ = point(one.X2, one.Y2);
            path_ += "L" + end_;
            return;
        }
        double sweep = std::fmod(double{one.End} - one.Start, 2 * Pi);
        if (sweep <= 1e-6) sweep += 2 * Pi;
        const double r = one.Radius();
        const auto at = [&](double angle) {
            return point(one.X1 + r * std::cos(angle), one.Y1 - r * std::sin(angle));
        };
        // In two pieces, so that no piece ends where it begins.
        const std::string piece = "A" + Number(r) + " " + Number(r) + " 0 0 0 ";
        end_ = at(one.Start + sweep);
        path_ += "M" + at(one.Start) + piece + at(one.Start + sweep / 2) + piece + end_;
    }

    void EndPath() {
        if (!path_.empty()) out_ += "<path" + Attribute("d", path_) + StrokeOf(pen_) + "/>\n";
        path_.clear();
        end_.clear();
    }

    void AddBox(const DrawOperation& box) {
        out_ += "<rect" + Attribute("x", Number(std::min(box.X1, box.X2))) +
                Attribute("y", Number(std::min(box.Y1, box.Y2))) +
                Attribute("width", Number(std::abs(double{box.X2} - box.X1))) +
                Attribute("height", Number(std::abs(double{box.Y2} - box.Y1))) + FillOf(box) + StrokeOf(box) +
                "/>\n";
        // A box without width or height is a line, which a rectangle does not show.
        if (box.X1 == box.X2 || box.Y1 == box.Y2) {
            DrawOperation line = box;
            line.What = Kind::Line;
            AddToPath(line);
            EndPath();
        }
    }

    void AddCircle(const DrawOperation& circle) {
        out_ += "<circle" + Attribute("cx", Number(circle.X1)) + Attribute("cy", Number(circle.Y1)) +
                Attribute("r", Number(std::abs(circle.Radius()))) + FillOf(circle) + StrokeOf(circle) +
                "/>\n";
    }

    const FieldArea& area_;
    const SvgHead& head_;
    std::string out_;
    std::string path_, end_;
    DrawOperation pen_;
};

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
    return SvgWriter(area, head).Write(SeenIn(operations, area), BackgroundOf(operations));
}

}  // namespace kvt
