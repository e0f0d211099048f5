#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/failure.h"

namespace kvt {

// A fault in the text of a document, with the number of its line.
struct HelpFault : Failure {
    HelpFault(int line, std::string what) : Failure(std::move(what)), Line(line) {}

    int Line;
};

// The text between the marks of a block, and what the block's first line says behind its mark.
struct HelpBlock {
    std::string Head;
    std::vector<std::string> Lines;
    int Line;  // of the first one
};

// What a document has besides text. Both give HTML and throw HelpFault.
struct HelpInserts {
    // A line "{{words}}".
    std::function<std::string(std::string_view words, int line)> Directive;
    // A block between "```example HEAD" and "```".
    std::function<std::string(const HelpBlock& block)> Example;
};

// A document as a page of HTML, in ASCII. The text is UTF-8: "#" headings with names behind them "{#G02 #G03}",
// paragraphs, lists ("- ", "1. "), tables ("| a | b |" with "|---|---|" under the heads), **bold**, *slanted*,
// `code` and [links](#name). Throws HelpFault.
std::string HelpPage(std::string_view text, const HelpInserts& inserts);

// A text (UTF-8) as HTML has it: marks and everything above ASCII as references.
std::string HtmlText(std::string_view utf8);

// A table of HTML from texts that are HTML; the first row has the heads.
std::string HtmlTable(const std::vector<std::vector<std::string>>& rows);

}  // namespace kvt
