#include "shell/draw_settings.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "shell/workbench.h"

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
};

// A window far out is brought back, one beyond the edge to it.
int OnScreen(int place, int screen) {
    if (place > 0.9 * screen) return ToLong(0.7 * screen);
    return std::max(place, 0);
}

}  // namespace

DrawSettings::DrawSettings(Workbench& bench) : Keys("DRAW", DrawSettingKeys()), bench_(bench) {
    BindMarks();
    Form& drawing = bench_.Draw.Controls.frmDraw;
    Keys.Bind(
        "DrawWindow",
        [this](const std::string& value) { PlaceDrawing(WindowPlaceOf(value), WindowStateOf(value)); },
        [this, &drawing] {
            const bool asItBegins =
                drawing.FillsScreen() == DrawWindow::BeginsMaximised(bench_.Platform.Screen);
            return WindowText(drawing.RestoredPlace()) +
                   (asItBegins ? "" : WindowStateText(drawing.FillsScreen()));
        });
    Form& listing = bench_.Draw.Listing.frmProgramWindow;
    Keys.Bind(
        "ProgramWindow", [this](const std::string& value) { PlaceListing(value); },
        [&listing] {
            return WindowText(listing.RestoredPlace()) + (listing.Visible ? ", Active" : ", Inactive");
        });
    bench_.Draw.LoadSettings = [this] { LoadSettings(); };
    bench_.Draw.SaveSettings = [this] { SaveSettings(); };
    bench_.Settings.Keys.Bind(
        "DrawWindow Active",
        [this](const std::string& value) {
            // A drawing may wait: the editor stands before it.
            if (TrueOrFalse(value)) bench_.Platform.System.Later([this] { bench_.Draw.ShowBehindEditor(); });
        },
        [&drawing] { return TrueOrFalse(drawing.Visible.Get()); });
}

void DrawSettings::BindMarks() {
    for (const Mark& mark : marks) {
        Menu& entry = bench_.Draw.Controls.*mark.Entry;
        Keys.Bind(
            mark.Key, [&entry](const std::string& value) { entry.Checked = TrueOrFalse(value); },
            [&entry] { return TrueOrFalse(entry.Checked.Get()); });
    }
}

void DrawSettings::LoadSettings() {
    FileService& files = bench_.Platform.Files;
    const std::string& folder = bench_.Window.Folders.SettingsFolder;
    // A workbench that was never started has no folders: a console command draws with the built-in values.
    if (folder.empty()) return;
    // 1.
    if (!files.Exists(folder + drawFile) && files.Exists(folder + drawResetFile)) {
        Attempt(loadSettingsName,
                [&] { files.WriteWhole(folder + drawFile, files.ReadWhole(folder + drawResetFile)); });
    }
    // 2.
    if (!files.Exists(folder + drawFile)) {
        bench_.Draw.Controls.SetDesignMarks();
        Form& form = bench_.Draw.Controls.frmDraw;
        WindowPlace place = form.RestoredPlace();
        place.Left = (bench_.Platform.Screen.Width() - place.Width) / 2;
        place.Top = (bench_.Platform.Screen.Height() - place.Height) / 2;
        return form.SetRestoredPlace(place);
    }
    // 3. to 5.
    std::string text;
    Attempt(loadSettingsName, [&] { text = WithoutUtf8Mark(files.ReadWhole(folder + drawFile)); });
    Keys.Read(text, loadSettingsName, SettingsFile::BadValue::EndsTheReading);
}

void DrawSettings::SaveSettings() {
    if (bench_.Window.Folders.SettingsFolder.empty()) return;
    const bool written = Attempt(saveSettingsName, [&] {
        bench_.Platform.Files.WriteWhole(bench_.Window.Folders.SettingsFolder + drawFile, Keys.Text());
    });
    if (!written) bench_.TellUnkept();
}

// One that begins maximised has its place for later, when it is restored.
void DrawSettings::PlaceDrawing(const WindowPlace& place, std::optional<WindowState> state) {
    Form& form = bench_.Draw.Controls.frmDraw;
    if (state) form.State = *state;
    const int screenWidth = bench_.Platform.Screen.Width();
    const int screenHeight = bench_.Platform.Screen.Height();
    if (place.Height == neverPlaced && place.Left == neverPlaced && place.Top == neverPlaced &&
        place.Width == neverPlaced) {
        return form.SetRestoredPlace({smallestHeight, (screenWidth - smallestWidth) / 2,
                                      (screenHeight - smallestHeight) / 2, smallestWidth});
    }
    WindowPlace moved{std::max(place.Height, smallestHeight), std::max(place.Left, 0), std::max(place.Top, 0),
                      std::max(place.Width, smallestWidth)};
    if (moved.Left + moved.Width > screenWidth) moved.Left = std::max(screenWidth - moved.Width, 0);
    if (moved.Top + moved.Height > screenHeight) moved.Top = std::max(screenHeight - moved.Height, 0);
    form.SetRestoredPlace(bench_.Platform.Screen.OnScreen(moved));
}

void DrawSettings::PlaceListing(const std::string& value) {
    ProgramWindow& listing = bench_.Draw.Listing;
    Form& form = listing.frmProgramWindow;
    // Its own first size must not come after this one.
    listing.Load();
    listing.Hide();
    if (form.State == WindowState::Normal) {
        WindowPlace place = WindowPlaceOf(value);
        place.Left = OnScreen(place.Left, bench_.Platform.Screen.Width());
        place.Top = OnScreen(place.Top, bench_.Platform.Screen.Height());
        form.SetRestoredPlace(place);
    }
    const std::vector<std::string_view> parts = Split(value, ",");
    if (parts.size() < 5) throw RunTimeError(fault::SubscriptOutOfRange);
    const bool active = !EqualIgnoringCase(Trim(parts[4]), "Inactive");
    if (active && bench_.Draw.Controls.frmDraw.Visible) form.Visible = true;
}

}  // namespace kvt
