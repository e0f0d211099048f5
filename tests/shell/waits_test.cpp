#include <algorithm>
#include <cstdlib>
#include <map>
#include <random>

#include "basic/number.h"
#include "basic/text.h"
#include "platform/clicks.h"
#include "platform/keys.h"
#include "support/workbench_fixture.h"
#include "system/offscreen_window.h"

namespace kvt::test {

namespace {

// The lines of a program without their numbers, as a user sees them.
using Lines = std::vector<std::string>;

constexpr const char* machines[] = {"MK2", "MK4", "F1"};

// Works at random in both windows, in whatever wait comes up, and knows what he does: the row that he presses is the one
// that he sees under the pointer, and what he does to it happens to this one alone. Each line has a comment of its own
// to be known by.
class WaitingUser {
public:
    WaitingUser(FaultyPlatform& platform, const std::string& folder, unsigned seed)
        : platform_(platform), folder_(folder), random_(seed) {}

    void Work(int events) {
        left_ = events;
        Start();
        while (left_ > 0 && !platform_.System.Ended) Event();
        Look();
        // What has been put aside is given up.
        platform_.System.NextEvent = nullptr;
        platform_.System.NextInTimedWait = nullptr;
        windows_.clear();
        workbench_.reset();
    }

    std::map<std::string, int> Counts;

private:
    int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
    ListView& List() { return workbench_->Store.lvCncProgram; }
    DrawControls& Drawing() { return workbench_->Draw.Controls; }

    void Start() {
        platform_.BeginRun();
        workbench_ = std::make_unique<Workbench>(platform_.Services);
        for (Form* form : workbench_->Forms()) {
            platform_.System.Watch(*form);
            windows_.push_back(std::make_unique<OffscreenWindow>(*form, platform_.Screen, platform_.Focus));
        }
        platform_.Port.Ports = 1;
        platform_.System.GiveUpAfter = 500;
        platform_.System.NextEvent = [this] { return InWait(1); };
        platform_.System.NextInTimedWait = [this] { InWait(2); };
        // The clock goes on while a box stands.
        platform_.Dialogs.OnUnanswered = [this](const MessageBox&) { platform_.System.Advance(Below(1500)); };
        for (const char* machine : machines)
            platform_.Files.WriteWhole(FileOf(machine), FileText(machine, RandomLines(machine)));
        Act([this] { workbench_->Form_Load(FileOf(machines[Below(3)])); });
        Act([this] { Press(key::F1 + 4); });
    }

    std::string FileOf(const std::string& machine) const { return folder_ + "/" + machine + ".cnc"; }

    std::vector<Line> RandomLines(const std::string& machine) {
        std::vector<Line> lines{{"92", " 2000", machine == "F1" ? " 100" : "", " 500"}};
        const int count = 4 + Below(40);
        for (int i = 0; i < count; ++i) {
            constexpr const char* commands[] = {"cmdWAIT ", "cmdSTEP ", "cmdRUN ", "cmdINTERVAL 1 "};
            const std::string command = Below(6) == 0 ? commands[Below(4)] : "";
            lines.push_back({Below(3) == 0 ? "00" : "01", " " + std::to_string(100 + Below(1500)), "",
                             " " + std::to_string(100 + Below(900)), " 50", "", command + NewTag()});
        }
        lines.push_back({machine == "MK2" ? "22" : "M30"});
        return lines;
    }
    std::string NewTag() { return "t" + std::to_string(++tags_); }

    // A row without its number: an insertion or deletion above changes that.
    std::string LineAt(int row) {
        std::string line;
        for (const int c : {column::Code, column::X, column::Y, column::Z, column::F, column::Comment}) {
            line += List().Row(row)[c].View();
            line += '|';
        }
        return line;
    }
    Lines Program() {
        Lines lines;
        for (int row = 1; row <= workbench_->Store.LineCount(); ++row) lines.push_back(LineAt(row));
        return lines;
    }

    bool InWait(int oneIn) {
        if (left_ <= 0 || Below(oneIn) != 0) return left_ > 0;
        ++Counts["events in waits"];
        Event();
        return true;
    }

    // What a user does, as a handler; and what must hold when the handler has ended, before anything is drawn.
    void Act(const std::function<void()>& does, const std::function<void()>& then = nullptr) {
        Look();
        looked_ = false;
        platform_.System.Run([&] {
            platform_.System.Later([this, then] {
                if (then) then();
                Note();
            });
            does();
            platform_.Dialogs.Answers.clear();
            platform_.Dialogs.FileAnswers.clear();
        });
    }

