#pragma once

#include <exception>
#include <functional>
#include <string>
#include <utility>

namespace kvt {

// What every failure of the program is, so that one catch at each way in meets them all. The description tells a
// user what went wrong.
struct Failure : std::exception {
    explicit Failure(std::string description) : Description(std::move(description)) {}
    const char* what() const noexcept override { return Description.c_str(); }

    std::string Description;
};

// Runs what a main function does and gives its status. A failure that comes out of it is told on standard error, in
// one line behind the name, and gives the status failed.
int RunMain(const std::string& name, int failed, const std::function<int()>& body);

}  // namespace kvt
