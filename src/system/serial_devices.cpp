#include "system/serial_devices.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <tuple>

#include "basic/text.h"
#include "platform/serial_port.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

struct Found {
    bool Usb;
    std::string Name;
};

int NumberIn(const fs::path& file, int otherwise) {
    int number = otherwise;
    std::ifstream stream(file);
    return stream >> number ? number : otherwise;
}

// An adapter's description, or that of a device around it, names its maker.
bool IsUsb(fs::path device) {
    std::error_code failed;
    for (device = fs::canonical(device, failed); !failed && device.has_relative_path();
         device = device.parent_path()) {
        if (fs::exists(device / "idVendor", failed)) return true;
    }
    return false;
}

}  // namespace

std::vector<std::string> FoundDevices(const fs::path& classFolder) {
    constexpr int noHardware = 0;
    std::vector<Found> found;
    std::error_code failed;
    for (fs::directory_iterator entry(classFolder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        // Consoles and the like have no device; of built-in ports the system lists more than there are.
        std::error_code ignored;
        const fs::path device = entry->path() / "device";
        if (!fs::exists(device, ignored) || NumberIn(entry->path() / "type", 1) == noHardware) continue;
        found.push_back({IsUsb(device), entry->path().filename().string()});
    }
    std::sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
        return std::tuple(!a.Usb, a.Name) < std::tuple(!b.Usb, b.Name);
    });
    std::vector<std::string> devices;
    for (const Found& one : found) devices.push_back("/dev/" + one.Name);
    return devices;
}

std::vector<std::string> OfferedDevices() {
    const char* const named = std::getenv("KVT_PORTS");
    std::vector<std::string> devices;
    if (!named) devices = FoundDevices();
    for (const std::string_view device : Split(named ? named : "", ":")) {
        if (!device.empty()) devices.emplace_back(device);
    }
    devices.resize(std::min<std::size_t>(devices.size(), PortCount));
    return devices;
}

bool IsLockedByOther(const fs::path& device, const fs::path& locks) {
    const int holder = NumberIn(locks / ("LCK.." + device.filename().string()), 0);
    return holder > 0 && holder != getpid() && (kill(holder, 0) == 0 || errno == EPERM);
}

}  // namespace kvt
