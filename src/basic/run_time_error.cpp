#include "basic/run_time_error.h"

namespace kvt {

namespace {

struct ErrorText {
    int Number;
    const char* Text;
};

constexpr ErrorText errorTexts[] = {
    {fault::InvalidCall, "Invalid procedure call or argument"},
    {fault::Overflow, "Overflow"},
    {fault::SubscriptOutOfRange, "Subscript out of range"},
    {fault::DivisionByZero, "Division by zero"},
    {fault::TypeMismatch, "Type mismatch"},
    {fault::FileNotFound, "File not found"},
    {fault::InputPastEnd, "Input past end of file"},
    {fault::PathFileAccess, "Path/File access error"},
    {fault::ObjectNotSet, "Object variable not set"},
    {fault::PrinterError, "Printer error"},
    {fault::InvalidPort, "Invalid port number"},
    {fault::PortAlreadyOpen, "Port already open"},
    {fault::PortNotOpen, "Operation valid only when the port is open"},
    {fault::Cancelled, "Cancel was selected"},
};

ErrorSink& Sink() {
    static ErrorSink sink;
    return sink;
}

}  // namespace

RunTimeError::RunTimeError(int number) : Failure(RunTimeErrorText(number)), Number(number) {}

RunTimeError::RunTimeError(int number, std::string description)
    : Failure(std::move(description)), Number(number) {}

const char* RunTimeErrorText(int number) {
    for (const ErrorText& entry : errorTexts) {
        if (entry.Number == number) return entry.Text;
    }
    return "Application-defined or object-defined error";
}

ErrorSink SetErrorSink(ErrorSink sink) { return std::exchange(Sink(), std::move(sink)); }

void TellError(const RunTimeError& error, const char* procedure) noexcept {
    if (!Sink()) return;
    try {
        Sink()(error, procedure);
    } catch (...) {
        // The reporter never raises anything: a failure while it runs is dropped.
    }
}

}  // namespace kvt
