#pragma once

#include <array>

#include "files/settings_file.h"
#include "platform/menu_array.h"
#include "platform/services.h"
#include "program/program_store.h"
#include "program/texts.h"
#include "program/workbench_calls.h"
#include "shell/main_controls.h"

namespace kvt {

// The programs used last, with their machines, as entries of the File menu. The settings keep them.
class RecentFiles {
public:
    struct Parts {
        MainControls& Main;
        const ProgramStore& Store;
        const Texts& Language;
        Services& Platform;
        WorkbenchCalls& Calls;
    };
    explicit RecentFiles(const Parts& parts);

    static constexpr std::size_t Most = 8;

    // Opens a program when its entry is chosen.
    std::function<void(const std::string& path)> Open;

    // The keys "Recent1" to "Recent8", "F1, /path/of/the.cnc" each.
    void BindKeys(SettingsFile& keys);
    // A program of the machine in force has been opened or saved: it comes first.
    void Use(const std::string& path);
    // Leaves out those that can no longer be had.
    void LeaveOut(const std::function<bool(const std::string& path)>& isGone);

private:
    struct Program {
        std::string Machine, Path;
    };
    // A value without a machine that is known is error 13.
    void Apply(std::size_t place, const std::string& value);
    std::string ValueAt(std::size_t place) const;
    void mnuRecentFile_Click(std::size_t place);
    void Show();

    Parts parts_;
    MenuArray entries_;
    std::array<Program, Most> programs_;  // those without a path are none
};

}  // namespace kvt
