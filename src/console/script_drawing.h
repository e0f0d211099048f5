#pragma once

#include "console/script_run.h"

namespace kvt::script {

// Actions and expectations about the drawing window.
void MouseMove(ScriptRun& run, const Arguments& args);
void MouseDown(ScriptRun& run, const Arguments& args);
void CtrlMouseDown(ScriptRun& run, const Arguments& args);
void DoubleClick(ScriptRun& run, const Arguments& args);
void MouseDrag(ScriptRun& run, const Arguments& args);
void MouseWheel(ScriptRun& run, const Arguments& args);
void Scroll(ScriptRun& run, const Arguments& args);
void PrintOperations(ScriptRun& run, const Arguments& args);
void ExpectOperation(ScriptRun& run, const Arguments& args);
// A picture on the clipboard, on paper since the last time, or in a file of a kind that the drawing is saved in.
void ExpectPicture(ScriptRun& run, const Arguments& args);
void ExpectOperationCount(ScriptRun& run, const Arguments& args);

}  // namespace kvt::script
