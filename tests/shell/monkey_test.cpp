#include <cstdlib>
#include <filesystem>
#include <random>

#include "files/settings_file.h"
#include "headless/memory_window.h"
#include "platform/clicks.h"
#include "platform/key_press.h"
#include "platform/keys.h"
#include "platform/picture_box.h"
#include "support/bench_fixture.h"

namespace kvt::test {

namespace {

constexpr const char* keys[] = {"Enter",     "Enter",  "Tab",    "Shift+Tab", "Esc",    "Insert", "Delete",
                                "Backspace", "Up",     "Down",   "Left",      "Right",  "Home",   "End",
                                "F1",        "F2",     "F5",     "F6",        "F9",     "Ctrl+A", "Ctrl+C",
                                "Ctrl+V",    "Ctrl+X", "Ctrl+S", "Ctrl+F",    "Ctrl+P", "Ctrl+T", "Ctrl+R"};
constexpr char letters[] = "0123456789012345678901234567890123456789GMgmRrABab-+*/P.,' ;%!\"\xE4\xDF\x80";

constexpr const char* samples[] = {"mk2_knob.cnc", "mk4_bolt.cnc", "f1_lid.cnc"};
constexpr const char* lines[] = {
    "00 100 200", "01 50 -300 40", "00 5 5 5",       "01 9 8 7 60",         "02 500 500 80", "90",
    "91",         "25 3",          "27 2",           "84 -100 -2000 80 50", "72 9 9 -9 80",  "M06 500 9 0 1",
    "M17",        "M30",           "33 10 -2000 100"};

// Somebody who knows nothing of the workbench: keys, clicks and texts at random, in waits too. Everything comes from
// one seed.
class Monkey {
public:
    Monkey(FaultyPlatform& platform, const std::string& folder, unsigned seed)
        : platform_(platform), folder_(folder), random_(seed) {}

    void Start() {
        windows_.clear();
        Bench.reset();
        platform_.BeginRun();
        Bench = std::make_unique<Workbench>(platform_.Services);
        for (Form* form : Bench->Forms()) {
            platform_.System.Watch(*form);
            windows_.push_back(std::make_unique<MemoryWindow>(*form, platform_.Screen, platform_.Focus));
        }
        // A wait takes a few events of its own, then ends.
        platform_.System.NextEvent = [this] {
            if (inWait_ >= mostInWait) return false;
            ++inWait_;
            Event();
            return true;
        };
        platform_.System.NextInTimedWait = platform_.System.NextEvent;
        platform_.System.GiveUpAfter = 2000;
        // A copy: it may be saved over.
        const std::string name = folder_ + "/part.cnc";
        DiskFiles().WriteWhole(name, DiskFiles().ReadWhole(KVT_SOURCE_DIR "/samples/" +
                                                           std::string(samples[Below(std::size(samples))])));
        DiskFiles own;
        InstallResetCopies(own, platform_.System.DataFolder);
        Bench->Form_Load(Below(4) == 0 ? "" : name);
    }

    void Step() {
        inWait_ = 0;
        platform_.Dialogs.Answers.assign(3, static_cast<Answer>(Below(4)));
        platform_.Dialogs.FileAnswers.assign(1, {Below(3) == 0, folder_ + "/monkey.cnc"});
        platform_.Dialogs.Shown.clear();
        platform_.System.Run([this] { Event(); });
        if (platform_.System.Ended || ++steps_ % stepsOfARun == 0) Start();
    }

    std::unique_ptr<Workbench> Bench;

private:
    static constexpr int mostInWait = 4;
    static constexpr int stepsOfARun = 1000;

    int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }

    void Event() {
        const int kind = Below(100);
        // The drawing takes no numbers: most of the time is for the editor.
        if (InDrawing() && kind < 15) return Press("F6");
        if (kind < 3) return TypeLine();
        if (kind < 45) return platform_.System.Type(letters[Below(sizeof letters - 1)]);
        if (kind < 68) {
            return Press(keys[Below(std::size(keys))]);
        }
        if (kind < 84) return ClickSomething();
        if (kind < 90) return ClickRow();
        if (kind < 94) return platform_.System.Advance(Below(2500));
        if (kind < 97) return PutText();
        if (kind < 99) return windows_[0]->Resize(8000 + Below(20000), 6000 + Below(12000));
        platform_.Faults.Fail(Below(2) == 0 ? "file" : "clipboard", 1 + Below(5));
    }

    bool InDrawing() const {
        const Control* focused = platform_.Focus.Focused();
        return focused && &focused->OwningForm() == &Bench->Draw.Controls.frmDraw;
    }

