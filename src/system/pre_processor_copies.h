#pragma once

#include <filesystem>

#include "platform/supplied_record.h"

namespace kvt {

// Copies the pre-processors of an installation into the user's folder: those that are missing there, and newer ones in
// place of copies that the user has not changed. Copies in use are replaced under their names. What cannot be copied
// stays as it is.
void BringPreProcessors(const std::filesystem::path& installed, const std::filesystem::path& folder,
                        SuppliedRecord& record);

}  // namespace kvt
