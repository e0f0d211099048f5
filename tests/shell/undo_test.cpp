#include <deque>
#include <random>

#include "platform/keys.h"
#include "support/program_generator.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

// A user at work, and what the workbench was in front of each step that can be taken back.
class UndoTest : public WorkbenchFixture {
protected:
    struct State {
        std::string Program, File;
        bool Changed = false;
        bool operator==(const State&) const = default;
    };
    friend void PrintTo(const State& state, std::ostream* out) {
        *out << state.File << (state.Changed ? "*" : "") << "\n" << state.Program;
    }

    UndoTest() {
        Platform.System.DataFolder = Path("user");
        Workbench->Form_Load("");
        Workbench->Entry.chkSettingsDWC.Value = 1;
    }

    // All that a step brings back, with what the check makes of it.
    State Now() const {
        const ProgramStore& store = Workbench->Store;
        const ListView& list = store.lvCncProgram;
        State state;
        std::string& text = state.Program;
        text = std::string(NameOf(store.Machine)) + (store.Metric ? " mm" : " inch") +
               (store.Horizontal ? " flat " : " ") + std::to_string(list.SelectedRow()) + " of " +
               std::to_string(list.TopRow()) + " error " +
               std::to_string(store.ErrorFlagged ? store.ErrorRow : 0) + "\n" +
               Workbench->File.txtFileNotes.Text.Get() + "\n";
        for (int row = 1; row <= list.Count(); ++row) {
            for (int c = column::Number; c <= column::Comment; ++c)
                text += std::string(list.Row(row)[c].View()) + "|";
            // One that has not run has the colour of whenever it did.
            const bool ran =
                list.Row(row)[column::ToolX].View().find_first_of("?x") == std::string_view::npos;
            text += (ran ? std::to_string(list.Row(row).ForeColor) : "") + "\n";
        }
        if (!store.ErrorFlagged) text += Workbench->Results.lblXAxisTravel.Caption.Get();
        state.File = Called();
        state.Changed = store.Unsaved();
        return state;
    }

    // What a check has written, the next one may judge: a step ends with one that finds nothing new.
    void CheckAgain() {
        ListView& list = Workbench->Store.lvCncProgram;
        const int selected = list.SelectedRow();
        Workbench->Store.PutBack(Workbench->Store.LastPass);
        const bool changed = Workbench->Store.ProgramChanged;
        Workbench->Interpreter.Recheck();
        Workbench->Store.ProgramChanged = changed;
        list.Select(selected);
    }

    void Click(const char* name) { Workbench->frmMain.FindControl(name)->Click(); }
    int Random(int most) { return std::uniform_int_distribution<int>(0, most)(random_); }

    void TypeLine() {
        const std::vector<std::string> codes = CodesOf(*Workbench);
        const std::string code = codes[static_cast<std::size_t>(Random(static_cast<int>(codes.size()) - 1))];
        EntryRow& entry = Workbench->Entry;
        const std::vector<GeneratedField> fields = FieldsOf(*Workbench, code);
        entry.lblGMcode.Caption = code.substr(0, 1);
        entry.txtGMcode.Text = code.substr(1, code[3] == 'R' ? 3 : 2);
        for (const GeneratedField& field : fields)
            entry.Fields()[field.Place].Box.Text = std::to_string(field.Value(random_));
        entry.txtComment.Text = Random(3) == 0 ? "by hand" : "";
        Workbench->Lines.LineEdit();
    }

    void ChangeLine() {
        Workbench->Store.lvCncProgram.Click();
        EntryRow& entry = Workbench->Entry;
        TextBox& box = Random(1) == 0 ? entry.txtComment : entry.Fields()[3].Box;
        box.Text = std::to_string(Random(90) + 10);
        Workbench->Lines.LineEdit();
    }

    void ReplaceFeed() {
        Workbench->Entry.txtFeedA.Text = std::to_string(Random(90) + 10);
        int enter = key::Enter;
        Workbench->Entry.txtFeedA.OnKeyPress(enter);
    }

    void OpenOne() {
        const std::string name = Path("other" + std::to_string(Random(2)) + ".cnc");
        Platform.Dialogs.Answers = {Answer::No};
        Workbench->frmMain.OnDropFile(name);
    }

    void Paste() {
        Platform.Clipboard.Content = FileContent("other1.cnc");
        Workbench->Calls.LoadClipboardModule();
    }

    std::string Called() const {
        return Workbench->File.lblPath.Caption.Get() + " " + Workbench->File.lblFileName.Caption.Get();
    }

    // From a save on the program has that name, and none of its other states, nor of another program of that name, is
    // what the file holds.
    void Save() {
        if (Workbench->Store.LineCount() == 0) return;
        if (Workbench->File.lblPath.Caption.Empty())
            Platform.Dialogs.FileAnswers = {{false, Path("saved.cnc")}};
        Click("mnuSave");
        for (std::size_t i = before_.size(); i-- > 0 && !replaced_[i];) before_[i].File = Called();
        const std::string path = Workbench->File.lblPath.Caption.Get() + " ";
        for (State& state : before_) state.Changed = state.Changed || state.File.starts_with(path);
    }

