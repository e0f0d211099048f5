#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kvt {

// Numbers of sources from First to Last, such as rows of a program. 0 is none.
struct SourceRange {
    int First = 0, Last = 0;
    bool Holds(int source) const { return source > 0 && source >= First && source <= Last; }
    bool operator==(const SourceRange&) const = default;
};

// Neighbouring operations of one source that were made in one go, and where the pen stood when it was through.
struct SourceRun {
    std::uint32_t FirstOperation = 0;
    std::int32_t Source = 0;
    float EndX = 0, EndY = 0;  // twips
};

// Which source each operation of a list came from. It keeps runs, 16 bytes each, not operations.
class OperationSources {
public:
    // What is added next comes from this source; where the pen stands is the end of what came before.
    void Begin(int source, float penX, float penY);
    // An operation of this place in the list was added.
    void Added(std::size_t operation) {
        if (opening_) Open(operation);
    }
    // The list was cleared; what is added next still comes from the same source.
    void Clear();

    // The run that an operation of the list belongs to; null for one without a source.
    const SourceRun* RunOf(std::size_t operation) const;
    // In the order of their operations, those without a source among them.
    std::span<const SourceRun> Runs() const { return runs_; }
    // Where the operations of a run end in a list of so many.
    std::size_t EndOf(const SourceRun& run, std::size_t operations) const;
    // Whether what a run stands for is still being drawn, so that it has no end yet.
    bool IsOpen(const SourceRun& run) const { return !opening_ && &run == &runs_.back(); }

private:
    void Open(std::size_t operation);

    std::vector<SourceRun> runs_;
    int source_ = 0;
    bool opening_ = true;  // the next operation begins a run
};

}  // namespace kvt
