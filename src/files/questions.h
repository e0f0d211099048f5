#pragma once

#include <string_view>

#include "platform/services.h"
#include "program/texts.h"

// Questions that several places ask the user.
namespace kvt {

// Whether the open program is to be saved before another one, or nothing, takes its place.
bool AskToSave(DialogService& dialogs, const Texts& texts);
// Whether a changed program may be cleared.
bool AskToClear(DialogService& dialogs, const Texts& texts);
// Whether a file may be written under a name: Yes without a question where none has it.
Answer AskToOverwrite(Services& platform, const Texts& texts, std::string_view name);

}  // namespace kvt
