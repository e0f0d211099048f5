#include "draw/legend.h"

#include <algorithm>
#include <string>
#include <utility>

#include "draw/hole_marks.h"

namespace kvt {

namespace {

// Twips.
constexpr int sampleWidth = 480;
constexpr int lineHeight = 240;
constexpr int gap = 75;
constexpr int betweenEntries = 195;
constexpr int characterWidth = 115;
constexpr int boxWidth = 300;  // of a check box without its text
// Where it takes more, the view is small for it.
constexpr int mostHeight = gap + 2 * (lineHeight + gap);
constexpr int leastHeights = 8;  // of the view
constexpr float edge = 30;
constexpr float middle = lineHeight / 2.0F;

enum class Sample : std::uint8_t { Line, Dotted, Broad, Centre, Box, Bore, Teeth, Axis, Hole, Plunge, Lit };

// When there is such a stroke.
enum class Shown : std::uint8_t { Always, Radii, Lathe, Mill, MillWidth, MillCentre, MillHoles };

struct LegendRow {
    const char* Name;  // behind those of its controls
    const char* Caption;
    Ink Of;
    Sample As;
    Shown When;
};

constexpr LegendRow legendRows[] = {
    {"Rapid", "Rapid", Ink::Rapid, Sample::Line, Shown::Always},
    {"Feed", "Feed", Ink::Feed, Sample::Line, Shown::Always},
    {"G02", "Arc G02", Ink::ArcG02, Sample::Line, Shown::Always},
    {"G03", "Arc G03", Ink::ArcG03, Sample::Line, Shown::Always},
    {"Radius", "Radius", Ink::ArcG03, Sample::Dotted, Shown::Radii},
    {"Cycle", "Cycle", Ink::Cycle, Sample::Box, Shown::Lathe},
    {"Drilling", "Drilling", Ink::Drilling, Sample::Bore, Shown::Lathe},
    {"Thread", "Thread", Ink::Thread, Sample::Teeth, Shown::Lathe},
    {"Pocket", "Pocket", Ink::Cycle, Sample::Box, Shown::Mill},
    {"Clearing", "Clearing", Ink::PocketRow, Sample::Broad, Shown::MillWidth},
    {"Center", "Tool Center", Ink::ToolCentre, Sample::Centre, Shown::MillCentre},
    {"Hole", "Hole", Ink::Pen, Sample::Hole, Shown::MillHoles},
    {"Plunge", "Plunge", Ink::Pen, Sample::Plunge, Shown::MillHoles},
    {"Axis", "Zero point", Ink::Axis, Sample::Axis, Shown::Always},
    {"Lit", "Selected line", Ink::Lit, Sample::Lit, Shown::Always},
};

bool IsShown(Shown when, bool mill, const DrawControls& controls) {
    const bool width = mill && controls.mnuToolWidth.Checked;
    switch (when) {
        case Shown::Always: return true;
        case Shown::Radii: return controls.mnuRadiiArcs.Checked;
        case Shown::Lathe: return !mill;
        case Shown::Mill: return mill;
        case Shown::MillWidth: return width;
        case Shown::MillCentre: return width && controls.mnuToolCenter.Checked;
        case Shown::MillHoles: return mill && controls.mnuHoleMarks.Checked;
    }
    return false;
}

// The mill's picture is turned over: its G02 is drawn as a G03 and the other way round.
Ink InkOn(bool mill, Ink ink) {
    if (mill && ink == Ink::ArcG02) return Ink::ArcG03;
    if (mill && ink == Ink::ArcG03) return Ink::ArcG02;
    return ink;
}

int TextWidth(std::string_view text) { return characterWidth * static_cast<int>(text.size()); }

// Lines through the places of a sample one after the other.
void DrawThrough(PictureBox& box, std::initializer_list<std::pair<float, float>> places) {
    box.MoveTo(places.begin()->first, places.begin()->second);
    for (const auto& [x, y] : places) box.LineTo(x, y);
}

void DrawStroke(PictureBox& box, int width, Color color) {
    box.DrawWidth = width;
    box.ForeColor = color;
    box.Line(edge, middle, sampleWidth - edge, middle);
}

void DrawSample(PictureBox& box, Sample sample, Color color, const DrawControls& controls) {
    const auto [left, right] = std::pair(edge, sampleWidth - edge);
    const float up = middle - 60;
    const float down = middle + 60;
    box.DrawWidth = 1;
    box.ForeColor = color;
    switch (sample) {
        case Sample::Line: return DrawStroke(box, 1, color);
        case Sample::Bore: return DrawStroke(box, 2, color);
        case Sample::Broad: return DrawStroke(box, 7, color);
        case Sample::Dotted:
            box.DrawStyle = draw_style::Dotted;
            DrawStroke(box, 1, color);
            box.DrawStyle = draw_style::Solid;
            return;
        case Sample::Centre: DrawStroke(box, 7, InkOf(Ink::Feed, controls)); return DrawStroke(box, 1, color);
        case Sample::Lit: DrawStroke(box, 7, color); return DrawStroke(box, 1, InkOf(Ink::Feed, controls));
        case Sample::Box: box.MoveTo(left, up); return box.BoxTo(right, down);
        case Sample::Teeth:
            return DrawThrough(box, {{left, down},
                                     {left + 60, up},
                                     {left + 120, down},
                                     {left + 180, up},
                                     {left + 240, down},
                                     {left + 300, up},
                                     {right, down}});
        case Sample::Axis:
            DrawStroke(box, 1, color);
            return box.Line(sampleWidth / 2.0, 0, sampleWidth / 2.0, lineHeight);
        case Sample::Hole: return DrawHoleMark(box, {HoleMark::Kind::Hole, 0, sampleWidth / 2.0F, middle});
        case Sample::Plunge:
            return DrawHoleMark(box, {HoleMark::Kind::Plunge, 0, sampleWidth / 2.0F, middle});
    }
}

}  // namespace

Legend::Legend(DrawControls& controls)
    : frLegend(controls.frmDraw, "frLegend"),
      cmdLegendFold(controls.frmDraw, "cmdLegendFold"),
      chkLegendDistinct(controls.frmDraw, "chkLegendDistinct", "Clear colors"),
      controls_(controls) {
    for (const LegendRow& row : legendRows) {
        Entry& entry = entries_.emplace_back();
        const std::string name = row.Name;
        entry.Sample = std::make_unique<PictureBox>(controls.frmDraw, "pbxLegend" + name);
        entry.Name = std::make_unique<Label>(controls.frmDraw, "lblLegend" + name, row.Caption);
        entry.Sample->Width = sampleWidth;
        for (Control* control : std::initializer_list<Control*>{entry.Sample.get(), entry.Name.get()}) {
            control->Container = &frLegend;
            control->Height = lineHeight;
        }
    }
    for (Control* control : std::initializer_list<Control*>{&cmdLegendFold, &chkLegendDistinct}) {
        control->Container = &frLegend;
        control->Left = gap;
        control->Top = gap;
        control->Height = lineHeight;
    }
    // In front of the scroll bars.
    int tab = controls.hsbViewWindow.TabIndex;
    for (Control* stop : std::initializer_list<Control*>{&cmdLegendFold, &chkLegendDistinct,
                                                         &controls.hsbViewWindow, &controls.vsbViewWindow})
        stop->TabIndex = tab++;
    frLegend.Visible = false;
}

void Legend::Show(bool mill) {
    frLegend.Visible = controls_.mnuLegend.Checked.Get();
    if (!frLegend.Visible) {
        unfolded_ = false;
        return;
    }
    const PictureBox& view = controls_.pbxViewWindow;
    PlaceRows(mill, false);
    const int height = frLegend.Height;
    const bool small = height > mostHeight || height * leastHeights > view.Height;
    if (!small) unfolded_ = false;
    if (small) PlaceRows(mill, true);
    ShowParts(mill, small && !unfolded_, small);
    DrawSamples(mill);
    // At the lower left of the view, where the fit leaves room beside the drawing.
    frLegend.Left = view.Left;
    frLegend.Top = view.Top + view.Height - frLegend.Height;
}

void Legend::PlaceRows(bool mill, bool withButton) {
    const int most = controls_.pbxViewWindow.Width;
    int left = gap;
    int top = gap;
    int right = 0;
    const auto take = [&](int width) {
        if (left > gap && left + width + gap > most) {
            left = gap;
            top += lineHeight + gap;
        }
        const int place = left;
        right = std::max(right, left + width + gap);
        left += width + betweenEntries;
        return place;
    };
    if (withButton) {
        cmdLegendFold.Caption = controls_.mnuLegend.Caption.Get();
        cmdLegendFold.Width = TextWidth(cmdLegendFold.Caption) + 2 * gap;
        cmdLegendFold.Left = take(cmdLegendFold.Width);
    }
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        Entry& entry = entries_[i];
        if (!IsShown(legendRows[i].When, mill, controls_)) continue;
        const int width = sampleWidth + gap + TextWidth(entry.Name->Caption);
        const int place = take(width);
        Place(entry, place, top, width);
    }
    chkLegendDistinct.Width = boxWidth + TextWidth(chkLegendDistinct.Caption);
    chkLegendDistinct.Left = take(chkLegendDistinct.Width);
    chkLegendDistinct.Top = top;
    frLegend.Width = right;
    frLegend.Height = top + lineHeight + gap;
}

