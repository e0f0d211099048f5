#pragma once

#include <string>
#include <string_view>

#include "platform/controls.h"

namespace kvt {

class Workbench;

// The documents that lie over the program list: help, the codes of the machines, and what is told about the program.
class HelpDocuments {
public:
    explicit HelpDocuments(Workbench& bench);

    Menu mnuHelpText, mnuGhelp, mnuAbout;
    // Looks for a text in the document that is shown; red where it was not found.
    TextBox txtSearch;

    // Each shows its document, or leaves it where it is shown already.
    void mnuHelpText_Click();
    void mnuGhelp_Click();
    void mnuAbout_Click();

    // Takes the keys of the documents; false leaves a key to others.
    bool TakeKey(int pressed, int held);
    // The document that is shown; null where none is.
    RichText* Shown() const;
    // Leaves the search; the document stays.
    void HideSearch();

    // A language's documents: "NAME" or "FOLDER/NAME" below the folder of the help documents is the one of
    // rtfHelp; the others lie beside it. What is missing there stays English. False where there is no such file.
    bool UseLanguage(std::string_view helpFileName);

private:
    // The common part. Gives false where the document was shown and has been left.
    bool Show(RichText& document);
    void Load(RichText& document, const char* name);
    std::string Found(const std::string& name) const;
    void FillAbout();
    void Search();

    Workbench& bench_;
    std::string folder_ = "en/";  // of the language, below that of the help documents
};

}  // namespace kvt
