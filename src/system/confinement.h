#pragma once

#include <filesystem>
#include <functional>
#include <vector>

namespace kvt {

// Whether the kernel can keep a process to some folders.
bool CanConfine();

// Runs something on a thread of its own that, with every process it starts, may write below these folders alone.
// Where the kernel cannot see to that it runs all the same. A Failure that comes out of it goes on.
void RunConfined(const std::vector<std::filesystem::path>& folders, const std::function<void()>& body);

}  // namespace kvt