void Legend::ShowParts(bool mill, bool folded, bool withButton) {
    cmdLegendFold.Visible = withButton;
    chkLegendDistinct.Visible = !folded;
    chkLegendDistinct.Value = controls_.mnuDistinctColors.Checked ? 1 : 0;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const bool shown = !folded && IsShown(legendRows[i].When, mill, controls_);
        entries_[i].Sample->Visible = shown;
        entries_[i].Name->Visible = shown;
    }
    if (!folded) return;
    frLegend.Width = cmdLegendFold.Width + 2 * gap;
    frLegend.Height = lineHeight + 2 * gap;
}

void Legend::DrawSamples(bool mill) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const LegendRow& row = legendRows[i];
        Entry& entry = entries_[i];
        if (!entry.Sample->Visible) continue;
        entry.Sample->AccessibleName = entry.Name->Caption.Get();
        entry.Sample->BackColor = InkOf(Ink::Ground, controls_);
        entry.Sample->Cls();
        DrawSample(*entry.Sample, row.As, InkOf(InkOn(mill, row.Of), controls_), controls_);
    }
}

void Legend::Place(Entry& entry, int left, int top, int width) {
    entry.Sample->Left = left;
    entry.Sample->Top = top;
    entry.Name->Left = left + sampleWidth + gap;
    entry.Name->Top = top;
    entry.Name->Width = width - sampleWidth - gap;
}

}  // namespace kvt
