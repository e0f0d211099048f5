#include "shell/settings.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "shell/layout.h"
#include "shell/workbench.h"
#include "transfer/port_settings.h"

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

EditorSettings::EditorSettings(Workbench& bench) : Keys("EDITOR", EditorSettingKeys()), bench_(bench) {
    BindSettings();
    BindView();
    BindTransfer();
    BindPrinter();
    bench_.Main.cmdResetAll.OnClick = [this] { mnuReset_Click(); };
    bench_.Main.mnuReset.OnClick = [this] { mnuReset_Click(); };
}

void EditorSettings::BindSettings() {
    ProgramStore& store = bench_.Store;
    Keys.Bind(
        "LanguageFileName", [this](const std::string& value) { languageFile_ = value; },
        [this] { return bench_.Language.ModuleFile; });
    Keys.Bind(
        "LastFileUsed", [this](const std::string& value) { ChooseFile(value); },
        [this] { return LastFileUsed(); });
    Keys.Bind(
        "Horizontal", [&store](const std::string& value) { store.Horizontal = TrueOrFalse(value); },
        [&store] { return TrueOrFalse(store.Horizontal); });
    Keys.Bind(
        "Metric", [this](const std::string& value) { bench_.Machine.SetUnits(UnitsOf(TrueOrFalse(value))); },
        [&store] { return TrueOrFalse(store.Metric); });
    Keys.Bind(
        "Machine", [this](const std::string& value) { ChooseMachine(value); },
        [&store] { return std::string(NameOf(store.Machine)); });
    Keys.Bind(
        "DisableLimitsCheck",
        [&store](const std::string& value) { store.DisableLimitsCheck = TrueOrFalse(value); },
        [&store] { return TrueOrFalse(store.DisableLimitsCheck); });
    const auto bindColor = [this](const char* key, Color& color, Label& shown) {
        Keys.Bind(
            key,
            [&color, &shown](const std::string& value) {
                color = ColorOf(value);
                shown.ForeColor = color;
            },
            [&color] { return ColorText(color); });
    };
    bindColor("IncrColor", store.IncrColor, bench_.Main.lblSettingsIncrColor);
    bindColor("AbsColor", store.AbsColor, bench_.Main.lblSettingsAbsColor);
    const auto bindFeed = [this](const char* key, TextBox& preset) {
        Keys.Bind(
            key,
            [&preset](const std::string& value) {
                preset.Text = RightPad(PlainNumber(ToLong(Val(value))), 5);
            },
            [&preset] { return std::string(Trim(preset.Text)); });
    };
    bindFeed("FeedA", bench_.Entry.txtFeedA);
    bindFeed("FeedB", bench_.Entry.txtFeedB);
}

void EditorSettings::BindView() {
    ViewColumns& view = bench_.View;
    CheckBox& autoWidth = view.chkSettingsAutowidth;
    Keys.Bind(
        "AutoWidth", [&autoWidth](const std::string& value) { autoWidth.Value = TrueOrFalse(value) ? 1 : 0; },
        [&autoWidth] { return TrueOrFalse(autoWidth.Value != 0); });
    const auto bindBox = [this](const char* key, CheckBox& box) {
        Keys.Bind(
            key, [&box](const std::string& value) { box.Value = ZeroOrOne(value); },
            [&box] { return PlainNumber(box.Value); });
    };
    bindBox("Delete without confirm", bench_.Entry.chkSettingsDWC);
    bindBox("ToolPosition", view.chkViewToolPos);
    bindBox("LineProperties", view.chkViewLineProperties);
    bindBox("FileNotes", view.chkViewFileNotes);
    bindBox("Gcode", view.chkViewGcode);
    bindBox("MachineTime", view.chkViewMachineTime);
    Form& form = bench_.frmMain;
    Keys.Bind(
        "EditorWindow",
        [this](const std::string& value) { Place(WindowPlaceOf(value), WindowStateOf(value)); },
        [&form] {
            return WindowText(form.RestoredPlace()) + (form.FillsScreen() ? WindowStateText(true) : "");
        });
}

void EditorSettings::BindTransfer() {
    PortControl& port = bench_.Port;
    for (const std::span<const PortKey> keys : {PortKeysGeneral(), PortKeysTransmit(), PortKeysReceive()}) {
        for (const PortKey& key : keys) {
            Keys.Bind(
                Trim(key.Name), [&port, &key](const std::string& value) { key.Apply(port, value); },
                [&port, &key] { return key.Value(port); });
        }
    }
}

