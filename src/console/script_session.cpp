#include "console/script_session.h"

#include <algorithm>
#include <cstdlib>

#include "basic/code_page.h"
#include "basic/text.h"
#include "files/folders.h"
#include "files/settings_file.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

// Folders of the program end in a separator, those of a script do not.
std::string WithoutSeparator(std::string folder) {
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return folder;
}

}  // namespace

ScriptSession::ScriptSession(const ScriptOptions& options) {
    const fs::path own = temporary_.Path() / "tmp";
    folders_.Add(temporary_.Path());
    for (const std::string& folder : options.Writes) folders_.Add(folder);
    ownFiles_.OnRefused = [](const std::string& path) { throw ScriptError{NoPlaceForWrites(path)}; };
    const std::string data =
        WithoutSeparator(options.Data.empty() ? (temporary_.Path() / "data").string() : options.Data);
    Platform.System.DataFolder = NameFromSystem(data);
    Platform.System.Documents = NameFromSystem(own.string());
    const Folders folders = FoldersBelow(Platform.System.DataFolder);
    dataFolder_ = folders.DataFolder;
    Platform.Files.SetDataFolder(dataFolder_);
    try {
        for (const std::string& folder :
             {NameFromSystem(own.string()), folders.DataFolder, folders.SettingsFolder,
              folders.PreProcessorFolder, folders.LanguageFolder}) {
            ownFiles_.MakeFolder(folder);
        }
    } catch (const RunTimeError&) {
        throw ScriptError{"the folders of the data cannot be made in " + data};
    }
    const auto below = [&](const std::string& folder) {
        return WithoutSeparator(data + folder.substr(Platform.System.DataFolder.size()));
    };
    variables_ = {{"TMP", own.string()},
                  {"DATA", below(folders.DataFolder)},
                  {"SETTINGS", below(folders.SettingsFolder)},
                  {"PP", below(folders.PreProcessorFolder)}};

    Platform.Programs.ConfineTo(folders_.All());
    Platform.Printer.Present = !options.NoPrinter;
    if (options.Screen.size() == 2) {
        Platform.Screen.WidthTwips = options.Screen[0];
        Platform.Screen.HeightTwips = options.Screen[1];
    }
    if (!options.WorkArea.empty()) Platform.Screen.WorkAreaTwips = options.WorkArea[0];
    if (!options.Ports.empty()) Platform.Port.Ports = options.Ports[0];
    NewWorkbench();
}

void ScriptSession::NewWorkbench() {
    windows_.clear();
    workbench_.reset();
    Platform.BeginRun();
    workbench_ = std::make_unique<kvt::Workbench>(services_);
    // The help documents lie beside the program.
    std::error_code failed;
    const fs::path program = fs::read_symlink("/proc/self/exe", failed);
    workbench_->Help.StartFolder = NameFromSystem(program.parent_path().string()) + "/";
    forms_ = workbench_->Forms();
    for (Form* form : forms_) {
        Platform.System.Watch(*form);
        windows_.push_back(std::make_unique<OffscreenWindow>(*form, Platform.Screen, Platform.Focus));
    }
}

void ScriptSession::Start(const std::string& commandLine) {
    if (started_) NewWorkbench();
    started_ = true;
    commandLine_ = commandLine;
    // As the window's main function does.
    Platform.Files.RemoveLeftovers();
    InstallResetCopies(ownFiles_, Platform.System.DataFolder);
    workbench_->Form_Load(NameFromSystem(commandLine));
}

Control& ScriptSession::Named(std::string_view name, int index) const {
    if (Control* control = FindByName(forms_, name, index)) return *control;
    std::string asked(name);
    if (index >= 0) asked += " " + std::to_string(index);
    throw ScriptError{"unknown name " + Quoted(asked)};
}

Form& ScriptSession::FormNamed(std::string_view name) const {
    if (auto* form = dynamic_cast<Form*>(&Named(name))) return *form;
    throw ScriptError{Quoted(name) + " is no window"};
}

OffscreenWindow& ScriptSession::WindowOf(const Form& form) const {
    const auto found = std::find_if(windows_.begin(), windows_.end(),
                                    [&](const auto& window) { return &window->Shown() == &form; });
    return **found;
}

const char* ScriptSession::WhyOutOfReach(const Control& control) const {
    if (Platform.System.Ended) return "the program has ended";
    // The entries of a menu at the pointer are there although that menu has no place in the menu bar.
    const Menu* const popup = Platform.System.ShownPopup;
    const bool inPopup = popup && control.Container == popup;
    if (!(inPopup ? control.Visible.Get() : control.EffectivelyVisible())) return "not to be seen";
    if (!(inPopup ? control.Enabled.Get() : control.EffectivelyEnabled())) return "disabled";
    return nullptr;
}

void ScriptSession::SetRefusal(const GuardedFiles::Refusal& told) {
    files_.OnRefused = told;
    programs_.OnRefused = told;
}

std::string NoPlaceForWrites(const std::string& path) {
    return "a script writes in its own folders and those of --writes, not here: " + path;
}

std::string ScriptSession::ErrorLogPath() const { return dataFolder_ + "Errors.log"; }

}  // namespace kvt
