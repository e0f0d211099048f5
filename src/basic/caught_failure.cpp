#include "basic/caught_failure.h"

#include <exception>
#include <new>

#include "basic/run_time_error.h"

namespace kvt {

namespace {

constexpr int outOfMemory = 7;
constexpr int internalError = 51;

// What a failure of any kind is in the log.
RunTimeError CaughtNow() {
    try {
        throw;
    } catch (const RunTimeError& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return {outOfMemory, "Out of memory"};
    } catch (const std::exception& error) {
        return {internalError, error.what()};
    } catch (...) {
        return {internalError, "Internal error"};
    }
}

}  // namespace

void TellFailure(const char* procedure) noexcept {
    try {
        TellError(CaughtNow(), procedure);
    } catch (...) {
        // Not even memory for the description: nothing is left to tell.
    }
}

}  // namespace kvt
