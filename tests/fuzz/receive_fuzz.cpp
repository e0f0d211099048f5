// Any bytes from the wire, in any pieces: the view shows all but zero bytes; an import leaves a program, or the text.

#include <algorithm>
#include <cstdint>
#include <string>

#include "basic/text.h"
#include "files/recogniser.h"
#include "shell/workbench.h"
#include "support/map_files.h"

using kvt::test::Demand;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2 || size > (std::size_t{1} << 14)) return 0;
    kvt::test::DisklessPlatform platform;
    platform.Memory.Port.Ports = 1;
    kvt::Workbench workbench(platform.Services);
    workbench.Form_Load("");
    const std::size_t piece = data[0] + 1;
    const std::string wire(reinterpret_cast<const char*>(data + 1), size - 1);
    for (std::size_t at = 0; at < wire.size(); at += piece)
        Demand(platform.Memory.Port.Receive(wire.substr(at, piece)));

    std::string shown = wire;
    std::erase(shown, '\0');
    Demand(workbench.Transfer.frRXcode.Visible && workbench.Transfer.txtRX.Text.Get() == shown);
    workbench.Received.cmdReceiveImport_Click();
    if (workbench.Store.LineCount() > 0) {
        Demand(workbench.Store.ProgramChanged && workbench.File.lblPath.Caption.Empty());
    } else if (!kvt::Trim(shown).empty() &&
               kvt::Recognise(kvt::Trim(shown)).Kind != kvt::FileKind::Language) {
        Demand(kvt::Trim(workbench.Transfer.txtRX.Text.Get()) == kvt::Trim(shown));
    }
    return 0;
}
