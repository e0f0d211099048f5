#include "files/settings_file.h"

#include <array>
#include <charconv>

#include "basic/code_page.h"
#include "basic/installation.h"
#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/folders.h"
#include "platform/supplied_record.h"

namespace kvt {

namespace {

constexpr const char* recentFiles = ";Recent files";
constexpr const char* settings = ";Settings";
constexpr const char* boxes = ";Checkboxes Editor";
constexpr const char* comGeneral = ";Comm Settings General";
constexpr const char* comTransmit = ";Comm Settings Transmit";
constexpr const char* comReceive = ";Comm Settings Receive";
constexpr const char* printer = ";Printer Settings";
constexpr const char* windows = ";Windows Parameters HLTW";
constexpr const char* usedLast = ";Files used last";
constexpr const char* drawMode = ";Checks Draw Mode";
constexpr const char* colorsAndMarks = ";Colors and marks";

// A place of 0 centres the window.
constexpr SettingKey editorKeys[] = {
    {recentFiles, "LanguageFileName", ""},
    {recentFiles, "LastFileUsed", ""},
    {settings, "Horizontal", "False"},
    {settings, "Metric", "True"},
    {settings, "Machine", "MK4"},
    {settings, "AutoWidth", "False"},
    {settings, "FeedA", "100"},
    {settings, "FeedB", "50"},
    {settings, "IncrColor", "&HFF0000"},
    {settings, "AbsColor", "&H0"},
    {settings, "Delete without confirm", "0"},
    {settings, "DisableLimitsCheck", "False"},
    {boxes, "ToolPosition", "1"},
    {boxes, "LineProperties", "1"},
    {boxes, "FileNotes", "1"},
    {boxes, "Gcode", "0"},
    {boxes, "MachineTime", "1"},
    {comGeneral, "Port", "1"},
    {comGeneral, "ComPortEnable", "True"},
    {comTransmit, "BaudTX", "300"},
    {comTransmit, "ParityTX", "N"},
    {comTransmit, "DataBitsTX", "8"},
    {comTransmit, "StopBitsTX", "1"},
    {comTransmit, "XonXoffTX", "0"},
    {comTransmit, "DtrDsrTX", "0"},
    {comTransmit, "RtsCtsTX", "0"},
    {comTransmit, "TXfilter ", "1"},  // with the blank that it has in users' files
    {comReceive, "BaudRX", "300"},
    {comReceive, "ParityRX", "N"},
    {comReceive, "DataBitsRX", "8"},
    {comReceive, "StopBitsRX", "1"},
    {comReceive, "XonXoffRX", "0"},
    {comReceive, "DtrDsrRX", "0"},
    {comReceive, "RtsCtsRX", "0"},
    {comReceive, "RXfilter", "1"},
    {printer, "FontName", "Courier New"},
    {printer, "FontSize", "10"},
    {windows, "EditorWindow", "8720, 0, 0, 13800"},
    {windows, "DrawWindow Active", "False"},
    {usedLast, "Recent1", ""},
    {usedLast, "Recent2", ""},
    {usedLast, "Recent3", ""},
    {usedLast, "Recent4", ""},
    {usedLast, "Recent5", ""},
    {usedLast, "Recent6", ""},
    {usedLast, "Recent7", ""},
    {usedLast, "Recent8", ""},
};

// Four times 9999 is a window that was never placed.
constexpr SettingKey drawKeys[] = {
    {drawMode, "Radii", "False"},
    {drawMode, "ToolWidth", "True"},
    {drawMode, "ToolCenter", "True"},
    {drawMode, "FillCycles", "False"},
    {drawMode, "Program", "False"},
    {drawMode, "Grid", "True"},
    {drawMode, "Background", "False"},
    {drawMode, "AutoRedraw", "True"},
    {windows, "DrawWindow", "9999, 9999, 9999, 9999"},
    {windows, "ProgramWindow", "3000, 0, 0, 11790, Inactive"},
    {windows, "Beside", "False"},
    {colorsAndMarks, "Legend", "True"},
    {colorsAndMarks, "DistinctColors", "False"},
    {colorsAndMarks, "HoleMarks", "False"},
};

constexpr int maxReports = 100;                   // of one key
constexpr std::int32_t largestPlace = 1'000'000;  // twips

}  // namespace

std::span<const SettingKey> EditorSettingKeys() { return editorKeys; }
std::span<const SettingKey> DrawSettingKeys() { return drawKeys; }

SettingsFile::SettingsFile(const char* name, std::span<const SettingKey> keys) : name_(name), keys_(keys) {
    for (const SettingKey& key : keys) entries_.push_back({{}, {}, key.Default});
}

int SettingsFile::PlaceOf(std::string_view key) const {
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        if (EqualIgnoringCase(Trim(keys_[i].Key), key)) return static_cast<int>(i);
    }
    return -1;
}

void SettingsFile::Bind(std::string_view key, ApplyValue apply, GetValue value) {
    const int place = PlaceOf(key);
    if (place < 0) throw RunTimeError(fault::SubscriptOutOfRange);
    Entry& entry = entries_[static_cast<std::size_t>(place)];
    entry.Apply = std::move(apply);
    entry.Value = std::move(value);
}

