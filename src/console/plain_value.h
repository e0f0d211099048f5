#pragma once

#include <string>
#include <variant>

namespace kvt {

// What a property of a control or a member of the state holds. Texts are of the program's code page.
using PlainValue = std::variant<bool, int, float, std::string>;

// A value as scripts write it: true and false, plain numbers, texts in UTF-8.
std::string TextOf(const PlainValue& value);

}  // namespace kvt
