#pragma once

#include <functional>
#include <string>

#include "system/disk_files.h"

namespace kvt {

// What a command that writes to OUT may do with the program that it reads.
enum class SourceUse { Keeps, MayReplace };

// Why a command may not write to OUT, in words that go behind its name; empty where it may. One rule for all: OUT is
// an open file of this program (/dev/stdout), a plain file that can be written, or a new one; it is no link, and not
// the source. Where the source may be replaced, OUT may be it, by whatever name.
std::string WhyNotWritten(const std::string& out, const std::string& source = {},
                          SourceUse use = SourceUse::Keeps);

// Prepares files for a command that writes: what has to be kept lies in the user's folder of data, and what a run
// that was killed has left there goes.
void PrepareToWrite(DiskFiles& files);

// Writes what nobody else has to OUT; where that fails to a new file in the user's folder of data, or the system's
// temporary folder, and tells where; text goes to standard output where nothing can be written. write gets a
// name of the program and is false where it fails. True where OUT holds it.
bool WriteOrKeep(const std::string& out, const std::string& text,
                 const std::function<bool(const std::string& name)>& write);

}  // namespace kvt
