#pragma once

namespace kvt {

// Marks a walk, a pass or a transmission as standing on the stack, so that a handler which runs inside one
// of its waits can tell. Entered() is false where one stood already; then the flag is left as it is.
class StackGuard {
public:
    explicit StackGuard(bool& standing) : standing_(standing), entered_(!standing) { standing_ = true; }
    ~StackGuard() {
        if (entered_) standing_ = false;
    }
    StackGuard(const StackGuard&) = delete;
    StackGuard& operator=(const StackGuard&) = delete;

    bool Entered() const { return entered_; }

private:
    bool& standing_;
    bool entered_;
};

}  // namespace kvt
