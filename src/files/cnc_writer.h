#pragma once

#include <cstdint>
#include <string>

#include "editor/line_operations.h"
#include "files/file_controls.h"
#include "program/texts.h"

namespace kvt {

// Where SaveFile_Click puts the text.
namespace save {
inline constexpr std::int16_t ToFile = 1, As = 2, ToClipboard = 3;
}  // namespace save

// Makes the one text form of the program and puts it into a file or on the clipboard.
class CncWriter {
public:
    struct Parts {
        ProgramStore& Store;
        FileControls& Controls;
        EntryRow& Entry;
        FieldLayout& Layout;
        LineOperations& Lines;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit CncWriter(Parts parts);

    // Set while the text is made for the printer: other heads, and the result columns that are in sight.
    bool PrintMode = false;

    // The whole text, lines ended by CR LF; empty for a program without lines.
    std::string GenerateAll();
    // The words of a line as they stand in every form, behind their first blanks.
    std::string WordsOf(const ListRow& row) const;
    // Adds the code that ends a program, as if it were typed, where none is present.
    void AddEndCode();
    // mode is one of save::...; a save without a file name becomes a save as, in the caller's variable too.
    void SaveFile_Click(std::int16_t& mode);
    void mnuSave_Click();
    void mnuSaveAs_Click();
    void mnuSaveClipboard_Click();

private:
    void AppendNotes(std::string& text) const;
    void AppendHeader(std::string& text) const;
    void AppendLine(std::string& text, const ListRow& row) const;
    void AppendUnits(std::string& text) const;
    bool AskForName(std::string& name);
    std::string ProposedName() const;
    void WriteFile(const std::string& name, const std::string& text);

    Parts parts_;
};

}  // namespace kvt
