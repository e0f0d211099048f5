#include "shell/language_tables.h"
#include "support/table.h"
#include "support/workbench_fixture.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <set>

#include "basic/code_page.h"
#include "basic/text.h"

namespace kvt::test {

namespace {

// A module of lines.
std::string Module(const std::string& lines) {
    return "[Kestrel Vise Toolkit, Language Resource]\r\n" + Replace(lines, "\n", "\r\n");
}

// Words that are the same in both languages, and what is no word.
bool IsInternational(const std::string& text) {
    static const std::vector<std::string> words = Fields(
        "Editor|Parameter|Code|Baud|Handshake|Simulation|Horizontal|Info|General|Min|Radius|Max|Stop|Start|"
        "COM|G-Code|mm|1/100 mm|max. U/min|Com1|Com2|Com3|Com4|Xon/Xoff|Emco|Compact5 CNC MK2|Compact5 CNC "
        "MK4|xxx|xx:xx:xx|Compact5 CNC|Kestrel Vise Toolkit");
    static const std::set<std::string> same(words.begin(), words.end());
    const bool hasWord =
        std::adjacent_find(text.begin(), text.end(), [](char a, char b) {
            return std::isalpha(static_cast<unsigned char>(a)) && std::islower(static_cast<unsigned char>(b));
        }) != text.end();
    return !hasWord || same.contains(text);
}

template <class... Kinds>
std::string CaptionAs(const Control& control) {
    std::string caption;
    const auto take = [&](const auto* one) {
        if (one) caption = one->Caption.Get();
    };
    (take(dynamic_cast<const Kinds*>(&control)), ...);
    return caption;
}

class LanguageTest : public WorkbenchFixture {
protected:
    void LoadModule(const std::string& bytes) {
        Platform.Files.WriteWhole(Path("module.txt"), bytes);
        std::string name = Path("module.txt");
        EXPECT_EQ(Workbench->Reader.LoadFile(name), LoadResult::LanguageModule);
    }
    // Every text that a module can set, one a line.
    std::string AllTexts() const {
        std::string all;
        for (const Control* control : AllControls()) {
            // The tool tip of the arrows tells the scale in force.
            const bool tells = control->Kind() == ControlKind::UpDown;
            all += control->Name() + "|" + (tells ? std::string() : control->ToolTip.Get()) + "|" +
                   control->AccessibleName.Get() + "|";
            all += CaptionAs<CommandButton, Label, Menu, Frame, CheckBox, OptionButton, Form>(*control);
            if (const auto* list = dynamic_cast<const ListBox*>(control)) {
                for (const std::string& entry : list->Entries()) all += entry + "|";
            }
            all += "\n";
        }
        for (const TableSection& section : TableSections()) {
            const TextTable& table = section.Table(Workbench->Language);
            for (int i = 1; i <= table.Size(); ++i) all += std::string(Trim(table.At(i))) + "\n";
        }
        for (int header = 1; header <= column::Count; ++header)
            all += Workbench->Store.lvCncProgram.Header(header).Text + "\n";
        for (const std::string& tab : Workbench->Main.tabSettings.Captions) all += tab + "\n";
        return all + Workbench->Language.ErrorHeaderText + Workbench->Language.EntryCaption;
    }
    std::vector<Control*> AllControls() const {
        std::vector<Control*> all;
        for (Form* form : Workbench->Forms()) {
            all.push_back(form);
            // The names of the languages are in their own.
            std::copy_if(form->Controls().begin(), form->Controls().end(), std::back_inserter(all),
                         [](const Control* control) { return control->Name() != "mnuLanguages"; });
        }
        return all;
    }
    std::size_t FailuresOf(const char* procedure) const {
        std::size_t count = 0;
        for (const ErrorLog::Record& record : Workbench->Log.Records())
            count += record.Procedure == procedure ? 1 : 0;
        return count;
    }
};

}  // namespace

TEST_F(LanguageTest, TheModuleThatIsWrittenChangesNothing) {
    const std::string module = Workbench->Modules.WriteModule();
    LoadModule(module);
    EXPECT_EQ(Workbench->Language.LanguageName, "English");
    EXPECT_EQ(Workbench->Modules.WriteModule(), module);
    EXPECT_EQ(FailuresOf("LoadLanguageModule"), 0u);
}

TEST_F(LanguageTest, EveryLabelHasItsControl) {
    for (const LabelRow& row : LabelRows()) {
        const std::vector<std::string_view> names = Split(row.Control, ".");
        const Form* form = names.size() == 2 ? nullptr : &Workbench->frmMain;
        bool found = false;
        for (const Form* one : Workbench->Forms()) {
            found = found || (names.size() == 1 && one->Name() == names[0]);
            if (names.size() == 2 && one->Name() == names[0]) form = one;
        }
        EXPECT_TRUE(found || (form && form->FindControl(names.back(), row.Index))) << row.Control;
    }
}

TEST_F(LanguageTest, GermanTranslatesEveryText) {
    const LanguageModule english = ReadLanguageModule(Workbench->Modules.WriteModule());
    const std::string bytes = Platform.Files.ReadWhole(KVT_SOURCE_DIR "/languages/Deutsch.txt");
    const LanguageModule german = ReadLanguageModule(bytes);
    EXPECT_FALSE(IsUtf8(bytes));
    ASSERT_EQ(german.Sections.size(), english.Sections.size());
    for (std::size_t i = 0; i < german.Sections.size(); ++i) {
        const LanguageSection& section = german.Sections[i];
        SCOPED_TRACE(section.Name);
        EXPECT_EQ(section.Name, english.Sections[i].Name);
        ASSERT_EQ(section.Lines.size(), english.Sections[i].Lines.size());
        for (std::size_t k = 0; k < section.Lines.size(); ++k) {
            const LanguageLine& line = english.Sections[i].Lines[k];
            EXPECT_EQ(section.Lines[k].Key, line.Key);
            EXPECT_EQ(section.Lines[k].Value.empty(),
                      line.Value.empty() && line.Key != "Translated by" && line.Key != "Help File Name")
                << line.Key;
            // Findings are known by their mark.
            const bool numbered = line.Key.find_first_not_of("0123456789") == std::string::npos;
            EXPECT_TRUE(!numbered || IsInternational(line.Value) || section.Lines[k].Value != line.Value)
                << line.Key;
            EXPECT_EQ(section.Lines[k].Value.substr(0, 1) == "!", line.Value.substr(0, 1) == "!") << line.Key;
        }
    }
}

// What is to be read anywhere in a window has its German, and the way back to English leaves nothing of it.
TEST_F(LanguageTest, NothingStaysEnglishInGermanNorGermanInEnglish) {
    const std::string before = AllTexts();
    const auto textsOf = [](const Control& control) {
        return std::array<std::string, 3>{
            CaptionAs<CommandButton, Label, Menu, Frame, CheckBox, OptionButton, Form>(control),
            control.ToolTip.Get(), control.AccessibleName.Get()};
    };
    std::map<const Control*, std::array<std::string, 3>> english;
    for (const Control* control : AllControls()) english[control] = textsOf(*control);
    LoadModule(Platform.Files.ReadWhole(KVT_SOURCE_DIR "/languages/Deutsch.txt"));
    EXPECT_EQ(Platform.System.LanguageCode, "de");
    for (const auto& [control, texts] : english) {
        // The heads of this window are those of the program list, and come from there when it is shown.
        if (control->OwningForm().Name() == "frmProgramWindow") continue;
        const std::array<std::string, 3> german = textsOf(*control);
        for (std::size_t i = 0; i < texts.size(); ++i)
            EXPECT_TRUE(IsInternational(texts[i]) || german[i] != texts[i])
                << control->Name() << ": " << texts[i];
    }
    Workbench->Modules.UseEnglish();
    EXPECT_EQ(AllTexts(), before);
    EXPECT_EQ(Platform.System.LanguageCode, "");
    EXPECT_EQ(Workbench->Language.ModuleFile, "");
}

TEST_F(LanguageTest, SectionsKeysAndOrder) {
    ASSERT_EQ(Load(FileText("MK4", {{"92", "100", "", "100"}, {"77"}, {"M30"}})), LoadResult::Loaded);
    Workbench->View.chkViewGcode.Value = 1;
    Workbench->Options.chkViewGcode_Click();
    const std::string header = Workbench->Store.lvCncProgram.Header(3).Text;
    LoadModule(
        Module("[SYSTEM variables]\nLanguage name = Test\nTranslated by=Me\n"
               "[Frame View]\nTOOL POSITION= Ort \nFile Notes=\nGcode\n;View=no\nNonsense=1\n"
               "[frame entry]\nParameters=Eingabe\n[Settings]\nMachine=Maschine\nInfo=x\n"
               "[Error Messages]\na=one=1\nb=\nc=[three]\n"
               "[Column Headers]\nN=Nr\nG=\n3=\n4=\n5=\n6=\n7=\n8=Fehler\n"
               "[G-code MK4]\nG00=Eil\nx=\nG02=Kreis\n[M-Code MK4]\n" +
               std::string("1=\n2=\n3=\n4=\n5=\n6=\n7=\n8=\n9=\n10=\n11=Schluss\n") +
               "[Toolbar]\nOpen File=Auf\n[DRAW Menu View]\nView=Blick\nBackground=Grund\n"));
    EXPECT_EQ(Workbench->View.chkViewToolPos.Caption, "Ort");
    EXPECT_EQ(Workbench->View.chkViewFileNotes.Caption, "File Notes");
    EXPECT_EQ(Workbench->View.chkViewGcode.Caption, "Gcode");
    EXPECT_EQ(Workbench->Main.frView.Caption, "View");
    EXPECT_EQ(Workbench->Language.EntryCaption, "Eingabe");
    EXPECT_EQ(Workbench->Main.mnuMachine.Caption, "Maschine");
    EXPECT_EQ(Workbench->Main.tabSettings.Captions[settings_page::Machine], "Maschine");
    EXPECT_EQ(Workbench->Language.ErrorTexts.At(1), "one=1");
    EXPECT_EQ(Workbench->Language.ErrorTexts.At(3), "three");
    EXPECT_EQ(Workbench->Language.DrawViewTexts.At(2), "Grund");  // by its order, whatever the key
    const ListView& list = Workbench->Store.lvCncProgram;
    EXPECT_EQ(list.Header(2).Text, "Nr");
    EXPECT_EQ(list.Header(3).Text, header);
    EXPECT_EQ(Workbench->Language.ErrorHeaderText, "Fehler");
    EXPECT_EQ(Workbench->Lists.lstMK4Gcodes.Entry(0), "G00 \tEil");
    EXPECT_EQ(Workbench->Lists.lstMK4Gcodes.Entry(1), "G01 \tLinear Interpolation");
    // Comments of codes follow the language, and so does the header of the finding.
    EXPECT_EQ(Cell(2, column::Comment), "@  Schluss");
    EXPECT_EQ(list.Header(9).Text.substr(0, 6), "Fehler");
    EXPECT_EQ(Workbench->Main.cmdTopButtons[0]->ToolTip, "Auf");
    for (const auto& button : Workbench->Main.cmdTopButtons) EXPECT_EQ(button->Caption, "");
    EXPECT_EQ(Workbench->Language.TranslatedBy, "Me");
    EXPECT_EQ(Workbench->Language.ModuleFile, Path("module.txt"));
    EXPECT_EQ(FailuresOf("LoadLanguageModule"), 0u);

    // A new module clears the names, not the tables; a blank entry brings the English back.
    LoadModule(
        "\xEF\xBB\xBF" +
        Module("[Error Messages]\n=\n2=\xC3\xA4\n[System Variables]\nLanguage Name=English\n[Toolbar]"));
    EXPECT_EQ(Workbench->Language.ErrorTexts.At(1), "No Lines of code present");
    EXPECT_EQ(Workbench->Language.ErrorTexts.At(2), "\xE4");
    EXPECT_EQ(Workbench->Language.ErrorTexts.At(3), "three");
    EXPECT_EQ(Workbench->Language.TranslatedBy, "");
    EXPECT_EQ(Workbench->Main.cmdTopButtons[8]->Caption, "RX");

    // A place holder only keeps its name; it counts in the first line alone.
    LoadModule("; a DUMMY\r\n" + Module("[Error Messages]\n1=never\n"));
    EXPECT_EQ(Workbench->Language.ErrorTexts.At(1), "No Lines of code present");
    EXPECT_EQ(Workbench->Language.LanguageName, "English");
    LoadModule(Module("[Error Messages]\n1=dummy\n"));
    EXPECT_EQ(Workbench->Language.ErrorTexts.At(1), "dummy");
    EXPECT_EQ(Workbench->Store.LineCount(), 3);
}

TEST_F(LanguageTest, LinesBeyondTheEndAreReportedAndTheWalkGoesOn) {
    std::string lines = "[Column Headers]\n";
    for (int i = 0; i < 18 + 2; ++i) lines += "=h\n";
    lines += "[Program error codes]\n";
    for (int i = 0; i < 22 + 1; ++i) lines += "=t\n";
    lines += "[G-code F1]\n";
    for (int i = 0; i < 23 + 300; ++i) lines += "=c\n";
    LoadModule(Module(lines + "[Frame Path]\nCurrent File=Datei"));
    EXPECT_EQ(FailuresOf("LoadLanguageModule"), 2u + 1 + 100);
    EXPECT_EQ(Workbench->Main.frControlPanel.Caption, "Datei");
}

}  // namespace kvt::test
