#include "interpreter/view_columns.h"

#include <algorithm>

namespace kvt {

namespace {

struct HeaderDefault {
    const char* Text;
    int Width;
};

// Texts and the widths that no rule changes; the others are made by the procedures below.
constexpr HeaderDefault headerDefaults[column::Count] = {
    {"X", 0},      {"N", 495},    {"G", 600},      {"X", 706},           {"Y", 0},
    {"Z", 811},    {"F", 600},    {"H", 495},      {"Error in line", 0}, {"Tool X", 0},
    {"Tool Y", 0}, {"Tool Z", 0}, {"Center X", 0}, {"Center Y", 0},      {"Center Z", 0},
    {"Radius", 0}, {"Angle", 0},  {"Time", 0},     {"Comment", 5000},
};

// Twips: the smallest widths that hold a column's numbers.
constexpr int positionWidth = 811;
constexpr int centerWidth = 1020;
constexpr int timeWidth = 1050;

constexpr int HeaderOf(int c) { return c + 1; }

}  // namespace

ViewColumns::ViewColumns(Form& form, ProgramStore& store, ScreenService& screen)
    : chkViewToolPos(form, "chkViewToolPos", "Tool Position", 1),
      chkViewLineProperties(form, "chkViewLineProperties", "Line Properties", 1),
      chkViewMachineTime(form, "chkViewMachineTime", "Machine Time", 1),
      chkViewGcode(form, "chkViewGcode", "Gcode", 0),
      chkViewFileNotes(form, "chkViewFileNotes", "File Notes", 1),
      chkSettingsAutowidth(form, "chkSettingsAutowidth", "AutoWidth", 0),
      form_(form),
      store_(store),
      screen_(screen) {
    for (int header = 1; header <= column::Count; ++header) {
        const HeaderDefault& one = headerDefaults[header - 1];
        store.lvCncProgram.SetHeaderText(header, one.Text);
        store.lvCncProgram.SetHeaderWidth(header, one.Width);
    }
}

void ViewColumns::Show(bool shown, int c, int minimum) {
    const int header = HeaderOf(c);
    const int characters = static_cast<int>(store_.lvCncProgram.Header(header).Text.size());
    store_.lvCncProgram.SetHeaderWidth(header, shown ? std::max(minimum, characters * 104 + 193) : 0);
}

void ViewColumns::MakeToolpositionColums() {
    const bool shown = chkViewToolPos.Value != 0;
    Show(shown, column::ToolX, positionWidth);
    Show(shown && store_.IsF1(), column::ToolY, positionWidth);
    Show(shown, column::ToolZ, positionWidth);
}

void ViewColumns::MakeLinePropertiesColumns() {
    const bool shown = chkViewLineProperties.Value != 0;
    const bool arcs = shown && store_.ArcPresent;
    Show(arcs, column::CenterX, centerWidth);
    Show(arcs && store_.IsF1(), column::CenterY, centerWidth);
    Show(arcs, column::CenterZ, centerWidth);
    Show(arcs, column::Radius, positionWidth);
    Show(shown, column::Angle, positionWidth);
    SetAutoWidth();
}

void ViewColumns::MakeMachineTimeColumn() {
    store_.lvCncProgram.SetHeaderWidth(HeaderOf(column::Time), chkViewMachineTime.Value != 0 ? timeWidth : 0);
}

void ViewColumns::MakeMachineColumns() {
    ListView& list = store_.lvCncProgram;
    const bool mill = store_.IsF1();
    list.SetHeaderWidth(HeaderOf(column::Number), store_.IsMK2() ? 600 : 495);
    list.SetHeaderWidth(HeaderOf(column::X), mill ? 811 : 706);
    list.SetHeaderWidth(HeaderOf(column::Y), mill ? 811 : 0);
}

int ViewColumns::FittingWidth() const {
    // Of all but the columns, the comment with them: that column takes what is left.
    int width = 8093;
    for (int c = column::Number; c <= column::Time; ++c) {
        width += store_.lvCncProgram.Header(HeaderOf(c)).Width;
    }
    if (store_.IsMK2()) width += 495;
    if (store_.IsF1()) width -= 421;
    return width;
}

void ViewColumns::SetAutoWidth() {
    if (chkSettingsAutowidth.Value == 0 || form_.State.Get() == WindowState::Maximised) return;
    form_.Width = std::min(FittingWidth(), screen_.Width());
}

}  // namespace kvt
