#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "files/language_module.h"
#include "shell/help_documents.h"
#include "shell/language_tables.h"

namespace kvt {

// The language of the window: brings the texts of a module into controls, lists, headers and message tables. What
// a module does not hold stays as it is.
class ModuleLoader {
public:
    struct Parts {
        MainControls& Main;
        const Frame& EntryFrame;
        ListView& List;
        HelpDocuments& Help;
        Texts& Language;
        Services& Platform;
    };
    // All windows, the main one first.
    ModuleLoader(std::vector<Form*> windows, const Parts& parts);

    // Puts a module into effect and remembers its name. A file that is not there changes nothing.
    void LoadLanguageModule(const std::string& fileName);
    // Back to the built-in English, as if there had never been a module.
    void UseEnglish();
    // A module with the texts in force, ready to be translated: each line tells its English.
    std::string WriteModule() const;

    // Runs when the texts are those of another language: what shows them, or says how things are, follows.
    std::function<void()> OnTexts;

private:
    // What the windows show in English, kept before the first module.
    struct BuiltIn {
        std::vector<std::pair<TextProperty*, std::string>> Labels;
        std::vector<std::pair<ListBox*, std::vector<std::string>>> Lists;
        std::vector<std::string> Headers, Tabs;
        std::string EntryCaption, ErrorHeaderText;
    };
    void KeepBuiltIn();
    void NameControls();
    // Has what is shown follow the texts in force.
    void ShowTexts();
    void ApplySection(const LanguageSection& section);
    void ApplyLabels(const LanguageSection& section);
    void SetLabel(Control& control, const LabelRow& row, const std::string& value);
    // Tables, code lists and headers: the place of a line decides.
    void ApplyOrderedLines(const LanguageSection& section);
    void ApplySystemLine(const LanguageLine& line);
    void ApplyToolbar(bool english);
    void WriteLabels(LanguageModuleText& module) const;
    void ApplyHeader(int header, const std::string& text);

    std::vector<Form*> windows_;
    Parts parts_;
    std::optional<BuiltIn> builtIn_;  // from the first module on
};

}  // namespace kvt
