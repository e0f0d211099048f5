#pragma once

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

    Label lblPath;      // the whole path
    Label lblFileName;  // the name without its folder
    TextBox txtFileNotes;
    FileDialog dlgFile;
};

}  // namespace kvt
