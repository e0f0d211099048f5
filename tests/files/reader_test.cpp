#include <filesystem>

#include "basic/text.h"
#include "support/bench_fixture.h"

namespace kvt::test {

namespace {

const std::string mk4Head = "%\r\n    N` G`   X `    Z `  F`  H \r\n";
const std::string f1Head = "%\r\n    N` G`  X  `  Y `   Z ` F  \r\n";

class ReaderTest : public BenchTest {
protected:
    // Cells of a row joined by "|", columns 1 to 7 and the comment.
    std::string Row(int line) const {
        std::string joined;
        for (int c = column::Number; c <= column::H; ++c) joined += Cell(line, c) + "|";
        return joined + Cell(line, column::Comment);
    }
    ProgramStore& Store() { return Bench->Store; }
    std::string Caption(const Label& label) const { return label.Caption.Get(); }
    const std::vector<MessageBox>& Shown() const { return Platform.Dialogs.Shown; }
    // "number procedure" of each record, joined by blanks.
    std::string Log() const {
        std::string log;
        for (const ErrorLog::Record& one : Bench->Log.Records())
            log += std::to_string(one.Number) + " " + one.Procedure + " ";
        return log;
    }
    // A program with one line changed and a name, as an editing user has it.
    void Edited(const std::string& name = "old.cnc") {
        ASSERT_EQ(Load(mk4Head + "    00M30                        OLD\r\n   M\r\n", name),
                  LoadResult::Loaded);
        Store().ProgramChanged = true;
    }
};

struct LineCase {
    const char* What;
    std::string Machine, Line, Row;
};

}  // namespace

TEST_F(ReaderTest, EveryColumnOfARecordGoesToItsCell) {
    const LineCase cases[] = {
        {"all columns", "MK2", "   N00 G00 X-1234 Z-12345 F678 remark", " 00| 00 |-1234||-12345|678||remark"},
        {"fillers are not read", "MK2", "abcN00xy91zzX   7zzZ    8zz  9z", " 00| 91 |X   7||Z    8|  9||"},
        {"all columns", "MK4", "   123 00 -1234 -12345F678 910  remark",
         "123| 00 |-1234||-12345|F678|910|remark"},
        {"fillers are not read", "MK4", "abc 00 91z    7z     8   9z 10zremark",
         " 00| 91 |   07||    08|  09| 10|remark"},
        {"numbers are filled and rounded", "MK4", "   1   91  7     8     9   1  ",
         " 01| 91 |   07||    08|  09| 01|"},
        {"halves away from zero", "MK4", "    00 91  12.5   -2.5 .5     ",
         " 00| 91 |   13||   -03|  01|   |"},
        {"no number stays, blanks too", "MK4", "    00 91 -  ab      -   x 1 2",
         " 00| 91 |-  ab||     -|   x|1 2|"},
        {"all columns", "F1", "   123 00-12345-1234-12345F678 remark",
         "123| 00 |-12345|-1234|-12345|F678||remark"},
        {"numbers are filled", "F1", "     7 91 7     8    9     1   ",
         " 07| 91 |    07|   08|    09|  01||"},
    };
    for (const LineCase& one : cases) {
        const std::string head = one.Machine == "MK2"   ? "%\r\n   N00 G21\r\n"
                                 : one.Machine == "MK4" ? mk4Head
                                                        : f1Head;
        const int line = one.Machine == "MK2" ? 1 : 0;
        ASSERT_EQ(Load(head + one.Line + "\r\n   M\r\n"), LoadResult::Loaded);
        EXPECT_EQ(NameOf(Store().Machine), one.Machine);
        EXPECT_EQ(Row(line), one.Row) << one.Machine << ": " << one.What;
    }
}

TEST_F(ReaderTest, CodesForceTheirPrefixes) {
    // Every prefix in the file is "?": what the code does not force stays.
    struct Case {
        const char *Machine, *Code, *X, *Y, *Z, *F;
    };
    const Case cases[] = {
        {"MK4", "M99", "I  01", "", "K   02", "? 03"},
        {"MK4", " 25", "?  01", "", "?   02", "L 03"},
        {"MK4", " 27", "?  01", "", "?   02", "L 03"},
        {"MK4", " 33", "?  01", "", "?   02", "K 03"},
        {"MK4", " 78", "?  01", "", "?   02", "K 03"},
        {"MK4", "M06", "?  01", "", "?   02", "T 03"},
        {"MK4", "m06", "?  01", "", "?   02", "T 03"},
        {"MK4", " 01", "?  01", "", "?   02", "? 03"},
        {"F1", "M99", "I   01", "J  04", "K   02", "? 03"},
        {"F1", " 25", "?   01", "?  04", "?   02", "L 03"},
        {"F1", " 27", "?   01", "?  04", "?   02", "L 03"},
        {"F1", "M06", "D   01", "S  04", "?   02", "T 03"},
        {"F1", " 33", "?   01", "?  04", "?   02", "? 03"},
    };
    for (const Case& one : cases) {
        const bool mill = std::string(one.Machine) == "F1";
        const std::string code = one.Code;
        const std::string line =
            mill ? "    00" + code + "?    1?   4?    2?  3 " : "    00" + code + " ?   1 ?    2?  3    ";
        ASSERT_EQ(Load((mill ? f1Head : mk4Head) + line + "\r\n   M\r\n"), LoadResult::Loaded);
        EXPECT_EQ(Cell(0, column::Code), code + " ");
        EXPECT_EQ(Cell(0, column::X), one.X) << one.Machine << code;
        EXPECT_EQ(Cell(0, column::Y), one.Y) << one.Machine << code;
        EXPECT_EQ(Cell(0, column::Z), one.Z) << one.Machine << code;
        EXPECT_EQ(Cell(0, column::F), one.F) << one.Machine << code;
    }
}

TEST_F(ReaderTest, TheUnitsLineSetsUnitsAndOrientationAndEndsTheWalk) {
    struct Case {
        const char *Machine, *Units, *Label;
        bool Metric, Horizontal;
    };
    const Case cases[] = {
        {"MK2", "M", "1/100 mm", true, false},    {"MK2", "m", "1/100 mm", true, false},
        {"MK2", "\"", "1/1000 \"", false, false}, {"MK4", "M", "1/100 mm", true, false},
        {"MK4", "m", "1/100 mm", true, false},    {"MK4", "\"", "1/1000 \"", false, false},
        {"F1", "M", "V 1/100 mm", true, false},   {"F1", "\"", "V 1/1000 \"", false, false},
        {"F1", "M-", "H 1/100 mm", true, true},   {"F1", "\"-", "H 1/1000 \"", false, true},
        {"F1", "mi", "V 1/100 mm", true, false},  {"F1", "\"I", "V 1/1000 \"", false, false},
    };
    MachineControls& controls = Bench->Machine;
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.Machine) + " " + one.Units);
        controls.SetUnits(UnitsOf(!one.Metric));
        Store().Horizontal = std::string(one.Machine) == "F1" && !one.Horizontal;
        const char* end = std::string(one.Machine) == "MK2" ? "22" : "M30";
        const std::string behind = "   N01 G00 X     Z       F    \r\n";
        ASSERT_EQ(Load(FileText(one.Machine, {{end}}, one.Units) + behind), LoadResult::Loaded);
        EXPECT_EQ(Store().LineCount(), 1);
        EXPECT_EQ(Store().Metric, one.Metric);
        EXPECT_EQ(Store().Horizontal, one.Horizontal);
        EXPECT_EQ(Caption(controls.lblPPUnits), one.Label);
        EXPECT_EQ(controls.mnuINCHtoMM.Enabled.Get(), !one.Metric);
        EXPECT_EQ(controls.mnuMMtoINCH.Enabled.Get(), one.Metric);
        EXPECT_EQ(controls.optSettingsInch.Value.Get(), !one.Metric);
        EXPECT_EQ(controls.optSettingsHmm.Value.Get(), one.Horizontal && one.Metric);
        EXPECT_EQ(controls.optSettingsVinch.Value.Get(), !one.Horizontal && !one.Metric);
    }
}

