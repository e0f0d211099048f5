#include "basic/failure.h"

#include <cstdio>

#include "basic/code_page.h"

namespace kvt {

int RunMain(const std::string& name, int failed, const std::function<int()>& body) {
    try {
        return body();
    } catch (const std::exception& failure) {
        const std::string told = WithoutControls(name + ": " + failure.what());
        std::fprintf(stderr, "%s\n", told.c_str());
    } catch (...) {
        std::fprintf(stderr, "%s: an unknown failure has ended the program\n", name.c_str());
    }
    return failed;
}

}  // namespace kvt
