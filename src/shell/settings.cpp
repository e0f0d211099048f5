#include "shell/settings.h"

#include "basic/run_time_error.h"

namespace kvt {

namespace {

constexpr const char* loadSettingsName = "LoadSettings";
constexpr const char* saveSettingsName = "SaveSettings";
constexpr const char* resetName = "mnuReset_Click";
constexpr const char* editorFile = "SettingsEditor.txt";
constexpr const char* editorResetFile = "SettingsEditorReset.txt";
constexpr const char* drawFile = "SettingsDraw.txt";
constexpr const char* drawResetFile = "SettingsDrawReset.txt";

void Copy(FileService& files, const std::string& from, const std::string& to, const char* procedure) {
    if (files.Exists(from)) Attempt(procedure, [&] { files.WriteWhole(to, files.ReadWhole(from)); });
}

}  // namespace

EditorSettings::EditorSettings(const Parts& parts) : Keys("EDITOR", EditorSettingKeys()), parts_(parts) {
    BindKeys();
}

void EditorSettings::BindKeys() {
    parts_.Languages.BindKey(Keys);
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
    FileService& files = parts_.Files;
    parts_.Last.Forget();
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

void EditorSettings::ApplyBuiltInValues() {
    parts_.BuiltIn.Apply(loadSettingsName);
    if (Ending()) return;
    parts_.Store.LimitValues.Fill(parts_.Store.DisableLimitsCheck);
    parts_.Display.ShowCodeLists();
    // Also where the folder cannot be written, so that there never is a file.
    ChooseFile("");
    if (!parts_.Last.Exists()) return;
    parts_.Last.Open();
    parts_.Feeds.SetFeedLimits();
}

void EditorSettings::ApplyFile() {
    std::string text;
    Attempt(loadSettingsName, [&] { text = WithoutUtf8Mark(parts_.Files.ReadWhole(InFolder(editorFile))); });
    Busy = true;
    Keys.Read(text, loadSettingsName);
    Busy = false;
    parts_.Display.ShowColumns();
    // The limits follow a key of the file.
    parts_.Store.LimitValues.Fill(parts_.Store.DisableLimitsCheck);
    parts_.Display.ShowCodeLists();
    if (!resetting_) parts_.Languages.LoadRemembered(parts_.Data.Folders.SettingsFolder);
    parts_.Last.Open();
    // A file without a line of units leaves those of the settings.
    parts_.Feeds.SetFeedLimits();
}

void EditorSettings::SaveSettings() {
    // A start that has ended early knows nothing that is worth keeping.
    if (!loaded_) return;
    parts_.Feeds.SetFeedLimits();
    const bool written =
        Attempt(saveSettingsName, [&] { parts_.Files.WriteWhole(InFolder(editorFile), Keys.Text()); });
    if (!written) parts_.Data.TellNotWritable();
}

void EditorSettings::Reset() {
    FileService& files = parts_.Files;
    const auto putBack = [&](const char* name, const char* resetCopy) {
        if (files.Exists(InFolder(name))) Attempt(resetName, [&] { files.Delete(InFolder(name)); });
        Copy(files, InFolder(resetCopy), InFolder(name), resetName);
    };
    putBack(editorFile, editorResetFile);
    putBack(drawFile, drawResetFile);
    parts_.Window.State = WindowState::Normal;
    resetting_ = true;
    LoadSettings();
    resetting_ = false;
}

// Read only where no file decides the machine.
void EditorSettings::ChooseMachine(const std::string& machine) {
    if (parts_.Last.Exists()) return;
    const std::optional<MachineModel> model = machine.empty() ? MachineModel::MK4 : MachineNamed(machine);
    if (!model) throw RunTimeError(fault::TypeMismatch);
    parts_.Machine.OptionOf(*model).Click();
}

void EditorSettings::ChooseFile(const std::string& last) {
    if (!resetting_) parts_.Last.Choose(last);
}

std::string EditorSettings::InFolder(const char* name) const {
    return parts_.Data.Folders.SettingsFolder + name;
}

}  // namespace kvt
