#include "program/machine.h"

#include "basic/text.h"

namespace kvt {

namespace {

constexpr MachineFacts machines[] = {
    {MachineModel::MK2, "MK2", "Compact5 CNC MK2", 160},
    {MachineModel::MK4, "MK4", "Compact5 CNC MK4", 210},
    {MachineModel::F1, "F1", "F1 CNC", 210},
};

}  // namespace

std::span<const MachineFacts> Machines() { return machines; }

// The rows are in the order of the models.
const MachineFacts& FactsOf(MachineModel model) { return machines[static_cast<std::size_t>(model)]; }

std::optional<MachineModel> MachineNamed(std::string_view name) {
    for (const MachineFacts& machine : machines) {
        if (EqualIgnoringCase(name, machine.Name)) return machine.Model;
    }
    return {};
}

}  // namespace kvt
