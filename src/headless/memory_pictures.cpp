#include "headless/memory_pictures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "platform/picture_box.h"

namespace kvt {

namespace {

using Kind = DrawOperation::Kind;

constexpr double twipsAPoint = 15;
constexpr int hatchStep = 8;  // points

class PointPainter {
public:
    explicit PointPainter(const FieldArea& area) : area_(area) {
        picture_.Width = std::max(1, static_cast<int>(area.Width / twipsAPoint));
        picture_.Height = std::max(1, static_cast<int>(area.Height / twipsAPoint));
        const std::size_t count =
            static_cast<std::size_t>(picture_.Width) * static_cast<std::size_t>(picture_.Height);
        picture_.Points.assign(count, 0);
        paintedBy_.assign(count, 0);
    }

    void Paint(const DrawOperation& one) {
        ++operation_;
        pen_ = one;
        switch (one.What) {
            case Kind::Clear: std::fill(picture_.Points.begin(), picture_.Points.end(), one.Ink); break;
            case Kind::Line: Stroke(X(one.X1), Y(one.Y1), X(one.X2), Y(one.Y2)); break;
            case Kind::Box: PaintBox(); break;
            case Kind::Circle: PaintCircle(); break;
            case Kind::Picture: break;  // no list is exchanged for a picture here
        }
    }

    Pixels Take() { return std::move(picture_); }

private:
    double X(double twips) const { return (twips - area_.Left) / twipsAPoint; }
    double Y(double twips) const { return (twips - area_.Top) / twipsAPoint; }

    // Each point once an operation, so that an inversion does not undo itself.
    void Put(int x, int y, Color color) {
        if (x < 0 || y < 0 || x >= picture_.Width || y >= picture_.Height) return;
        const std::size_t at = static_cast<std::size_t>(y) * static_cast<std::size_t>(picture_.Width) +
                               static_cast<std::size_t>(x);
        if (paintedBy_[at] == operation_) return;
        paintedBy_[at] = operation_;
        picture_.Points[at] = pen_.Mode == draw_mode::Invert ? ~picture_.Points[at] & 0xFFFFFF : color;
    }

    // False where the whole picture lies under the pen, so that nothing more can come.
    bool Dot(double x, double y) {
        const double left = std::round(x - (pen_.Width - 1) / 2.0);
        const double top = std::round(y - (pen_.Width - 1) / 2.0);
        const int firstX = static_cast<int>(std::max(left, 0.0));
        const int firstY = static_cast<int>(std::max(top, 0.0));
        const int endX = static_cast<int>(std::min(left + pen_.Width, double{1} * picture_.Width));
        const int endY = static_cast<int>(std::min(top + pen_.Width, double{1} * picture_.Height));
        for (int py = firstY; py < endY; ++py) {
            for (int px = firstX; px < endX; ++px) Put(px, py, pen_.Ink);
        }
        return left > 0 || top > 0 || endX < picture_.Width || endY < picture_.Height;
    }

    // Only what is near the picture: lines may be much longer.
    bool Cut(double start, double length, double end, double& from, double& to) const {
        const double low = -pen_.Width - 1.0;
        const double high = end + pen_.Width + 1;
        if (length == 0) return start >= low && start <= high;
        const auto [first, last] = std::minmax({(low - start) / length, (high - start) / length});
        from = std::max(from, first);
        to = std::min(to, last);
        return from <= to;
    }

    void Stroke(double x1, double y1, double x2, double y2) {
        double from = 0;
        double to = 1;
        if (!Cut(x1, x2 - x1, picture_.Width, from, to) || !Cut(y1, y2 - y1, picture_.Height, from, to))
            return;
        const double steps = std::ceil(std::max(std::abs(x2 - x1), std::abs(y2 - y1)) * (to - from));
        const bool dotted = pen_.Style != draw_style::Solid && pen_.Width == 1;
        // The dots of a wide pen overlap by far; the last one stands at the end all the same.
        const double stride = std::max(1, pen_.Width / 4);
        for (double i = 0; i < steps + stride; i += stride) {
            if (dotted && static_cast<long long>(i) % 4 >= 2) continue;
            const double at = from + (steps > 0 ? (to - from) * std::min(i, steps) / steps : 0);
            if (!Dot(x1 + (x2 - x1) * at, y1 + (y2 - y1) * at)) return;
        }
    }

    template <class Inside>
    void Fill(double left, double top, double right, double bottom, const Inside& inside) {
        if (pen_.Fill == fill_style::Transparent) return;
        const int firstY = std::max(0, static_cast<int>(std::ceil(top)));
        const int lastY = std::min(picture_.Height - 1, static_cast<int>(std::floor(bottom)));
        const int firstX = std::max(0, static_cast<int>(std::ceil(left)));
        const int lastX = std::min(picture_.Width - 1, static_cast<int>(std::floor(right)));
        for (int y = firstY; y <= lastY; ++y) {
            for (int x = firstX; x <= lastX; ++x) {
                const bool hatched = pen_.Fill == fill_style::Solid || (x - y) % hatchStep == 0;
                if (hatched && inside(x, y)) Put(x, y, pen_.FillInk);
            }
        }
        ++operation_;  // the outline goes over it
    }

