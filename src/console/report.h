#pragma once

#include <string>
#include <vector>

namespace kvt {

// Writes one page about all files to OUT, in HTML that needs nothing from outside. The worst status of all files, as
// the check gives it.
int Report(const std::vector<std::string>& files, const std::string& out);

// A text as HTML has it, whatever it holds; in UTF-8.
std::string EscapedForHtml(std::string_view text);

}  // namespace kvt
