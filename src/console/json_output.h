#pragma once

#include <cstdio>
#include <memory>

namespace kvt {

// A byte sink for JSON that hands its bytes on in large pieces, so that no state has to fit the memory whole.
class JsonSink {
public:
    using Ch = char;

    explicit JsonSink(std::FILE* file) : file_(file), buffer_(std::make_unique<char[]>(Size)) {}
    ~JsonSink() { Flush(); }
    JsonSink(const JsonSink&) = delete;
    JsonSink& operator=(const JsonSink&) = delete;

    void Put(char c) {
        if (used_ == Size) Flush();
        buffer_[used_++] = c;
    }
    // Hands on what is there.
    void Flush();

private:
    static constexpr std::size_t Size = std::size_t{64} << 10;
    std::FILE* file_;
    std::unique_ptr<char[]> buffer_;
    std::size_t used_ = 0;
};

}  // namespace kvt
