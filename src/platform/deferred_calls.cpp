#include "platform/deferred_calls.h"

#include <algorithm>
#include <utility>

namespace kvt {

void DeferredCalls::Add(std::function<void()> call, std::size_t depth, const Form* asker) {
    deferred_.push_back({std::move(call), asker, std::max<std::size_t>(depth, 1)});
}

std::optional<DeferredCalls::Deferred> DeferredCalls::TakeDue(std::size_t depth) {
    const auto due = std::find_if(deferred_.begin(), deferred_.end(),
                                  [depth](const Deferred& one) { return one.Depth > depth; });
    if (due == deferred_.end()) return std::nullopt;
    Deferred taken = std::move(*due);
    deferred_.erase(due);
    return taken;
}

}  // namespace kvt
