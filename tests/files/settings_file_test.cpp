#include "files/settings_file.h"

#include "basic/text.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

TEST(SettingsFileTest, ABadValueCostsItselfOrWhatFollows) {
    const auto read = [](SettingsFile::BadValue after) {
        SettingsFile file("DRAW", DrawSettingKeys());
        bool radii = true;
        bool grid = true;
        file.Bind(
            "Radii", [&](const std::string& v) { radii = TrueOrFalse(v); },
            [&] { return TrueOrFalse(radii); });
        file.Bind(
            "grid", [&](const std::string& v) { grid = TrueOrFalse(v); }, [&] { return TrueOrFalse(grid); });
        file.Read("\xEF\xBB\xBF=\r\n Radii = False\r\nRadii=?\rGRID=False\r\nToolWidth=kept\n",
                  "LoadSettings", after);
        return file.Text();
    };
    EXPECT_EQ(
        read(SettingsFile::BadValue::SkipsItsLine),
        ";KVT 1.0.0 DRAW SETTINGS user file\r\n\r\n;Checks Draw Mode\r\nRadii=False\r\nToolWidth=kept\r\n"
        "ToolCenter=True\r\nFillCycles=False\r\nProgram=False\r\nGrid=False\r\nBackground=False\r\n"
        "AutoRedraw=True\r\n\r\n;Windows Parameters HLTW\r\nDrawWindow=9999, 9999, 9999, 9999\r\n"
        "ProgramWindow=3000, 0, 0, 11790, Inactive\r\nBeside=False\r\n\r\n;Colors and "
        "marks\r\nLegend=True\r\n"
        "DistinctColors=False\r\nHoleMarks=False\r\n");
    const std::string stopped = read(SettingsFile::BadValue::EndsTheReading);
    EXPECT_NE(stopped.find("Radii=False\r\nToolWidth=True\r\n"), std::string::npos);
    EXPECT_NE(stopped.find("\r\nGrid=True\r\n"), std::string::npos);
    SettingsFile file("DRAW", DrawSettingKeys());
    EXPECT_THROW(file.Bind("Gird", {}, {}), RunTimeError);
}

class StartTest : public WorkbenchFixture {
protected:
    // Starts the program in a data folder, with a command line; what it tells then.
    std::string Start(const std::string& data, const std::string& commandLine = {}) {
        Platform.System.DataFolder = data;
        Workbench->Form_Load(commandLine);
        std::string told;
        for (const MessageBox& box : Platform.Dialogs.Shown) told += box.Text + "|";
        Platform.Dialogs.Shown.clear();
        return told;
    }
};

TEST_F(StartTest, WithoutResetCopiesTheBuiltInValuesServe) {
    EXPECT_EQ(Start(Folder), "");
    EXPECT_TRUE(Workbench->frmMain.Visible);
    EXPECT_EQ(Workbench->frmMain.Left, 7500);
    EXPECT_EQ(Workbench->Store.LimitValues(limit::N499), 499);
    EXPECT_EQ(Workbench->Platform.Focus.Focused(), &Workbench->Entry.txtGMcode);
    Workbench->Main.mnuExit.Click();
    // The values at the first end are those of the reset copy, but for the place; a missing port is nobody's choice.
    InstallResetCopies(Platform.Files, Folder);
    const std::string folder = "EMCO/KVT_100/Settings/";
    const std::string reset = FileContent(folder + "SettingsEditorReset.txt");
    EXPECT_EQ(Replace(reset, "8720, 0, 0, 13800", "8720, 7500, 3740, 13800"),
              FileContent(folder + "SettingsEditor.txt"));
    Platform.Files.WriteWhole(Path(folder + "SettingsDrawReset.txt"), "own");
    InstallResetCopies(Platform.Files, Folder);
    EXPECT_EQ(FileContent(folder + "SettingsDrawReset.txt"), "own");
}

// The file on the command line opens all the same.
TEST_F(StartTest, AFolderThatCannotBeMadeIsToldOfOnceAtTheStart) {
    Platform.Files.WriteWhole(Path("file"), "");
    InstallResetCopies(Platform.Files, Path("file"));
    Platform.Files.WriteWhole(Path("part one.cnc"), FileText("F1", {{"M30"}}));
    EXPECT_EQ(Start(Path("file"), "\"" + Path("part one.cnc") + "\""),
              "Settings and unsaved programs cannot be kept. This folder cannot be written: " +
                  Path("file/EMCO/KVT_100/|"));
    // In the log each folder has its failure.
    const auto& records = Workbench->Log.Records();
    ASSERT_GE(records.size(), 3u);
    for (int folder = 0; folder < 3; ++folder) EXPECT_EQ(records[folder].Procedure, "Form_Load");
    EXPECT_EQ(Workbench->Store.Machine, MachineModel::F1);
    EXPECT_EQ(Workbench->Store.LineCount(), 1);
    EXPECT_EQ(Workbench->File.lblPath.Caption.Get(), Path("part one.cnc"));
    Workbench->Store.ProgramChanged = true;
    Platform.System.Watch(Workbench->frmMain);
    Platform.System.Advance(2000);
    Platform.Dialogs.Answers = {Answer::No};
    Workbench->Main.mnuExit.Click();
    ASSERT_EQ(Platform.Dialogs.Shown.size(), 1u);
    EXPECT_EQ(Platform.Dialogs.Shown[0].Text, "Do you want to save the open file now?");
    EXPECT_TRUE(Platform.System.Ended);
}

TEST_F(StartTest, SettingsOfAnyBytesStart) {
    const std::string folder = "EMCO/KVT_100/Settings/";
    Platform.Files.MakeFolder(Path(folder));
    std::string bytes;
    for (unsigned i = 0; i < 3'000'000; ++i) bytes += static_cast<char>((i * 2654435761u) >> 13);
    for (int i = 0; i < 100'000; ++i) bytes += "\rPort=\rFeedA=9e99\rGcode=x";
    bytes += "\r\nLanguageFileName=" + Path(folder + "SettingsEditor.txt") + "\r\nFeedB=7";
    Platform.Files.WriteWhole(Path(folder + "SettingsEditor.txt"), bytes);
    Platform.Files.WriteWhole(Path("EMCO/KVT_100/Recovery.txt"), bytes);
    EXPECT_EQ(Start(Folder), "");
    EXPECT_EQ(Workbench->Entry.txtFeedB.Text, "    7");
    EXPECT_LT(Workbench->Log.Records().size(), 400u);
    EXPECT_EQ(FileContent("EMCO/KVT_100/Recovery.old.txt"), bytes);
}

}  // namespace kvt::test