    // Between two of his actions nothing moves that is his.
    void Note() {
        looked_ = true;
        focus_ = platform_.Focus.Focused();
        row_ = List().SelectedRow();
        lines_ = Program();
        calm_ = IsCalm();
    }
    bool IsCalm() const {
        const Control* const focused = platform_.Focus.Focused();
        return focused && &focused->OwningForm() == &workbench_->frmMain && !workbench_->Port.IsSending &&
               !workbench_->Store.EditorRunMode;
    }
    void Look() {
        if (!looked_ || platform_.System.Ended) return;
        EXPECT_EQ(Program(), lines_) << "somebody else has edited";
        if (!calm_ || !workbench_) return;
        EXPECT_EQ(platform_.Focus.Focused(), focus_) << "the keys were taken";
        if (!IsCalm()) return;
        EXPECT_EQ(List().SelectedRow(), row_) << "the selection was moved";
    }

    void Event() {
        --left_;
        if (platform_.System.Ended) return;
        if (plan_.empty()) Plan();
        const std::function<void()> next = plan_.front();
        plan_.pop_front();
        next();
    }
    void GiveUp() { plan_.clear(); }

    void Plan() {
        const auto is = [this](auto... steps) { plan_ = {steps...}; };
        const auto click = [this](Control& control) { return [this, &control] { ClickOn(control); }; };
        const auto press = [this] { PressRow(); };
        const auto release = [this] { ReleaseRow(); };
        const auto comment = [this] { GoTo(workbench_->Entry.txtComment); };
        InterpreterControls& results = workbench_->Results;
        DrawControls& draw = Drawing();
        DrawBar& bar = workbench_->Draw.Bar;
        Control* const runs[] = {&results.cmdRun, &results.cmdStep, &results.cmdStep, &results.cmdStop};
        Control* const draws[] = {&draw.cmdStep,   &draw.cmdStep,    &draw.cmdStop,  &draw.cmdRun,
                                  &draw.cmdRedraw, &draw.cmdAutoFit, &draw.mnuPrint, &draw.mnuGrid,
                                  &bar.cmdBarRun,  &bar.cmdBarStep,  &bar.cmdBarStop};
        constexpr int keys[] = {key::F5, key::F1 + 5, key::F1 + 8, 187, key::Escape};
        const int kind = Below(100);
        if (kind < 30)
            return is(
                press, release, [this] { SetX(); }, comment, [this] { EnterLine(); });
        if (kind < 38) return is(press, release, [this] { DeleteRow(); });
        if (kind < 44) return is(press, release, [this] { InsertRow(); });
        if (kind < 50) return is([this] { OpenOther(); });
        if (kind < 52) return is([this] { SwitchMachine(); });
        if (kind < 53) return is(click(workbench_->Main.mnuNew));
        if (kind < 56) return is(click(workbench_->Transfer.mnuTX));
        if (kind < 62) return is(click(*runs[Below(4)]));
        if (kind < 72) return is(click(*draws[Below(11)]));
        if (kind < 78) return is(click(*draw.mnuSim[static_cast<std::size_t>(Below(SimulationCount))]));
        if (kind < 84) return is([this, wheel = Below(2) == 0] { wheel ? Zoom() : Measure(); });
        if (kind < 92)
            return is([this, pressed = keys[Below(5)]] { Act([this, pressed] { Press(pressed); }); });
        if (kind < 94) return is([this] { CloseDrawing(); });
        if (kind < 96) return is(click(workbench_->Main.mnuPrint));
        is([this] { Act([this] { platform_.System.Advance(Below(2500)); }); });
    }

    // The window comes forward with the press.
    void TurnTo(Form& form) {
        const Control* const focused = platform_.Focus.Focused();
        if (focused && &focused->OwningForm() == &form) return;
        if (form.OnActivate) form.OnActivate();
    }
    void Press(int pressed) {
        if (platform_.Focus.Focused()) platform_.System.Press(pressed);
    }
    static bool InReach(const Control& control) {
        return control.EffectivelyVisible() && control.EffectivelyEnabled();
    }
    void ClickOn(Control& control) {
        if (!InReach(control)) return;
        Act([&] {
            TurnTo(control.OwningForm());
            ClickByHand(control, platform_.Focus);
        });
    }
    void GoTo(Control& control) {
        Act([&] {
            if (!FocusByHand(control, platform_.Focus)) GiveUp();
        });
    }

