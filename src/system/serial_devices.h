#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kvt {

// The devices behind the numbers of the ports: those that the variable KVT_PORTS names, with ":" between them, or
// those that are there. At most as many as there are numbers.
std::vector<std::string> OfferedDevices();

// The serial devices of this machine, USB adapters first; classFolder is where the system describes its terminals.
std::vector<std::string> FoundDevices(const std::filesystem::path& classFolder = "/sys/class/tty");

// Whether a lock file, as terminal programs use them, tells that another program is at work on a device.
bool IsLockedByOther(const std::filesystem::path& device, const std::filesystem::path& locks = "/run/lock");

}  // namespace kvt