void EditorSettings::LoadSettings() {
    FileService& files = bench_.Platform.Files;
    // 1.
    bench_.Language.ErrorHeaderText = "Error in line";
    // 2.
    if (!files.Exists(InFolder(editorFile)))
        Copy(files, InFolder(editorResetFile), InFolder(editorFile), loadSettingsName);
    if (files.Exists(InFolder(editorFile))) {
        // 4. to 7.
        ApplyFile();
    } else {
        // 3.
        TakeBuiltInValues();
    }
    if (bench_.Window.Ending()) return;
    loaded_ = true;
    // 8. Files are closed as they are read.
    bench_.frmMain.Visible = true;
}

void EditorSettings::BindPrinter() {
    PrinterPage& page = bench_.Paper;
    const auto selected = [](const ComboBox& box) {
        return box.ListIndex < 0 ? std::string() : box.Entry(box.ListIndex);
    };
    Keys.Bind(
        "FontName", [&page](const std::string& value) { page.SetFontName(value); },
        [&page, selected] { return selected(page.cboFontName); });
    Keys.Bind(
        "FontSize", [&page](const std::string& value) { page.SetFontSize(Val(value)); },
        [&page, selected] { return selected(page.cboFontSize); });
}

// The first font named "Courier"; a "Courier New" behind it takes its place.
void EditorSettings::ChooseBuiltInFont() {
    const char* wanted = "Courier";
    for (const std::string& font : bench_.Platform.Printer.Fonts()) {
        if (!EqualIgnoringCase(font, wanted)) continue;
        bench_.Paper.SetFontName(font);
        wanted = "Courier New";
    }
}

void EditorSettings::TakeBuiltInValues() {
    for (PortSide* side : {&bench_.Port.TX(), &bench_.Port.RX()}) bench_.Port.cmdEmco_Click(*side);
    bench_.Store.Machine = MachineModel::MK4;
    bench_.RefreshMachine();
    Centre();
    try {
        ChooseBuiltInFont();
    } catch (const RunTimeError& error) {
        if (error.Number == fault::PrinterError) return bench_.Window.EndWithoutPrinter();
        TellError(error, loadSettingsName);
    }
    bench_.Store.LimitValues.Fill(bench_.Store.DisableLimitsCheck);
    bench_.ShowCodeLists();
    // Also where the folder cannot be written, so that there never is a file.
    ChooseFile("");
    if (LastFileExists()) LoadLastFile();
}

void EditorSettings::ApplyFile() {
    FileService& files = bench_.Platform.Files;
    languageFile_.clear();
    lastFile_.clear();
    // 4.
    std::string text;
    Attempt(loadSettingsName, [&] { text = WithoutUtf8Mark(files.ReadWhole(InFolder(editorFile))); });
    // 5.
    Busy = true;
    Keys.Read(text, loadSettingsName);
    Busy = false;
    bench_.View.MakeToolpositionColums();
    bench_.View.MakeLinePropertiesColumns();
    bench_.View.MakeMachineTimeColumn();
    // 6.
    bench_.Store.LimitValues.Fill(bench_.Store.DisableLimitsCheck);
    bench_.ShowCodeLists();
    LoadModule();
    // 7.
    LoadLastFile();
}

void EditorSettings::LoadModule() {
    FileService& files = bench_.Platform.Files;
    const std::string standing = InFolder(defaultModule);
    if (files.Exists(standing)) {
        Run(bench_.Calls.LoadLanguageModule, standing);
        return;
    }
    constexpr std::size_t nameLength = 12;
    const bool isDefault = EqualIgnoringCase(Right(languageFile_, nameLength), defaultModule);
    if (!isDefault && !languageFile_.empty() && files.Exists(languageFile_))
        Run(bench_.Calls.LoadLanguageModule, languageFile_);
}

void EditorSettings::LoadLastFile() {
    if (LastFileExists()) {
        std::string name = lastFile_;
        bench_.Reader.LoadFile(name);
    }
    // A file without a line of units leaves those of the settings.
    bench_.Feeds.SetFeedLimits();
}

