#pragma once

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/workbench_fixture.h"

namespace kvt::test {

// Lines written short: "90; 00 X2000 Z-50; M99 I300 K400". A letter says in which column the number stands;
// the prefix of the cell is what the file reader makes of it. A word that begins with "#" begins the comment.
inline std::vector<Line> Program(const std::string& text) {
    static std::set<std::string> codes;  // a Line only points to its code
    std::vector<Line> lines;
    std::istringstream rows(text);
    for (std::string row; std::getline(rows, row, ';');) {
        std::istringstream words(row);
        std::string word;
        words >> word;
        Line line{codes.insert(word).first->c_str()};
        while (words >> word) {
            if (word[0] == '#') {
                std::getline(words, line.Comment);
                line.Comment = word.substr(1) + line.Comment;
                break;
            }
            const auto in = [&](const char* letters) {
                return std::string(letters).find(word[0]) != std::string::npos;
            };
            (in("XIDR")  ? line.X
             : in("YJS") ? line.Y
             : in("ZK")  ? line.Z
             : in("FTL") ? line.F
                         : line.H) = word.substr(1);
        }
        lines.push_back(line);
    }
    return lines;
}

}  // namespace kvt::test
