// The budget: what the operator waits for after every change, and what a batch costs a file.

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "basic/number.h"
#include "console/state.h"
#include "headless/memory_platform.h"
#include "programs.h"
#include "shell/workbench.h"

namespace kvt::bench {

namespace {

const char* const machines[] = {"MK2", "MK4", "F1"};

// A file of its own that goes with it.
class ProgramFile {
public:
    explicit ProgramFile(const std::string& text) {
        std::string pattern = (std::filesystem::temp_directory_path() / "kvt-bench-XXXXXX").string();
        folder_ = mkdtemp(pattern.data());
        MemoryPlatform().Files.WriteWhole(Path(), text);
    }
    ~ProgramFile() { std::filesystem::remove_all(folder_); }
    std::string Path() const { return folder_ + "/program.cnc"; }

private:
    std::string folder_;
};

// A workbench with a program in it.
struct Loaded {
    explicit Loaded(const std::string& text)
        : File(text), Workbench(std::make_unique<kvt::Workbench>(Platform.Services)) {
        Load();
    }
    void Load() {
        std::string path = File.Path();
        Workbench->Reader.LoadFile(path);
    }
    ProgramFile File;
    MemoryPlatform Platform;
    std::unique_ptr<kvt::Workbench> Workbench;
};

void CheckPass210(benchmark::State& state) {
    Loaded loaded(ProgramText(machines[state.range(0)], 210));
    if (!(loaded.Workbench->Results.lblPPLinesExe.Caption == "210"))
        state.SkipWithError("not every line has run");
    for (auto _ : state) loaded.Workbench->Interpreter.Interpreter();
    state.SetLabel(machines[state.range(0)]);
}
BENCHMARK(CheckPass210)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

void CheckPassGrowth(benchmark::State& state) {
    Loaded loaded(ProgramText("MK4", static_cast<int>(state.range(0))));
    loaded.Workbench->Store.DisableLimitsCheck = true;
    loaded.Workbench->Store.LimitValues.Fill(true);
    for (auto _ : state) loaded.Workbench->Interpreter.Interpreter();
}
BENCHMARK(CheckPassGrowth)->Arg(200)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);

// What any pass has to pay in bare work: for 210 rows clear the ten result cells, read five numbers, write ten
// short texts.
void Yardstick210(benchmark::State& state) {
    Loaded loaded(ProgramText("MK4", 210));
    ListView& list = loaded.Workbench->Store.lvCncProgram;
    for (auto _ : state) {
        for (int i = 1; i <= 210; ++i) {
            ListRow& row = list.Row(i);
            for (int c = column::Error; c <= column::Time; ++c) row[c] = "      ";
            int sum = 0;
            for (int c = column::X; c <= column::H; ++c) {
                const std::string_view cell = row[c];
                const std::size_t digits = cell.find_first_of("0123456789");
                int value = 0;
                if (digits != std::string_view::npos) {
                    std::from_chars(cell.data() + digits, cell.data() + cell.size(), value);
                }
                sum += value;
            }
            char text[16];
            for (int c = column::Error; c <= column::Time; ++c) {
                const auto end = std::to_chars(text, text + sizeof text, sum + c).ptr;
                row[c] = std::string_view(text, static_cast<std::size_t>(end - text));
            }
            benchmark::DoNotOptimize(row);
        }
    }
}
BENCHMARK(Yardstick210)->Unit(benchmark::kMicrosecond);

void Load210(benchmark::State& state) {
    Loaded loaded(ProgramText(machines[state.range(0)], 210));
    for (auto _ : state) loaded.Load();
    state.SetLabel(machines[state.range(0)]);
}
BENCHMARK(Load210)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

// A step back and forward, of one line and of all of them; the check is part of each.
void Undo210(benchmark::State& state) {
    Loaded loaded(ProgramText("MK4", 209));
    Workbench& bench = *loaded.Workbench;
    bench.History.Start();
    const bool all = state.range(0) != 0;
    if (all) {
        bench.Machine.mnuMMtoINCH.Click();
    } else {
        bench.Store.lvCncProgram.Select(100);
        bench.Entry.chkSettingsDWC.Value = 1;
        bench.Lines.LineDelete();
    }
    if (bench.History.Steps() != 1) state.SkipWithError("there is no step");
    for (auto _ : state) {
        bench.Main.mnuUndo.Click();
        bench.Main.mnuRedo.Click();
    }
    state.SetLabel(all ? "conversion, twice" : "line, twice");
}
BENCHMARK(Undo210)->DenseRange(0, 1)->Unit(benchmark::kMicrosecond);

// A line that is inserted, with what its step costs.
void Insert209(benchmark::State& state) {
    Loaded loaded(ProgramText("MK4", 209));
    Workbench& bench = *loaded.Workbench;
    bench.Store.DisableLimitsCheck = true;
    bench.History.Start();
    for (auto _ : state) {
        bench.Store.lvCncProgram.Select(100);
        bench.Lines.LineInsert();
        bench.Main.mnuUndo.Click();
    }
}
BENCHMARK(Insert209)->Unit(benchmark::kMicrosecond);

void Write210(benchmark::State& state) {
    Loaded loaded(ProgramText(machines[state.range(0)], 210));
    for (auto _ : state) benchmark::DoNotOptimize(loaded.Workbench->Writer.GenerateAll());
    state.SetLabel(machines[state.range(0)]);
}
BENCHMARK(Write210)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);

// One file of a batch: a fresh workbench, load, check, the whole state as JSON.
void CheckJson210(benchmark::State& state) {
    const ProgramFile file(ProgramText("MK4", 210));
    std::FILE* nowhere = std::fopen("/dev/null", "w");
    JsonSink out(nowhere);
    for (auto _ : state) {
        MemoryPlatform platform;
        Workbench workbench(platform.Services);
        std::string path = file.Path();
        workbench.Reader.LoadFile(path);
        WriteState(out, path, workbench, platform.Dialogs);
    }
    out.Flush();
    std::fclose(nowhere);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(CheckJson210)->Unit(benchmark::kMicrosecond);

// One full Redraw, grid and zero point with it, as every edit asks for it.
void Draw(benchmark::State& state, const char* machine, int lines) {
    Loaded loaded(ProgramText(machine, lines));
    DrawWindow& draw = loaded.Workbench->Draw;
    draw.Show();
    for (auto _ : state) draw.Redraw();
    state.SetLabel(std::string(machine) + ", " +
                   std::to_string(draw.Controls.pbxDrawField.Operations().size()) + " operations");
}
void Draw210(benchmark::State& state) { Draw(state, machines[state.range(0)], 210); }
BENCHMARK(Draw210)->DenseRange(0, 2)->Unit(benchmark::kMicrosecond);
void DrawGrowth(benchmark::State& state) { Draw(state, "MK4", static_cast<int>(state.range(0))); }
BENCHMARK(DrawGrowth)->Arg(2000)->Arg(20000)->Unit(benchmark::kMicrosecond);

void FreshWorkbench(benchmark::State& state) {
    MemoryPlatform platform;
    for (auto _ : state) Workbench workbench(platform.Services);
}
BENCHMARK(FreshWorkbench)->Unit(benchmark::kMicrosecond);

}  // namespace

}  // namespace kvt::bench
