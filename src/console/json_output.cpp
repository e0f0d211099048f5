#include "console/json_output.h"

namespace kvt {

void JsonSink::Flush() {
    std::fwrite(buffer_.data(), 1, buffer_.size(), file_);
    buffer_.clear();
}

}  // namespace kvt
