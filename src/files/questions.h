#pragma once

#include <string_view>

#include "platform/services.h"
#include "program/texts.h"
#include "program/workbench_calls.h"

// What several places ask the user, or tell him.
namespace kvt {

// Whether the open program is to be saved before another one, or nothing, takes its place.
bool AskToSave(DialogService& dialogs, const Texts& texts);
// Whether a changed program may be cleared.
bool AskToClear(DialogService& dialogs, const Texts& texts);
// Whether a file may be written under a name: Yes without a question where none has it.
Answer AskToOverwrite(Services& platform, const Texts& texts, std::string_view name);
// Tells in the quiet line that a file has been written.
void TellSaved(const WorkbenchCalls& calls, const Texts& texts, std::string_view path);
// That a program, with a path or without one, is printed; it names the file of a PDF instead.
std::string PrintedNotice(const Texts& texts, const PrinterService& printer, std::string_view path);

}  // namespace kvt
