#pragma once

#include "console/script_run.h"

namespace kvt::script {

// Actions and expectations about the drawing window.
void MouseMove(ScriptRun& run, const Arguments& given);
void MouseDown(ScriptRun& run, const Arguments& given);
void Scroll(ScriptRun& run, const Arguments& given);
void PrintOperations(ScriptRun& run, const Arguments& given);
void ExpectOperation(ScriptRun& run, const Arguments& given);
// A picture on the clipboard, on paper since the last time, or in a file of a kind that the drawing is saved in.
void ExpectPicture(ScriptRun& run, const Arguments& given);
void ExpectOperationCount(ScriptRun& run, const Arguments& given);

}  // namespace kvt::script