    void PressRow() {
        if (!List().EffectivelyEnabled() || workbench_->Port.IsSending || List().Count() == 0)
            return GiveUp();
        const int inSight = std::min(List().VisibleRows(), List().Count() - List().TopRow() + 1);
        const int place = Below(inSight);
        const std::string seen = LineAt(List().TopRow() + place);
        Act(
            [this, place] {
                TurnTo(workbench_->frmMain);
                if (!FocusByHand(List(), platform_.Focus)) return GiveUp();
                pressed_ = List().TopRow() + place;
                List().Select(pressed_);
            },
            [this, seen] {
                if (plan_.empty()) return;
                EXPECT_EQ(LineAt(List().SelectedRow()), seen) << "pressed";
            });
    }
    void ReleaseRow() {
        if (workbench_->Port.IsSending || workbench_->Store.EditorRunMode) return GiveUp();
        Act([this] {
            EXPECT_EQ(List().SelectedRow(), pressed_);
            List().Click();
        });
    }
    void SetX() {
        TextBox& field = workbench_->Entry.txtXI;
        if (!field.EffectivelyVisible() || workbench_->Entry.lblXI.Caption.Get() != "X") return GiveUp();
        Act([&] {
            if (!FocusByHand(field, platform_.Focus)) return GiveUp();
            field.Text = std::to_string(value_ = 100 + Below(1500));
        });
    }
    // His line has the number that he has typed, the others are as they were.
    void EnterLine() {
        if (workbench_->Port.IsSending || pressed_ > workbench_->Store.LineCount()) return GiveUp();
        Lines expected = Program();
        const auto at = static_cast<std::size_t>(pressed_ - 1);
        Act(
            [this] {
                int character = key::Enter;
                workbench_->Entry.txtComment.OnKeyPress(character);
            },
            [this, expected, at] {
                ++Counts["lines edited"];
                if (workbench_->Draw.State.Walking()) ++Counts["lines edited while a drawing waits"];
                const Lines now = Program();
                ASSERT_EQ(now.size(), expected.size());
                const std::string_view x = List().Row(static_cast<int>(at) + 1)[column::X];
                EXPECT_EQ(Val(x), value_) << now[at];
                Lines others = expected;
                others[at] = now[at];
                EXPECT_EQ(now, others);
            });
    }
    void DeleteRow() {
        if (!InReach(workbench_->Main.cmdDelete)) return GiveUp();
        Lines expected = Program();
        if (pressed_ <= workbench_->Store.LineCount()) expected.erase(expected.begin() + pressed_ - 1);
        Act([this] { workbench_->Main.cmdDelete.Click(); },
            [this, expected] { Expect("lines deleted", expected); });
    }
    void InsertRow() {
        if (!InReach(workbench_->Main.cmdInsert)) return GiveUp();
        const Lines before = Program();
        Act([this] { workbench_->Main.cmdInsert.Click(); },
            [this, before] {
                Lines now = Program();
                ASSERT_EQ(now.size(), before.size() + 1);
                now.erase(now.begin() + pressed_ - 1);
                ++Counts["lines inserted"];
                EXPECT_EQ(now, before);
            });
    }
    void Expect(const char* count, const Lines& expected) {
        ++Counts[count];
        EXPECT_EQ(Program(), expected) << count;
    }

