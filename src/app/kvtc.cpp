#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "basic/failure.h"
#include "console/commands.h"

namespace {

bool ShowsColour() {
    const char* none = std::getenv("NO_COLOR");
    const char* terminal = std::getenv("TERM");
    return isatty(STDOUT_FILENO) == 1 && (!none || *none == '\0') && terminal &&
           std::string_view(terminal) != "dumb";
}

}  // namespace

int main(int argc, char** argv) {
    // A file that may not grow any more is a write that fails.
    std::signal(SIGXFSZ, SIG_IGN);
    return kvt::RunMain("kvtc", kvt::status::Usage, [&] {
        const int result = kvt::RunConsole({argv + 1, argv + argc}, {ShowsColour()});
        // A full disk or a closed pipe behind standard output must not pass for success.
        if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return result;
        throw kvt::Failure("standard output could not be written");
    });
}