TEST_F(ReaderTest, RecognitionTakesTheFirstMarkInItsOrder) {
    const std::string f1 = "    n` g`  x  `  y `   z";
    const std::string mk4 = "    n` g`   x `    z";
    const struct {
        std::string Text;
        const char* Machine;
    } cases[] = {
        {"%\r\n" + f1 + "\r\n    00m30\r\n   m\r\n", "F1"},
        {"%\r\n" + mk4 + "\r\n    00m30\r\n   m\r\n", "MK4"},
        {f1 + "\r\n%\r\n" + mk4 + "\r\n    00M30\r\n   M\r\n", "MK4"},
        {"%\r\n" + mk4 + "\r\n   n00 g22\r\n   M\r\n", "MK2"},
        {"[Kestrel Vise Toolkit, Language Resource]\r\n%\r\n   N00 G22\r\n   M\r\n", "MK2"},
    };
    for (const auto& one : cases) {
        Store().Machine = one.Machine == std::string("F1") ? MachineModel::MK2 : MachineModel::F1;
        ASSERT_EQ(Load(one.Text), LoadResult::Loaded);
        EXPECT_EQ(NameOf(Store().Machine), one.Machine);
        EXPECT_EQ(Store().LineCount(), 1);
    }
}

TEST_F(ReaderTest, ALanguageModuleIsHandedOnAndTheProgramStays) {
    Edited();
    std::string given;
    Bench->Calls.LoadLanguageModule = [&](const std::string& name) { given = name; };
    EXPECT_EQ(Load(";x\r\n[kestrel vise toolkit, language resource]\r\n", "german.txt"),
              LoadResult::LanguageModule);
    EXPECT_EQ(given, Path("german.txt"));
    EXPECT_EQ(Cell(0, column::Comment), "OLD");
    EXPECT_TRUE(Store().ProgramChanged);
    EXPECT_TRUE(Shown().empty());
}

