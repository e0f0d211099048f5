#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace kvt {

// A byte sink for JSON that hands its bytes on in large pieces, so that no state has to fit the memory whole.
class JsonSink {
public:
    using Ch = char;

    explicit JsonSink(std::FILE* file) : file_(file) { buffer_.reserve(Size); }
    ~JsonSink() { Flush(); }
    JsonSink(const JsonSink&) = delete;
    JsonSink& operator=(const JsonSink&) = delete;

    void Put(char c) {
        if (buffer_.size() == Size) Flush();
        buffer_.push_back(c);
    }
    // Hands on what is there.
    void Flush();

private:
    static constexpr std::size_t Size = std::size_t{64} << 10;
    std::FILE* file_;
    std::string buffer_;
};

}  // namespace kvt
