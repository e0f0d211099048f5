// Any bytes as a program file: load, check, write, load again. Whatever they are, the rows stay in order.

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>

#include "draw/svg.h"
#include "headless/memory_platform.h"
#include "shell/workbench.h"

namespace {

// Files in memory alone: the disk is no part of what is tried here.
class MapFiles : public kvt::FileService {
public:
    std::map<std::string, std::string, std::less<>> Content;

    bool Exists(std::string_view path) override { return Content.find(path) != Content.end(); }
    std::string ReadWhole(std::string_view path) override {
        const auto found = Content.find(path);
        if (found == Content.end()) throw kvt::RunTimeError(kvt::fault::FileNotFound);
        return found->second;
    }
    void WriteWhole(std::string_view path, std::string_view content) override {
        Content[std::string(path)] = std::string(content);
    }
    void Append(std::string_view path, std::string_view content) override {
        Content[std::string(path)] += std::string(content);
    }
    void Delete(std::string_view path) override { Content.erase(std::string(path)); }
    void MakeFolder(std::string_view) override {}
    std::vector<std::string> List(std::string_view, std::string_view) override { return {}; }
};

void Demand(bool condition) {
    if (!condition) std::abort();
}

// What holds after every load and every edit.
void DemandOrder(const kvt::Workbench& bench) {
    const kvt::ListView& list = bench.Store.lvCncProgram;
    Demand(list.Count() == bench.Store.LineCount() + 1);
    Demand(list.SelectedRow() >= 1 && list.SelectedRow() <= list.Count());
    Demand(list.TopRow() >= 1 && list.TopRow() <= list.Count());
    // An empty program ends the run before the row of the error before is forgotten.
    if (bench.Store.LineCount() > 0) Demand(bench.Store.ErrorFlagged == (bench.Store.ErrorRow != 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Nested calls can ask for a million lines; a larger text would spend the time on nothing new.
    if (size > (std::size_t{1} << 16)) return 0;
    MapFiles files;
    kvt::MemoryPlatform platform;
    kvt::Services services{files,           platform.Dialogs, platform.Clipboard,
                           platform.Screen, platform.System,  platform.Focus,
                           platform.Port,   platform.Printer, platform.Programs};
    kvt::Workbench bench(services);
    const auto load = [&](const std::string& text) {
        files.Content["program"] = text;
        std::string name = "program";
        return bench.Reader.LoadFile(name) == kvt::LoadResult::Loaded;
    };

    if (!load(std::string(reinterpret_cast<const char*>(data), size))) {
        Demand(bench.Store.LineCount() == 0);
        return 0;
    }
    DemandOrder(bench);
    bench.Writer.AddEndCode();
    Demand(bench.Store.EndCodePresent);
    DemandOrder(bench);
    if (load(bench.Writer.GenerateAll())) DemandOrder(bench);
    // Nobody looks on: what would never end is given up.
    platform.System.Patience = 2000;
    platform.System.Watch(bench.Draw.Controls.frmDraw);
    bench.Draw.Show();
    const kvt::PictureBox& field = bench.Draw.Controls.pbxDrawField;
    kvt::SvgOf(field.Operations(),
               {"", bench.Draw.State.DrawScale, "", field.ScaleWidth(), field.ScaleHeight()});
    return 0;
}
