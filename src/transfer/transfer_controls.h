#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace kvt {

// A row of options of which one holds; a control array, each with the text of its value.
class OptionGroup {
public:
    OptionGroup(Form& form, std::string_view name, std::initializer_list<const char*> texts);

    int Count() const { return static_cast<int>(options_.size()); }
    // The option of an index from 0; another index is error 9.
    OptionButton& operator[](int index) const;
    const std::string& Text(int index) const { return (*this)[index].Caption.Get(); }
    // Marks one and takes the mark off the others, without a click. -1 marks none.
    void Select(int index);
    // The option with a text (case ignored), -1 for none.
    int Named(std::string_view text) const;

    auto begin() const { return options_.begin(); }
    auto end() const { return options_.end(); }

private:
    std::vector<std::unique_ptr<OptionButton>> options_;
};

// The parameters of one direction on the settings page, transmit ("TX") or receive ("RX"), and what they say.
struct PortSide {
    PortSide(Form& form, const std::string& side, std::string_view caption);

    Frame frSide;  // frTX, frRX
    Frame frPort, frBaud, frParity, frDataBits, frStopBits, frHandshake;
    OptionGroup optPort, optBaud, optParity, optDataBits, optStopBits;
    // The handshake is stored and compared with the standard, but never passed to the port: the
    // machines have none.
    CheckBox chkXonXoff, chkDtrDsr, chkRtsCts;
    CheckBox chkFilter;
    CommandButton cmdEmco;
    Label lblStandard;

    int Port = 1;
    std::string Baud = "300", Parity = "N", DataBits = "8", StopBits = "1";
    // As "300,N,8,1".
    std::string Settings = "300,N,8,1";

    bool IsStandard() const;
};

// What the transfer shows in the main window.
struct TransferControls {
    explicit TransferControls(Form& form);

    Menu mnuRX, mnuTX, RCmnuTX, RCmnuRX, mnuCOM;

    // The settings page.
    CheckBox chkEnableCom;
    Frame frComPorts;
    PortSide TX, RX;

    // The receive view: what has come, over the program list, and its buttons in the place of the editor's.
    Frame frRXcode, frCmdRX;
    TextBox txtRX;
    Label lblReceived;
    CommandButton cmdReceiveImport, cmdReceiveSave, cmdReceiveNew, cmdReceiveExit;

    // What is being sent, in the place of the entry row.
    Frame frTransmit;
    ProgressBar prgTransmit;
    Label lblTransmitLine, lblTransmitLeft;
};

}  // namespace kvt