    void PaintBox() {
        const auto [left, right] = std::minmax({X(pen_.X1), X(pen_.X2)});
        const auto [top, bottom] = std::minmax({Y(pen_.Y1), Y(pen_.Y2)});
        Fill(left, top, right, bottom, [](int, int) { return true; });
        Stroke(left, top, right, top);
        Stroke(right, top, right, bottom);
        Stroke(right, bottom, left, bottom);
        Stroke(left, bottom, left, top);
    }

    void PaintCircle() {
        constexpr double full = 2 * std::numbers::pi;
        const double x = X(pen_.X1);
        const double y = Y(pen_.Y1);
        const double r = std::abs(pen_.Radius()) / twipsAPoint;
        double start = 0;
        double sweep = full;
        if (pen_.IsFullCircle()) {
            Fill(x - r, y - r, x + r, y + r,
                 [&](int px, int py) { return (px - x) * (px - x) + (py - y) * (py - y) <= r * r; });
        } else {
            start = pen_.Start;
            sweep = std::fmod(double{pen_.End} - start, full);
            if (sweep <= 1e-6) sweep += full;
        }
        const int steps = static_cast<int>(std::clamp(std::ceil(sweep * std::sqrt(r) * 2), 8.0, 20'000.0));
        for (int i = 0; i < steps; ++i) {
            const double a = start + sweep * i / steps;
            const double b = start + sweep * (i + 1) / steps;
            Stroke(x + r * std::cos(a), y - r * std::sin(a), x + r * std::cos(b), y - r * std::sin(b));
        }
    }

    const FieldArea& area_;
    Pixels picture_;
    std::vector<std::uint32_t> paintedBy_;
    std::uint32_t operation_ = 0;
    DrawOperation pen_;
};

// PNG: numbers stand with their high byte first.

void Put(std::string& out, std::uint32_t value) {
    for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(value >> shift & 0xFF);
}

std::uint32_t Crc(std::string_view bytes) {
    static constexpr auto table = [] {
        std::array<std::uint32_t, 256> all{};
        for (std::uint32_t i = 0; i < 256; ++i) {
            std::uint32_t value = i;
            for (int bit = 0; bit < 8; ++bit) value = value & 1 ? 0xEDB88320U ^ value >> 1 : value >> 1;
            all[i] = value;
        }
        return all;
    }();
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char c : bytes) crc = table[(crc ^ static_cast<unsigned char>(c)) & 0xFF] ^ crc >> 8;
    return ~crc;
}

std::uint32_t Adler(std::string_view bytes) {
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (const char c : bytes) {
        a = (a + static_cast<unsigned char>(c)) % 65521;
        b = (b + a) % 65521;
    }
    return b << 16 | a;
}

void PutChunk(std::string& out, const char* name, const std::string& content) {
    Put(out, static_cast<std::uint32_t>(content.size()));
    const std::string body = name + content;
    out += body;
    Put(out, Crc(body));
}

}  // namespace

Pixels MemoryPictures::Paint(const PictureBox& field, const FieldArea& area) {
    PointPainter painter(area);
    for (const DrawOperation& one : field.Operations()) painter.Paint(one);
    return painter.Take();
}

std::string MemoryPictures::PngOf(const Pixels& picture) {
    std::string rows;
    for (std::size_t i = 0; i < picture.Points.size(); ++i) {
        if (i % static_cast<std::size_t>(picture.Width) == 0) rows += '\0';  // no filter
        for (const int shift : {0, 8, 16}) rows += static_cast<char>(picture.Points[i] >> shift & 0xFF);
    }
    constexpr std::size_t block = 65535;
    std::string stream("\x78\x01");
    for (std::size_t at = 0; at < rows.size(); at += block) {
        const std::size_t size = std::min(block, rows.size() - at);
        stream += at + size == rows.size() ? '\1' : '\0';
        for (const std::size_t number : {size, ~size}) {
            stream += static_cast<char>(number & 0xFF);
            stream += static_cast<char>(number >> 8 & 0xFF);
        }
        stream.append(rows, at, size);
    }
    Put(stream, Adler(rows));
    std::string head;
    Put(head, static_cast<std::uint32_t>(picture.Width));
    Put(head, static_cast<std::uint32_t>(picture.Height));
    head += std::string("\x08\x02\0\0\0", 5);  // 8 bits, red, green and blue
    std::string out("\x89PNG\r\n\x1A\n");
    PutChunk(out, "IHDR", head);
    PutChunk(out, "IDAT", stream);
    PutChunk(out, "IEND", "");
    return out;
}

}  // namespace kvt