TEST_F(ReaderTest, AnUnknownFileIsToldAndLeavesEverything) {
    Edited();
    for (const std::string text : {"", "%", "G00 X1 Z2\r\nM30\r\n", "%!*\r\n"}) {
        Platform.Dialogs.Shown.clear();
        EXPECT_EQ(Load(text, "strange.nc"), LoadResult::NotRecognised);
        ASSERT_EQ(Shown().size(), 1u);
        EXPECT_EQ(Shown()[0].Text,
                  "The file \"strange.nc\"  does not appear to be an Emco CNC formatted file");
        EXPECT_EQ(Shown()[0].Title, "File Recognizing Problem");
        EXPECT_EQ(Shown()[0].Picture, Icon::Exclamation);
        EXPECT_EQ(Shown()[0].Choice, Buttons::Ok);
        EXPECT_EQ(NameOf(Store().Machine), "MK4");
        EXPECT_EQ(Cell(0, column::Comment), "OLD");
        EXPECT_EQ(Caption(Bench->File.lblPath), Path("old.cnc"));
        EXPECT_TRUE(Store().ProgramChanged);
        EXPECT_EQ(Log(), "");
    }
}

TEST_F(ReaderTest, ThePlaceOfAnMK2LineDecidesItsHundreds) {
    std::vector<Line> lines(150, Line{"21"});
    lines.back().Code = "22";
    Check("MK2", lines);
    ASSERT_EQ(Store().LineCount(), 150);
    EXPECT_EQ(Cell(0, column::Number), " 00");
    EXPECT_EQ(Cell(99, column::Number), " 99");
    EXPECT_EQ(Cell(100, column::Number), " 100");
    EXPECT_EQ(Cell(149, column::Number), " 149");
    EXPECT_EQ(Cell(149, 0), "");
    // An empty line keeps its place, so the hundreds begin a line early.
    lines.assign(100, Line{"21"});
    std::string text = FileText("MK2", lines);
    text.replace(text.find("   N50"), text.find("   N51") - text.find("   N50"), "\r\n");
    ASSERT_EQ(Load(text), LoadResult::Loaded);
    EXPECT_EQ(Cell(98, column::Number), " 99");
    text.insert(text.find("\r\n   N51"), "\r\n");
    ASSERT_EQ(Load(text), LoadResult::Loaded);
    EXPECT_EQ(Cell(98, column::Number), " 199");
}

