#include "console/json_output.h"

namespace kvt {

void JsonSink::Flush() {
    std::fwrite(buffer_.get(), 1, used_, file_);
    used_ = 0;
}

}  // namespace kvt
