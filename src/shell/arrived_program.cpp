#include "shell/arrived_program.h"

#include <memory>

#include "shell/workbench.h"

namespace kvt {

std::optional<ArrivedProgram> ReadArrivedProgram(Services& aside, const std::string& file) {
    // Too large for a small stack.
    const auto workbench = std::make_unique<Workbench>(aside);
    std::string name = file;
    if (workbench->Reader.LoadFile(name) != LoadResult::Loaded) return std::nullopt;
    return ArrivedProgram{workbench->Store.Machine, workbench->Store.LineCount()};
}

}  // namespace kvt
