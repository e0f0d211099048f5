#include "files/folders.h"

#include "basic/installation.h"
#include "basic/run_time_error.h"

namespace kvt {

Folders FoldersBelow(std::string_view localDataFolder) {
    Folders folders;
    folders.DataFolder = std::string(localDataFolder) + "/EMCO/KVT_" + VersionDigits() + "/";
    folders.SettingsFolder = folders.DataFolder + "Settings/";
    folders.PreProcessorFolder = folders.DataFolder + "PreProcessors/";
    folders.LanguageFolder = folders.DataFolder + "Languages/";
    return folders;
}

std::array<std::string, 2> ProgramFolders(const std::string& startFolder, const std::string& name) {
    return {startFolder + name + "/", startFolder + SharedFolderFromPrograms() + name + "/"};
}

bool MakeFolders(const Folders& folders, FileService& files, const char* procedure) {
    bool made = true;
    for (const std::string* folder :
         {&folders.DataFolder, &folders.SettingsFolder, &folders.PreProcessorFolder}) {
        if (!Attempt(procedure, [&] { files.MakeFolder(*folder); })) made = false;
    }
    return made;
}

}  // namespace kvt