TEST_F(ReaderTest, AMarkAtTheVeryStartLosesNoLine) {
    const struct {
        std::string Program;
        int Lines;
    } programs[] = {{FileText("MK2", {{"21"}, {"22"}}).substr(3), 2},
                    {FileText("MK4", {{"91"}, {"M30"}}).substr(3), 2},
                    {FileText("F1", {{"91"}, {"M30"}}).substr(3), 2}};
    for (const auto& one : programs) {
        for (const std::string before : {"", "\n", "\r\n"}) {
            const std::size_t records = Bench->Log.Records().size();
            ASSERT_EQ(Load(before + one.Program), LoadResult::Loaded);
            EXPECT_EQ(Store().LineCount(), one.Lines)
                << NameOf(Store().Machine) << " behind " << before.size();
            EXPECT_EQ(Bench->File.txtFileNotes.Text.Get(), "");
            // The notes fail, and that alone.
            ASSERT_EQ(Bench->Log.Records().size(), records + 1);
            EXPECT_EQ(Bench->Log.Records().back().Number, fault::InvalidCall);
            EXPECT_EQ(Bench->Log.Records().back().Procedure, "LoadFile");
        }
        // With the whole line "%" in front the notes are empty without a failure.
        const std::size_t records = Bench->Log.Records().size();
        ASSERT_EQ(Load("%\r\n" + one.Program), LoadResult::Loaded);
        EXPECT_EQ(Store().LineCount(), one.Lines);
        EXPECT_EQ(Bench->Log.Records().size(), records);
    }
}

TEST_F(ReaderTest, NotesLoseTheirPercentSignsAndTheBlanksAround) {
    const std::vector<Line> program = {{"M30", "", "", "", "", "", "end"}};
    ASSERT_EQ(Load(FileText("MK4", program, "M", "  50% off \r\n\r\nsecond \x80\x81\xFF  ")),
              LoadResult::Loaded);
    EXPECT_EQ(Bench->File.txtFileNotes.Text.Get(), "50 off \r\n\r\nsecond \x80\x81\xFF  \r\n");
    // The mark against notes and comments counts on one machine alone, and anywhere in the file.
    const std::string hidden = "see %!* there";
    ASSERT_EQ(Load(FileText("MK4", program, "M", hidden)), LoadResult::Loaded);
    EXPECT_EQ(Bench->File.txtFileNotes.Text.Get(), "");
    EXPECT_EQ(Row(0), " 00|M30 |     ||      |    |   |");
    ASSERT_EQ(Load(FileText("MK4", {{"M30", "", "", "", "", "", "%!*"}}, "M", "notes")), LoadResult::Loaded);
    EXPECT_EQ(Bench->File.txtFileNotes.Text.Get(), "");
    EXPECT_EQ(Cell(0, column::Comment), "");
    for (const char* machine : {"MK2", "F1"}) {
        const char* end = std::string(machine) == "MK2" ? "22" : "M30";
        ASSERT_EQ(Load(FileText(machine, {{end, "", "", "", "", "", "end"}}, "M", hidden)),
                  LoadResult::Loaded);
        EXPECT_EQ(Bench->File.txtFileNotes.Text.Get(), "see !* there\r\n");
        EXPECT_EQ(Cell(0, column::Comment), "end");
    }
}

