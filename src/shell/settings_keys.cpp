#include "shell/settings_keys.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/text.h"
#include "shell/control_table.h"
#include "transfer/port_settings.h"

namespace kvt {

namespace {

void BindFlag(SettingsFile& keys, const char* key, bool& flag) {
    keys.Bind(
        key, [&flag](const std::string& value) { flag = TrueOrFalse(value); },
        [&flag] { return TrueOrFalse(flag); });
}

void BindBox(SettingsFile& keys, const char* key, CheckBox& box) {
    keys.Bind(
        key, [&box](const std::string& value) { box.Value = ZeroOrOne(value); },
        [&box] { return PlainNumber(box.Value); });
}

void BindColor(SettingsFile& keys, const char* key, Color& color, Label& shown) {
    keys.Bind(
        key,
        [&color, &shown](const std::string& value) {
            color = ColorOf(value);
            shown.ForeColor = color;
        },
        [&color] { return ColorText(color); });
}

void BindFeed(SettingsFile& keys, const char* key, TextBox& preset) {
    keys.Bind(
        key,
        [&preset](const std::string& value) { preset.Text = RightPad(PlainNumber(ToLong(Val(value))), 5); },
        [&preset] { return std::string(Trim(preset.Text)); });
}

void Place(Form& window, ScreenService& screen, WindowPlace place) {
    if (place.Height <= 0) place.Height = SmallestHeight;
    if (place.Width <= 0) place.Width = std::min(screen.Width(), UsualWidth);
    if (place.Left <= 0) place.Left = (screen.Width() - place.Width) / 2;
    if (place.Top <= 0) place.Top = (screen.Height() - place.Height) / 2;
    window.SetRestoredPlace(screen.OnScreen(place));
}

}  // namespace

void BindProgram(SettingsFile& keys, ProgramStore& store, MainControls& main) {
    BindFlag(keys, "Horizontal", store.Horizontal);
    BindFlag(keys, "DisableLimitsCheck", store.DisableLimitsCheck);
    BindColor(keys, "IncrColor", store.IncrColor, main.lblSettingsIncrColor);
    BindColor(keys, "AbsColor", store.AbsColor, main.lblSettingsAbsColor);
}

void BindEntry(SettingsFile& keys, EntryRow& entry) {
    BindFeed(keys, "FeedA", entry.txtFeedA);
    BindFeed(keys, "FeedB", entry.txtFeedB);
    BindBox(keys, "Delete without confirm", entry.chkSettingsDWC);
}

void BindView(SettingsFile& keys, ViewColumns& view) {
    CheckBox& autoWidth = view.chkSettingsAutowidth;
    keys.Bind(
        "AutoWidth", [&autoWidth](const std::string& value) { autoWidth.Value = TrueOrFalse(value) ? 1 : 0; },
        [&autoWidth] { return TrueOrFalse(autoWidth.Value != 0); });
    BindBox(keys, "ToolPosition", view.chkViewToolPos);
    BindBox(keys, "LineProperties", view.chkViewLineProperties);
    BindBox(keys, "FileNotes", view.chkViewFileNotes);
    BindBox(keys, "Gcode", view.chkViewGcode);
    BindBox(keys, "MachineTime", view.chkViewMachineTime);
}

void BindPort(SettingsFile& keys, PortControl& port) {
    for (const std::span<const PortKey> group : {PortKeysGeneral(), PortKeysTransmit(), PortKeysReceive()}) {
        for (const PortKey& key : group) {
            keys.Bind(
                Trim(key.Name), [&port, &key](const std::string& value) { key.Apply(port, value); },
                [&port, &key] { return key.Value(port); });
        }
    }
}

void BindPrinter(SettingsFile& keys, PrinterPage& page) {
    const auto selected = [](const ComboBox& box) {
        return box.ListIndex < 0 ? std::string() : box.Entry(box.ListIndex);
    };
    keys.Bind(
        "FontName", [&page](const std::string& value) { page.SetFontName(value); },
        [&page, selected] { return selected(page.cboFontName); });
    keys.Bind(
        "FontSize", [&page](const std::string& value) { page.SetFontSize(Val(value)); },
        [&page, selected] { return selected(page.cboFontSize); });
}

void BindWindow(SettingsFile& keys, Form& window, Beside& beside, ScreenService& screen) {
    keys.Bind(
        "EditorWindow",
        [&window, &beside, &screen](const std::string& value) {
            const WindowPlace place = WindowPlaceOf(value);
            beside.EditorPlaced();
            Place(window, screen, place);
            if (const std::optional<WindowState> state = WindowStateOf(value)) window.State = *state;
        },
        [&window, &beside] {
            const Beside::OwnPlace own = beside.Own(window);
            return WindowText(own.Place) + (own.FillsScreen ? WindowStateText(true) : "");
        });
}

void Centre(Form& window, ScreenService& screen) {
    window.Left = (screen.Width() - window.Width) / 2;
    window.Top = (screen.Height() - window.Height) / 2;
}

}  // namespace kvt
