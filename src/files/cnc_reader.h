#pragma once

#include <optional>
#include <string>

#include "editor/field_layout.h"
#include "files/cnc_writer.h"
#include "files/file_controls.h"
#include "files/recogniser.h"
#include "interpreter/view_options.h"
#include "program/edit_step.h"
#include "program/machine_controls.h"
#include "program/texts.h"

namespace kvt {

// What became of a call of LoadFile.
enum class LoadResult {
    Loaded,
    Nothing,        // dialog cancelled, no such file, or the old program could not be saved: untouched
    Unreadable,     // a message names the file; untouched
    NotRecognised,  // a message says so; untouched
    LanguageModule,
};

// What becomes of an unsaved program when another one takes its place: the user is asked; it stays as a copy for the
// next start; or the user has been asked already and has given it up.
enum class UnsavedProgram { Ask, KeepCopy, Discard };

// How a program comes into the editor, where it is not simply that of a file.
struct LoadAs {
    UnsavedProgram Unsaved = UnsavedProgram::Ask;
    // The name that it has there; without one that of the file.
    std::optional<std::string> Name;
    // The name is that of a source which a pre-processor has read.
    bool FromSource = false;
    // It is in no program file.
    bool Changed = false;
    // What has brought it.
    StepKind Step = StepKind::Opened;
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
    LoadResult LoadFile(std::string& fileName, const LoadAs& as = {});

private:
    LoadResult ReadText(std::string& name, std::string& text);
    void ReportNotRecognised();
    void ReadNotes(std::string_view text, const Recognised& found);
    void ReadLines(std::string_view text, const Recognised& found);
    // One line into a new row. False at the units line, which ends the walk.
    bool ReadMK2(std::string_view record, std::string_view comment, std::size_t index);
    bool ReadMK4(std::string_view record, std::string_view comment);
    bool ReadF1(std::string_view record, std::string_view comment);
    bool SettleUnsavedProgram(UnsavedProgram old);
    void ShowName(const std::string& name, const LoadAs& as);
    void Finish(const std::string& name, const LoadAs& as);

    Parts parts_;
};

}  // namespace kvt
