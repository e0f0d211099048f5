#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "files/cnc_writer.h"
#include "program/program_store.h"
#include "program/workbench_calls.h"
#include "transfer/outgoing_lines.h"
#include "transfer/port_control.h"

namespace kvt {

// Sends the program to the machine, line by line at the machine's pace: it has no handshake and acknowledges
// nothing. Each line is given as a whole and waited for, so that the selected row is the one on the wire. While
// something else waits above the transmission's own, a timer gives the lines, and ends it.
class Transmitter {
public:
    struct Parts {
        ProgramStore& Store;
        TransferControls& Controls;
        PortControl& Port;
        CncWriter& Writer;
        // The pulse of the window, which is off meanwhile; the button that stops, and the one that hides
        // while a step run needs it too.
        Timer& tmr1sec;
        CommandButton& cmdStop;
        const CommandButton& cmdRun;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    Transmitter(Form& form, Parts parts);

    // Ticks when the next line is due.
    Timer tmrTransmit;

    // The folder of the scratch file, with a separator at its end.
    std::string SettingsFolder;

    // The last transmission was cut short by a stop, and the units mark has ended it.
    bool WasCut = false;

    // While one is under way it does nothing. Where nothing can be sent that is told.
    void mnuTX_Click();
    // What a click on cmdStop adds: the line on the wire is the last one, and the units mark ends the reception.
    void Stop() { parts_.Store.TransmitActive = false; }

private:
    bool Attempt(const std::function<void()>& statement);
    bool OpenPort();
    void Freeze();
    void Unfreeze();
    bool MakeScratch(std::string& text);
    // A step gives a line, or behind the last one ends the transmission; the milliseconds until the next one is due.
    void Begin();
    double LeftOfStep() const;
    void RunStep();
    void SetTimer();
    void tmrTransmit_Timer();
    void NextLine();
    void Finish();
    void SendUnits();
    void SendLine(const std::string& line);
    void ShowRow(std::string_view line);
    void ShowProgress();
    void TellVanished();
    void TellSent();

    Parts parts_;
    std::string scratch_;
    std::string lastLine_;
    // The text on its way, what is left of it, and the steps that were taken.
    std::string text_;
    std::optional<OutgoingLines> lines_;
    OutgoingAmount left_;
    int allLines_ = 0;
    long steps_ = 0;
    int selectedBefore_ = 0;
    bool sending_ = false;
    bool stepping_ = false;
    // All lines are given; what the port still holds is on its way.
    bool draining_ = false;
    // The units and the machine of what is being sent.
    bool metric_ = true;
    bool mk2_ = false;
};

}  // namespace kvt
