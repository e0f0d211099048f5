#include "transfer/transfer_controls.h"

#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

OptionGroup::OptionGroup(Form& form, std::string_view name, std::initializer_list<const char*> texts) {
    for (const char* text : texts) {
        const int index = Count();
        options_.push_back(std::make_unique<OptionButton>(form, name, text, index));
    }
}

OptionButton& OptionGroup::operator[](int index) const {
    if (index < 0 || index >= Count()) throw RunTimeError(fault::SubscriptOutOfRange);
    return *options_[static_cast<std::size_t>(index)];
}

void OptionGroup::Select(int index) {
    for (const auto& option : options_) option->Value = option->Index() == index;
}

int OptionGroup::Named(std::string_view text) const {
    for (const auto& option : options_) {
        if (EqualIgnoringCase(option->Caption, text)) return option->Index();
    }
    return -1;
}

PortSide::PortSide(Form& form, const std::string& side, std::string_view caption)
    : frSide(form, "fr" + side, caption),
      frPort(form, "frPort" + side, "Port"),
      frBaud(form, "frBaud" + side, "Baud"),
      frParity(form, "frParity" + side, "Parity"),
      frDataBits(form, "frDataBits" + side, "Data bits"),
      frStopBits(form, "frStopBits" + side, "Stop bits"),
      frHandshake(form, "frHandshake" + side, "Handshake"),
      optPort(form, "optPort" + side, {"Com1", "Com2", "Com3", "Com4"}),
      optBaud(form, "optBaud" + side, {"110", "300", "600", "1200", "2400", "4800", "9600"}),
      optParity(form, "optParity" + side, {"N", "E", "O"}),
      optDataBits(form, "optDataBits" + side, {"7", "8"}),
      optStopBits(form, "optStopBits" + side, {"1", "2"}),
      chkXonXoff(form, "chk" + side + "xonxoff", "Xon/Xoff"),
      chkDtrDsr(form, "chk" + side + "dtrdsr", "DTR/DSR"),
      chkRtsCts(form, "chk" + side + "rtscts", "RTS/CTS"),
      chkFilter(form, "chk" + side + "filter", "G/M-code filter", 1),
      cmdEmco(form, "cmd" + side + "Emco", "Emco"),
      lblStandard(form, "lbl" + side + "standard", "Standard setting") {
    struct Group {
        Frame& Around;
        const OptionGroup& Options;
        int Selected;
    };
    for (const Group& group :
         {Group{frPort, optPort, 0}, Group{frBaud, optBaud, 1}, Group{frParity, optParity, 0},
          Group{frDataBits, optDataBits, 1}, Group{frStopBits, optStopBits, 0}}) {
        group.Around.Container = &frSide;
        for (const auto& option : group.Options) option->Container = &group.Around;
        group.Options[group.Selected].Value = true;
    }
    frHandshake.Container = &frSide;
    for (CheckBox* box : {&chkXonXoff, &chkDtrDsr, &chkRtsCts}) box->Container = &frHandshake;
    for (Control* inSide : std::initializer_list<Control*>{&chkFilter, &cmdEmco, &lblStandard})
        inSide->Container = &frSide;
}

bool PortSide::IsStandard() const {
    return Baud == "300" && StopBits == "1" && DataBits == "8" && Parity == "N" && chkXonXoff.Value == 0 &&
           chkDtrDsr.Value == 0 && chkRtsCts.Value == 0 && chkFilter.Value != 0;
}

TransferControls::TransferControls(Form& form)
    : mnuRX(form, "mnuRX", "Receive from Emco"),
      mnuTX(form, "mnuTX", "Transmit to Emco"),
      RCmnuTX(form, "RCmnuTX", "Transmit file"),
      RCmnuRX(form, "RCmnuRX", "Receive file"),
      mnuCOM(form, "mnuCOM", "COM"),
      chkEnableCom(form, "chkEnableCom", "Enable Communication", 1),
      frComPorts(form, "frComPorts", "Com ports"),
      TX(form, "TX", "Transmit"),
      RX(form, "RX", "Receive"),
      frRXcode(form, "frRXcode", "Received Code from Emco"),
      frCmdRX(form, "frCmdRX"),
      txtRX(form, "txtRX"),
      lblReceived(form, "lblReceived"),
      cmdReceiveImport(form, "cmdReceiveImport", "Import"),
      cmdReceiveSave(form, "cmdReceiveSave", "Save"),
      cmdReceiveNew(form, "cmdReceiveNew", "Clear"),
      cmdReceiveExit(form, "cmdReceiveExit", "Exit"),
      frTransmit(form, "frTransmit", "Transmit to Emco"),
      prgTransmit(form, "prgTransmit"),
      lblTransmitLine(form, "lblTransmitLine"),
      lblTransmitLeft(form, "lblTransmitLeft") {
    mnuRX.Shortcut = "Ctrl+R";
    mnuTX.Shortcut = "Ctrl+T";
    cmdReceiveImport.ToolTip = "Bring Code to KVT editor";
    cmdReceiveSave.ToolTip = "Save Received Code";
    cmdReceiveNew.ToolTip = "Clear Received Code";
    cmdReceiveExit.ToolTip = "Exit Transfer Mode";
    txtRX.MultiLine = true;
    txtRX.FixedPitch = true;
    const auto put = [](Control& around, std::initializer_list<Control*> inside) {
        for (Control* control : inside) control->Container = &around;
    };
    put(frComPorts, {&chkEnableCom, &TX.frSide, &RX.frSide});
    put(frRXcode, {&txtRX, &lblReceived});
    put(frCmdRX, {&cmdReceiveImport, &cmdReceiveSave, &cmdReceiveNew, &cmdReceiveExit});
    put(frTransmit, {&prgTransmit, &lblTransmitLine, &lblTransmitLeft});
    for (Frame* hidden : {&frRXcode, &frCmdRX, &frTransmit}) hidden->Visible = false;
}

}  // namespace kvt
