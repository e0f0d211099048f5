#pragma once

#include "headless/fault_plan.h"
#include "platform/services.h"

namespace kvt {

// The services of a platform with planned failures around them, as FaultyFiles is for files. Each passes every call on
// that is not to fail.

class FaultyClipboard : public ClipboardService {
public:
    FaultyClipboard(ClipboardService& clipboard, FaultPlan& faults)
        : clipboard_(clipboard), faults_(faults) {}

    std::string GetText() override { return Passed().GetText(); }
    void Clear() override { Passed().Clear(); }
    void SetText(std::string_view text) override { Passed().SetText(text); }
    void SetPicture(const Pixels& picture) override { Passed().SetPicture(picture); }

private:
    ClipboardService& Passed() {
        faults_.Pass("clipboard", fault::InvalidCall);
        return clipboard_;
    }

    ClipboardService& clipboard_;
    FaultPlan& faults_;
};

// An opening fails with error 8005, another call with 8018.
class FaultyPort : public SerialPort {
public:
    FaultyPort(SerialPort& port, FaultPlan& faults) : port_(port), faults_(faults) {}

    void Open() override;
    void Close() override { port_.Close(); }
    bool IsOpen() const override { return port_.IsOpen(); }
    void Output(std::string_view text) override { Passed().Output(text); }
    double MillisecondsLeft() const override { return port_.MillisecondsLeft(); }
    double LeadTime() const override { return port_.LeadTime(); }
    std::string Input() override { return Passed().Input(); }
    std::string DeviceName(int number) const override { return port_.DeviceName(number); }

protected:
    void SettingsChanged() override { port_.SetSettings(Settings()); }

private:
    SerialPort& Passed() {
        faults_.Pass("port", fault::PortNotOpen);
        return port_;
    }

    SerialPort& port_;
    FaultPlan& faults_;
};

class FaultyPrinter : public PrinterService {
public:
    FaultyPrinter(PrinterService& printer, FaultPlan& faults) : printer_(printer), faults_(faults) {
        BeginRun();
    }
    // For a new run of the program: font and size as the printer has them.
    void BeginRun() {
        FontName = printer_.FontName;
        FontSize = printer_.FontSize;
    }

    std::vector<std::string> Fonts() override { return Passed().Fonts(); }
    void BeginJob(const PrintJob& job) override { printer_.BeginJob(job); }
    void ShowPrinter(PrinterDialog& dialog) override { Passed().ShowPrinter(dialog); }
    void Print(std::string_view line, PrintedLine what) override { Passed().Print(line, what); }
    void PrintDrawing(const PrintedDrawing& drawing) override { Passed().PrintDrawing(drawing); }
    void EndDocument() override { Passed().EndDocument(); }

private:
    PrinterService& Passed() {
        faults_.Pass("printer", fault::PrinterError);
        printer_.FontName = FontName;
        printer_.FontSize = FontSize;
        return printer_;
    }

    PrinterService& printer_;
    FaultPlan& faults_;
};

// To start and to launch a program may fail: error 53.
class FaultyPrograms : public ProgramService {
public:
    FaultyPrograms(ProgramService& programs, FaultPlan& faults) : programs_(programs), faults_(faults) {}

    int Start(std::string_view commandLine, std::string_view file) override {
        return Passed().Start(commandLine, file);
    }
    bool HasEnded(int program) override { return programs_.HasEnded(program); }
    bool WasCutOff(int program) override { return programs_.WasCutOff(program); }
    void End(int program) override { programs_.End(program); }
    bool Launch(std::string_view name) override { return Passed().Launch(name); }

private:
    ProgramService& Passed() {
        faults_.Pass("program", fault::FileNotFound);
        return programs_;
    }

    ProgramService& programs_;
    FaultPlan& faults_;
};

}  // namespace kvt
