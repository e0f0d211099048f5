#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>

#include "platform/controls.h"

namespace kvt {

// The calls that handlers put off until they have ended. The depth is the number of handlers on the stack.
class DeferredCalls {
public:
    struct Deferred {
        std::function<void()> Call;
        const Form* Asker;  // whose handler has put it off; null for none
        std::size_t Depth;
    };
    // Asked for outside of every handler, a call is due as soon as none is running.
    void Add(std::function<void()> call, std::size_t depth, const Form* asker = nullptr);
    bool IsEmpty() const { return deferred_.empty(); }
    // Takes the next call that is due at a depth. A handler further down the stack, in a wait, has not ended yet: what
    // it has put off waits for its end.
    std::optional<Deferred> TakeDue(std::size_t depth);

private:
    std::deque<Deferred> deferred_;
};

}  // namespace kvt
