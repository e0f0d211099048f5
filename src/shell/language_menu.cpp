#include "shell/language_menu.h"

#include <algorithm>
#include <optional>

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/cnc_format.h"
#include "program/edit_step.h"

namespace kvt {

namespace {

constexpr const char* menuName = "mnuLanguage";
constexpr const char* english = "English";
constexpr std::string_view moduleEnding = "*.txt";
constexpr std::string_view defaultModule = "Language.txt";

// What is in a file; null where it is no module.
std::optional<LanguageModule> ModuleIn(const std::string& file, FileService& files) {
    std::string text;
    if (!Attempt(menuName, [&] { text = files.ReadWhole(file); })) return {};
    const bool marked = text.find(cnc::MarkLanguage) != std::string::npos ||
                        Find(text, cnc::MarkLanguage, Compare::IgnoreCase) != 0;
    if (!marked) return {};
    return ReadLanguageModule(std::move(text));
}

// What it calls its language.
std::string NameIn(const std::string& file, FileService& files) {
    const std::optional<LanguageModule> module = ModuleIn(file, files);
    if (!module) return {};
    const std::string name = LanguageNameOf(*module);
    return name.empty() ? std::string(ExtractFileName(file)) : name;
}

}  // namespace

LanguageMenu::LanguageMenu(Form& window, ModuleLoader& modules, const Texts& texts, FileService& files,
                           WorkbenchCalls& calls)
    : mnuLanguage(window, menuName, "Language"),
      modules_(modules),
      texts_(texts),
      files_(files),
      calls_(calls),
      mnuLanguages_(mnuLanguage, "mnuLanguages", [this](int index) { Choose(index); }) {
    mnuLanguages_.At(0);
}

void LanguageMenu::BindKey(SettingsFile& keys) {
    keys.Bind(
        "LanguageFileName", [this](const std::string& value) { remembered_ = value; },
        [this] { return texts_.ModuleFile; });
}

void LanguageMenu::LoadRemembered(const std::string& folder) {
    const std::string first = folder + std::string(defaultModule);
    if (files_.Exists(first)) return Run(calls_.LoadLanguageModule, first);
    // One of that name is never loaded from elsewhere.
    const std::string_view end = Right(remembered_, static_cast<std::ptrdiff_t>(defaultModule.size()));
    if (remembered_.empty() || EqualIgnoringCase(end, defaultModule)) return;
    // The program, with the modules that it brings, may have moved.
    const bool there = files_.Exists(remembered_);
    Run(calls_.LoadLanguageModule, there ? remembered_ : Find(ExtractFileName(remembered_)));
}

void LanguageMenu::LoadByCode(std::string_view code) {
    const auto language = [](std::string_view whole) { return whole.substr(0, whole.find_first_of("-_")); };
    if (code.empty()) return;
    Refresh();
    for (const Language& one : languages_) {
        const std::optional<LanguageModule> module =
            one.File.empty() ? std::nullopt : ModuleIn(one.File, files_);
        if (!module || !EqualIgnoringCase(language(LanguageCodeOf(*module)), language(code))) continue;
        const std::string file = one.File;
        modules_.LoadLanguageModule(file);
        return Refresh();
    }
}

void LanguageMenu::Refresh() {
    languages_ = {{"", english}};
    for (const std::string& folder : Folders) AddModules(folder);
    if (!texts_.ModuleFile.empty()) Add(texts_.ModuleFile);
    std::vector<std::string> captions;
    for (const Language& one : languages_) {
        const bool twice = std::count_if(languages_.begin(), languages_.end(), [&](const Language& other) {
                               return EqualIgnoringCase(other.Name, one.Name);
                           }) > 1;
        captions.push_back(twice && !one.File.empty()
                               ? one.Name + " (" + std::string(ExtractFileName(one.File)) + ")"
                               : one.Name);
    }
    mnuLanguages_.Show(captions);
    for (std::size_t i = 0; i < languages_.size(); ++i)
        mnuLanguages_.At(static_cast<int>(i)).Checked = languages_[i].File == texts_.ModuleFile;
}

void LanguageMenu::AddModules(const std::string& folder) {
    std::vector<std::string> files;
    Attempt(menuName, [&] { files = files_.List(folder, moduleEnding); });
    for (const std::string& file : files) {
        const bool known = std::any_of(languages_.begin(), languages_.end(), [&](const Language& one) {
            return EqualIgnoringCase(ExtractFileName(one.File), file);
        });
        if (!known) Add(folder + file);
    }
}

void LanguageMenu::Add(const std::string& file) {
    if (std::any_of(languages_.begin(), languages_.end(),
                    [&](const Language& one) { return one.File == file; }))
        return;
    const auto known = names_.find(file);
    const std::string name = known != names_.end() ? known->second : names_[file] = NameIn(file, files_);
    if (!name.empty()) languages_.push_back({file, name});
}

void LanguageMenu::Choose(int index) {
    if (index < 0 || index >= static_cast<int>(languages_.size())) return;
    const std::string file = languages_[static_cast<std::size_t>(index)].File;
    // The comments of the codes change their language, in one step.
    const EditStep step(calls_, {StepKind::CodeComments});
    // What a module lacks is English then, and not left from the one before.
    modules_.UseEnglish();
    modules_.LoadLanguageModule(file);
    Refresh();
}

std::string LanguageMenu::Find(std::string_view fileName) const {
    for (const std::string& folder : Folders) {
        const std::string file = folder + std::string(fileName);
        if (!fileName.empty() && files_.Exists(file)) return file;
    }
    return {};
}

}  // namespace kvt
