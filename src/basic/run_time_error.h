#pragma once

#include <functional>
#include <string>
#include <utility>

#include "basic/failure.h"

namespace kvt {

// A failure of one statement, by its run-time number. The description is the run-time's own text.
struct RunTimeError : Failure {
    explicit RunTimeError(int number);
    RunTimeError(int number, std::string description);

    int Number;
};

namespace fault {
inline constexpr int InvalidCall = 5;
inline constexpr int Overflow = 6;
inline constexpr int SubscriptOutOfRange = 9;
inline constexpr int DivisionByZero = 11;
inline constexpr int TypeMismatch = 13;
inline constexpr int FileNotFound = 53;
inline constexpr int InputPastEnd = 62;
inline constexpr int PathFileAccess = 75;
inline constexpr int ObjectNotSet = 91;
inline constexpr int PrinterError = 482;
inline constexpr int InvalidPort = 8002;
inline constexpr int PortAlreadyOpen = 8005;
inline constexpr int PortNotOpen = 8018;
inline constexpr int Cancelled = 32755;
}  // namespace fault

// The text that belongs to a run-time number; "Application-defined or object-defined error" for others.
const char* RunTimeErrorText(int number);

using ErrorSink = std::function<void(const RunTimeError&, const char* procedure)>;

// Sets who is told of swallowed failures and gives back the one before. An empty sink drops them.
ErrorSink SetErrorSink(ErrorSink sink);

// Hands a failure to the sink under a procedure's name. Never throws.
void TellError(const RunTimeError& error, const char* procedure) noexcept;

// Runs one statement; a RunTimeError is reported under the procedure's name and swallowed, so that the
// next statement runs. Gives true when the statement went through.
template <class Statement>
bool Attempt(const char* procedure, Statement&& statement) {
    try {
        std::forward<Statement>(statement)();
        return true;
    } catch (const RunTimeError& error) {
        TellError(error, procedure);
        return false;
    }
}

}  // namespace kvt