    void OpenOther() {
        const std::string machine = machines[Below(3)];
        const Menu& open = workbench_->Main.mnuOpen;
        if (!open.EffectivelyEnabled()) return;
        platform_.Dialogs.FileAnswers.assign(1, {false, FileOf(machine)});
        platform_.Dialogs.Answers.assign(1, Answer::No);
        Act([this] { TurnTo(workbench_->frmMain), workbench_->Main.mnuOpen.Click(); },
            [this, machine] {
                ++Counts["programs opened"];
                EXPECT_EQ(NameOf(workbench_->Store.Machine), machine);
                EXPECT_EQ(workbench_->Main.cmdTopButtons[6]->Visible, machine == "F1");
                EXPECT_EQ(workbench_->File.lblPath.Caption.Get(), FileOf(machine));
                EXPECT_EQ(List().Count(), workbench_->Store.LineCount() + 1) << "the open line";
            });
    }
    void SwitchMachine() {
        OptionButton* const options[] = {&workbench_->Machine.optSettingsMK2,
                                         &workbench_->Machine.optSettingsMK4,
                                         &workbench_->Machine.optSettingsF1CNC};
        const int chosen = Below(3);
        const bool changed = workbench_->Store.ProgramChanged;
        const Lines before = Program();
        ClickOn(workbench_->Main.mnuMachine);
        if (!options[chosen]->EffectivelyVisible()) return;
        const bool keeps = Below(2) == 0;
        platform_.Dialogs.Answers.assign(1, keeps ? Answer::No : Answer::Yes);
        const std::string machine(NameOf(workbench_->Store.Machine));
        Act([&] { ClickByHand(*options[chosen], platform_.Focus); },
            [=, this] {
                ++Counts["machines chosen"];
                const bool kept = keeps && changed && !before.empty();
                EXPECT_EQ(NameOf(workbench_->Store.Machine), kept ? machine : machines[chosen]);
                EXPECT_EQ(workbench_->Store.LineCount(), kept ? static_cast<int>(before.size()) : 0);
            });
        workbench_->Main.tabSettings.Visible = false;
    }
    void Measure() {
        PictureBox& field = Drawing().pbxDrawField;
        if (!field.EffectivelyVisible()) return;
        const auto x = static_cast<float>(Below(40'000));
        const auto y = static_cast<float>(Below(40'000));
        Act([&, x, y] {
            TurnTo(Drawing().frmDraw);
            FocusByHand(field, platform_.Focus);
            field.OnMouseMove(0, 0, x, y);
            field.OnMouseDown(mouse::Left, 0, x, y);
        });
    }
    // The wheel and the middle button work in a window that lies behind too.
    void Zoom() {
        PictureBox& field = Drawing().pbxDrawField;
        if (!field.EffectivelyVisible()) return;
        const auto place = static_cast<float>(Below(40'000));
        const double notches = Below(7) - 3;
        Act([&, place, notches] {
            field.OnMouseWheel({0, notches, false, place, place});
            field.OnMouseDown(mouse::Middle, 0, place, place);
            field.OnMouseMove(mouse::Middle, 0, place + 9000, place - 9000);
        });
    }
    void CloseDrawing() {
        if (!Drawing().frmDraw.Visible) return;
        Act([this] {
            TurnTo(Drawing().frmDraw);
            Drawing().frmDraw.OnQueryUnload();
        });
    }

    FaultyPlatform& platform_;
    std::string folder_;
    std::mt19937 random_;
    std::vector<std::unique_ptr<OffscreenWindow>> windows_;
    std::unique_ptr<Workbench> workbench_;
    std::deque<std::function<void()>> plan_;
    int left_ = 0;
    int tags_ = 0;
    int pressed_ = 0;
    int value_ = 0;
    // What was to be seen when his last action was through.
    bool looked_ = false, calm_ = false;
    const Control* focus_ = nullptr;
    int row_ = 0;
    Lines lines_;
};

}  // namespace

// KVT_WAIT_SCRIPTS lets more of them come.
TEST_F(WorkbenchFixture, InWhateverWaitTheRowThatIsEditedIsTheOneThatTheUserSees) {
    const char* const wanted = std::getenv("KVT_WAIT_SCRIPTS");
    const char* const first = std::getenv("KVT_WAIT_FIRST");
    const unsigned begin = first ? static_cast<unsigned>(std::atoi(first)) : 1;
    const unsigned scripts = wanted ? static_cast<unsigned>(std::atoi(wanted)) : 150;
    Workbench.reset();
    Platform.System.DataFolder = Folder;
    std::map<std::string, int> counts;
    for (unsigned seed = begin; seed < begin + scripts; ++seed) {
        SCOPED_TRACE("script " + std::to_string(seed));
        WaitingUser user(Platform, Folder, seed);
        user.Work(80);
        for (const auto& [what, count] : user.Counts) counts[what] += count;
        if (HasFailure()) break;
    }
    for (const auto& [what, count] : counts) {
        std::string name = what;
        std::replace(name.begin(), name.end(), ' ', '_');
        RecordProperty(name, count);
        if (wanted) std::printf("%s: %d\n", what.c_str(), count);
    }
    EXPECT_GE(counts["lines edited while a drawing waits"], static_cast<int>(scripts / 4));
}

}  // namespace kvt::test
