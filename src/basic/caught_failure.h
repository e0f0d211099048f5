#pragma once

namespace kvt {

// Tells the log of the exception that is being handled, whatever it is, under the name of a procedure.
void TellFailure(const char* procedure) noexcept;

}  // namespace kvt
