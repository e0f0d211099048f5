#pragma once

#include <string>
#include <string_view>

#include "editor/entry_row.h"
#include "platform/services.h"
#include "program/code_tables.h"
#include "program/program_store.h"
#include "program/texts.h"
#include "program/workbench_calls.h"
#include "shell/main_controls.h"
#include "transfer/transfer_controls.h"

namespace kvt {

// The documents that lie over the program list: help, the codes of the machines, and what is told about the program.
class HelpDocuments {
public:
    struct Parts {
        const ProgramStore& Store;
        const CodeLists& Lists;
        const TransferControls& Transfer;
        EntryRow& Entry;
        MainControls& Main;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit HelpDocuments(const Parts& parts);

    // Where the program lies, with a separator at its end; the documents are below it.
    std::string StartFolder;

    Menu mnuHelpText, mnuGhelp, mnuAbout;
    // Looks for a text in the document that is shown; red where it was not found.
    TextBox txtSearch;

    // Each shows its document, or leaves it where it is shown already.
    void mnuHelpText_Click();
    void mnuGhelp_Click();
    void mnuAbout_Click();

    // The name of the section about a code ("G01"): in the document that the mill shares with the MK4 it has its own.
    static std::string AnchorOf(MachineModel machine, const std::string& code);

    // Handles the keys of the documents; false leaves a key to others.
    bool HandleKey(int pressed, int held);
    // The document that is shown; null where none is.
    RichText* Shown() const;
    // Gives the focus back to where it was before the first document came up. False where that cannot have it.
    bool FocusBack();
    // Leaves the search; the document stays.
    void HideSearch();

    // A language's documents: "NAME" or "FOLDER/NAME" below the folder of the help documents is the one of
    // rtfHelp; the others lie beside it. What is missing there stays English. False where there is no such file.
    bool UseLanguage(std::string_view helpFileName);
    void UseEnglish();

private:
    // The common part. Gives false where the document was shown and has been left.
    bool Show(RichText& document);
    // Reads the page of the language, under a name of its own if it has one, or else the English one.
    void Load(RichText& document, const char* name, std::string_view ofLanguage = {});
    void Forget();
    // The whole name of a document's file; empty where there is none.
    std::string PathOf(const std::string& name) const;
    void FillAbout();
    void Search();
    void ShowSearch();
    void ShowHelpFor(int held);
    // The code that the keys are at, with its letter: in its field, or chosen in a list of codes. Empty elsewhere.
    std::string CodeAtFocus() const;
    // The code of the entry row, where the keys are in one of its fields.
    std::string CodeOfFields() const;
    // Shows the help for the codes, or leaves it; at one of them, or at the beginning where that is empty.
    void ShowCode(const std::string& code);
    // The number of the selected line's finding, 0 for none; and the help at its explanation, or at the beginning.
    int FindingOfLine() const;
    void ShowFinding(int number);

    Parts parts_;
    std::string folder_ = "en/";            // of the language, below that of the help documents
    std::string helpPage_ = "editor.html";  // of rtfHelp, in that folder
    Control* cameFrom_ = nullptr;
};

}  // namespace kvt
