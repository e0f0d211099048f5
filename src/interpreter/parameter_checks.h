#pragma once

#include <cstdint>
#include <string>

#include "program/code_key.h"
#include "program/program_store.h"
#include "program/texts.h"

namespace kvt {

// The whole-number values of one row's parameter cells, in program units.
struct RowValues {
    std::int32_t X = 0, Y = 0, Z = 0, F = 0, H = 0;
};

// Checks one row's parameters against the limits of the machine: coordinates, then the F cell, then the H
// cell. Built once a run, for the machine, units and orientation in force.
class ParameterChecks {
public:
    ParameterChecks(const ProgramStore& store, const Texts& texts);

    // The message of the last failing test, in the order of the tables; empty for none.
    std::string Message(CodeKey key, const RowValues& values) const;

private:
    const LimitTable& limits_;
    const Texts& texts_;
    bool metric_;
    bool horizontal_;
    bool mill_;
};

}  // namespace kvt
