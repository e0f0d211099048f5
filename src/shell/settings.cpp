#include "shell/settings.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "program/edit_step.h"
#include "shell/settings_keys.h"

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
        [this] { return parts_.Last.ForNextStart(); });
    Keys.Bind(
        "Metric", [this](const std::string& value) { parts_.Machine.SetUnits(UnitsOf(TrueOrFalse(value))); },
        [this] { return TrueOrFalse(parts_.Store.Metric); });
    Keys.Bind(
        "Machine", [this](const std::string& value) { ChooseMachine(value); },
        [this] { return std::string(NameOf(parts_.Store.Machine)); });
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
    parts_.Main.Window.Visible = true;
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
    parts_.Store.Machine = MachineModel::MK4;
    parts_.Display.RefreshMachine();
    Centre(parts_.Main.Window, parts_.Platform.Screen);
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
    if (parts_.Last.Exists()) LoadLastFile();
}

void EditorSettings::ApplyFile() {
    FileService& files = parts_.Platform.Files;
    languageFile_.clear();
    parts_.Last.Forget();
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
    // A reset keeps the language.
    if (!resetting_) LoadModule();
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
    if (isDefault || languageFile_.empty()) return;
    // The program, with the modules that it brings, may have moved.
    const bool there = files.Exists(languageFile_);
    Run(parts_.Calls.LoadLanguageModule, there ? languageFile_ : FindModule(ExtractFileName(languageFile_)));
}

void EditorSettings::LoadLastFile() {
    if (parts_.Last.Exists()) {
        std::string name = parts_.Last.Name();
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
    const EditStep step(parts_.Calls, {StepKind::CodeComments});
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
    const MachineModel machine = store.Machine;
    const bool metric = store.Metric;
    const bool horizontal = store.Horizontal;
    parts_.Main.Window.State = WindowState::Normal;
    resetting_ = true;
    LoadSettings();
    resetting_ = false;
    if (Ending()) return;
    // The program is what it was, and is checked when everything stands.
    store.Machine = machine;
    store.Horizontal = horizontal;
    parts_.Machine.SetUnits(UnitsOf(metric));
    parts_.Feeds.SetFeedLimits();
    Run(parts_.Calls.LoadLanguageModule, module);
    parts_.Display.RefreshMachine();
    parts_.Display.ShowCodeLists();
    parts_.Interpreter.Interpreter();
}

// Read only where no file decides the machine.
void EditorSettings::ChooseMachine(const std::string& machine) {
    if (parts_.Last.Exists()) return;
    const std::optional<MachineModel> model = machine.empty() ? MachineModel::MK4 : MachineNamed(machine);
    if (!model) throw RunTimeError(fault::TypeMismatch);
    parts_.Machine.OptionOf(*model).Click();
}

void EditorSettings::ChooseFile(const std::string& last) {
    if (resetting_) return parts_.Last.Forget();
    parts_.Last.Choose(last);
}

std::string EditorSettings::InFolder(const char* name) const {
    return parts_.Data.Folders.SettingsFolder + name;
}

}  // namespace kvt
