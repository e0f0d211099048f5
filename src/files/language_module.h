#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kvt {

// One line "key=value" of a language module.
struct LanguageLine {
    std::string Key;
    std::string Value;
};

struct LanguageSection {
    std::string Name;  // without its brackets
    std::vector<LanguageLine> Lines;
};

struct LanguageModule {
    // The first line holds "dummy": a file that only keeps a place and changes nothing.
    bool PlaceHolder = false;
    std::vector<LanguageSection> Sections;
};

namespace language_section {
inline constexpr const char* System = "System Variables";
}  // namespace language_section

// The sections of a module in their order, each with the lines that have a "=" and no ";" in front. Text that
// begins with the mark of UTF-8 is converted.
LanguageModule ReadLanguageModule(std::string bytes);

// What a module calls its language, and its code, "de"; empty where it does not tell.
std::string LanguageNameOf(const LanguageModule& module);
std::string LanguageCodeOf(const LanguageModule& module);

// Writes a module line by line.
class LanguageModuleText {
public:
    // Begins with the line that a module is recognised by.
    LanguageModuleText();
    void Comment(std::string_view text);
    void Section(std::string_view name);
    void Line(std::string_view key, std::string_view value);
    const std::string& Text() const { return text_; }

private:
    std::string text_;
};

}  // namespace kvt
