// Any bytes as a program file: load, check, write, load again. Whatever they are, the rows stay in order.

#include <cstdint>
#include <string>

#include "draw/svg.h"
#include "shell/workbench.h"
#include "support/map_files.h"

namespace {

using kvt::test::Demand;

// What holds after every load and every edit.
void DemandOrder(const kvt::Workbench& workbench) {
    const kvt::ListView& list = workbench.Store.lvCncProgram;
    Demand(list.Count() == workbench.Store.LineCount() + 1);
    Demand(list.SelectedRow() >= 1 && list.SelectedRow() <= list.Count());
    Demand(list.TopRow() >= 1 && list.TopRow() <= list.Count());
    // An empty program ends the run before the row of the error before is forgotten.
    if (workbench.Store.LineCount() > 0)
        Demand(workbench.Store.ErrorFlagged == (workbench.Store.ErrorRow != 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Nested calls can ask for a million lines; a larger text would spend the time on nothing new.
    if (size > (std::size_t{1} << 16)) return 0;
    kvt::test::DisklessPlatform platform;
    kvt::Workbench workbench(platform.Services);
    const auto load = [&](const std::string& text) {
        platform.Files.Content["program"] = text;
        std::string name = "program";
        return workbench.Reader.LoadFile(name) == kvt::LoadResult::Loaded;
    };

    if (!load(std::string(reinterpret_cast<const char*>(data), size))) {
        Demand(workbench.Store.LineCount() == 0);
        return 0;
    }
    DemandOrder(workbench);
    workbench.Writer.AddEndCode();
    Demand(workbench.Store.EndCodePresent);
    DemandOrder(workbench);
    if (load(workbench.Writer.GenerateAll())) DemandOrder(workbench);
    // Nobody looks on: what would never end is given up.
    platform.Memory.System.GiveUpAfter = 2000;
    platform.Memory.System.Watch(workbench.Draw.Controls.frmDraw);
    workbench.Draw.Show();
    const kvt::PictureBox& field = workbench.Draw.Controls.pbxDrawField;
    kvt::SvgOf(field.Operations(),
               {"", workbench.Draw.State.DrawScale, "", field.ScaleWidth(), field.ScaleHeight()});
    return 0;
}
