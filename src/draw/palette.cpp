#include "draw/palette.h"

#include <optional>

#include "basic/text.h"
#include "draw/ink.h"

namespace kvt {

namespace {

// Red in the low byte.
constexpr InkRow inkRows[] = {
    {Ink::Ground, ink::Black, ink::White, ink::Black, ink::White},
    {Ink::Pen, ink::White, ink::Black, ink::White, ink::Black},
    {Ink::Grid, ink::DarkGrey, ink::Yellow, ink::DarkGrey, 0xD8D8D8},
    {Ink::Axis, ink::Red, ink::Red, 0x909090, 0x909090},
    {Ink::Rapid, ink::Green, ink::Green, 0x96C31E, 0x87A52D},
    {Ink::Feed, ink::Blue, ink::Blue, 0xD2B487, 0xDC3200},
    {Ink::ArcG02, ink::Magenta, ink::Magenta, 0xFF00A5, 0xE650DC},
    {Ink::ArcG03, ink::Cyan, ink::Cyan, 0x78784B, 0x6E6432},
    {Ink::Cycle, ink::Red, ink::Red, 0x001EFF, 0x0F4BFF},
    {Ink::Drilling, ink::Blue, ink::Blue, 0xD2B487, 0xDC3200},
    {Ink::Thread, ink::Yellow, ink::Blue, 0x00F0FF, 0x00325A},
    {Ink::PocketRow, ink::Grey, ink::Grey, 0x783C3C, 0xD2D2D2},
    {Ink::ToolCentre, ink::White, ink::White, ink::White, ink::Black},
    {Ink::Lit, 0x00AAFF, 0x0070E0, 0x00AAFF, 0x0070E0},
};

struct NamedColor {
    const char* Name;
    Color Value;
    std::optional<Ink> Distinct;
};

constexpr NamedColor namedColors[] = {
    {"Black", ink::Black, {}},
    {"Blue", ink::Blue, Ink::Feed},
    {"Cyan", ink::Cyan, Ink::ArcG03},
    {"Green", ink::Green, Ink::Rapid},
    {"Magenta", ink::Magenta, Ink::ArcG02},
    {"Red", ink::Red, Ink::Cycle},
    {"White", ink::White, {}},
    {"Yellow", ink::Yellow, Ink::Thread},
};

}  // namespace

std::span<const InkRow> InkRows() { return inkRows; }

Color InkOf(Ink ink, bool white, bool distinct) {
    const InkRow& row = inkRows[static_cast<std::size_t>(ink)];
    if (distinct) return white ? row.DistinctOnWhite : row.DistinctOnBlack;
    return white ? row.OnWhite : row.OnBlack;
}

Color InkOf(Ink ink, const DrawControls& controls) {
    return InkOf(ink, controls.mnuBackground.Checked, controls.mnuDistinctColors.Checked);
}

Color ColorNamed(std::string_view name, const DrawControls& controls) {
    for (const NamedColor& color : namedColors) {
        if (!EqualIgnoringCase(name, color.Name)) continue;
        const bool distinct = controls.mnuDistinctColors.Checked && color.Distinct;
        return distinct ? InkOf(*color.Distinct, controls) : color.Value;
    }
    return ink::Black;
}

}  // namespace kvt
