#pragma once

#include "system/offscreen_platform.h"
#include "web/web_files.h"

namespace kvt {

// The pre-processors of the page, which can start no program: their work is done at once, by a call. They stand among the
// files under the names of the programs that other halves start.
class WebPrograms : public OffscreenPrograms {
public:
    void UseFiles(WebFiles& files) { files_ = &files; }
    // Puts one for each machine into a folder.
    void Install(const std::string& folder);

    int Start(std::string_view commandLine, std::string_view file) override;

private:
    WebFiles* files_ = nullptr;
    int started_ = 0;
};

}  // namespace kvt
