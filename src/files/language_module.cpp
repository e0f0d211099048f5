#include "files/language_module.h"

#include "basic/text.h"
#include "files/cnc_format.h"
#include "files/settings_file.h"

namespace kvt {

namespace {

constexpr std::string_view placeHolderMark = "dummy";

std::string_view SectionName(std::string_view line) {
    line.remove_prefix(1);
    return Trim(line.substr(0, line.find(']')));
}

std::string SystemValue(const LanguageModule& module, std::string_view key) {
    for (const LanguageSection& section : module.Sections) {
        if (!EqualIgnoringCase(section.Name, language_section::System)) continue;
        for (const LanguageLine& line : section.Lines) {
            if (EqualIgnoringCase(line.Key, key)) return line.Value;
        }
    }
    return {};
}

}  // namespace

LanguageModule ReadLanguageModule(std::string bytes) {
    LanguageModule module;
    const std::string text = WithoutUtf8Mark(std::move(bytes));
    bool first = true;
    for (const std::string_view piece : Split(text, "\r")) {
        const std::string whole = Replace(piece, "\n", "");
        const std::string_view line = Trim(whole);
        if (first && Find(line, placeHolderMark, Compare::IgnoreCase) != 0) {
            module.PlaceHolder = true;
            return module;
        }
        first = false;
        if (line.empty() || line.front() == ';') continue;
        if (line.front() == '[') {
            module.Sections.push_back({std::string(SectionName(line)), {}});
        } else if (!module.Sections.empty() && line.find('=') != std::string_view::npos) {
            LanguageLine& added = module.Sections.back().Lines.emplace_back();
            ParseKeyLine(line, added.Key, added.Value);
        }
    }
    return module;
}

std::string LanguageNameOf(const LanguageModule& module) { return SystemValue(module, "Language Name"); }

std::string LanguageCodeOf(const LanguageModule& module) { return SystemValue(module, "Language Code"); }

LanguageModuleText::LanguageModuleText() {
    text_ += cnc::MarkLanguage;
    text_ += LineEnd;
}

void LanguageModuleText::Comment(std::string_view text) {
    text_ += "; ";
    text_ += text;
    text_ += LineEnd;
}

void LanguageModuleText::Section(std::string_view name) {
    text_ += LineEnd;
    text_ += '[';
    text_ += name;
    text_ += ']';
    text_ += LineEnd;
}

void LanguageModuleText::Line(std::string_view key, std::string_view value) {
    text_ += key;
    text_ += '=';
    text_ += value;
    text_ += LineEnd;
}

}  // namespace kvt
