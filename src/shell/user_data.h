#pragma once

#include "files/folders.h"
#include "program/texts.h"

namespace kvt {

// Where the user's data lies, and the message that it cannot be written.
class UserData {
public:
    UserData(Services& platform, const Texts& language) : platform_(platform), language_(language) {}

    // Empty until the program has started.
    kvt::Folders Folders;

    // Tells, once in a run, that what is to outlive it cannot be written.
    void TellNotWritable();

private:
    Services& platform_;
    const Texts& language_;
    bool told_ = false;
};

}  // namespace kvt
