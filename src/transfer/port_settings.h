#pragma once

#include <span>
#include <string>
#include <string_view>

#include "transfer/port_control.h"

namespace kvt {

// A key of the settings file, how its value is applied to the controls, and what they hold now. A value that the
// key does not have is error 13 and changes nothing.
struct PortKey {
    const char* Name;
    void (*Apply)(PortControl& port, std::string_view value);
    std::string (*Value)(PortControl& port);
};

// In the order of the file, by its three sections: Port and ComPortEnable; then eight keys of each direction.
std::span<const PortKey> PortKeysGeneral();
std::span<const PortKey> PortKeysTransmit();
std::span<const PortKey> PortKeysReceive();

}  // namespace kvt
