#include "shell/user_data.h"

#include <utility>

namespace kvt {

void UserData::TellNotWritable() {
    if (std::exchange(told_, true)) return;
    platform_.Dialogs.ShowMessage(
        Notice(std::string(language_.MessageTexts(text::CannotKeep)) + " " + Folders.DataFolder, "",
               Icon::Exclamation));
}

}  // namespace kvt
