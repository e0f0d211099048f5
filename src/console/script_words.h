#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "basic/failure.h"

namespace kvt {

// What is wrong with a line of a script, so that it cannot be done.
struct ScriptError : Failure {
    using Failure::Failure;
};

// How an action takes its arguments from the line.
enum class Arg : std::uint8_t {
    None,
    Word,         // up to the next blank, or in double quotes
    Number,       // a whole number
    MaybeNumber,  // the same, may be missing
    Text,         // all that is left, without the blanks around it; in double quotes with them
    Line,         // all that is left, as it is
};
using Shape = std::array<Arg, 4>;

// The arguments of one line, in the order of its shape. Texts are UTF-8.
class Arguments {
public:
    // Names with their texts; "${NAME}" in an argument is replaced by the text.
    using Variables = std::vector<std::pair<std::string, std::string>>;

    // Reads what follows the action; a missing, superfluous or wrong argument is a ScriptError. In words
    // and texts \r, \n, \t, \0 and \\ are escapes; another backslash stays one.
    Arguments(std::string_view line, const Shape& shape, const Variables& variables);

    std::size_t Count() const { return values_.size(); }
    const std::string& Text(std::size_t argument) const { return values_.at(argument).Text; }
    int Number(std::size_t argument) const { return values_.at(argument).Number; }
    // The text that ends the line.
    const std::string& Last() const { return values_.back().Text; }

private:
    struct Value {
        std::string Text;
        int Number = 0;
    };
    std::vector<Value> values_;
};

// Takes the first word off a line, and the blanks on both sides of it.
std::string_view NextWord(std::string_view& line);

// A text as a script has it, in double quotes with its escapes.
std::string Quoted(std::string_view text);
// The escapes alone.
std::string Escaped(std::string_view text);

}  // namespace kvt
