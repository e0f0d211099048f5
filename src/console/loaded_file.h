#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "shell/workbench.h"
#include "system/offscreen_platform.h"

namespace kvt {

// Goes to standard error in one line that names the file, control characters as ".". Gives the status of wrong usage.
int Complain(std::string_view file, std::string_view what);

// One file in a fresh workbench on the memory half.
class LoadedFile {
public:
    explicit LoadedFile(const std::string& file);

    OffscreenPlatform Platform;
    std::unique_ptr<kvt::Workbench> Workbench;

    // Why there is no program; null where there is one.
    const char* Error() const { return error_; }
    // The exit status that the program's findings give.
    int Status() const;

private:
    const char* error_ = nullptr;
};

}  // namespace kvt
