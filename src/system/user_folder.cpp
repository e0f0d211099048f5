#include "system/user_folder.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

#include "basic/code_page.h"

namespace kvt {

namespace {

// A folder from the environment; one that depends on where the program was started is none.
std::string Named(const char* variable) {
    const char* const folder = std::getenv(variable);
    return folder && *folder == '/' ? folder : std::string();
}

}  // namespace

std::string UserDataFolder() {
    std::string folder = Named("XDG_DATA_HOME");
    if (folder.empty()) {
        folder = Named("HOME");
        const passwd* const user = folder.empty() ? getpwuid(geteuid()) : nullptr;
        if (user && user->pw_dir) folder = user->pw_dir;
        if (folder.empty()) return {};
        folder += "/.local/share";
    }
    while (folder.size() > 1 && folder.back() == '/') folder.pop_back();
    return NameFromSystem(folder);
}

}  // namespace kvt
