#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/services.h"
#include "program/texts.h"
#include "transfer/transfer_controls.h"

namespace kvt {

// The one serial port of both directions: its start, its parameters, and what goes wrong with it. It stays open as
// long as communication is enabled, since the machine may send at any moment.
class PortControl {
public:
    struct Parts {
        TransferControls& Controls;
        const Texts& Language;
        Services& Platform;
    };
    explicit PortControl(Parts parts);

    bool ComEnabled = true;
    // What the user has last chosen, which outlives the run; a port that is missing or fails does not change it.
    bool UserEnables = true;
    // What else is enabled and disabled with the communication.
    std::vector<Control*> EnabledWithCom;
    // The device has gone since this was last cleared.
    bool HasVanished = false;
    // A transmission is under way, also one that has been stopped: it tells at its end what has become of the port.
    bool IsSending = false;

    PortSide& TX() { return parts_.Controls.TX; }
    PortSide& RX() { return parts_.Controls.RX; }
    SerialPort& Port() { return parts_.Platform.Port; }

    // How many ports open, counted from the first up to the one that does not; 5 where all four do.
    int CountPorts();
    // Finds the ports and opens the chosen one: the port's part of Form_Load.
    void StartPort();
    void chkEnableCom_Click();
    // A port chosen on a side, by its index from 0.
    void optPort_Click(const PortSide& side, int index);
    // Brings one side to what the machines have from the factory.
    void cmdEmco_Click(PortSide& side);
    // Composes the settings strings, and enables the standard buttons where there is something to set.
    void UpdateComSettings();

    // Runs a statement of a procedure; the errors of a port in the wrong state (8005, 8018) are shown too, and
    // switch the communication off. Reported are all but those for which isSilent gives true. False where the
    // statement has failed.
    bool AttemptPort(const char* procedure, const std::function<void()>& statement,
                     const std::function<bool(int number)>& isSilent);

    // Opens the port where it is closed, and has the user choose the device where that is still open. Passes the port's
    // errors on; false, and told, where none was chosen.
    bool OpenForUse();
    // The ports have other names now, or there are more of them.
    void FollowDevices();

    // The events that are no characters.
    void Vanished();
    void Refused();
    // Tells what could not be told while something was being sent.
    void TellPending();

    // Why nothing can be sent or received; empty while it can.
    std::string WhyOff() const;
    // The port for people: "Com1 (/dev/ttyUSB0)".
    std::string PortName();

    // The keys Port, 1 to 4, and ComPortEnable (UserEnables) of a settings file. Before the port has been started they open
    // nothing.
    void SetPort(int number);
    void SetComEnabled(bool enabled);

private:
    void Wire();
    void WireSide(PortSide& side);
    void SwitchOff();
    void EnableTransfer(bool enabled);
    void SelectPorts(int number);
    void EnablePorts();
    void Reopen(const char* procedure);

    Parts parts_;
    int portsFound_ = PortCount;
    bool started_ = false;
    // The port whose refusal of settings has been told, and what is still to be told.
    int refusalTold_ = 0;
    std::string pending_;
};

}  // namespace kvt
