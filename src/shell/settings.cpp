#include "shell/settings.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "shell/control_table.h"

namespace kvt {

namespace {

constexpr const char* loadSettingsName = "LoadSettings";
constexpr const char* saveSettingsName = "SaveSettings";
constexpr const char* resetName = "mnuReset_Click";
constexpr const char* editorFile = "SettingsEditor.txt";
constexpr const char* editorResetFile = "SettingsEditorReset.txt";
constexpr const char* drawFile = "SettingsDraw.txt";
constexpr const char* drawResetFile = "SettingsDrawReset.txt";
constexpr const char* defaultModule = "Language.txt";
constexpr int firstWidth = 13800;

void Copy(FileService& files, const std::string& from, const std::string& to, const char* procedure) {
    if (files.Exists(from)) Attempt(procedure, [&] { files.WriteWhole(to, files.ReadWhole(from)); });
}

}  // namespace

EditorSettings::EditorSettings(const Parts& parts) : Keys("EDITOR", EditorSettingKeys()), parts_(parts) {
    BindKeys();
}

void EditorSettings::BindKeys() {
    Keys.Bind(
        "LanguageFileName", [this](const std::string& value) { languageFile_ = value; },
        [this] { return parts_.Language.ModuleFile; });
    Keys.Bind(
        "LastFileUsed", [this](const std::string& value) { ChooseFile(value); },
        [this] { return LastFileUsed(); });
    Keys.Bind(
        "Metric",
        [this](const std::string& value) {
            parts_.Machine.SetUnits(TrueOrFalse(value) ? "Metric" : "Imperial");
        },
        [this] { return TrueOrFalse(parts_.Store.Metric); });
    Keys.Bind(
        "Machine", [this](const std::string& value) { ChooseMachine(value); },
        [this] { return parts_.Store.Machine; });
    Keys.Bind(
        "EditorWindow",
        [this](const std::string& value) { PlaceWindow(WindowPlaceOf(value), WindowStateOf(value)); },
        [this] {
            const Form& form = parts_.Window;
            return WindowText(form.RestoredPlace()) + (form.FillsScreen() ? WindowStateText(true) : "");
        });
}

void EditorSettings::LoadSettings() {
    FileService& files = parts_.Platform.Files;
    parts_.Language.ErrorHeaderText = "Error in line";
    if (!files.Exists(InFolder(editorFile)))
        Copy(files, InFolder(editorResetFile), InFolder(editorFile), loadSettingsName);
    if (files.Exists(InFolder(editorFile))) {
        ApplyFile();
    } else {
        ApplyBuiltInValues();
    }
    if (Ending()) return;
    loaded_ = true;
    parts_.Window.Visible = true;
}

// The first font named "Courier"; a "Courier New" behind it takes its place.
void EditorSettings::ChooseBuiltInFont() {
    const char* wanted = "Courier";
    for (const std::string& font : parts_.Platform.Printer.Fonts()) {
        if (!EqualIgnoringCase(font, wanted)) continue;
        parts_.Paper.SetFontName(font);
        wanted = "Courier New";
    }
}

void EditorSettings::ApplyBuiltInValues() {
    for (PortSide* side : {&parts_.Port.TX(), &parts_.Port.RX()}) parts_.Port.cmdEmco_Click(*side);
    parts_.Store.Machine = "MK4";
    parts_.Display.RefreshMachine();
    CentreWindow();
    try {
        ChooseBuiltInFont();
    } catch (const RunTimeError& error) {
        if (error.Number == fault::PrinterError) return EndWithoutPrinter();
        TellError(error, loadSettingsName);
    }
    parts_.Store.LimitValues.Fill(parts_.Store.DisableLimitsCheck);
    parts_.Display.ShowCodeLists();
    // Also where the folder cannot be written, so that there never is a file.
    ChooseFile("");
    if (LastFileExists()) LoadLastFile();
}

void EditorSettings::ApplyFile() {
    FileService& files = parts_.Platform.Files;
    languageFile_.clear();
    lastFile_.clear();
    std::string text;
    Attempt(loadSettingsName, [&] { text = WithoutUtf8Mark(files.ReadWhole(InFolder(editorFile))); });
    Busy = true;
    Keys.Read(text, loadSettingsName);
    Busy = false;
    parts_.View.MakeToolpositionColums();
    parts_.View.MakeLinePropertiesColumns();
    parts_.View.MakeMachineTimeColumn();
    // The limits follow a key of the file.
    parts_.Store.LimitValues.Fill(parts_.Store.DisableLimitsCheck);
    parts_.Display.ShowCodeLists();
    LoadModule();
    LoadLastFile();
}

void EditorSettings::LoadModule() {
    FileService& files = parts_.Platform.Files;
    const std::string standing = InFolder(defaultModule);
    if (files.Exists(standing)) {
        Run(parts_.Calls.LoadLanguageModule, standing);
        return;
    }
    constexpr std::size_t nameLength = 12;
    const bool isDefault = EqualIgnoringCase(Right(languageFile_, nameLength), defaultModule);
    if (!isDefault && !languageFile_.empty() && files.Exists(languageFile_))
        Run(parts_.Calls.LoadLanguageModule, languageFile_);
}

void EditorSettings::LoadLastFile() {
    if (LastFileExists()) {
        std::string name = lastFile_;
        parts_.Reader.LoadFile(name);
    }
    // A file without a line of units leaves those of the settings.
    parts_.Feeds.SetFeedLimits();
}

void EditorSettings::SaveSettings() {
    // A start that has ended early knows nothing that is worth keeping.
    if (!loaded_) return;
    parts_.Feeds.SetFeedLimits();
    const bool written = Attempt(
        saveSettingsName, [&] { parts_.Platform.Files.WriteWhole(InFolder(editorFile), Keys.Text()); });
    if (!written) parts_.Data.TellNotWritable();
}

void EditorSettings::mnuReset_Click() {
    FileService& files = parts_.Platform.Files;
    // Its windows write their settings as they close, so first of all.
    Run(parts_.Calls.UnloadDraw);
    const auto putBack = [&](const char* name, const char* resetCopy) {
        if (files.Exists(InFolder(name))) Attempt(resetName, [&] { files.Delete(InFolder(name)); });
        Copy(files, InFolder(resetCopy), InFolder(name), resetName);
    };
    putBack(editorFile, editorResetFile);
    putBack(drawFile, drawResetFile);
    ProgramStore& store = parts_.Store;
    const std::string module = parts_.Language.ModuleFile;
    const std::string machine = store.Machine;
    const bool metric = store.Metric;
    const bool horizontal = store.Horizontal;
    parts_.Window.State = WindowState::Normal;
    resetting_ = true;
    LoadSettings();
    resetting_ = false;
    if (Ending()) return;
    // The program is what it was, and is checked when everything stands.
    store.Machine = machine;
    store.Horizontal = horizontal;
    parts_.Machine.SetUnits(metric ? "Metric" : "Imperial");
    parts_.Feeds.SetFeedLimits();
    Run(parts_.Calls.LoadLanguageModule, module);
    parts_.Display.RefreshMachine();
    parts_.Display.ShowCodeLists();
    parts_.Interpreter.Interpreter();
}

// Read only where no file decides the machine.
void EditorSettings::ChooseMachine(const std::string& machine) {
    if (LastFileExists()) return;
    MachineControls& controls = parts_.Machine;
    const struct {
        const char* Name;
        OptionButton& Option;
    } options[] = {{"MK2", controls.optSettingsMK2},
                   {"MK4", controls.optSettingsMK4},
                   {"F1", controls.optSettingsF1CNC},
                   {"", controls.optSettingsMK4}};
    for (const auto& [name, option] : options) {
        if (EqualIgnoringCase(machine, name)) return option.Click();
    }
    throw RunTimeError(fault::TypeMismatch);
}

std::string EditorSettings::FileOfCommandLine() const {
    std::string_view name = Trim(CommandLine);
    if (!name.empty() && name.front() == '"') {
        const std::size_t last = name.rfind('"');
        name = last > 0 ? name.substr(1, last - 1) : name.substr(1);
    }
    return std::string(name);
}

void EditorSettings::ChooseFile(const std::string& last) {
    missed_ = false;
    lastFile_.clear();
    // A reset leaves the program alone.
    if (resetting_) return;
    parts_.File.LastProgram = last;
    lastFile_ = last;
    if (Trim(CommandLine).empty()) return;
    lastFile_ = FileOfCommandLine();
    missed_ = !parts_.Platform.Files.Exists(lastFile_);
}

void EditorSettings::TellMissingFile() {
    if (!missed_) return;
    const Texts& texts = parts_.Language;
    parts_.Platform.Dialogs.ShowMessage(Notice(FileMessage(texts, FileOfCommandLine(), text::NotFound),
                                               texts.ErrorTexts(text::OpenTitle), Icon::Exclamation));
}

std::string EditorSettings::LastFileUsed() const {
    const FileControls& file = parts_.File;
    const std::string& path = file.lblPath.Caption.Get();
    // A mistyped name on the command line changes nothing, and a source is no program.
    const bool keeps = path.empty() ? missed_ : file.NamesSource;
    return keeps ? file.LastProgram : path;
}

bool EditorSettings::LastFileExists() const {
    return !lastFile_.empty() && parts_.Platform.Files.Exists(lastFile_);
}

void EditorSettings::PlaceWindow(const WindowPlace& place, std::optional<WindowState> state) {
    ScreenService& screen = parts_.Platform.Screen;
    WindowPlace wanted = place;
    if (wanted.Height <= 0) wanted.Height = SmallestHeight;
    if (wanted.Width <= 0) wanted.Width = std::min(screen.Width(), firstWidth);
    if (wanted.Left <= 0) wanted.Left = (screen.Width() - wanted.Width) / 2;
    if (wanted.Top <= 0) wanted.Top = (screen.Height() - wanted.Height) / 2;
    parts_.Window.SetRestoredPlace(screen.OnScreen(wanted));
    if (state) parts_.Window.State = *state;
}

void EditorSettings::CentreWindow() {
    ScreenService& screen = parts_.Platform.Screen;
    Form& form = parts_.Window;
    form.Left = (screen.Width() - form.Width) / 2;
    form.Top = (screen.Height() - form.Height) / 2;
}

std::string EditorSettings::InFolder(const char* name) const {
    return parts_.Data.Folders.SettingsFolder + name;
}

}  // namespace kvt
