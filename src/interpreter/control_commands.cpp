#include "interpreter/control_commands.h"

#include "basic/text.h"

namespace kvt {

namespace {

struct CommandName {
    const char* Word;
    ControlCommand Command;
};

constexpr CommandName commands[] = {
    {"cmdCOLOR", ControlCommand::Colour},    {"cmdINTERVAL", ControlCommand::Interval},
    {"cmdNOCHECK", ControlCommand::NoCheck}, {"cmdNORADIUS", ControlCommand::NoRadius},
    {"cmdNORENUM", ControlCommand::NoRenum}, {"cmdRADIUS", ControlCommand::Radius},
    {"cmdRUN", ControlCommand::Run},         {"cmdSKIP", ControlCommand::Skip},
    {"cmdSTEP", ControlCommand::Step},       {"cmdSTOP", ControlCommand::Stop},
    {"cmdWAIT", ControlCommand::Wait},
};

}  // namespace

ControlCommand ControlCommandOf(std::string_view comment) {
    if (comment.size() < 3 || !EqualIgnoringCase(comment.substr(0, 3), "CMD")) return ControlCommand::None;
    const std::string_view word = comment.substr(0, comment.find(' '));
    for (const CommandName& command : commands) {
        if (EqualIgnoringCase(word, command.Word)) return command.Command;
    }
    return ControlCommand::Unknown;
}

}  // namespace kvt
