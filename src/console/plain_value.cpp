#include "console/plain_value.h"

#include "basic/code_page.h"
#include "basic/number.h"

namespace kvt {

std::string TextOf(const PlainValue& value) {
    if (const bool* truth = std::get_if<bool>(&value)) return *truth ? "true" : "false";
    if (const int* whole = std::get_if<int>(&value)) return PlainNumber(*whole);
    if (const float* number = std::get_if<float>(&value)) return PlainNumber(*number);
    return ShownToUtf8(std::get<std::string>(value));
}

}  // namespace kvt
