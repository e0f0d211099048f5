#include "transfer/port_control.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"

namespace kvt {

namespace {

constexpr const char* formLoadName = "Form_Load";
constexpr const char* enableName = "chkEnableCom_Click";
constexpr const char* chooseTxName = "optPortTX_Click";
constexpr const char* chooseRxName = "optPortRX_Click";

std::string SettingsOf(const PortSide& side) {
    return side.Baud + "," + side.Parity + "," + side.DataBits + "," + side.StopBits;
}

}  // namespace

PortControl::PortControl(Parts parts) : parts_(parts) { Wire(); }

void PortControl::Wire() {
    parts_.Controls.chkEnableCom.OnClick = [this] {
        UserEnables = parts_.Controls.chkEnableCom.Value != 0;
        chkEnableCom_Click();
    };
    for (PortSide* side : {&TX(), &RX()}) WireSide(*side);
    for (Control* control :
         std::initializer_list<Control*>{&parts_.Controls.mnuTX, &parts_.Controls.mnuRX,
                                         &parts_.Controls.RCmnuTX, &parts_.Controls.RCmnuRX})
        EnabledWithCom.push_back(control);
}

void PortControl::WireSide(PortSide& side) {
    for (const auto& option : side.optPort) {
        option->OnClick = [this, &side, index = option->Index()] { optPort_Click(side, index); };
    }
    struct Stored {
        const OptionGroup& Options;
        std::string& Text;
    };
    for (const Stored& stored :
         {Stored{side.optBaud, side.Baud}, Stored{side.optParity, side.Parity},
          Stored{side.optDataBits, side.DataBits}, Stored{side.optStopBits, side.StopBits}}) {
        for (const auto& option : stored.Options) {
            option->OnClick = [this, &text = stored.Text, &chosen = *option] {
                text = chosen.Caption.Get();
                UpdateComSettings();
            };
        }
    }
    for (CheckBox* box : {&side.chkXonXoff, &side.chkDtrDsr, &side.chkRtsCts, &side.chkFilter})
        box->OnClick = [this] { UpdateComSettings(); };
    side.cmdEmco.OnClick = [this, &side] { cmdEmco_Click(side); };
}

int PortControl::CountPorts() {
    for (int number = 1; number <= PortCount; ++number) {
        try {
            if (Port().IsOpen()) Port().Close();
            Port().SetCommPort(number);
            Port().Open();
        } catch (const RunTimeError&) {
            // No error: it is the result.
            return number - 1;
        }
    }
    // One more than there are, by which StartPort sees that the last one opened too.
    return PortCount + 1;
}

void PortControl::StartPort() {
    UpdateComSettings();
    const int found = CountPorts();
    portsFound_ = std::min(found, PortCount);
    started_ = true;
    const auto attempt = [&](const std::function<void()>& statement) {
        AttemptPort(formLoadName, statement, [](int number) {
            return number == fault::PortAlreadyOpen || number == fault::PortNotOpen;
        });
    };
    // A port of the settings file that does not exist becomes the last one that does.
    for (PortSide* side : {&TX(), &RX()}) {
        side->Port = std::min(side->Port, found);
        for (const auto& option : side->optPort) {
            option->Enabled = false;
            option->ToolTip = Port().DeviceName(option->Index() + 1);
        }
    }
    // Where all four ports open there is no fifth button: Errors.log then tells that all ports were found.
    for (int index = 0; index < found; ++index) {
        Attempt(formLoadName, [&] {
            TX().optPort[index].Enabled = true;
            RX().optPort[index].Enabled = true;
        });
    }
    // CountPorts has left the last port open where all open.
    if (found > 0) {
        for (PortSide* side : {&TX(), &RX()}) side->optPort.Select(side->Port - 1);
        attempt([&] { Port().Close(); });
        attempt([&] { Port().SetCommPort(TX().Port); });
        attempt([&] { Port().SetSettings(TX().Settings); });
    } else {
        SwitchOff();
        parts_.Controls.chkEnableCom.Enabled = false;
    }
    if (!ComEnabled) return attempt([&] { Port().Close(); });
    attempt([&] {
        if (!Port().IsOpen()) Port().Open();
    });
}

void PortControl::chkEnableCom_Click() {
    if (parts_.Controls.chkEnableCom.Value == 0) {
        Attempt(enableName, [&] { Port().Close(); });
        EnableTransfer(false);
        return;
    }
    EnableTransfer(true);
    Attempt(enableName, [&] {
        if (!Port().IsOpen()) Port().Open();
    });
}

void PortControl::EnableTransfer(bool enabled) {
    ComEnabled = enabled;
    for (Control* control : EnabledWithCom) control->Enabled = enabled;
    for (PortSide* side : {&TX(), &RX()}) {
        for (CheckBox* box : {&side->chkXonXoff, &side->chkDtrDsr, &side->chkRtsCts, &side->chkFilter})
            box->Enabled = enabled;
        side->frSide.Enabled = enabled;
        for (const OptionGroup* group :
             {&side->optBaud, &side->optParity, &side->optDataBits, &side->optStopBits}) {
            for (const auto& option : *group) option->Enabled = enabled;
        }
    }
    EnablePorts();
}

void PortControl::EnablePorts() {
    for (PortSide* side : {&TX(), &RX()}) {
        for (const auto& option : side->optPort)
            option->Enabled = ComEnabled && option->Index() < portsFound_;
    }
}

void PortControl::FollowDevices() {
    if (!started_) return;
    for (PortSide* side : {&TX(), &RX()}) {
        for (const auto& option : side->optPort) {
            option->ToolTip = Port().DeviceName(option->Index() + 1);
            if (!option->ToolTip.Get().empty()) portsFound_ = std::max(portsFound_, option->Index() + 1);
        }
    }
    EnablePorts();
}

bool PortControl::OpenForUse() {
    if (!Port().IsOpen()) Port().Open();
    if (Port().ChooseDevice()) return true;
    parts_.Platform.Dialogs.ShowMessage(Notice(parts_.Language.ErrorTexts(text::NoPortChosen),
                                               parts_.Language.ErrorTexts(text::SerialPort),
                                               Icon::Information));
    return false;
}

void PortControl::SwitchOff() {
    parts_.Controls.chkEnableCom.Value = 0;
    chkEnableCom_Click();
}

void PortControl::SetComEnabled(bool enabled) {
    UserEnables = enabled;
    // Without a port there is nothing to enable.
    if (started_ && portsFound_ == 0) enabled = false;
    parts_.Controls.chkEnableCom.Value = enabled ? 1 : 0;
    if (started_ || !enabled) return chkEnableCom_Click();
    // The start of the port opens it.
    EnableTransfer(true);
}

void PortControl::SetPort(int number) {
    const bool other = number != Port().CommPort();
    SelectPorts(number);
    if (ComEnabled && started_ && other) Reopen(chooseTxName);
}

void PortControl::SelectPorts(int number) {
    for (PortSide* side : {&TX(), &RX()}) {
        side->Port = number;
        side->optPort.Select(number - 1);
    }
}

void PortControl::optPort_Click(const PortSide& side, int index) {
    if (!ComEnabled) return;
    if (index >= 0 && index < PortCount) SelectPorts(index + 1);
    Reopen(&side == &TX() ? chooseTxName : chooseRxName);
}

void PortControl::Reopen(const char* procedure) {
    Attempt(procedure, [&] { Port().Close(); });
    Attempt(procedure, [&] { Port().SetCommPort(TX().Port); });
    Attempt(procedure, [&] { Port().Open(); });
}

void PortControl::cmdEmco_Click(PortSide& side) {
    if (side.Port != 1) SetPort(1);
    struct Standard {
        OptionGroup& Options;
        std::string& Text;
        const char* Value;
    };
    for (const Standard& standard :
         {Standard{side.optBaud, side.Baud, "300"}, Standard{side.optParity, side.Parity, "N"},
          Standard{side.optDataBits, side.DataBits, "8"}, Standard{side.optStopBits, side.StopBits, "1"}}) {
        standard.Text = standard.Value;
        standard.Options.Select(standard.Options.Named(standard.Value));
    }
    for (CheckBox* box : {&side.chkXonXoff, &side.chkDtrDsr, &side.chkRtsCts}) box->Value = 0;
    side.chkFilter.Value = 1;
    UpdateComSettings();
}

void PortControl::UpdateComSettings() {
    for (PortSide* side : {&TX(), &RX()}) {
        side->Settings = SettingsOf(*side);
        const bool differs = !side->IsStandard();
        side->lblStandard.Enabled = differs;
        side->cmdEmco.Enabled = differs;
    }
}

bool PortControl::AttemptPort(const char* procedure, const std::function<void()>& statement,
                              const std::function<bool(int number)>& isSilent) {
    try {
        statement();
        return true;
    } catch (const RunTimeError& error) {
        if (!isSilent(error.Number)) TellError(error, procedure);
        if (error.Number != fault::PortAlreadyOpen && error.Number != fault::PortNotOpen) return false;
        parts_.Platform.Dialogs.ShowMessage(
            Notice(PlainNumber(error.Number) + "  " + error.Description + " in " + procedure));
        SwitchOff();
    }
    return false;
}

std::string PortControl::WhyOff() const {
    if (ComEnabled) return {};
    const bool none = started_ && portsFound_ == 0;
    return std::string(parts_.Language.MessageTexts(none          ? text::NoSerialPort
                                                    : UserEnables ? text::PortStayedClosed
                                                                  : text::SwitchedOff));
}

std::string PortControl::PortName() {
    const int number = Port().CommPort();
    const std::string device = Port().DeviceName(number);
    return "Com" + PlainNumber(number) + (device.empty() ? "" : " (" + device + ")");
}

void PortControl::Vanished() {
    HasVanished = true;
    const std::string text = Filled(parts_.Language.ErrorTexts(text::PortGone), {PortName()});
    SwitchOff();
    // The sender tells it with the line that it has come to.
    if (IsSending) return;
    parts_.Platform.Dialogs.ShowMessage(
        Notice(text, parts_.Language.ErrorTexts(text::SerialPort), Icon::Exclamation));
}

void PortControl::Refused() {
    if (refusalTold_ == Port().CommPort()) return;
    refusalTold_ = Port().CommPort();
    pending_ = Filled(parts_.Language.ErrorTexts(text::SettingsRefused), {PortName(), Port().Settings()});
    if (!IsSending) TellPending();
}

void PortControl::TellPending() {
    const std::string text = std::exchange(pending_, {});
    if (text.empty()) return;
    parts_.Platform.Dialogs.ShowMessage(
        Notice(text, parts_.Language.ErrorTexts(text::SerialPort), Icon::Information));
}

}  // namespace kvt
