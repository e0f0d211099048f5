#include "shell/draw_settings.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* loadSettingsName = "LoadSettings";
constexpr const char* saveSettingsName = "SaveSettings";
constexpr const char* drawFile = "SettingsDraw.txt";
constexpr const char* drawResetFile = "SettingsDrawReset.txt";
constexpr int smallestHeight = 6200;
constexpr int smallestWidth = 7000;
constexpr int neverPlaced = 9999;

struct Mark {
    const char* Key;
    Menu DrawControls::*Entry;
};

constexpr Mark marks[] = {
    {"Radii", &DrawControls::mnuRadiiArcs},       {"ToolWidth", &DrawControls::mnuToolWidth},
    {"ToolCenter", &DrawControls::mnuToolCenter}, {"FillCycles", &DrawControls::mnuFillCycles},
    {"Program", &DrawControls::mnuProgramWindow}, {"Grid", &DrawControls::mnuGrid},
    {"Background", &DrawControls::mnuBackground}, {"AutoRedraw", &DrawControls::mnuAutoRedraw},
    {"Legend", &DrawControls::mnuLegend},         {"DistinctColors", &DrawControls::mnuDistinctColors},
    {"HoleMarks", &DrawControls::mnuHoleMarks},
};

// A window far out is brought back, one beyond the edge to it.
int OnScreen(int place, int screen) {
    if (place > 0.9 * screen) return ToLong(0.7 * screen);
    return std::max(place, 0);
}

}  // namespace

DrawSettings::DrawSettings(DrawWindow& draw, Beside& beside, UserData& data, Services& platform)
    : Keys("DRAW", DrawSettingKeys()), draw_(draw), beside_(beside), data_(data), platform_(platform) {
    for (const Mark& mark : marks) BindMark(mark.Key, draw_.Controls.*mark.Entry);
    BindMark("Beside", beside_.mnuBeside);
    const Form& drawing = draw_.Controls.frmDraw;
    Keys.Bind(
        "DrawWindow",
        [this](const std::string& value) { PlaceDrawing(WindowPlaceOf(value), WindowStateOf(value)); },
        [this, &drawing] {
            const Beside::OwnPlace own = beside_.Own(drawing);
            const bool asItBegins = own.FillsScreen == DrawWindow::BeginsMaximised(platform_.Screen);
            return WindowText(own.Place) + (asItBegins ? "" : WindowStateText(own.FillsScreen));
        });
    Form& listing = draw_.Listing.frmProgramWindow;
    Keys.Bind(
        "ProgramWindow", [this](const std::string& value) { PlaceListing(value); },
        [&listing] {
            return WindowText(listing.RestoredPlace()) + (listing.Visible ? ", Active" : ", Inactive");
        });
    draw_.LoadSettings = [this] {
        LoadSettings();
        beside_.DrawingPlaced();
    };
    draw_.SaveSettings = [this] { SaveSettings(); };
}

void DrawSettings::BindShown(SettingsFile& editorKeys) {
    Form& drawing = draw_.Controls.frmDraw;
    editorKeys.Bind(
        "DrawWindow Active",
        [this](const std::string& value) {
            // A drawing may wait for the user: the editor is shown first.
            if (TrueOrFalse(value)) platform_.System.Later([this] { draw_.ShowBehindEditor(); });
        },
        [&drawing] { return TrueOrFalse(drawing.Visible.Get()); });
}

void DrawSettings::BindMark(const char* key, Menu& entry) {
    Keys.Bind(
        key, [&entry](const std::string& value) { entry.Checked = TrueOrFalse(value); },
        [&entry] { return TrueOrFalse(entry.Checked.Get()); });
}

void DrawSettings::LoadSettings() {
    FileService& files = platform_.Files;
    const std::string& folder = data_.Folders.SettingsFolder;
    // A workbench that was never started has no folders: a console command draws with the built-in values.
    if (folder.empty()) return;
    if (!files.Exists(folder + drawFile) && files.Exists(folder + drawResetFile)) {
        Attempt(loadSettingsName,
                [&] { files.WriteWhole(folder + drawFile, files.ReadWhole(folder + drawResetFile)); });
    }
    if (!files.Exists(folder + drawFile)) {
        // The built-in state.
        draw_.Controls.SetDesignMarks();
        Form& form = draw_.Controls.frmDraw;
        WindowPlace place = form.RestoredPlace();
        place.Left = (platform_.Screen.Width() - place.Width) / 2;
        place.Top = (platform_.Screen.Height() - place.Height) / 2;
        return form.SetRestoredPlace(place);
    }
    std::string text;
    Attempt(loadSettingsName, [&] { text = WithoutUtf8Mark(files.ReadWhole(folder + drawFile)); });
    Keys.Read(text, loadSettingsName, SettingsFile::BadValue::EndsTheReading);
}

void DrawSettings::SaveSettings() {
    if (data_.Folders.SettingsFolder.empty()) return;
    const bool written = Attempt(saveSettingsName, [&] {
        platform_.Files.WriteWhole(data_.Folders.SettingsFolder + drawFile, Keys.Text());
    });
    if (!written) data_.TellNotWritable();
}

// One that begins maximised has its place for later, when it is restored.
void DrawSettings::PlaceDrawing(const WindowPlace& place, std::optional<WindowState> state) {
    Form& form = draw_.Controls.frmDraw;
    if (state) form.State = *state;
    const int screenWidth = platform_.Screen.Width();
    const int screenHeight = platform_.Screen.Height();
    if (place.Height == neverPlaced && place.Left == neverPlaced && place.Top == neverPlaced &&
        place.Width == neverPlaced) {
        return form.SetRestoredPlace({smallestHeight, (screenWidth - smallestWidth) / 2,
                                      (screenHeight - smallestHeight) / 2, smallestWidth});
    }
    WindowPlace moved{std::max(place.Height, smallestHeight), std::max(place.Left, 0), std::max(place.Top, 0),
                      std::max(place.Width, smallestWidth)};
    if (moved.Left + moved.Width > screenWidth) moved.Left = std::max(screenWidth - moved.Width, 0);
    if (moved.Top + moved.Height > screenHeight) moved.Top = std::max(screenHeight - moved.Height, 0);
    form.SetRestoredPlace(platform_.Screen.OnScreen(moved));
}

void DrawSettings::PlaceListing(const std::string& value) {
    ProgramWindow& listing = draw_.Listing;
    Form& form = listing.frmProgramWindow;
    // Its own first size must not come after this one.
    listing.Load();
    listing.Hide();
    if (form.State == WindowState::Normal) {
        WindowPlace place = WindowPlaceOf(value);
        place.Left = OnScreen(place.Left, platform_.Screen.Width());
        place.Top = OnScreen(place.Top, platform_.Screen.Height());
        form.SetRestoredPlace(place);
    }
    const std::vector<std::string_view> parts = Split(value, ",");
    if (parts.size() < 5) throw RunTimeError(fault::SubscriptOutOfRange);
    const bool active = !EqualIgnoringCase(Trim(parts[4]), "Inactive");
    if (active && draw_.Controls.frmDraw.Visible) form.Visible = true;
}

}  // namespace kvt
