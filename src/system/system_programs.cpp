#include "system/system_programs.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "system/confinement.h"
#include "system/file_names.h"

extern char** environ;

namespace kvt {

namespace {

namespace fs = std::filesystem;

constexpr const char* nowhere = "/dev/null";

bool IsProgram(const std::string& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored) && access(path.c_str(), X_OK) == 0;
}

// What a process begins with: no files of ours, signals as usual, a group of its own.
class StartConditions {
public:
    StartConditions() {
        posix_spawn_file_actions_init(&files_);
        posix_spawn_file_actions_addopen(&files_, STDIN_FILENO, nowhere, O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&files_, STDOUT_FILENO, nowhere, O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&files_, STDERR_FILENO, nowhere, O_WRONLY, 0);
        posix_spawnattr_init(&attributes_);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        posix_spawnattr_setpgroup(&attributes_, 0);
        posix_spawnattr_setflags(&attributes_,
                                 POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~StartConditions() {
        posix_spawn_file_actions_destroy(&files_);
        posix_spawnattr_destroy(&attributes_);
    }
    StartConditions(const StartConditions&) = delete;
    StartConditions& operator=(const StartConditions&) = delete;

    // words begins with the program; variable is one more for its environment. A program that cannot be started is
    // error 75.
    pid_t Spawn(const std::vector<std::string>& words, const std::string& variable = {}) const {
        std::vector<char*> arguments;
        for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        std::vector<char*> variables;
        const std::string_view name(variable.data(), std::min(variable.find('=') + 1, variable.size()));
        for (char** one = environ; *one; ++one) {
            if (name.empty() || !std::string_view(*one).starts_with(name)) variables.push_back(*one);
        }
        if (!variable.empty()) variables.push_back(const_cast<char*>(variable.c_str()));
        variables.push_back(nullptr);
        pid_t process = 0;
        if (posix_spawn(&process, words.front().c_str(), &files_, &attributes_, arguments.data(),
                        variables.data()) != 0)
            throw RunTimeError(fault::PathFileAccess);
        return process;
    }

private:
    posix_spawn_file_actions_t files_;
    posix_spawnattr_t attributes_;
};

bool Ended(pid_t process, int* status = nullptr) {
    const pid_t got = waitpid(process, status, WNOHANG);
    return got == process || (got < 0 && errno == ECHILD);
}

void Kill(pid_t process) {
    kill(-process, SIGKILL);
    while (waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
}

// The name of a file as an argument that no program takes for an option.
std::string NoOption(std::string name) { return name.starts_with('-') ? "./" + name : name; }

}  // namespace

SystemPrograms::~SystemPrograms() {
    for (const auto& [number, process] : running_) Kill(process);
}

int SystemPrograms::Start(std::string_view commandLine, std::string_view file) {
    const Command command =
        SplitCommand(commandLine, [](const std::string& path) { return IsProgram(NameForSystem(path)); });
    if (command.Program.empty()) throw RunTimeError(fault::FileNotFound);
    // The name is one for the system as a whole, and its pieces are pieces of that.
    std::vector<std::string> words = WordsOf(NoOption(NameForSystem(command.Arguments)));
    words.insert(words.begin(), NameForSystem(command.Program));
    const std::string variable = std::string(FileVariable) + "=" + NoOption(NameForSystem(file));
    pid_t process = 0;
    const auto spawn = [&] { process = StartConditions().Spawn(words, variable); };
    if (confinedTo_.empty()) {
        spawn();
    } else {
        RunConfined(confinedTo_, spawn);
    }
    running_[++lastNumber_] = process;
    return lastNumber_;
}

bool SystemPrograms::HasEnded(int program) {
    const auto found = running_.find(program);
    if (found == running_.end()) return true;
    int status = 0;
    if (!Ended(found->second, &status)) return false;
    if (WIFSIGNALED(status)) cutOff_.insert(program);
    running_.erase(found);
    return true;
}

void SystemPrograms::End(int program) {
    const auto found = running_.find(program);
    if (found == running_.end()) return;
    Kill(found->second);
    running_.erase(found);
}

bool SystemPrograms::Launch(std::string_view name) {
    std::erase_if(launched_, [](pid_t process) { return Ended(process); });
    const char* const path = std::getenv("PATH");
    for (const std::string_view folder : Split(path ? path : "", ":")) {
        const std::string program = std::string(folder) + "/" + std::string(name);
        if (!IsProgram(program)) continue;
        launched_.push_back(StartConditions().Spawn({program}));
        return true;
    }
    return false;
}

}  // namespace kvt