void EditorSettings::SaveSettings() {
    // A start that has ended early knows nothing that is worth keeping.
    if (!loaded_) return;
    // 1.
    bench_.Feeds.SetFeedLimits();
    // 2.
    const bool written = Attempt(
        saveSettingsName, [&] { bench_.Platform.Files.WriteWhole(InFolder(editorFile), Keys.Text()); });
    if (!written) bench_.TellUnkept();
}

void EditorSettings::mnuReset_Click() {
    FileService& files = bench_.Platform.Files;
    // 1.
    Run(bench_.Calls.UnloadDraw);
    // 2., 3.
    const auto putBack = [&](const char* name, const char* resetName_) {
        if (files.Exists(InFolder(name))) Attempt(resetName, [&] { files.Delete(InFolder(name)); });
        Copy(files, InFolder(resetName_), InFolder(name), resetName);
    };
    putBack(editorFile, editorResetFile);
    putBack(drawFile, drawResetFile);
    // 4.
    ProgramStore& store = bench_.Store;
    const std::string module = bench_.Language.ModuleFile;
    const MachineModel machine = store.Machine;
    const bool metric = store.Metric;
    const bool horizontal = store.Horizontal;
    bench_.frmMain.State = WindowState::Normal;
    resetting_ = true;
    LoadSettings();
    resetting_ = false;
    if (bench_.Window.Ending()) return;
    // 5. The program is what it was, and is checked when everything stands.
    store.Machine = machine;
    store.Horizontal = horizontal;
    bench_.Machine.SetUnits(UnitsOf(metric));
    bench_.Feeds.SetFeedLimits();
    Run(bench_.Calls.LoadLanguageModule, module);
    bench_.RefreshMachine();
    bench_.ShowCodeLists();
    bench_.Interpreter.Interpreter();
}

// Read only where no file decides the machine.
void EditorSettings::ChooseMachine(const std::string& machine) {
    if (LastFileExists()) return;
    const std::optional<MachineModel> model = machine.empty() ? MachineModel::MK4 : MachineNamed(machine);
    if (!model) throw RunTimeError(fault::TypeMismatch);
    bench_.Machine.OptionOf(*model).Click();
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
    bench_.File.LastProgram = last;
    lastFile_ = last;
    if (Trim(CommandLine).empty()) return;
    lastFile_ = FileOfCommandLine();
    missed_ = !bench_.Platform.Files.Exists(lastFile_);
}

void EditorSettings::TellMissingFile() {
    if (!missed_) return;
    const Texts& texts = bench_.Language;
    bench_.Platform.Dialogs.ShowMessage(Notice(FileMessage(texts, FileOfCommandLine(), text::NotFound),
                                               texts.ErrorTexts(text::OpenTitle), Icon::Exclamation));
}

std::string EditorSettings::LastFileUsed() const {
    const FileControls& file = bench_.File;
    const std::string& path = file.lblPath.Caption.Get();
    // A mistyped name costs nothing, and a source is no program.
    const bool keeps = path.empty() ? missed_ : file.NamesSource;
    return keeps ? file.LastProgram : path;
}

bool EditorSettings::LastFileExists() const {
    return !lastFile_.empty() && bench_.Platform.Files.Exists(lastFile_);
}

void EditorSettings::Place(const WindowPlace& place, std::optional<WindowState> state) {
    ScreenService& screen = bench_.Platform.Screen;
    WindowPlace wanted = place;
    if (wanted.Height <= 0) wanted.Height = SmallestHeight;
    if (wanted.Width <= 0) wanted.Width = std::min(screen.Width(), firstWidth);
    if (wanted.Left <= 0) wanted.Left = (screen.Width() - wanted.Width) / 2;
    if (wanted.Top <= 0) wanted.Top = (screen.Height() - wanted.Height) / 2;
    bench_.frmMain.SetRestoredPlace(screen.OnScreen(wanted));
    if (state) bench_.frmMain.State = *state;
}

void EditorSettings::Centre() {
    ScreenService& screen = bench_.Platform.Screen;
    Form& form = bench_.frmMain;
    form.Left = (screen.Width() - form.Width) / 2;
    form.Top = (screen.Height() - form.Height) / 2;
}

std::string EditorSettings::InFolder(const char* name) const {
    return bench_.Window.Folders.SettingsFolder + name;
}

}  // namespace kvt
