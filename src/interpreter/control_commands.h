#pragma once

#include <string_view>

namespace kvt {

// The words that steer the drawing from a line's comment.
enum class ControlCommand {
    None,     // the comment does not begin with one
    Unknown,  // it begins like one, but no command has this name
    Colour,
    Interval,
    NoCheck,
    NoRadius,
    NoRenum,
    Radius,
    Run,
    Skip,
    Step,
    Stop,
    Wait,
};

// Looks at the first word of a comment, case ignored. Only the whole word counts; arguments are not looked at.
ControlCommand ControlCommandOf(std::string_view comment);

}  // namespace kvt
