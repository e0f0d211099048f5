#include <algorithm>
#include <charconv>
#include <cstdio>

#include "basic/code_page.h"
#include "basic/number.h"
#include "basic/text.h"
#include "console/script_drawing.h"
#include "console/script_run.h"
#include "console/state.h"
#include "platform/clicks.h"
#include "platform/key_press.h"
#include "platform/keys.h"

// What a script can do to the workbench, as a user or as what surrounds it.
namespace kvt {

namespace {

using Script = ScriptRun;
using Args = const Arguments&;

template <class Kind>
Kind& OperationKind(Script& run, std::string_view name, const char* what) {
    if (auto* one = dynamic_cast<Kind*>(&run.Session.Named(name))) return *one;
    throw ScriptError{Quoted(name) + " is no " + what};
}

// Tells why a user cannot act on a control; true where he can.
bool InReach(Script& run, const Control& control) {
    const char* const why = run.Session.WhyOutOfReach(control);
    if (why) run.Note(NameOf(run.Session.Forms(), control) + ": " + why);
    return !why;
}

// As a mouse does before it clicks. What the control before did on its leaving may have taken this one away.
bool GoTo(Script& run, Control& control) {
    if (!InReach(run, control)) return false;
    FocusService& focus = run.Session.Platform.Focus;
    if (FocusByHand(control, focus)) return true;
    if (InReach(run, control)) {
        const Control* const kept = focus.Focused();
        run.Note("the focus stays in " +
                 (kept ? NameOf(run.Session.Forms(), *kept) : std::string("no control")));
    }
    return false;
}

void Start(Script& run, Args args) {
    if (run.Session.Running() || !run.AtTopLevel()) throw ScriptError{"the program is running already"};
    run.Session.Start(args.Last());
}

// Keys.

bool KeysArrive(Script& run) {
    FaultyPlatform& platform = run.Session.Platform;
    const char* const why = platform.System.Ended       ? "the program has ended"
                            : !platform.Focus.Focused() ? "no control has the focus"
                                                        : nullptr;
    if (why) run.Note(why);
    return !why;
}

void Type(Script& run, Args args) {
    if (!KeysArrive(run)) return;
    MemorySystem& system = run.Session.Platform.System;
    for (const char c : FromUtf8(args.Last())) {
        const bool isKey = c == key::Enter || c == key::Tab || c == key::Backspace || c == key::Escape;
        if (isKey) {
            system.Press(c);
        } else {
            system.Type(c);
        }
        if (system.Ended) return;
    }
}

void Press(Script& run, Args args) {
    const std::optional<KeyStroke> stroke = KeyNamed(args.Text(0));
    if (!stroke) throw ScriptError{"unknown key " + Quoted(args.Text(0))};
    if (KeysArrive(run)) run.Session.Platform.System.Press(stroke->Key, stroke->Held);
}

void Focus(Script& run, Args args) {
    Control& control = run.Session.Named(args.Text(0));
    if (!TakesFocus(control)) return run.Note(args.Text(0) + " takes no focus");
    GoTo(run, control);
}

// The mouse.

void Click(Script& run, Args args) {
    Control& control = run.Session.Named(args.Text(0), args.Count() > 1 ? args.Number(1) : -1);
    if (!InReach(run, control)) {
        const bool refused =
            control.OnRefused && control.EffectivelyVisible() && !control.EffectivelyEnabled();
        if (refused && run.Session.Running()) control.OnRefused();
        return;
    }
    // A click closes the menu at the pointer.
    const Menu* const popup = std::exchange(run.Session.Platform.System.ShownPopup, nullptr);
    if (popup && control.Container == popup) return control.Click();
    if (!ClickByHand(control, run.Session.Platform.Focus)) InReach(run, control);
}

void Pick(Script& run, Args args) {
    auto& list = OperationKind<ListBox>(run, args.Text(0), "list");
    const int index = args.Number(1);
    if (!GoTo(run, list)) return;
    if (index < 0 || index >= list.Count()) return run.Note("there is no such entry");
    list.ListIndex = index;
    list.Click();
}

bool IsRow(Script& run, int row) {
    if (row >= 1 && row <= run.Session.Program().Count()) return true;
    run.Note("there is no such row");
    return false;
}

void Row(Script& run, Args args) {
    if (IsRow(run, args.Number(0))) run.Session.Program().Select(args.Number(0));
}

bool GoToRow(Script& run, int row) {
    ListView& list = run.Session.Program();
    if (!GoTo(run, list) || !IsRow(run, row)) return false;
    list.Select(row);
    return true;
}

void ClickRow(Script& run, Args args) {
    if (GoToRow(run, args.Number(0))) run.Session.Program().Click();
}

void RightClickRow(Script& run, Args args) {
    if (!GoToRow(run, args.Number(0))) return;
    const ListView& list = run.Session.Program();
    if (list.OnRightClick) list.OnRightClick();
}

// Headers count from 1; a wrong one is a ScriptError.
int HeaderNumber(int header) {
    if (header < 1 || header > column::Count) throw ScriptError{"column headers count from 1 to 19"};
    return header;
}

void ClickHeader(Script& run, Args args) {
    const int header = HeaderNumber(args.Number(0));
    ListView& list = run.Session.Program();
    if (!GoTo(run, list)) return;
    if (list.Header(header).Width == 0) return run.Note("this column is hidden");
    if (list.OnColumnClick) list.OnColumnClick(header);
}

// Fields.

void Set(Script& run, Args args) {
    auto& box = OperationKind<TextBox>(run, args.Text(0), "field");
    if (!GoTo(run, box)) return;
    box.Text = FromUtf8(args.Last());
}

// As a text that is pasted over the notes.
void Notes(Script& run, Args args) {
    auto& box = OperationKind<TextBox>(run, "txtFileNotes", "field");
    if (!GoTo(run, box)) return;
    int character = key::CtrlV;
    if (box.OnKeyPress) box.OnKeyPress(character);
    if (character != 0) box.Text = FromUtf8(args.Last());
}

// Answers.

void QueueAnswer(Script& run, Args args) {
    constexpr std::pair<std::string_view, Answer> answers[] = {
        {"yes", Answer::Yes}, {"no", Answer::No}, {"cancel", Answer::Cancel}, {"ok", Answer::Ok}};
    for (const auto& [word, answer] : answers) {
        if (word == args.Text(0)) return run.Session.Platform.Dialogs.Answers.push_back(answer);
    }
    throw ScriptError{"unknown answer " + Quoted(args.Text(0))};
}

void QueueFile(Script& run, Args args) {
    const bool cancelled = args.Last() == "cancel";
    run.Session.Platform.Dialogs.FileAnswers.push_back(
        {cancelled, cancelled ? std::string() : NameFromSystem(args.Last())});
}

// A colour is a number with red in the low byte, in decimal or as "&H" and hexadecimal.
void QueueColor(Script& run, Args args) {
    std::string_view text = args.Last();
    std::optional<Color> color;
    if (text != "cancel") {
        const bool hexadecimal = EqualIgnoringCase(text.substr(0, 2), "&H");
        if (hexadecimal) text.remove_prefix(2);
        Color value = 0;
        const auto read =
            std::from_chars(text.data(), text.data() + text.size(), value, hexadecimal ? 16 : 10);
        if (read.ec != std::errc() || read.ptr != text.data() + text.size()) {
            throw ScriptError{"no colour: " + Quoted(args.Last())};
        }
        color = value;
    }
    run.Session.Platform.Dialogs.ColorAnswers.push_back(color);
}

void QueuePrinter(Script& run, Args args) {
    std::deque<int>& answers = run.Session.Platform.Printer.Answers;
    if (args.Text(0) == "cancel") return answers.push_back(0);
    const double copies = Val(args.Text(0));
    if (copies < 1 || copies > 99 || !IsNumeric(args.Text(0)))
        throw ScriptError{"copies, 1 to 99, or cancel"};
    answers.push_back(ToLong(copies));
}

// What surrounds the program.

void PutOnClipboard(Script& run, Args args) {
    run.Session.Platform.Clipboard.Content = FromUtf8(args.Last());
}

// A text that begins with the mark of UTF-8 is written as such.
void WriteFile(Script& run, Args args) {
    const std::string& text = args.Last();
    const std::string content = text.substr(0, 3) == "\xEF\xBB\xBF" ? text : FromUtf8(text);
    try {
        run.Session.Files().WriteWhole(NameFromSystem(args.Text(0)), content);
    } catch (const RunTimeError&) {
        throw ScriptError{Quoted(args.Text(0)) + " cannot be written"};
    }
}

void WriteProgram(Script& run, Args args) {
    WriteFile(run, args);
    namespace fs = std::filesystem;
    std::error_code ignored;
    fs::permissions(args.Text(0), fs::perms::owner_exec, fs::perm_options::add, ignored);
}

void DeleteFile(Script& run, Args args) {
    try {
        run.Session.Files().Delete(NameFromSystem(args.Last()));
    } catch (const RunTimeError& error) {
        run.Note(Quoted(args.Last()) + " was not removed: " + error.Description);
    }
}

void PlanFailure(Script& run, Args args) {
    constexpr std::string_view services[] = {"file", "background", "port", "printer", "clipboard", "program"};
    if (std::find(std::begin(services), std::end(services), args.Text(0)) == std::end(services)) {
        throw ScriptError{"unknown service " + Quoted(args.Text(0))};
    }
    if (args.Number(1) < 1) throw ScriptError{"calls are counted from 1"};
    run.Session.Platform.Faults.Fail(args.Text(0), args.Number(1));
}

// On the main window, which takes one by the way of the menu.
void Drop(Script& run, Args args) {
    const Form& form = run.Session.FormNamed("frmMain");
    if (InReach(run, form) && form.OnDropFile) form.OnDropFile(NameFromSystem(args.Last()));
}

void Receive(Script& run, Args args) {
    if (!run.Session.Platform.Port.Receive(FromUtf8(args.Last())))
        run.Note("no port is open, nothing arrives");
}

void FailPort(Script& run, Args) { run.Session.Platform.Port.NextOpeningFails = true; }

void Advance(Script& run, Args args) { run.Session.Platform.System.Advance(args.Number(0)); }

void During(Script& run, Args args) { run.Defer(args.Number(0), args.Last()); }

// Windows.

void Resize(Script& run, Args args) {
    Form& form = run.Session.FormNamed(args.Text(0));
    if (!InReach(run, form)) return;
    if (form.State != WindowState::Normal) return run.Note("only a restored window has a size of its own");
    run.Session.WindowOf(form).Resize(args.Number(1), args.Number(2));
}

void ChangeState(Script& run, Args args, WindowState state) {
    Form& form = run.Session.FormNamed(args.Text(0));
    if (InReach(run, form)) form.State = state;
}

void Maximise(Script& run, Args args) { ChangeState(run, args, WindowState::Maximised); }
void Minimise(Script& run, Args args) { ChangeState(run, args, WindowState::Minimised); }
void Restore(Script& run, Args args) { ChangeState(run, args, WindowState::Normal); }

void Close(Script& run, Args args) {
    const Form& form = run.Session.FormNamed(args.Text(0));
    if (InReach(run, form) && form.OnQueryUnload) form.OnQueryUnload();
}

// Output.

void Show(Script& run, Args args) {
    const std::string& name = args.Text(0);
    std::printf("%s = %s\n", name.c_str(), Escaped(run.ValueNamed(name)).c_str());
}

void Dump(Script& run, Args) {
    JsonSink out(stdout);
    WriteDump(out, run.Session.CommandLine(), run.Session.Workbench(), run.Session.Platform.Dialogs,
              run.Session.Platform.Focus);
    out.Put('\n');
}

void PrintMessages(Script& run, Args) {
    const std::vector<MessageBox>& shown = run.Session.Platform.Dialogs.Shown;
    JsonSink out(stdout);
    WriteMessages(out, std::span(shown).subspan(run.PrintedBoxes));
    out.Put('\n');
    run.PrintedBoxes = shown.size();
}

void Expect(Script& run, Args args) {
    std::string_view line = args.Last();
    const std::string_view word = NextWord(line);
    if (const ScriptAction* expectation = FindAction(ScriptExpectations(), word)) {
        expectation->Do(run, Arguments(line, expectation->Arguments, run.Session.Variables()));
        return;
    }
    const Arguments text(line, {Arg::Text}, run.Session.Variables());
    run.Compare(text.Last(), run.ValueNamed(word));
}

constexpr bool ofUser = true;

constexpr ScriptAction actions[] = {
    {"start", {Arg::Text}, Start, ofUser},
    {"type", {Arg::Text}, Type, ofUser},
    {"press", {Arg::Word}, Press, ofUser},
    {"focus", {Arg::Word}, Focus, ofUser},
    {"click", {Arg::Word, Arg::MaybeNumber}, Click, ofUser},
    {"pick", {Arg::Word, Arg::Number}, Pick, ofUser},
    {"row", {Arg::Number}, Row, ofUser},
    {"clickrow", {Arg::Number}, ClickRow, ofUser},
    {"rightclickrow", {Arg::Number}, RightClickRow, ofUser},
    {"clickheader", {Arg::Number}, ClickHeader, ofUser},
    {"set", {Arg::Word, Arg::Text}, Set, ofUser},
    {"notes", {Arg::Text}, Notes, ofUser},
    {"resize", {Arg::Word, Arg::Number, Arg::Number}, Resize, ofUser},
    {"maximise", {Arg::Word}, Maximise, ofUser},
    {"minimise", {Arg::Word}, Minimise, ofUser},
    {"restore", {Arg::Word}, Restore, ofUser},
    {"close", {Arg::Word}, Close, ofUser},
    {"advance", {Arg::Number}, Advance, ofUser},
    {"mousemove", {Arg::Number, Arg::Number}, script::MouseMove, ofUser},
    {"mousedown", {Arg::Number, Arg::Number}, script::MouseDown, ofUser},
    {"ctrlmousedown", {Arg::Number, Arg::Number}, script::CtrlMouseDown, ofUser},
    {"doubleclick", {Arg::Number, Arg::Number}, script::DoubleClick, ofUser},
    {"mousedrag", {Arg::Number, Arg::Number, Arg::Number, Arg::Number}, script::MouseDrag, ofUser},
    {"mousewheel", {Arg::Number, Arg::Number, Arg::Number}, script::MouseWheel, ofUser},
    {"scroll", {Arg::Word, Arg::Number}, script::Scroll, ofUser},
    {"drop", {Arg::Text}, Drop, ofUser},
    {"receive", {Arg::Text}, Receive, ofUser},

    {"answer", {Arg::Word}, QueueAnswer},
    {"file", {Arg::Text}, QueueFile},
    {"colour", {Arg::Text}, QueueColor},
    {"printer", {Arg::Word}, QueuePrinter},
    {"clipboard", {Arg::Text}, PutOnClipboard},
    {"write", {Arg::Word, Arg::Text}, WriteFile},
    {"program", {Arg::Word, Arg::Text}, WriteProgram},
    {"delete", {Arg::Text}, DeleteFile},
    {"portfails", {}, FailPort},
    {"fails", {Arg::Word, Arg::Number}, PlanFailure},
    {"during", {Arg::Number, Arg::Line}, During},

    {"show", {Arg::Word}, Show},
    {"expect", {Arg::Line}, Expect},
    {"dump", {}, Dump},
    {"messages", {}, PrintMessages},
    {"ops", {}, script::PrintOperations},
};

}  // namespace

std::span<const ScriptAction> ScriptActions() { return actions; }

}  // namespace kvt
