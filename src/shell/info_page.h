#pragma once

#include <string_view>

#include "platform/controls.h"

namespace kvt {

// The page of the settings that tells where everything lies. Its texts can be copied, not changed.
class InfoPage {
public:
    explicit InfoPage(Form& form);

    Label lblCurrentFilePath, lblApplicationPath, lblSettingsPath;
    TextBox txtCurrentFilePath, txtApplicationPath, txtSettingsPath;

    // Shows the paths; an empty one says that there is no file.
    void Show(std::string_view currentFile, std::string_view application, std::string_view settings);
};

}  // namespace kvt
