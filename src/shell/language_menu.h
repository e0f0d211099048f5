#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/menu_array.h"
#include "shell/language.h"

namespace kvt {

// The languages to choose from: English, then the modules that lie in the folders for them. The one in force has the
// mark, wherever its module lies.
class LanguageMenu {
public:
    LanguageMenu(Form& window, ModuleLoader& modules, const Texts& texts, FileService& files);

    // Where modules lie, each with a separator at its end; what lies in an earlier one goes before its like.
    std::vector<std::string> Folders;
    Menu mnuLanguage;

    // Looks what there is now.
    void Refresh();
    // The module of a name in the first folder that has it; empty where none has.
    std::string Find(std::string_view fileName) const;

private:
    struct Language {
        std::string File;  // empty for English
        std::string Name;
    };
    void AddModules(const std::string& folder);
    void Add(const std::string& file);
    void Choose(int index);

    ModuleLoader& modules_;
    const Texts& texts_;
    FileService& files_;
    std::vector<Language> languages_;
    std::map<std::string, std::string> names_;  // of the modules that have been read
    MenuArray mnuLanguages_;
};

}  // namespace kvt
