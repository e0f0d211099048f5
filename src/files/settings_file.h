#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/services.h"

namespace kvt {

// A key of a settings file: the comment line of the section that it belongs to, its name as it is written, and
// its value in the reset copy.
struct SettingKey {
    const char* Section;
    const char* Key;
    const char* Default;
};

// The keys of the main window's file and of the draw window's, in the order of writing.
std::span<const SettingKey> EditorSettingKeys();
std::span<const SettingKey> DrawSettingKeys();

// A settings file, lines of "key=value" under comments. There is no settings object behind it: whoever is in
// charge of a value binds its key, and is asked for the value when the file is written. What nobody has bound is
// kept as it was read.
class SettingsFile {
public:
    // name is "EDITOR" or "DRAW", for the first line.
    SettingsFile(const char* name, std::span<const SettingKey> keys);

    // Puts a value into effect; a value that makes no sense is a RunTimeError.
    using ApplyValue = std::function<void(const std::string& value)>;
    using GetValue = std::function<std::string()>;
    // Takes charge of a key; one that the file does not have is error 9.
    void Bind(std::string_view key, ApplyValue apply, GetValue value);

    // What becomes of the lines behind a value that cannot be applied. It is reported in either case.
    enum class BadValue { SkipsItsLine, EndsTheReading };
    // Applies the lines in their order. Unknown keys, comments and lines without "=" are passed over.
    void Read(std::string_view text, const char* procedure, BadValue after = BadValue::SkipsItsLine);
    // The whole file with the values in force.
    std::string Text() const;
    // The file that a reset goes back to.
    std::string ResetText() const;

private:
    struct Entry {
        ApplyValue Apply;
        GetValue Value;
        std::string UnboundText;  // while nobody has bound the key
    };
    // The place of a key in the tables; -1 where there is none.
    int PlaceOf(std::string_view key) const;
    std::string Compose(const std::function<std::string(std::size_t)>& value) const;

    const char* name_;
    std::span<const SettingKey> keys_;
    std::vector<Entry> entries_;
};

// Texts of values and back. A text that is none of the kind is error 13, a number out of range error 6.
std::string TrueOrFalse(bool value);
bool TrueOrFalse(std::string_view text);
// "0" or "1", as check boxes have them.
int ZeroOrOne(std::string_view text);
// "&H" and hexadecimal, red in the low byte.
std::string ColorText(Color color);
Color ColorOf(std::string_view text);
// Height, left, top and width of a window in twips.
std::string WindowText(const WindowPlace& place);
// The four numbers at the beginning of a list; numbers no screen could have are error 6.
WindowPlace WindowPlaceOf(std::string_view text);
// What may follow the four numbers: Maximised or Normal. Nothing where neither does.
std::string WindowStateText(bool maximised);
std::optional<WindowState> WindowStateOf(std::string_view text);

// The text of a file that a user may have written with any editor: what begins with the mark of UTF-8 is
// converted, everything else is in the code page.
std::string WithoutUtf8Mark(std::string bytes);

// Puts the reset copies of both files into the settings folder below the user's local application data folder
// where they are missing, or still those of an older installation. A folder that cannot be written stays without.
void InstallResetCopies(FileService& files, std::string_view localDataFolder);

}  // namespace kvt