TEST_F(ReaderTest, ShortLinesAreSkippedAndLongOnesCut) {
    const std::string fifty(50, 'c');
    const std::string line = "    00 91                      ";  // up to the comment at 31
    ASSERT_EQ(line.size(), 31u);
    ASSERT_EQ(
        Load(mk4Head + "%\r\n\r\n" + line + fifty + "X\r\n \r\n" + line + "\xC4 a \t\r\nab\r\n    03M30\r\n"),
        LoadResult::Loaded);
    // No units line: the walk ends with the file, and the units stay.
    EXPECT_TRUE(Store().Metric);
    ASSERT_EQ(Store().LineCount(), 4);
    EXPECT_EQ(Cell(0, column::Comment), fifty);
    EXPECT_EQ(Cell(1, column::Comment), "\xC4 a \t");
    EXPECT_EQ(Row(2), "   |    |     ||      |    |   |");
    EXPECT_EQ(Cell(3, column::Code), "M30 ");
    // More lines than the machine holds load completely.
    std::vector<Line> many(500, Line{"91"});
    Check("MK4", many);
    EXPECT_EQ(Store().LineCount(), 500);
}

TEST_F(ReaderTest, TheQuestionComesBeforeTheMachineChanges) {
    const std::string next = FileText("MK2", {{"22"}});
    Edited();
    Platform.Dialogs.Answers = {Answer::Yes};
    ASSERT_EQ(Load(next), LoadResult::Loaded);
    ASSERT_EQ(Shown().size(), 1u);
    EXPECT_EQ(Shown()[0].Text, "Do you want to save the open file now?");
    EXPECT_EQ(Shown()[0].Title, "Continue?");
    EXPECT_EQ(Shown()[0].Choice, Buttons::YesNo);
    // The old program went out in the layout of its own machine.
    EXPECT_EQ(FileContent("old.cnc"), FileText("MK4", {{.Code = "M30", .Comment = "OLD"}}));
    EXPECT_FALSE(Store().ProgramChanged);
    EXPECT_EQ(Caption(Bench->File.lblPath), Path("program.cnc"));

    Edited("kept.cnc");
    const std::string before = FileContent("kept.cnc");
    Platform.Dialogs.Answers = {Answer::No};
    ASSERT_EQ(Load(next), LoadResult::Loaded);
    EXPECT_EQ(Shown().size(), 2u);
    EXPECT_EQ(FileContent("kept.cnc"), before);
    EXPECT_FALSE(Store().ProgramChanged);
    // A save that is cancelled does not keep the program.
    Edited();
    Bench->File.lblPath.Caption = "";
    Platform.Dialogs.Answers = {Answer::Yes};
    ASSERT_EQ(Load(next), LoadResult::Loaded);
    EXPECT_EQ(NameOf(Store().Machine), "MK2");
    EXPECT_EQ(Store().LineCount(), 1);
}

TEST_F(ReaderTest, TheNameIsTakenAndTheDialogFollowsIt) {
    FileDialog& dialog = Bench->File.dlgFile;
    dialog.Filter = "left by an earlier operation";
    const std::string program = FileText("MK4", {{"M30"}});
    Platform.Files.WriteWhole(Path("a.cnc"), program);
    // By the dialog: the filter is the one that was left.
    std::string name;
    Platform.Dialogs.FileAnswers = {{false, Path("a.cnc")}};
    EXPECT_EQ(Bench->Reader.LoadFile(name), LoadResult::Loaded);
    EXPECT_EQ(dialog.Filter, "left by an earlier operation");
    EXPECT_EQ(Caption(Bench->File.lblPath), Path("a.cnc"));
    EXPECT_EQ(Caption(Bench->File.lblFileName), "");
    // By name: the argument is cleared, the dialog holds name and filter.
    Platform.Files.WriteWhole(Path("b.CNC.~PP.~pp"), program);
    name = Path("b.CNC.~PP.~pp");
    EXPECT_EQ(Bench->Reader.LoadFile(name), LoadResult::Loaded);
    EXPECT_EQ(name, "");
    EXPECT_EQ(dialog.FileName, Path("b.CNC.~PP.~pp"));
    EXPECT_EQ(dialog.Filter, "cnc files (*.txt or *.cnc or *.c5n)|*.cnc;*.txt;*.c5n|All Files (*.*)|*.*|");
    EXPECT_EQ(Caption(Bench->File.lblPath), Path("b.CNC"));
    EXPECT_EQ(Bench->Store.lvCncProgram.SelectedRow(), 1);
    EXPECT_EQ(Cell(1, column::Number), "NN");
    EXPECT_EQ(Cell(1, column::Comment), " ");
}

