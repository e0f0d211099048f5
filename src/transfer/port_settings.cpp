#include "transfer/port_settings.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/settings_file.h"

namespace kvt {

namespace {

[[noreturn]] void NoSuchValue() { throw RunTimeError(fault::TypeMismatch); }

void ApplyPort(PortControl& port, std::string_view value) {
    const int index = port.TX().optPort.Named("Com" + std::string(Trim(value)));
    if (index < 0) NoSuchValue();
    port.SetPort(index + 1);
}

// A machine without ports has put it to 0; the file holds 1 to 4.
std::string PortValue(PortControl& port) { return PlainNumber(std::max(1, port.TX().Port)); }

void ApplyComEnable(PortControl& port, std::string_view value) { port.SetComEnabled(TrueOrFalse(value)); }

std::string ComEnableValue(PortControl& port) { return TrueOrFalse(port.UserEnables); }

// The members of PortSide that a key stands for.
using Options = OptionGroup PortSide::*;
using Chosen = std::string PortSide::*;
using Box = CheckBox PortSide::*;
using Side = PortSide& (PortControl::*)();

template <Side side, Options options, Chosen chosen>
constexpr PortKey Choice(const char* name) {
    return {name,
            [](PortControl& port, std::string_view value) {
                OptionGroup& group = (port.*side)().*options;
                const int index = group.Named(Trim(value));
                if (index < 0) NoSuchValue();
                group.Select(index);
                (port.*side)().*chosen = group.Text(index);
                port.UpdateComSettings();
            },
            [](PortControl& port) -> std::string { return (port.*side)().*chosen; }};
}

template <Side side, Box box>
constexpr PortKey Check(const char* name) {
    return {name,
            [](PortControl& port, std::string_view value) {
                ((port.*side)().*box).Value = ZeroOrOne(Trim(value));
                port.UpdateComSettings();
            },
            [](PortControl& port) -> std::string { return PlainNumber(((port.*side)().*box).Value.Get()); }};
}

constexpr PortKey generalKeys[] = {
    {"Port", ApplyPort, PortValue},
    {"ComPortEnable", ApplyComEnable, ComEnableValue},
};

constexpr PortKey transmitKeys[] = {
    Choice<&PortControl::TX, &PortSide::optBaud, &PortSide::Baud>("BaudTX"),
    Choice<&PortControl::TX, &PortSide::optParity, &PortSide::Parity>("ParityTX"),
    Choice<&PortControl::TX, &PortSide::optDataBits, &PortSide::DataBits>("DataBitsTX"),
    Choice<&PortControl::TX, &PortSide::optStopBits, &PortSide::StopBits>("StopBitsTX"),
    Check<&PortControl::TX, &PortSide::chkXonXoff>("XonXoffTX"),
    Check<&PortControl::TX, &PortSide::chkDtrDsr>("DtrDsrTX"),
    Check<&PortControl::TX, &PortSide::chkRtsCts>("RtsCtsTX"),
    Check<&PortControl::TX, &PortSide::chkFilter>("TXfilter"),
};

constexpr PortKey receiveKeys[] = {
    Choice<&PortControl::RX, &PortSide::optBaud, &PortSide::Baud>("BaudRX"),
    Choice<&PortControl::RX, &PortSide::optParity, &PortSide::Parity>("ParityRX"),
    Choice<&PortControl::RX, &PortSide::optDataBits, &PortSide::DataBits>("DataBitsRX"),
    Choice<&PortControl::RX, &PortSide::optStopBits, &PortSide::StopBits>("StopBitsRX"),
    Check<&PortControl::RX, &PortSide::chkXonXoff>("XonXoffRX"),
    Check<&PortControl::RX, &PortSide::chkDtrDsr>("DtrDsrRX"),
    Check<&PortControl::RX, &PortSide::chkRtsCts>("RtsCtsRX"),
    Check<&PortControl::RX, &PortSide::chkFilter>("RXfilter"),
};

}  // namespace

std::span<const PortKey> PortKeysGeneral() { return generalKeys; }
std::span<const PortKey> PortKeysTransmit() { return transmitKeys; }
std::span<const PortKey> PortKeysReceive() { return receiveKeys; }

}  // namespace kvt
