#pragma once

#include <string>
#include <string_view>

namespace kvt {

// The tables of a help document, as HTML, from the tables that the program works by:
// "commands MK4", "ranges MK4" (every parameter of the machine) and "limits G01 MK4" (those of one code). A language
// module gives the words of another language; none is English. Empty where the words name no table.
std::string HelpTable(std::string_view words, const std::string& languageModule);

}  // namespace kvt
