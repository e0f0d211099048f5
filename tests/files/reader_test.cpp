#include <filesystem>

#include "basic/text.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

const std::string mk4Head = "%\r\n    N` G`   X `    Z `  F`  H \r\n";

class ReaderTest : public WorkbenchFixture {
protected:
    ProgramStore& Store() { return Workbench->Store; }
    std::string Caption(const Label& label) const { return label.Caption.Get(); }
    const std::vector<MessageBox>& Shown() const { return Platform.Dialogs.Shown; }
    // A program with one line changed and a name, as an editing user has it.
    void Edited(const std::string& name = "old.cnc") {
        ASSERT_EQ(Load(mk4Head + "    00M30                        OLD\r\n   M\r\n", name),
                  LoadResult::Loaded);
        Store().ProgramChanged = true;
    }
};

}  // namespace

TEST_F(ReaderTest, TheNameIsTakenAndTheDialogFollowsIt) {
    FileDialog& dialog = Workbench->File.dlgFile;
    dialog.Filter = "left by an earlier operation";
    const std::string program = FileText("MK4", {{"M30"}});
    Platform.Files.WriteWhole(Path("a.cnc"), program);
    // By the dialog: the filter is the one that was left.
    std::string name;
    Platform.Dialogs.FileAnswers = {{false, Path("a.cnc")}};
    EXPECT_EQ(Workbench->Reader.LoadFile(name), LoadResult::Loaded);
    EXPECT_EQ(dialog.Filter, "left by an earlier operation");
    EXPECT_EQ(Caption(Workbench->File.lblPath), Path("a.cnc"));
    EXPECT_EQ(Caption(Workbench->File.lblFileName), "");
    // By name: the argument is cleared, the dialog holds name and filter.
    Platform.Files.WriteWhole(Path("b.CNC.~PP.~pp"), program);
    name = Path("b.CNC.~PP.~pp");
    EXPECT_EQ(Workbench->Reader.LoadFile(name), LoadResult::Loaded);
    EXPECT_EQ(name, "");
    EXPECT_EQ(dialog.FileName, Path("b.CNC.~PP.~pp"));
    EXPECT_EQ(dialog.Filter, "cnc files (*.txt or *.cnc or *.c5n)|*.cnc;*.txt;*.c5n|All Files (*.*)|*.*|");
    EXPECT_EQ(Caption(Workbench->File.lblPath), Path("b.CNC"));
    EXPECT_EQ(Workbench->Store.lvCncProgram.SelectedRow(), 1);
    EXPECT_EQ(Cell(1, column::Number), "NN");
    EXPECT_EQ(Cell(1, column::Comment), " ");
}

TEST_F(ReaderTest, WhatCannotBeReadLeavesTheProgram) {
    Edited();
    // Missing, or a cancelled dialog, plain or by its error: not a word.
    std::string name = Path("missing.cnc");
    EXPECT_EQ(Workbench->Reader.LoadFile(name), LoadResult::Nothing);
    EXPECT_EQ(name, "");
    for (const bool cancelError : {false, true}) {
        Workbench->File.dlgFile.CancelError = cancelError;
        Platform.Dialogs.FileAnswers = {{true, ""}};
        EXPECT_EQ(Workbench->Reader.LoadFile(name), LoadResult::Nothing);
    }
    Workbench->File.dlgFile.CancelError = false;
    Platform.Dialogs.FileAnswers = {{false, ""}};
    EXPECT_EQ(Workbench->Reader.LoadFile(name), LoadResult::Nothing);
    EXPECT_TRUE(Shown().empty());
    // A folder, and a disk that fails: error 75, and a box that names the file.
    std::filesystem::create_directory(Path("folder.cnc"));
    Platform.Files.WriteWhole(Path("torn.cnc"), "%\r\n   N00 G22\r\n");
    for (const std::string bad : {"folder.cnc", "torn.cnc"}) {
        if (bad == "torn.cnc") Platform.Faults.Fail("file", 1);
        name = Path(bad);
        const std::size_t records = Workbench->Log.Records().size();
        Platform.Dialogs.Shown.clear();
        EXPECT_EQ(Workbench->Reader.LoadFile(name), LoadResult::Unreadable);
        ASSERT_EQ(Shown().size(), 1u);
        EXPECT_NE(Shown()[0].Text.find(bad), std::string::npos);
        ASSERT_EQ(Workbench->Log.Records().size(), records + 1);
        EXPECT_EQ(Workbench->Log.Records().back().Number, fault::PathFileAccess);
        EXPECT_EQ(Workbench->Log.Records().back().Procedure, "LoadFile");
    }
    EXPECT_EQ(Cell(0, column::Comment), "OLD");
    EXPECT_TRUE(Store().ProgramChanged);
    EXPECT_EQ(Caption(Workbench->File.lblPath), Path("old.cnc"));
}

}  // namespace kvt::test
