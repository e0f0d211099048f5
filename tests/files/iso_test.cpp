#include <filesystem>
#include <fstream>
#include <sstream>
#include <tuple>

#include "basic/code_page.h"
#include "files/iso/converter.h"
#include "program/program_store.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

namespace fs = std::filesystem;

class IsoTest : public WorkbenchFixture {
protected:
    // The rows of a program, each as code, parameters with their letters and ">" comment.
    static std::string Rows(MachineModel machine, const std::string& text) {
        iso::Converter converter(machine);
        std::string all;
        for (const iso::Row& row : converter.Convert(iso::ReadBlocks(text)).Rows) {
            all += row.Code;
            for (std::size_t i = 0; i < 4; ++i) {
                if (row.Parameters[i])
                    all += std::string(" ") + "XYZF"[i] + std::to_string(*row.Parameters[i]);
            }
            all += "|";
        }
        return all;
    }
    std::string RefusalOf(MachineModel machine, const std::string& text) {
        try {
            Rows(machine, text);
        } catch (const iso::Refusal& refusal) {
            return std::to_string(refusal.Line) + " " + refusal.Description;
        }
        return "converted";
    }
};

// Runs the real program through the menu of the workbench, on what posts write. The check finds nothing.
TEST_F(IsoTest, SamplesOfPostsPassTheCheck) {
    // File, machine, lines, largest X, a radius on lathes, and least Z.
    const std::tuple<const char*, const char*, int, const char*, const char*> cases[] = {
        {"lathe_pin.nc", "MK4", 16, "1100", "-2500"},      {"lathe_cone_inch.ngc", "MK4", 13, "910", "-950"},
        {"lathe_quarters.nc", "MK4", 15, "1500", "-2200"}, {"lathe_quarters.nc", "MK2", 15, "1500", "-2200"},
        {"mill_plate.nc", "F1", 34, "3487", "-200"},       {"mill_letters_inch.ngc", "F1", 18, "1000", "-10"},
    };
    Workbench->Import.PreProcessorFolder = KVT_PREPROCESSORS "/";
    for (const auto& [file, machine, lines, xMax, zMin] : cases) {
        SCOPED_TRACE(std::string(file) + " " + machine);
        fs::copy_file(fs::path(KVT_SOURCE_DIR "/samples/iso") / file, Path(file),
                      fs::copy_options::overwrite_existing);
        Workbench->Store.Machine = MachineNamed(machine).value();
        Workbench->Import.RefreshPreProcessors();
        ASSERT_EQ(Workbench->Import.PreProcessorCount, 1);
        Platform.Dialogs.FileAnswers.push_back({false, Path(file)});
        Workbench->Import.mnuPP_Click(0);
        EXPECT_EQ(Workbench->Import.Window.frmPreProcessor.Caption.Get(), "PreProcessor Information");
        EXPECT_EQ(NameOf(Workbench->Store.Machine), machine);
        EXPECT_EQ(Workbench->Store.LineCount(), lines);
        EXPECT_EQ(Workbench->Results.lblXAxisMax.Caption.Get(), xMax);
        EXPECT_EQ(Workbench->Results.lblZAxisMin.Caption.Get(), zMin);
        EXPECT_FALSE(Workbench->Store.ErrorFlagged);
        EXPECT_EQ(Workbench->Store.ErrorRow, 0);
        EXPECT_EQ(Workbench->File.lblPath.Caption.Get(), Path(file));
    }
}

TEST_F(IsoTest, WordsBecomeRows) {
    const std::string lathe = "G21 G90\nG0 X40 Z10\n";
    const std::string mill = "G21 G90 G0 X0 Y0 Z10\n";
    const std::tuple<MachineModel, std::string, const char*> cases[] = {
        // Several codes in a block; the mode of motion stays; G91 and U are changes of the diameter.
        {MachineModel::MK4, lathe + "N5G1X20.Z0F80\nX18.005\nG91X2Z-1.5\nG90U-1W.5\nM30",
         "92 X4000 Z1000|01 X2000 Z0 F80|01 X1801 Z0 F80|01 X2001 Z-150 F80|01 X1901 Z-100 F80|M30|"},
        // Inches in a metric program; feed per turn; a radius of half a circle is two quarters.
        {MachineModel::MK4, lathe + "G0 X0 Z0\nG20 G95 S1000 G1 X1 F.005\nG21 G94 F50 G3 X45.4 Z-10 R10",
         "92 X4000 Z1000|00 X0 Z0|01 X2540 Z0 F127|03 X4540 Z-1000 F50|M30|"},
        // A way in three axes goes up first and down last. A full circle is four quarters.
        {MachineModel::F1, mill + "G0 X5 Y5 Z20\nG0 X1 Y0 Z2\nG2 X1 Y0 I-1 F50\nM2",
         "92 X0 Y0 Z1000|00 X0 Y0 Z2000|00 X500 Y500 Z2000|00 X100 Y0 Z2000|00 X100 Y0 Z200|"
         "02 X0 Y-100 Z200 F50|02 X-100 Y0 Z200 F50|02 X0 Y100 Z200 F50|02 X100 Y0 Z200 F50|M30|"},
        // 30 degrees to 120: cut at 90, each piece with its centre, from its own start.
        {MachineModel::F1, mill + "X8.66 Y5\nG3 X-5 Y8.66 R10 F60\n",
         "92 X0 Y0 Z1000|00 X866 Y500 Z1000|03 X0 Y1000 Z1000 F60|M99 X866 Y500 Z0|"
         "03 X-500 Y866 Z1000 F60|M99 X0 Y1000 Z0|M30|"},
        // The longer way of a negative radius: from 0 over 90 and 180 to 270 degrees.
        {MachineModel::F1, mill + "G3 X-10 Y-10 R-10 F60\n",
         "92 X0 Y0 Z1000|03 X-1000 Y1000 Z1000 F60|03 X-2000 Y0 Z1000 F60|03 X-1000 Y-1000 Z1000 F60|M30|"},
        {MachineModel::MK2, lathe + "T2 M3 S900\nM5\nM0\nM2", "92 X4000 Z1000|26 X0 Z0 F2|20|20|20|22|"},
    };
    for (const auto& [machine, text, rows] : cases) EXPECT_EQ(Rows(machine, text), rows) << text;
}

