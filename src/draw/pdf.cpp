#include "draw/pdf.h"

#include <algorithm>
#include <cmath>

#include "basic/number.h"
#include "draw/geometry.h"
#include "platform/operations.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

constexpr double twipsPerPixel = 15;
constexpr double twipsPerPoint = 20;  // 72 an inch
constexpr double hatchStep = 120;
constexpr double mostOfAnArc = Pi / 2;  // of a curve that stands for it

std::string Number(double value) {
    return PlainNumber(static_cast<float>(std::round(value * 100) / 100)) + " ";
}
std::string Point(double x, double y) { return Number(x) + Number(y); }

std::string Ink(Color color, const char* operation) {
    std::string text;
    for (const int shift : {0, 8, 16})
        text += PlainNumber(static_cast<float>(std::round((color >> shift & 0xFF) / 0.255) / 1000)) + " ";
    return text + operation + "\n";
}

// What a text in parentheses may hold.
std::string Escaped(const std::string& text) {
    std::string out;
    for (const char c : text) {
        if (c == '(' || c == ')' || c == '\\') out += '\\';
        if (static_cast<unsigned char>(c) >= 0x20) out += c;
    }
    return out;
}

// The marks on the page, in twips of the field.
class PageWriter {
public:
    std::string Write(const FieldArea& area, Color ground, const std::vector<DrawOperation>& operations) {
        const double scale = 1 / twipsPerPoint;
        const auto fine = [](double value) { return PlainNumber(static_cast<float>(value)) + " "; };
        out_ = fine(scale) + "0 0 " + fine(-scale) + fine(-area.Left * scale) +
               fine((area.Top + area.Height) * scale) + "cm\n1 J 1 j\n" + Ink(ground, "rg") +
               Point(area.Left, area.Top) + Point(area.Width, area.Height) + "re f\n";
        for (const DrawOperation& one : operations) Add(one);
        return out_;
    }

private:
    void Add(const DrawOperation& one) {
        const bool inverts = one.Mode == draw_mode::Invert;
        // Whatever the pen's colour, an inversion takes the difference to white.
        out_ += inverts ? "q /Inverts gs\n" + Ink(0xFFFFFF, "RG") : Ink(one.Ink, "RG");
        out_ += Number(one.Width * twipsPerPixel) + "w\n";
        const bool dotted = one.Style != draw_style::Solid && one.Width == 1;
        if (dotted) out_ += "[30 30] 0 d\n";
        const std::string path = PathOf(one);
        const bool closed = one.What == Kind::Box || one.IsFullCircle();
        if (closed && one.What != Kind::Line) Fill(one, path);
        out_ += path + "S\n";
        if (dotted) out_ += "[] 0 d\n";
        if (inverts) out_ += "Q\n";
    }

    static std::string PathOf(const DrawOperation& one) {
        if (one.What == Kind::Line) return Point(one.X1, one.Y1) + "m " + Point(one.X2, one.Y2) + "l ";
        if (one.What == Kind::Box)
            return Point(one.X1, one.Y1) + Point(double{one.X2} - one.X1, double{one.Y2} - one.Y1) + "re ";
        return one.IsFullCircle() ? Arc(one, 0, 2 * Pi) + "h " : Arc(one, one.Start, SweepOf(one));
    }

    static double SweepOf(const DrawOperation& arc) {
        const double sweep = std::fmod(double{arc.End} - arc.Start, 2 * Pi);
        return sweep <= 1e-6 ? sweep + 2 * Pi : sweep;
    }

    static std::string Arc(const DrawOperation& one, double start, double sweep) {
        const double r = std::abs(one.Radius());
        const int pieces = std::max(1, static_cast<int>(std::ceil(sweep / mostOfAnArc - 1e-9)));
        const double step = sweep / pieces;
        const double reach = 4.0 / 3 * std::tan(step / 4);
        const auto at = [&](double angle, double along) {
            return Point(one.X1 + r * (std::cos(angle) - along * std::sin(angle)),
                         one.Y1 - r * (std::sin(angle) + along * std::cos(angle)));
        };
        std::string path = at(start, 0) + "m ";
        for (int i = 0; i < pieces; ++i) {
            const double from = start + step * i;
            const double to = from + step;
            path += at(from, reach) + at(to, -reach) + at(to, 0) + "c ";
        }
        return path;
    }

    void Fill(const DrawOperation& one, const std::string& path) {
        if (one.Fill == fill_style::Transparent) return;
        if (one.Fill == fill_style::Solid) return void(out_ += Ink(one.FillInk, "rg") + path + "f\n");
        const bool circle = one.What == Kind::Circle;
        const double r = std::abs(one.Radius());
        const auto [left, right] = circle ? std::pair{one.X1 - r, one.X1 + r}
                                          : std::pair<double, double>(std::minmax(one.X1, one.X2));
        const auto [top, bottom] = circle ? std::pair{one.Y1 - r, one.Y1 + r}
                                          : std::pair<double, double>(std::minmax(one.Y1, one.Y2));
        out_ += "q " + path + "W n " + Ink(one.FillInk, "RG") + Number(twipsPerPixel) + "w\n";
        const double height = bottom - top;
        for (double x = std::floor((left - height) / hatchStep) * hatchStep; x <= right; x += hatchStep)
            out_ += Point(x, top) + "m " + Point(x + height, bottom) + "l S\n";
        out_ += "Q\n";
    }

    std::string out_;
};

}  // namespace

std::string PdfOf(std::span<const DrawOperation> operations, const SvgHead& head) {
    const FieldArea area = AreaOf(operations, head.FieldWidth, head.FieldHeight);
    const std::string page = PageWriter().Write(area, BackgroundOf(operations), SeenIn(operations, area));
    const std::string title =
        head.Title + ", " + PlainNumber(head.DrawScale) + " twips for each unit of " + head.Unit;
    const std::string objects[] = {
        "<< /Type /Catalog /Pages 2 0 R >>",
        "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + Number(area.Width / twipsPerPoint) +
            Number(area.Height / twipsPerPoint) +
            "] /Contents 4 0 R /Resources << /ExtGState << /Inverts << /BM /Difference >> >> >> >>",
        "<< /Length " + PlainNumber(static_cast<std::int64_t>(page.size())) + " >>\nstream\n" + page +
            "\nendstream",
        "<< /Title (" + Escaped(title) + ") >>",
    };
    std::string out = "%PDF-1.4\n";
    std::string table;
    int number = 0;
    for (const std::string& object : objects) {
        table += Format(static_cast<double>(out.size()), "0000000000") + " 00000 n \n";
        out += PlainNumber(++number) + " 0 obj\n" + object + "\nendobj\n";
    }
    const auto tableAt = static_cast<std::int64_t>(out.size());
    return out + "xref\n0 6\n0000000000 65535 f \n" + table +
           "trailer\n<< /Size 6 /Root 1 0 R /Info 5 0 R >>\nstartxref\n" + PlainNumber(tableAt) + "\n%%EOF\n";
}

}  // namespace kvt
