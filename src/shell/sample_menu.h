#pragma once

#include <memory>
#include <vector>

#include "files/cnc_reader.h"
#include "platform/services.h"
#include "program/workbench_calls.h"
#include "shell/main_controls.h"

namespace kvt {

// The programs that come with the workbench, as entries of the File menu, by machine. One that is opened stands under
// its name in the user's own folder, where no file of it is yet: a save asks, and never goes to the sample.
class SampleMenu {
public:
    struct Parts {
        MainControls& Main;
        CncReader& Reader;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit SampleMenu(const Parts& parts) : parts_(parts) {}

    // Looks for the samples beside the program, whose folder ends in a separator, and in its share of the data. Those
    // whose names begin with that of a machine ("mk4_bolt.cnc") are offered.
    void Fill(const std::string& startFolder);

private:
    void AddGroup(MachineModel machine, const std::vector<std::string>& names);
    void mnuSample_Click(const std::string& name);

    Parts parts_;
    std::string folder_;
    std::vector<std::unique_ptr<Menu>> groups_, entries_;
};

}  // namespace kvt
