#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "console/control_access.h"
#include "console/script.h"
#include "console/script_words.h"
#include "headless/memory_platform.h"
#include "headless/memory_window.h"

namespace kvt {

// A folder of its own under the system's temporary folder, which goes with the object.
class TemporaryFolder {
public:
    // A ScriptError where there is no place for it.
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

// The workbench that a script works on, on the memory half of the platform. The folders of its data exist from
// the beginning.
class ScriptSession {
public:
    // A ScriptError where the folders cannot be made.
    explicit ScriptSession(const ScriptOptions& options);
    ScriptSession(const ScriptSession&) = delete;
    ScriptSession& operator=(const ScriptSession&) = delete;

    MemoryPlatform Platform;

    // Starts the program with a command line (UTF-8); after it has ended once more, in the same folders.
    void Start(const std::string& commandLine);
    bool Running() const { return started_ && !Platform.System.Ended; }
    const std::string& CommandLine() const { return commandLine_; }

    Workbench& Bench() { return *bench_; }
    ListView& Program() { return bench_->Store.lvCncProgram; }
    const std::vector<Form*>& Forms() const { return forms_; }
    // An unknown name is a ScriptError.
    Control& Named(std::string_view name, int index = -1) const;
    Form& FormNamed(std::string_view name) const;
    MemoryWindow& WindowOf(const Form& form) const;

    // Whether a user can act on a control now; otherwise why not.
    const char* WhyOutOfReach(const Control& control) const;

    // The files as the script itself works on them: no planned failure meets it here.
    DiskFiles& Files() { return files_; }
    const Arguments::Variables& Variables() const { return variables_; }
    std::string ErrorLogPath() const;

private:
    void NewBench();

    TemporaryFolder temporary_;
    FaultPlan noFaults_;
    DiskFiles files_{noFaults_};
    std::string dataFolder_;
    Arguments::Variables variables_;
    std::unique_ptr<Workbench> bench_;
    std::vector<Form*> forms_;
    std::vector<std::unique_ptr<MemoryWindow>> windows_;
    std::string commandLine_;
    bool started_ = false;
};

}  // namespace kvt
