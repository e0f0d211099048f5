// Makes the manual pages and the completions for shells: make_manual TARGET.

#include <cstdio>

#include "basic/failure.h"
#include "console/manual.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_manual TARGET\n", stderr);
        return 2;
    }
    return kvt::RunMain("make_manual", 1, [&] { return kvt::MakeManual(argv[1]); });
}
