#pragma once

#include <memory>
#include <string>

#include "console/control_access.h"
#include "console/script.h"
#include "console/script_words.h"
#include "headless/faulty_platform.h"
#include "headless/guarded_files.h"
#include "system/offscreen_window.h"
#include "system/temporary_folder.h"

namespace kvt {

// The workbench that a script works on, on the memory half of the platform. The folders of its data exist from
// the beginning. Nothing is written outside of them and of the folders that the call allows.
class ScriptSession {
public:
    // A ScriptError where the folders cannot be made, or a folder is none of its own.
    explicit ScriptSession(const ScriptOptions& options);
    ScriptSession(const ScriptSession&) = delete;
    ScriptSession& operator=(const ScriptSession&) = delete;

    FaultyPlatform Platform;

    // Starts the program with a command line (UTF-8); after it has ended once more, in the same folders.
    void Start(const std::string& commandLine);
    bool Running() const { return started_ && !Platform.System.Ended; }
    const std::string& CommandLine() const { return commandLine_; }

    kvt::Workbench& Workbench() { return *workbench_; }
    ListView& Program() { return workbench_->Store.lvCncProgram; }
    const std::vector<Form*>& Forms() const { return forms_; }
    // An unknown name is a ScriptError.
    Control& Named(std::string_view name, int index = -1) const;
    Form& FormNamed(std::string_view name) const;
    OffscreenWindow& WindowOf(const Form& form) const;

    // Whether a user can act on a control now; otherwise why not.
    const char* WhyOutOfReach(const Control& control) const;

    // The files as the script itself works on them: no planned failure meets it here. A write elsewhere is a
    // ScriptError.
    FileService& Files() { return ownFiles_; }
    // Told of what the workbench is refused to write, and of the file that a program is not given.
    void SetRefusal(const GuardedFiles::Refusal& told);
    const Arguments::Variables& Variables() const { return variables_; }
    std::string ErrorLogPath() const;

private:
    void NewWorkbench();

    TemporaryFolder temporary_;
    OwnFolders folders_;
    GuardedFiles ownFiles_{Platform.Files, folders_};
    GuardedFiles files_{Platform.Services.Files, folders_};
    GuardedPrograms programs_{Platform.Services.Programs, folders_};
    kvt::Services services_{
        files_,         Platform.Dialogs,       Platform.Services.Clipboard, Platform.Screen, Platform.System,
        Platform.Focus, Platform.Services.Port, Platform.Services.Printer,   programs_};
    std::string dataFolder_;
    Arguments::Variables variables_;
    std::unique_ptr<kvt::Workbench> workbench_;
    std::vector<Form*> forms_;
    std::vector<std::unique_ptr<OffscreenWindow>> windows_;
    std::string commandLine_;
    bool started_ = false;
};

// What is told of a write outside of the folders that are a script's own.
std::string NoPlaceForWrites(const std::string& path);

}  // namespace kvt
