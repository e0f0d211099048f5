#include "platform/operation_sources.h"

#include <algorithm>

namespace kvt {

void OperationSources::Begin(int source, float penX, float penY) {
    if (!opening_) {
        runs_.back().EndX = penX;
        runs_.back().EndY = penY;
    }
    source_ = source;
    opening_ = true;
}

void OperationSources::Open(std::size_t operation) {
    runs_.push_back({.FirstOperation = static_cast<std::uint32_t>(operation), .Source = source_});
    opening_ = false;
}

void OperationSources::Clear() {
    runs_.clear();
    opening_ = true;
}

const SourceRun* OperationSources::RunOf(std::size_t operation) const {
    const auto behind =
        std::upper_bound(runs_.begin(), runs_.end(), operation,
                         [](std::size_t place, const SourceRun& run) { return place < run.FirstOperation; });
    if (behind == runs_.begin()) return nullptr;
    const SourceRun& run = *std::prev(behind);
    return run.Source > 0 ? &run : nullptr;
}

std::size_t OperationSources::EndOf(const SourceRun& run, std::size_t operations) const {
    return &run == &runs_.back() ? operations : (&run + 1)->FirstOperation;
}

}  // namespace kvt