    static StepKind KindOf(int what) {
        switch (what) {
            case 6: return StepKind::New;
            case 7: return StepKind::Opened;
            case 8: return StepKind::Clipboard;
            case 10: return StepKind::Machine;
            default: return StepKind::LineChanged;
        }
    }

    void Act(int what) {
        switch (what) {
            case 0: return Click("RCmnuInsert");
            case 1: return Click("RCmnuDelete");
            case 2: return Click(Workbench->Store.Metric ? "mnuMMtoINCH" : "mnuINCHtoMM");
            case 3: return Click("mnuDelComments");
            case 4: return ReplaceFeed();
            case 5:
                Workbench->File.txtFileNotes.Text = "notes " + std::to_string(Random(99));
                Workbench->Store.ProgramChanged = true;
                return;
            case 6: return Click("mnuNew");
            case 7: return OpenOne();
            case 8: return Paste();
            case 9: return Click(Random(1) == 0 ? "optSettingsHinch" : "optSettingsVmm");
            case 10:
                return Workbench->Machine.OptionOf(Machines()[static_cast<std::size_t>(Random(2))].Model)
                    .Click();
            case 11: return Save();
            case 12: return ChangeLine();
            default: return TypeLine();
        }
    }

    // One step more, on any row.
    void Go() {
        ListView& list = Workbench->Store.lvCncProgram;
        const int selected = list.SelectedRow(), top = list.TopRow();
        list.Select(Random(2) == 0 ? list.Count() : Random(list.Count() - 1) + 1);
        list.EnsureVisible(list.SelectedRow());
        const int steps = Workbench->History.Steps();
        CheckAgain();
        const PassBeginning pass = Workbench->Store.LastPass;
        before_.push_back(Now());
        Platform.Dialogs.Answers = {Answer::Yes};
        const int what = Random(30);
        replaced_.push_back(false);
        if (what == 11) {
            Act(what);
        } else {
            const EditStep step(Workbench->Calls, {KindOf(what)});
            Act(what);
            CheckAgain();
        }
        Platform.Dialogs.Answers.clear();
        const int more = Workbench->History.Steps() - steps;
        ASSERT_TRUE(more == 0 || more == 1) << what;
        replaced_.back() = more > 0 && ReplacesProgram(Workbench->History.ToUndo()->Kind);
        if (more > 0) return;
        Forget(1);
        // Where nothing was done nothing was left.
        list.Select(std::min(selected, list.Count()));
        list.ScrollTo(std::min(top, list.Count()));
        Workbench->Store.LastPass = pass;
        CheckAgain();
    }

    void Forget(int steps) {
        before_.resize(before_.size() - static_cast<std::size_t>(steps));
        replaced_.resize(before_.size());
    }

    void Back(int steps) {
        for (int i = 0; i < steps; ++i) {
            Click("mnuUndo");
            ASSERT_EQ(Now(), before_[before_.size() - 1 - static_cast<std::size_t>(i)]) << i;
        }
    }

    std::mt19937 random_;
    std::deque<State> before_;
    std::vector<bool> replaced_;  // whether that step has put another program in its place
};

TEST_F(UndoTest, BringsBackEveryStateOfASession) {
    const int sessions = GeneratedPrograms(7);
    for (const Setting& setting : AllSettings()) {
        for (int session = 0; session < sessions && !HasFailure(); ++session) {
            SCOPED_TRACE(std::string(setting.Machine) + " " + std::to_string(session));
            random_.seed(static_cast<unsigned>(session));
            Use(*Workbench, setting);
            for (int file = 0; file < 3; ++file)
                Platform.Files.WriteWhole(Path("other" + std::to_string(file) + ".cnc"),
                                          GeneratedFile(*Workbench, setting, random_, 2 + 9 * file));
            Workbench->Calls.ClearProgram_Click();
            Workbench->Store.AddBlankLine(true);
            Workbench->History.Start();
            before_.clear();
            replaced_.clear();
            for (int step = 0; step < 40; ++step) Go();
            // Some of them are taken back for good.
            const int given = Random(static_cast<int>(before_.size()));
            Back(given);
            Forget(given);
            for (int step = 0; step < 10; ++step) Go();
            const State end = Now();
            const int steps = static_cast<int>(before_.size());
            Back(steps);
            for (int i = 0; i < steps; ++i) {
                ASSERT_TRUE(Workbench->History.ToRedo());
                Click("mnuRedo");
            }
            ASSERT_EQ(Now(), end);
        }
    }
}

}  // namespace

}  // namespace kvt::test
