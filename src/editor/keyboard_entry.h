#pragma once

#include <vector>

#include "editor/calculated_inputs.h"
#include "editor/code_choice.h"
#include "editor/line_operations.h"

namespace kvt {

// A program typed on the numeric keypad: the entry row as a chain of fields, each with its filter; any
// terminator moves on, and Enter in the comment writes the line.
class KeyboardEntry {
public:
    struct Parts {
        EntryRow& Entry;
        FieldLayout& Layout;
        CodeChoice& Codes;
        CalculatedInputs& Calculated;
        LineOperations& Lines;
        ProgramStore& Store;
        const ViewColumns& View;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit KeyboardEntry(Parts parts);

    // The code check, when the code field is left.
    void txtGMcode_LostFocus();

private:
    void txtGMcode_KeyPress(int& character);
    void Parameter_KeyPress(TextBox& field, int& character);
    void Parameter_GotFocus(std::size_t field);
    void Parameter_LostFocus(std::size_t field);
    void txtComment_KeyPress(int& character);
    void Chain_KeyDown(std::size_t place, int key, int held);
    void lvCncProgram_KeyDown(int key);
    void lvCncProgram_KeyPress(int& character);
    // Opens the line that waits at the end of the list.
    void OpenLastRow();
    void TellCarried(std::size_t field);
    void txtZK_GotFocus();
    void txtFKTL_GotFocus();

    void SetMode(const char* mode);
    // Leaves the field along the tab order.
    void EndField(int& character);
    bool InChain(const Control* control) const;
    void CheckCode();
    void ApplyPreset(const TextBox& preset, int& character);

    Parts parts_;
    std::vector<TextBox*> chain_;
    bool modeKeyUsed_ = false;
    // A terminator key has ended the code field.
    bool codeFieldEnded_ = false;
    // The quiet line tells of the field that has the focus.
    bool toldOfField_ = false;
};

}  // namespace kvt
