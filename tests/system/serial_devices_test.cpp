#include "system/serial_devices.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "system/temporary_folder.h"

namespace kvt::test {

namespace {

namespace fs = std::filesystem;

// A terminal as the system describes one: its device lies in a folder of the device around it.
void AddTerminal(const fs::path& root, const std::string& name, const std::string& around,
                 const std::string& type = {}) {
    const fs::path device = root / "devices" / around / name;
    fs::create_directories(device);
    if (around.starts_with("usb")) std::ofstream(root / "devices" / around / "idVendor") << "0403";
    fs::create_directories(root / "tty" / name);
    fs::create_directory_symlink(device, root / "tty" / name / "device");
    if (!type.empty()) std::ofstream(root / "tty" / name / "type") << type << '\n';
}

}  // namespace

TEST(SerialDevices, ThoseThatExistUsbAdaptersFirst) {
    const TemporaryFolder folder;
    const fs::path& root = folder.Path();
    AddTerminal(root, "ttyS0", "platform", "4");
    AddTerminal(root, "ttyS1", "platform", "0");  // listed, but no hardware
    AddTerminal(root, "ttyUSB1", "usb1");
    AddTerminal(root, "ttyACM0", "usb2");
    fs::create_directories(root / "tty" / "tty1");  // a console
    EXPECT_EQ(FoundDevices(root / "tty"),
              (std::vector<std::string>{"/dev/ttyACM0", "/dev/ttyUSB1", "/dev/ttyS0"}));
    EXPECT_TRUE(FoundDevices(root / "none").empty());
}

TEST(SerialDevices, ALockOfARunningProgramHoldsADevice) {
    const TemporaryFolder folder;
    const auto lock = [&](const std::string& content) {
        std::ofstream(folder.Path() / "LCK..ttyS0") << content;
        return IsLockedByOther("/dev/ttyS0", folder.Path());
    };
    EXPECT_TRUE(lock("         1\n"));
    EXPECT_FALSE(lock(std::to_string(getpid())));
    EXPECT_FALSE(lock("99999999"));
    EXPECT_FALSE(lock("nobody"));
    EXPECT_FALSE(IsLockedByOther("/dev/ttyS1", folder.Path()));
}

}  // namespace kvt::test
