#pragma once

#include <map>
#include <string>
#include <vector>

#include "files/settings_file.h"
#include "platform/menu_array.h"
#include "program/workbench_calls.h"
#include "shell/language.h"

namespace kvt {

// The languages to choose from: English, then the modules that lie in the folders for them. The one in force has the
// mark, wherever its module lies.
class LanguageMenu {
public:
    LanguageMenu(Form& window, ModuleLoader& modules, const Texts& texts, FileService& files,
                 WorkbenchCalls& calls);

    // Takes charge of the key that remembers the module in use.
    void BindKey(SettingsFile& keys);
    // Loads that module, or "Language.txt" of a folder, which goes before it.
    void LoadRemembered(const std::string& folder);

    // Loads the first module of a language, "de", "de-AT"; nothing where there is none.
    void LoadByCode(std::string_view code);

    // Where modules lie, each with a separator at its end; what lies in an earlier one goes before its like.
    std::vector<std::string> Folders;
    Menu mnuLanguage;

    // Looks what there is now.
    void Refresh();

private:
    struct Language {
        std::string File;  // empty for English
        std::string Name;
    };
    void AddModules(const std::string& folder);
    void Add(const std::string& file);
    void Choose(int index);
    // The module of a name in the first folder that has it; empty where none has.
    std::string Find(std::string_view fileName) const;

    ModuleLoader& modules_;
    const Texts& texts_;
    FileService& files_;
    WorkbenchCalls& calls_;
    std::string remembered_;
    std::vector<Language> languages_;
    std::map<std::string, std::string> names_;  // of the modules that have been read
    MenuArray mnuLanguages_;
};

}  // namespace kvt
