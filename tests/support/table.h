#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basic/run_time_error.h"

namespace kvt::test {

// The fields of a case that is written as "one|two|three", so that tables of short texts stay short.
inline std::vector<std::string> Fields(std::string_view written) {
    std::vector<std::string> fields(1);
    for (const char c : written) {
        if (c == '|') {
            fields.emplace_back();
        } else {
            fields.back() += c;
        }
    }
    return fields;
}

// The number of the run-time error that a statement ends with, 0 for none.
template <class Statement>
int ErrorOf(Statement statement) {
    try {
        statement();
    } catch (const RunTimeError& error) {
        return error.Number;
    }
    return 0;
}

}  // namespace kvt::test
