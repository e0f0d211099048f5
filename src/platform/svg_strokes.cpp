#include "platform/svg_strokes.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "basic/number.h"
#include "platform/operations.h"
#include "platform/twips.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

class StrokeWriter {
public:
    std::string Write(std::span<const DrawOperation> operations) {
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
        return out_;
    }

private:
    static std::string StrokeOf(const DrawOperation& one) {
        // Whatever the pen's colour, an inversion takes the difference to white.
        const bool inverts = one.Mode == draw_mode::Invert;
        std::string text = SvgAttribute("stroke", SvgColor(inverts ? 0xFFFFFF : one.Ink)) +
                           SvgAttribute("stroke-width", PlainNumber(one.Width * TwipsPerPixel));
        if (one.Style != draw_style::Solid && one.Width == 1)
            text += SvgAttribute("stroke-dasharray", "30 30");
        if (inverts) text += SvgAttribute("style", "mix-blend-mode:difference");
        return text;
    }

    static std::string FillOf(const DrawOperation& one) {
        if (one.Fill == fill_style::Solid) return SvgAttribute("fill", SvgColor(one.FillInk));
        return one.Fill == fill_style::Transparent ? std::string() : SvgAttribute("fill", "url(#hatch)");
    }

    bool SameStroke(const DrawOperation& one) const {
        return path_.empty() || (one.Ink == pen_.Ink && one.Width == pen_.Width && one.Style == pen_.Style &&
                                 one.Mode == pen_.Mode && one.Mode == draw_mode::Copy);
    }

    void AddToPath(const DrawOperation& one) {
        pen_ = one;
        const auto point = [](double x, double y) { return SvgNumber(x) + " " + SvgNumber(y); };
        if (one.What == Kind::Line) {
            const std::string from = point(one.X1, one.Y1);
            if (from != end_ || path_.empty()) path_ += "M" + from;
            end_ = point(one.X2, one.Y2);
            path_ += "L" + end_;
            return;
        }
        const double sweep = SweepOf(one.Start, one.End);
        const double r = one.Radius();
        const auto at = [&](double angle) {
            return point(one.X1 + r * std::cos(angle), one.Y1 - r * std::sin(angle));
        };
        // In two pieces, so that no piece ends where it begins.
        const std::string piece = "A" + SvgNumber(r) + " " + SvgNumber(r) + " 0 0 0 ";
        end_ = at(one.Start + sweep);
        path_ += "M" + at(one.Start) + piece + at(one.Start + sweep / 2) + piece + end_;
    }

    void EndPath() {
        if (!path_.empty()) out_ += "<path" + SvgAttribute("d", path_) + StrokeOf(pen_) + "/>\n";
        path_.clear();
        end_.clear();
    }

    void AddBox(const DrawOperation& box) {
        out_ += "<rect" + SvgAttribute("x", SvgNumber(std::min(box.X1, box.X2))) +
                SvgAttribute("y", SvgNumber(std::min(box.Y1, box.Y2))) +
                SvgAttribute("width", SvgNumber(std::abs(double{box.X2} - box.X1))) +
                SvgAttribute("height", SvgNumber(std::abs(double{box.Y2} - box.Y1))) + FillOf(box) +
                StrokeOf(box) + "/>\n";
        // A box without width or height is a line, which a rectangle does not show.
        if (box.X1 == box.X2 || box.Y1 == box.Y2) {
            DrawOperation line = box;
            line.What = Kind::Line;
            AddToPath(line);
            EndPath();
        }
    }

    void AddCircle(const DrawOperation& circle) {
        out_ += "<circle" + SvgAttribute("cx", SvgNumber(circle.X1)) +
                SvgAttribute("cy", SvgNumber(circle.Y1)) +
                SvgAttribute("r", SvgNumber(std::abs(circle.Radius()))) + FillOf(circle) + StrokeOf(circle) +
                "/>\n";
    }

    std::string out_;
    std::string path_, end_;
    DrawOperation pen_;
};

}  // namespace

std::string SvgNumber(double value) { return PlainNumber(static_cast<float>(std::round(value * 10) / 10)); }

std::string SvgColor(Color color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", static_cast<unsigned>(color & 0xFF),
                  static_cast<unsigned>(color >> 8 & 0xFF), static_cast<unsigned>(color >> 16 & 0xFF));
    return text;
}

std::string SvgAttribute(const char* name, const std::string& value) {
    return std::string(" ") + name + "=\"" + value + '"';
}

std::string SvgText(const std::string& utf8) {
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

std::string SvgHatch() {
    return "<defs><pattern id=\"hatch\" width=\"120\" height=\"120\" patternUnits=\"userSpaceOnUse\">"
           "<path d=\"M0 0L120 120\" stroke=\"#000000\" stroke-width=\"15\"/></pattern></defs>";
}

std::string SvgStrokesOf(std::span<const DrawOperation> operations) {
    return "<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n" +
           StrokeWriter().Write(operations) + "</g>\n";
}

}  // namespace kvt
