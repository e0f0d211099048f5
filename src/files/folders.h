#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/services.h"

namespace kvt {

// The folders of a user's data, each with a separator at its end. Every version has its own.
struct Folders {
    std::string DataFolder;
    std::string SettingsFolder;
    std::string PreProcessorFolder;
    std::string LanguageFolder;  // for modules of the user's own
    // Names the file of what the installation has put into these folders.
    std::string SuppliedFile() const { return DataFolder + "Installed.txt"; }
};

// The folders below the user's local application data folder.
Folders FoldersBelow(std::string_view localDataFolder);

// Where what the program brings lies, "Help" or "languages", with a separator at its end: beside the program, or where an
// installation has it.
std::array<std::string, 2> ProgramFolders(const std::string& startFolder, const std::string& name);

// Makes them, with all parents, where they are missing; a failure is reported under the procedure's name. False
// where one of them is not there then.
bool MakeFolders(const Folders& folders, FileService& files, const char* procedure);

}  // namespace kvt
