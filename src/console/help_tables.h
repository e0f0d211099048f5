#pragma once

#include <string>
#include <string_view>

namespace kvt {

// The tables of a help document, as HTML, from the tables that the program works by:
// "commands MK4", "ranges MK4" (every parameter of the machine) and "limits G01 MK4" (those of one code), with a
// language for their heads ("de", or English). Empty where the words name none of them.
std::string HelpTable(std::string_view words, std::string_view language);

}  // namespace kvt
