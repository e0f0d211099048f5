#include "web/message.h"

#include <cmath>

#include "basic/code_page.h"

namespace kvt {

Message& Message::Put(std::string_view utf8) {
    writer_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
    return *this;
}

Message& Message::PutCode(std::string_view text) { return Put(std::string_view(ToUtf8(text))); }

Message& Message::PutShown(std::string_view text) { return Put(std::string_view(ShownToUtf8(text))); }

Message& Message::PutBytes(std::string_view bytes) {
    std::string utf8;
    utf8.reserve(bytes.size());
    for (const char byte : bytes) {
        const auto number = static_cast<unsigned char>(byte);
        if (number < 0x80) {
            utf8 += byte;
        } else {
            utf8 += static_cast<char>(0xC0 | number >> 6);
            utf8 += static_cast<char>(0x80 | (number & 0x3F));
        }
    }
    return Put(std::string_view(utf8));
}

Message& Message::Put(double number) {
    if (!std::isfinite(number)) return PutNothing();
    writer_.Double(number);
    return *this;
}

std::string_view Message::End() {
    if (!writer_.IsComplete()) writer_.EndObject();
    return {buffer_.GetString(), buffer_.GetSize()};
}

}  // namespace kvt
