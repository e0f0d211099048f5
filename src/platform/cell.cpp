#include "platform/cell.h"

namespace kvt {

void Cell::AssignLong(std::string_view text) {
    char* copy = new char[text.size()];
    std::memcpy(copy, text.data(), text.size());
    const auto size = static_cast<std::uint32_t>(text.size());
    Drop();
    std::memcpy(bytes_, &copy, sizeof copy);
    std::memcpy(bytes_ + sizeof copy, &size, sizeof size);
    SetTag(OnHeap);
}

}  // namespace kvt