    // Now and then it looks as if it knew: a line, or what it takes for one.
    void TypeLine() {
        if (Bench->Entry.txtGMcode.ReallyVisible()) platform_.Focus.SetFocus(Bench->Entry.txtGMcode);
        const char* const line = lines[Below(std::size(lines))];
        for (const char* c = line; *c != 0; ++c) {
            if (*c == ' ') Press("Enter");
            if (*c != ' ') platform_.System.Type(*c);
        }
        Press("Enter");
    }

    void Press(const char* key) {
        const KeyStroke stroke = *KeyNamed(key);
        platform_.System.Press(stroke.Key, stroke.Held);
    }

    // The mouse wanders over a drawing, and turns its wheel.
    void MoveOver(PictureBox& field) {
        const float x = static_cast<float>(Below(50'000)) - 5'000;
        const float y = static_cast<float>(Below(50'000)) - 5'000;
        const int button = Below(5);
        if (field.OnMouseMove) field.OnMouseMove(button, Below(8), x, y);
        if (field.OnMouseDown && button != 0) field.OnMouseDown(button, Below(8), x, y);
        if (field.OnMouseWheel) field.OnMouseWheel(Below(4), Below(5) - 2, Below(2) == 0);
    }

    void ClickSomething() {
        std::vector<Form*> forms = Bench->Forms();
        Form& form = *forms[static_cast<std::size_t>(Below(static_cast<int>(forms.size())))];
        if (!form.Visible || form.Controls().empty()) return;
        Control& control = *form.Controls()[random_() % form.Controls().size()];
        // The way out and a new program are taken now and then only.
        const bool empties = control.Name() == "mnuExit" || control.Name() == "mnuNew" ||
                             (control.Name() == "cmdTopButtons" && control.Index() == 2);
        if (empties && Below(20) != 0) return;
        if (auto* list = dynamic_cast<ListBox*>(&control);
            list && list->Count() > 0 && list->ReallyVisible()) {
            list->ListIndex = Below(list->Count());
        }
        auto* const field = dynamic_cast<PictureBox*>(&control);
        if (field && field->ReallyVisible() && field->ReallyEnabled()) return MoveOver(*field);
        ClickByHand(control, platform_.Focus);
    }

    void ClickRow() {
        ListView& rows = Bench->Store.lvCncProgram;
        if (rows.Count() == 0 || !rows.ReallyEnabled()) return;
        rows.Select(1 + Below(rows.Count()));
        if (Below(2) == 0) ClickByHand(rows, platform_.Focus);
    }

    void PutText() {
        auto* box = dynamic_cast<TextBox*>(platform_.Focus.Focused());
        if (!box) return;
        std::string text(Below(40) == 0 ? 10'000 : static_cast<std::size_t>(Below(12)), ' ');
        for (char& c : text) c = letters[Below(sizeof letters - 1)];
        box->Text = text;
    }

    FaultyPlatform& platform_;
    std::string folder_;
    std::mt19937 random_;
    std::vector<std::unique_ptr<MemoryWindow>> windows_;
    int inWait_ = 0;
    int steps_ = 0;
};

}  // namespace

// KVT_MONKEY_EVENTS lets it go on for longer.
TEST_F(BenchTest, AMonkeyBreaksNothing) {
    const char* const wanted = std::getenv("KVT_MONKEY_EVENTS");
    const int events = wanted ? std::atoi(wanted) : 6'000;
    Bench.reset();
    // A bitmap of a program without a name goes where the program was started.
    const struct WorkingFolder {
        std::filesystem::path Before = std::filesystem::current_path();
        ~WorkingFolder() { std::filesystem::current_path(Before); }
    } back;
    std::filesystem::current_path(Folder);
    Platform.System.DataFolder = Folder;
    Monkey monkey(Platform, Folder, 20261125);
    monkey.Start();
    int mostLines = 0;
    for (int event = 0; event < events; ++event) {
        SCOPED_TRACE("event " + std::to_string(event));
        monkey.Step();
        // Wherever it has got to, the rows are numbered by their places and one open line at most stands at the end.
        const ListView& rows = monkey.Bench->Store.lvCncProgram;
        ASSERT_LE(rows.Count() - monkey.Bench->Store.LineCount(), 1);
        mostLines = std::max(mostLines, monkey.Bench->Store.LineCount());
        ASSERT_TRUE(rows.Count() == 0 || (rows.SelectedRow() >= 1 && rows.SelectedRow() <= rows.Count()));
    }
    // It has worked on the sample too, which has 78 lines.
    EXPECT_GE(mostLines, 78);
}

}  // namespace kvt::test
