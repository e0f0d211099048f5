#pragma once

#include <string>
#include <vector>

#include "files/language_module.h"
#include "shell/language_tables.h"

namespace kvt {

class Control;
class Workbench;

// The language of the window: brings the texts of a module into controls, lists, headers and message tables. What
// a module does not hold stays as it is.
class ModuleLoader {
public:
    explicit ModuleLoader(Workbench& bench);

    // Where the program lies, with a separator at its end; help documents of a module are below it.
    std::string StartFolder;

    // Puts a module into effect and remembers its name. A file that is not there changes nothing.
    void LoadLanguageModule(const std::string& fileName);
    // A module with the texts in force, ready to be translated: each line tells its English.
    std::string WriteModule() const;

private:
    void TakeSection(const LanguageSection& section);
    void TakeLabels(const LanguageSection& section);
    void SetLabel(Control& control, const LabelRow& row, const std::string& value);
    // Tables, code lists and headers: the place of a line decides.
    void TakeOrderedLines(const LanguageSection& section);
    void TakeSystemLine(const LanguageLine& line);
    void TakeToolbar();
    void WriteLabels(LanguageModuleText& module) const;
    void TakeHeader(int header, const std::string& text);

    Workbench& bench_;
    std::vector<std::string> builtInTabs_;  // as they were before the first module
};

}  // namespace kvt
