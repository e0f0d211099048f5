#include "basic/installation.h"

// The values of the macros come from CMakeLists.txt, for this file alone.
namespace kvt {

std::string VersionText() { return KVT_VERSION; }

std::string VersionDigits() {
    std::string digits;
    for (const char c : VersionText()) {
        if (c != '.') digits += c;
    }
    return digits;
}

std::string SharedFolderFromPrograms() { return KVT_SHARED_FOLDER "/"; }

std::string PreProcessorsFromPrograms() { return KVT_PREPROCESSOR_FOLDER "/"; }

}  // namespace kvt