TEST_F(IsoTest, WhatTheMachineCannotDoIsRefusedByItsLine) {
    const std::string lathe = "G0 X40 Z10\n";
    const std::string mill = "G0 X0 Y0 Z10\n";
    const std::tuple<MachineModel, std::string, const char*> cases[] = {
        {MachineModel::MK4, lathe + "\nG42", "3 the compensation G42"},
        {MachineModel::MK4, lathe + "G1 X3", "2 no feed"},
        {MachineModel::MK4, lathe + "G1 Y3 F50", "2 a lathe has no Y"},
        {MachineModel::MK4, "G1 X3 F50", "1 the tool is to cut"},
        {MachineModel::MK4, lathe + "M4", "2 the spindle turns one way"},
        {MachineModel::MK4, lathe + "G2 X50 Z5 F50", "2 the arc has no centre"},
        {MachineModel::MK4, lathe + "G2 X50 Z5 I9 K9 F50", "2 the centre of the arc"},
        {MachineModel::MK4, lathe + "#1=5", "2 variables"},
        {MachineModel::MK4, lathe + "X1.2.3", "2 no number behind X"},
        {MachineModel::MK4, lathe + "X99999", "2 a number is too large"},
        {MachineModel::MK2, lathe + "G2 X46 Z10 R5 F50", "2 the MK2 turns whole quarter"},
        {MachineModel::F1, mill + "G1 X1 Y1 Z1 F50", "2 the machine moves two axes"},
        {MachineModel::F1, mill + "G2 X1 Y1 Z1 R5 F50", "2 the machine makes no arc while"},
        {MachineModel::F1, mill + "G81 X1 Y1 Z1 R5 F50", "2 the cycle G81"},
        {MachineModel::F1, mill + "G18", "2 this plane"},
        {MachineModel::F1, "(nothing)", "0 there is nothing"},
    };
    for (const auto& [machine, text, beginning] : cases)
        EXPECT_EQ(RefusalOf(machine, text).substr(0, std::string(beginning).size()), beginning) << text;
}

// What only the check of the machine finds: the axis is too short.
TEST_F(IsoTest, AFindingOfTheCheckBecomesTheErrorFile) {
    std::ofstream(Path("long.nc")) << "G0 X0 Y0 Z10\nM5\nG0 X250\n";
    MemoryPrograms& programs = Platform.Programs;
    const int program = programs.Start(KVT_PREPROCESSORS "/iso2emco.F1 " + Path("long.nc"), Path("long.nc"));
    ASSERT_TRUE(programs.HasEnded(program));
    EXPECT_EQ(FileContent("long.nc.~ppERR"),
              "Line 3: the machine does not take this (N02 00): X=19999maximum.\r\n");
    EXPECT_FALSE(fs::exists(Path("long.nc.~pp")));
}

// A name with several blanks, in the code page and beyond it, reaches pre-processor, labels and the next save whole.
TEST_F(IsoTest, AnyNameComesThroughAnImport) {
    Workbench->Store.Machine = MachineModel::F1;
    PreProcessor& import = Workbench->Import;
    import.PreProcessorFolder = KVT_PREPROCESSORS "/";
    import.RefreshPreProcessors();
    for (const char* name : {"a  b   c.nc", " \xC3\xBC \xC3\x9F.nc", "\xE9\x9B\xB6 \xC3\xBC  5.nc"}) {
        std::ofstream(Path(name)) << "G0 X0 Y0 Z10\nM5\nG0 X25\n";
        // What stands there already: links to what is not to be touched, or is not there.
        std::ofstream(Path("other")) << "other";
        fs::create_symlink(Path("other"), Path(name) + ".~pp");
        fs::create_symlink(Path("nothing"), Path(name) + ".~ppINFO");
        const std::string path = NameFromSystem(Path(name));
        MemoryPrograms& programs = Platform.Programs;
        ASSERT_TRUE(programs.HasEnded(programs.Start(KVT_PREPROCESSORS "/iso2emco.F1 " + path, path)));
        EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(Path(name) + ".~pp"))) << name;
        EXPECT_EQ(FileContent("other"), "other");
        EXPECT_FALSE(fs::exists(Path("nothing")));

        Platform.Dialogs.Shown.clear();
        Platform.Dialogs.FileAnswers = {{false, path}};
        import.mnuPP_Click(0);
        EXPECT_TRUE(Platform.Dialogs.Shown.empty()) << name;
        EXPECT_EQ(Workbench->File.lblPath.Caption.Get(), path);
        EXPECT_EQ(Workbench->Store.LineCount(), 4) << name;
        const std::string saved = path.substr(0, path.size() - 3) + ".cnc";
        Platform.Dialogs.FileAnswers = {{false, saved}};
        Workbench->Writer.mnuSave_Click();
        EXPECT_TRUE(fs::exists(fs::path(Path(name)).replace_extension(".cnc"))) << name;
        EXPECT_EQ(Workbench->File.lblPath.Caption.Get(), saved);
    }
}

}  // namespace

}  // namespace kvt::test
