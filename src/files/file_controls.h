#pragma once

#include <string>

#include "platform/controls.h"

namespace kvt {

// The current file and its notes.
struct FileControls {
    explicit FileControls(Form& form)
        : lblPath(form, "lblPath"),
          lblFileName(form, "lblFileName"),
          txtFileNotes(form, "txtFileNotes"),
          dlgFile(form, "dlgFile") {
        lblFileName.Visible = false;
        txtFileNotes.MultiLine = true;
    }

    // No file, and no notes.
    void Clear() {
        lblPath.Caption = "";
        lblFileName.Caption = "";
        txtFileNotes.Text = "";
        NamesSource = false;
    }

    Label lblPath;      // the whole path
    Label lblFileName;  // the name without its folder
    TextBox txtFileNotes;
    FileDialog dlgFile;
    // The labels name what a pre-processor has read: no program, so a save does not go there.
    bool NamesSource = false;
    // The last file that was a program.
    std::string LastProgram;
};

}  // namespace kvt
