#include "shell/transfer_wiring.h"

#include "shell/placing.h"
#include "shell/workbench.h"

namespace kvt {

namespace {

constexpr int receiveButton = 8;
constexpr int transmitButton = 9;

CommandButton& TopButton(Workbench& bench, int index) {
    return *bench.Main.cmdTopButtons[static_cast<std::size_t>(index)];
}

// The program stays as it is while it is being sent, to the last character of one that is stopped, and while the receive
// view lies over it.
bool IsHeld(const Workbench& bench) { return bench.Port.IsSending || bench.Transfer.frRXcode.Visible; }

template <class... Given>
void UnlessHeld(Workbench& bench, std::function<void(Given...)>& handler) {
    handler = [&bench, before = std::move(handler)](Given... given) {
        if (before && !IsHeld(bench)) before(given...);
    };
}

void WireMenus(Workbench& bench) {
    TransferControls& transfer = bench.Transfer;
    bench.Main.mnuXfer.Visible = true;
    for (Menu* entry : {&transfer.mnuRX, &transfer.mnuTX}) entry->Container = &bench.Main.mnuXfer;
    for (Menu* entry : {&transfer.RCmnuTX, &transfer.RCmnuRX}) entry->Container = &bench.Main.mnuRightClick;
    CommandButton& receive = TopButton(bench, receiveButton);
    CommandButton& transmit = TopButton(bench, transmitButton);
    receive.OnClick = [&bench] { bench.Received.mnuRX_Click(); };
    transmit.OnClick = [&bench] { bench.Transmit.mnuTX_Click(); };
    for (CommandButton* button : {&receive, &transmit}) {
        button->Visible = true;
        bench.Port.EnabledWithCom.push_back(button);
    }
    bench.Results.cmdStop.OnClick = [&bench] {
        bench.Transmit.Stop();
        bench.Interpreter.cmdStop_Click();
    };
}

void WireSettingsPage(Workbench& bench) {
    TransferControls& transfer = bench.Transfer;
    TabStrip& settings = bench.Main.tabSettings;
    const int page = static_cast<int>(settings.Captions.size());
    settings.Captions.emplace_back("COM");
    transfer.frComPorts.Container = &settings;
    transfer.frComPorts.Page = page;
    transfer.mnuCOM.Container = &bench.Main.mnuSettings;
    transfer.mnuCOM.OnClick = [&bench, page] { bench.Window.ShowSettings(page); };
}

// The button has gone with the view; the next key is a code.
void GiveKeysToEditor(Workbench& bench) {
    for (CommandButton* button : {&bench.Transfer.cmdReceiveImport, &bench.Transfer.cmdReceiveExit}) {
        button->OnClick = [&bench, leave = std::move(button->OnClick)] {
            leave();
            const bool inEditor = !bench.Transfer.frRXcode.Visible && bench.Entry.txtGMcode.ReallyVisible();
            const Control* const focused = bench.Platform.Focus.Focused();
            if (inEditor && focused && !focused->ReallyVisible())
                bench.Platform.Focus.SetFocus(bench.Entry.txtGMcode);
        };
    }
}

void OrderTabs(TransferControls& transfer) {
    int next = 1000;  // behind all that the window has of its own
    transfer.chkEnableCom.TabIndex = next++;
    for (PortSide* side : {&transfer.TX, &transfer.RX}) {
        for (const OptionGroup* group :
             {&side->optPort, &side->optBaud, &side->optParity, &side->optDataBits, &side->optStopBits}) {
            for (const auto& option : *group) option->TabIndex = next++;
        }
        for (Control* control : std::initializer_list<Control*>{
                 &side->chkXonXoff, &side->chkDtrDsr, &side->chkRtsCts, &side->chkFilter, &side->cmdEmco})
            control->TabIndex = next++;
    }
    for (Control* control : std::initializer_list<Control*>{&transfer.txtRX, &transfer.cmdReceiveImport,
                                                            &transfer.cmdReceiveSave, &transfer.cmdReceiveNew,
                                                            &transfer.cmdReceiveExit})
        control->TabIndex = next++;
}

// Options in columns, one row below the other.
void PlaceOptions(const OptionGroup& options, int columns, int width) {
    for (const auto& option : options) {
        const int index = option->Index();
        Place({{*option, 90 + index % columns * width, 240 + index / columns * 300, width - 20, 285}});
    }
}

void PlaceSide(PortSide& side, int left) {
    Place({{side.frSide, left, 660, 3750, 3990},
           {side.frPort, 90, 270, 3570, 600},
           {side.frBaud, 90, 900, 3570, 900},
           {side.frParity, 90, 1830, 1470, 600},
           {side.frDataBits, 1590, 1830, 1020, 600},
           {side.frStopBits, 2640, 1830, 1020, 600},
           {side.frHandshake, 90, 2460, 3570, 600},
           {side.chkXonXoff, 90, 240, 1110, 285},
           {side.chkDtrDsr, 1230, 240, 1110, 285},
           {side.chkRtsCts, 2370, 240, 1110, 285},
           {side.chkFilter, 180, 3120, 3390, 285},
           {side.lblStandard, 180, 3495, 1980, 330},
           {side.cmdEmco, 2280, 3480, 1380, 360}});
    PlaceOptions(side.optPort, 4, 860);
    PlaceOptions(side.optBaud, 4, 860);
    PlaceOptions(side.optParity, 3, 450);
    PlaceOptions(side.optDataBits, 2, 450);
    PlaceOptions(side.optStopBits, 2, 450);
}

// The tool tip of a button, and below it why the button is grey.
void Explain(Control& button, const std::string& why) {
    const std::string& shown = button.ToolTip.Get();
    const std::string own = shown.substr(0, shown.find("\r\n"));
    button.ToolTip = why.empty() ? own : own + "\r\n" + why;
}

}  // namespace

void WireTransfer(Workbench& bench) {
    WireMenus(bench);
    WireSettingsPage(bench);
    OrderTabs(bench.Transfer);
    GiveKeysToEditor(bench);
    ListView& list = bench.Store.lvCncProgram;
    UnlessHeld(bench, list.OnClick);
    UnlessHeld(bench, list.OnRightClick);
    UnlessHeld(bench, list.OnKeyDown);
    UnlessHeld(bench, bench.frmMain.OnDropFile);
}

void PlaceTransfer(Workbench& bench, int width, int height) {
    TransferControls& transfer = bench.Transfer;
    const int listWidth = width - 3700;
    const int listHeight = height - 3370;
    const int bandTop = height - 2000;
    const int bandHeight = 1910;
    Place({{transfer.frComPorts, 120, 480, 7860, 4740}, {transfer.chkEnableCom, 150, 300, 3600, 285}});
    PlaceSide(transfer.TX, 120);
    PlaceSide(transfer.RX, 3990);
    // The third line of frCmdRX is left free: a transmission can be under way, and cmdStop stands there.
    Place({{transfer.frRXcode, 0, 1360, listWidth, listHeight},
           {transfer.txtRX, 90, 270, listWidth - 180, listHeight - 690},
           {transfer.lblReceived, 120, listHeight - 360, listWidth - 240, 285},
           {transfer.frCmdRX, 4920, bandTop, 2070, bandHeight},
           {transfer.cmdReceiveImport, 90, 300, 930, 360},
           {transfer.cmdReceiveSave, 1050, 300, 930, 360},
           {transfer.cmdReceiveNew, 90, 750, 930, 360},
           {transfer.cmdReceiveExit, 1050, 750, 930, 360},
           {transfer.frTransmit, 30, bandTop, 4860, bandHeight},
           {transfer.prgTransmit, 150, 420, 4560, 330},
           {transfer.lblTransmitLine, 150, 840, 4560, 285},
           {transfer.lblTransmitLeft, 150, 1140, 4560, 285}});
    if (bench.Store.TransmitActive) bench.Results.cmdStop.Visible = true;
}

void RefreshTransferMenus(Workbench& bench) {
    TransferControls& transfer = bench.Transfer;
    const bool enabled = transfer.chkEnableCom.Value != 0;
    const bool sends = enabled && bench.Store.LineCount() > 0;
    for (Control* control : std::initializer_list<Control*>{&transfer.RCmnuRX, &transfer.mnuRX,
                                                            &TopButton(bench, receiveButton)})
        control->Enabled = enabled;
    for (Control* control : std::initializer_list<Control*>{&transfer.RCmnuTX, &transfer.mnuTX,
                                                            &TopButton(bench, transmitButton)})
        control->Enabled = sends;
    const std::string why = bench.Port.WhyOff();
    for (const int index : {receiveButton, transmitButton}) Explain(TopButton(bench, index), why);
    transfer.chkEnableCom.ToolTip = why;
}

}  // namespace kvt
