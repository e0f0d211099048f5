#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string_view>

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
    try {
        const int result = kvt::RunConsole({argv + 1, argv + argc}, {ShowsColour()});
        // A full disk or a closed pipe behind standard output must not pass for success.
        if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0) return result;
        std::fprintf(stderr, "kvtc: standard output could not be written\n");
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kvtc: %s\n", error.what());
    }
    return kvt::status::Usage;
}
