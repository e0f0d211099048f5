#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace kvt {

// The machines: two generations of a lathe, and a mill.
enum class MachineModel : std::uint8_t { MK2, MK4, F1 };

enum class Units : std::uint8_t { Metric, Imperial };

constexpr Units UnitsOf(bool metric) { return metric ? Units::Metric : Units::Imperial; }

// The one table of the machines.
struct MachineFacts {
    MachineModel Model;
    const char* Name;     // in settings files, in the file names of pre-processors and for the user
    const char* Caption;  // of its option
    int MostLines;        // that its control holds, the end code included
};

// In the order in which the user sees them.
std::span<const MachineFacts> Machines();
const MachineFacts& FactsOf(MachineModel model);
inline std::string_view NameOf(MachineModel model) { return FactsOf(model).Name; }
// The machine of a name, case ignored; nothing for any other text.
std::optional<MachineModel> MachineNamed(std::string_view name);

}  // namespace kvt
