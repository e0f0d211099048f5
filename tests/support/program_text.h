#pragma once

#include <string>
#include <vector>

namespace kvt::test {

// Texts of program files, made line by line. A cell is given as it stands in the file, prefix included.
struct Line {
    const char* Code;  // "00", "M06"
    std::string X = {}, Y = {}, Z = {}, F = {}, H = {}, Comment = {};
};

// A whole file of a machine ("MK2", "MK4", "F1"); units is the text of the units line behind its blanks.
std::string FileText(const std::string& machine, const std::vector<Line>& lines,
                     const std::string& units = "M", const std::string& notes = "");

}  // namespace kvt::test
