// Makes the help documents from their sources: make_help SOURCES TARGET.

#include <cstdio>

#include "basic/failure.h"
#include "console/help_pages.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: make_help SOURCES TARGET\n", stderr);
        return 2;
    }
    return kvt::RunMain("make_help", 1, [&] { return kvt::MakeHelp(argv[1], argv[2]); });
}
