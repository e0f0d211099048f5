#include "interpreter/view_columns.h"

#include <algorithm>

namespace kvt {

namespace {

struct HeaderDefault {
    const char* Text;
    int Width;
};

// Texts and the widths that no rule changes; the others are made by the procedures below.
constexpr HeaderDefault headerDefaults[SubItemCount] = {
    {"X", 0},      {"N", 495},    {"G", 600},      {"X", 706},           {"Y", 0},
    {"Z", 811},    {"F", 600},    {"H", 495},      {"Error in line", 0}, {"Tool X", 0},
    {"Tool Y", 0}, {"Tool Z", 0}, {"Center X", 0}, {"Center Y", 0},      {"Center Z", 0},
    {"Radius", 0}, {"Angle", 0},  {"Time", 0},     {"Comment", 5000},
};

constexpr int firstShownHeader = 2;
constexpr int lastMeasuredHeader = 18;

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
    for (int header = 1; header <= SubItemCount; ++header) {
        const HeaderDefault& one = headerDefaults[header - 1];
        store.lvCncProgram.SetHeaderText(header, one.Text);
        store.lvCncProgram.SetHeaderWidth(header, one.Width);
    }
}

void ViewColumns::Show(int header, int minimum) {
    const int characters = static_cast<int>(store_.lvCncProgram.Header(header).Text.size());
    store_.lvCncProgram.SetHeaderWidth(header, std::max(minimum, characters * 104 + 193));
}

void ViewColumns::MakeToolpositionColums() {
    if (chkViewToolPos.Value == 0) {
        for (const int header : {10, 11, 12}) Hide(header);
        return;
    }
    Show(10, 811);
    Show(12, 811);
    if (store_.IsF1()) {
        Show(11, 811);
    } else {
        Hide(11);
    }
}

void ViewColumns::MakeLinePropertiesColumns() {
    if (chkViewLineProperties.Value == 0) {
        for (int header = 13; header <= 17; ++header) Hide(header);
    } else {
        Show(17, 811);
        if (store_.ArcPresent) {
            Show(13, 1020);
            if (store_.IsF1()) {
                Show(14, 1020);
            } else {
                Hide(14);
            }
            Show(15, 1020);
            Show(16, 811);
        } else {
            for (int header = 13; header <= 16; ++header) Hide(header);
        }
    }
    SetAutoWidth();
}

void ViewColumns::MakeMachineTimeColumn() {
    store_.lvCncProgram.SetHeaderWidth(18, chkViewMachineTime.Value != 0 ? 1050 : 0);
}

void ViewColumns::MakeMachineColumns() {
    ListView& list = store_.lvCncProgram;
    const bool mill = store_.IsF1();
    list.SetHeaderWidth(2, store_.IsMK2() ? 600 : 495);
    list.SetHeaderWidth(4, mill ? 811 : 706);
    list.SetHeaderWidth(5, mill ? 811 : 0);
}

void ViewColumns::SetAutoWidth() {
    if (chkSettingsAutowidth.Value == 0 || form_.State.Get() == WindowState::Maximised) return;
    int width = 8093;
    for (int header = firstShownHeader; header <= lastMeasuredHeader; ++header) {
        width += store_.lvCncProgram.Header(header).Width;
    }
    if (store_.IsMK2()) width += 495;
    if (store_.IsF1()) width -= 421;
    form_.Width = std::min(width, screen_.Width());
}

}  // namespace kvt