void SettingsFile::Read(std::string_view text, const char* procedure, BadValue after) {
    std::string key;
    std::string value;
    std::vector<int> failures(keys_.size());
    for (const std::string_view piece : Split(text, "\r")) {
        const std::string whole = Replace(piece, "\n", "");
        const std::string_view line = Trim(whole);
        if (line.empty() || line.front() == ';' || line.find('=') == std::string_view::npos) continue;
        ParseKeyLine(line, key, value);
        const int place = PlaceOf(key);
        if (place < 0) continue;
        Entry& entry = entries_[static_cast<std::size_t>(place)];
        try {
            if (entry.Apply) {
                entry.Apply(value);
            } else {
                entry.UnboundText = value;
            }
        } catch (const RunTimeError& error) {
            // A damaged file can hold a key a million times.
            if (failures[static_cast<std::size_t>(place)]++ < maxReports) TellError(error, procedure);
            if (after == BadValue::EndsTheReading) return;
        }
    }
}

std::string SettingsFile::Text() const {
    return Compose([this](std::size_t i) {
        const Entry& entry = entries_[i];
        return entry.Value ? entry.Value() : entry.UnboundText;
    });
}

std::string SettingsFile::ResetText() const {
    return Compose([this](std::size_t i) { return std::string(keys_[i].Default); });
}

std::string SettingsFile::Compose(const std::function<std::string(std::size_t)>& value) const {
    std::string text = ";KVT " + VersionText() + " " + name_ + " SETTINGS user file";
    text += LineEnd;
    std::string_view section;
    for (std::size_t i = 0; i < keys_.size(); ++i) {
        if (section != keys_[i].Section) {
            section = keys_[i].Section;
            text += LineEnd;
            text += section;
            text += LineEnd;
        }
        text += keys_[i].Key;
        text += '=';
        text += value(i);
        text += LineEnd;
    }
    return text;
}

std::string TrueOrFalse(bool value) { return value ? "True" : "False"; }

bool TrueOrFalse(std::string_view text) {
    if (EqualIgnoringCase(text, "True")) return true;
    if (EqualIgnoringCase(text, "False")) return false;
    throw RunTimeError(fault::TypeMismatch);
}

int ZeroOrOne(std::string_view text) {
    if (text == "0") return 0;
    if (text == "1") return 1;
    throw RunTimeError(IsNumeric(text) ? fault::Overflow : fault::TypeMismatch);
}

std::string ColorText(Color color) {
    char digits[8];
    const auto written = std::to_chars(digits, digits + sizeof digits, color, 16);
    return "&H" + UpperCase({digits, static_cast<std::size_t>(written.ptr - digits)});
}

Color ColorOf(std::string_view text) {
    constexpr Color white = 0xFFFFFF;
    if (!BeginsWithIgnoringCase(text, "&H") || text.size() == 2) throw RunTimeError(fault::TypeMismatch);
    Color color = 0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data() + 2, end, color, 16);
    if (read.ptr != end) throw RunTimeError(fault::TypeMismatch);
    if (read.ec != std::errc() || color > white) throw RunTimeError(fault::Overflow);
    return color;
}

std::string WindowText(const WindowPlace& place) {
    return PlainNumber(place.Height) + ", " + PlainNumber(place.Left) + ", " + PlainNumber(place.Top) + ", " +
           PlainNumber(place.Width);
}

WindowPlace WindowPlaceOf(std::string_view text) {
    const std::vector<std::string_view> parts = Split(text, ",");
    std::array<int, 4> numbers = {};
    if (parts.size() < numbers.size()) throw RunTimeError(fault::SubscriptOutOfRange);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (!IsNumeric(parts[i])) throw RunTimeError(fault::TypeMismatch);
        numbers[i] = ToLong(Val(parts[i]));
        if (numbers[i] < -largestPlace || numbers[i] > largestPlace) throw RunTimeError(fault::Overflow);
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

std::string WindowStateText(bool maximised) { return maximised ? ", Maximised" : ", Normal"; }

std::optional<WindowState> WindowStateOf(std::string_view text) {
    const std::vector<std::string_view> parts = Split(text, ",");
    if (parts.size() < 5) return {};
    if (EqualIgnoringCase(Trim(parts[4]), "Maximised")) return WindowState::Maximised;
    if (EqualIgnoringCase(Trim(parts[4]), "Normal")) return WindowState::Normal;
    return {};
}

std::string WithoutUtf8Mark(std::string bytes) {
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    if (bytes.compare(0, mark.size(), mark) != 0) return bytes;
    return FromUtf8(std::string_view(bytes).substr(mark.size()));
}

void InstallResetCopies(FileService& files, std::string_view localDataFolder) {
    const Folders folders = FoldersBelow(localDataFolder);
    const std::string& folder = folders.SettingsFolder;
    SuppliedRecord record(files, folders.SuppliedFile());
    const auto bring = [&](const char* name, const SettingsFile& file) {
        try {
            files.MakeFolder(folder);
            record.Renew(name, folder + name, file.ResetText());
        } catch (const RunTimeError&) {
            // The workbench starts on its built-in values then, and tells what it cannot keep.
        }
    };
    bring("SettingsEditorReset.txt", SettingsFile("EDITOR", editorKeys));
    bring("SettingsDrawReset.txt", SettingsFile("DRAW", drawKeys));
    record.Write();
}

}  // namespace kvt