TEST_F(ReaderTest, WhatCannotBeReadLeavesTheProgram) {
    Edited();
    // Missing, or a cancelled dialog, plain or by its error: not a word.
    std::string name = Path("missing.cnc");
    EXPECT_EQ(Bench->Reader.LoadFile(name), LoadResult::Nothing);
    EXPECT_EQ(name, "");
    for (const bool cancelError : {false, true}) {
        Bench->File.dlgFile.CancelError = cancelError;
        Platform.Dialogs.FileAnswers = {{true, ""}};
        EXPECT_EQ(Bench->Reader.LoadFile(name), LoadResult::Nothing);
    }
    Bench->File.dlgFile.CancelError = false;
    Platform.Dialogs.FileAnswers = {{false, ""}};
    EXPECT_EQ(Bench->Reader.LoadFile(name), LoadResult::Nothing);
    EXPECT_TRUE(Shown().empty());
    // A folder, and a disk that fails: error 75, and a box that names the file.
    std::filesystem::create_directory(Path("folder.cnc"));
    Platform.Files.WriteWhole(Path("torn.cnc"), "%\r\n   N00 G22\r\n");
    for (const std::string bad : {"folder.cnc", "torn.cnc"}) {
        if (bad == "torn.cnc") Platform.Faults.Fail("file", 1);
        name = Path(bad);
        const std::size_t records = Bench->Log.Records().size();
        Platform.Dialogs.Shown.clear();
        EXPECT_EQ(Bench->Reader.LoadFile(name), LoadResult::Unreadable);
        ASSERT_EQ(Shown().size(), 1u);
        EXPECT_NE(Shown()[0].Text.find(bad), std::string::npos);
        ASSERT_EQ(Bench->Log.Records().size(), records + 1);
        EXPECT_EQ(Bench->Log.Records().back().Number, fault::PathFileAccess);
        EXPECT_EQ(Bench->Log.Records().back().Procedure, "LoadFile");
    }
    EXPECT_EQ(Cell(0, column::Comment), "OLD");
    EXPECT_TRUE(Store().ProgramChanged);
    EXPECT_EQ(Caption(Bench->File.lblPath), Path("old.cnc"));
}

TEST_F(ReaderTest, LoadingLeavesTheEntryRowEmptyAndTheEditorFree) {
    EntryRow& entry = Bench->Entry;
    entry.txtXI.Text = "5";
    entry.txtGMcode.Text = "01";
    entry.txtComment.Text = "typed";
    Bench->Main.rtfHelp.Visible = true;
    Bench->View.chkViewGcode.Value = 1;
    ASSERT_EQ(Load(FileText("MK4", {{"00", "100", "200"}, {"M30", "", "", "", "", "", "mine"}})),
              LoadResult::Loaded);
    for (const TextBox* box : {&entry.txtXI, &entry.txtZK, &entry.txtGMcode, &entry.txtComment})
        EXPECT_EQ(box->Text.Get(), "");
    EXPECT_FALSE(entry.txtXI.Visible);
    EXPECT_FALSE(Bench->Main.rtfHelp.Visible);
    // The comments that the view asks for came in without counting as a change.
    EXPECT_EQ(Cell(0, column::Comment), "@  Rapid Traverse");
    EXPECT_EQ(Cell(1, column::Comment), "mine");
    EXPECT_FALSE(Store().ProgramChanged);
}

}  // namespace kvt::test
