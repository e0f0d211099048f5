#pragma once

#include <string>

#include "editor/field_layout.h"
#include "files/cnc_writer.h"
#include "files/file_controls.h"
#include "files/recogniser.h"
#include "interpreter/view_options.h"
#include "program/machine_controls.h"
#include "program/texts.h"

namespace kvt {

// What became of a call of LoadFile.
enum class LoadResult {
    Loaded,
    Nothing,        // dialog cancelled, or no such file: untouched, without a word
    Unreadable,     // a message names the file; untouched
    NotRecognised,  // a message says so; untouched
    LanguageModule,
};

// Brings program files into the store.
class CncReader {
public:
    struct Parts {
        ProgramStore& Store;
        FileControls& Controls;
        EntryRow& Entry;
        FieldLayout& Layout;
        MachineControls& Machine;
        ViewColumns& View;
        ViewOptions& Options;
        ControlInterpreter& Interpreter;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
        CncWriter& Writer;
    };
    explicit CncReader(Parts parts);

    // Reads the named file, and clears the name; without one the open dialog asks. Machine, units and
    // orientation come from the content.
    LoadResult LoadFile(std::string& fileName);

private:
    LoadResult ReadText(std::string& name, std::string& text);
    void ReportNotRecognised();
    void ReadNotes(std::string_view text, const Recognised& found);
    void ReadLines(std::string_view text, const Recognised& found);
    // One line into a new row. False at the units line, which ends the walk.
    bool ReadMK2(std::string_view record, std::size_t index);
    bool ReadMK4(std::string_view record, bool withoutComments);
    bool ReadF1(std::string_view record);
    void Finish(const std::string& name);

    Parts parts_;
};

}  // namespace kvt
