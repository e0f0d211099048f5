#include "basic/local_time.h"

namespace kvt {

std::tm LocalNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    localtime_r(&now, &local);
    return local;
}

}  // namespace kvt
