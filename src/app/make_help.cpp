// Makes the help documents from their sources: make_help SOURCES TARGET.

#include <cstdio>
#include <exception>

#include "console/help_pages.h"

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: make_help SOURCES TARGET\n", stderr);
        return 2;
    }
    try {
        return kvt::MakeHelp(argv[1], argv[2]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_help: %s\n", error.what());
        return 1;
    }
}
