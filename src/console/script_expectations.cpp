#include <algorithm>

#include "basic/code_page.h"
#include "basic/line_end.h"
#include "basic/number.h"
#include "console/script_drawing.h"
#include "console/script_run.h"
#include "console/state.h"

// What a script can expect of the workbench. The text that is expected ends the line.
namespace kvt {

namespace {

using Script = ScriptRun;
using Args = const Arguments&;

const MessageBox* LastExpectedBox(Script& run) {
    const std::vector<MessageBox>& shown = run.Session.Platform.Dialogs.Shown;
    return run.ExpectedBoxes > 0 ? &shown[run.ExpectedBoxes - 1] : nullptr;
}

void ExpectCell(Script& run, Args args) {
    const ListView& list = run.Session.Program();
    const int row = args.Number(0);
    const int column = args.Number(1);
    if (column < 0 || column >= column::Count) throw ScriptError{"columns count from 0 to 18"};
    if (row < 1 || row > list.Count()) return run.Fail(Quoted(args.Last()), "no such row");
    run.Compare(args.Last(), ToUtf8(list.Row(row)[column]));
}

void ExpectRowColor(Script& run, Args args) {
    const ListView& list = run.Session.Program();
    const int row = args.Number(0);
    if (row < 1 || row > list.Count()) return run.Fail(Quoted(args.Last()), "no such row");
    run.Compare(args.Last(), PlainNumber(static_cast<std::int64_t>(list.Row(row).ForeColor)));
}

// Column headers count from 1; a wrong one is a ScriptError.
const ColumnHeader& HeaderOf(Script& run, int header) {
    if (header < 1 || header > column::Count) throw ScriptError{"column headers count from 1 to 19"};
    return run.Session.Program().Header(header);
}

void ExpectHeader(Script& run, Args args) {
    run.Compare(args.Last(), ToUtf8(HeaderOf(run, args.Number(0)).Text));
}

void ExpectColumnWidth(Script& run, Args args) {
    run.Compare(args.Last(), PlainNumber(HeaderOf(run, args.Number(0)).Width));
}

const ListBox& ListNamed(Script& run, const std::string& name) {
    if (const auto* list = dynamic_cast<const ListBox*>(&run.Session.Named(name))) return *list;
    throw ScriptError{Quoted(name) + " is no list"};
}

void ExpectEntry(Script& run, Args args) {
    const ListBox& list = ListNamed(run, args.Text(0));
    const int index = args.Number(1);
    if (index < 0 || index >= list.Count()) return run.Fail(Quoted(args.Last()), "no such entry");
    run.Compare(args.Last(), ToUtf8(list.Entry(index)));
}

void ExpectEntries(Script& run, Args args) {
    run.Compare(args.Last(), PlainNumber(ListNamed(run, args.Text(0)).Count()));
}

// Message boxes.

void ExpectMessage(Script& run, Args args) {
    const std::vector<MessageBox>& shown = run.Session.Platform.Dialogs.Shown;
    if (run.ExpectedBoxes == shown.size()) return run.Fail(Quoted(args.Last()), "no message box");
    run.Compare(args.Last(), ShownToUtf8(shown[run.ExpectedBoxes++].Text));
}

void ExpectTitle(Script& run, Args args) {
    const MessageBox* const box = LastExpectedBox(run);
    if (!box) return run.Fail(Quoted(args.Last()), "no message box");
    run.Compare(args.Last(), ToUtf8(box->Title));
}

void ExpectDetails(Script& run, Args args) {
    const MessageBox* const box = LastExpectedBox(run);
    if (!box) return run.Fail(Quoted(args.Last()), "no message box");
    const std::string details = ShownToUtf8(box->Details);
    if (details.find(args.Last()) == std::string::npos)
        run.Fail("details with " + Quoted(args.Last()), Quoted(details));
}

void ExpectIcon(Script& run, Args args) {
    const MessageBox* const box = LastExpectedBox(run);
    if (!box) return run.Fail(Quoted(args.Last()), "no message box");
    run.Compare(args.Last(), std::string(IconName(box->Picture)));
}

void ExpectButtons(Script& run, Args args) {
    const MessageBox* const box = LastExpectedBox(run);
    if (!box) return run.Fail(Quoted(args.Last()), "no message box");
    run.Compare(args.Last(), std::string(ButtonsName(box->Choice)));
}

void ExpectNoMessage(Script& run, Args) {
    const std::vector<MessageBox>& shown = run.Session.Platform.Dialogs.Shown;
    if (run.ExpectedBoxes < shown.size())
        run.Fail("no message box", Quoted(ShownToUtf8(shown[run.ExpectedBoxes].Text)));
}

// Files.

// The content in UTF-8; nothing where the file cannot be read.
std::optional<std::string> ContentOf(Script& run, const std::string& path) {
    try {
        return ToUtf8(run.Session.Files().ReadWhole(NameFromSystem(path)));
    } catch (const RunTimeError&) {
        return std::nullopt;
    }
}

void ExpectFile(Script& run, Args args) {
    const std::optional<std::string> content = ContentOf(run, args.Text(0));
    if (!content) return run.Fail(Quoted(args.Last()), "no such file");
    run.Compare(args.Last(), *content);
}

void ExpectFileHas(Script& run, Args args) {
    const std::optional<std::string> content = ContentOf(run, args.Text(0));
    if (!content) return run.Fail("a file with " + Quoted(args.Last()), "no such file");
    if (content->find(args.Last()) == std::string::npos)
        run.Fail("a file with " + Quoted(args.Last()), Quoted(*content));
}

void ExpectNoFile(Script& run, Args args) {
    if (run.Session.Files().Exists(NameFromSystem(args.Last())))
        run.Fail("no file " + Quoted(args.Last()), "one");
}

// The procedures that Errors.log names, a record each: the last text in quotes of its line.
std::vector<std::string> LoggedProcedures(Script& run) {
    std::vector<std::string> procedures;
    const std::string log = ContentOf(run, run.Session.ErrorLogPath()).value_or("");
    for (std::string_view rest = log; !rest.empty();) {
        const std::size_t end = std::min(rest.find(LineEnd), rest.size());
        const std::string_view record = rest.substr(0, end);
        const std::size_t name = record.rfind(",\"");
        if (name != std::string_view::npos && record.back() == '"')
            procedures.emplace_back(record.substr(name + 2, record.size() - name - 3));
        rest.remove_prefix(std::min(end + 2, rest.size()));
    }
    return procedures;
}

void ExpectLog(Script& run, Args args) {
    const std::vector<std::string> logged = LoggedProcedures(run);
    if (std::find(logged.begin(), logged.end(), args.Last()) != logged.end()) return;
    std::string got;
    for (const std::string& procedure : logged) got += (got.empty() ? "" : ", ") + Quoted(procedure);
    run.Fail("a record of " + Quoted(args.Last()), got.empty() ? "no record" : got);
}

void ExpectNoLog(Script& run, Args) {
    const std::vector<std::string> logged = LoggedProcedures(run);
    if (!logged.empty()) run.Fail("no record", "one of " + Quoted(logged.front()));
}

void ExpectLogCount(Script& run, Args args) {
    run.Compare(args.Last(), PlainNumber(static_cast<std::int64_t>(LoggedProcedures(run).size())));
}

// The rest of the world.

void ExpectFocus(Script& run, Args args) {
    const Control* const focused = run.Session.Platform.Focus.Focused();
    if (focused == (args.Last().empty() ? nullptr : &run.Session.Named(args.Last()))) return;
    run.Fail(Quoted(args.Last()), focused ? Quoted(NameOf(run.Session.Forms(), *focused)) : "no focus");
}

void ExpectClipboard(Script& run, Args args) {
    run.Compare(args.Last(), ToUtf8(run.Session.Platform.Clipboard.Content));
}

// The port.

void ExpectSent(Script& run, Args args) {
    const std::string& all = run.Session.Platform.Port.Sent;
    run.Compare(args.Last(), ToUtf8(std::string_view(all).substr(run.ExpectedSent)));
    run.ExpectedSent = all.size();
}

void ExpectPort(Script& run, Args args) {
    if (args.Last() != "open" && args.Last() != "closed") throw ScriptError{"either open or closed"};
    run.Compare(args.Last(), run.Session.Platform.Port.IsOpen() ? "open" : "closed");
}

void ExpectPortSettings(Script& run, Args args) {
    run.Compare(args.Last(), run.Session.Platform.Services.Port.Settings());
}

void ExpectBeeps(Script& run, Args args) {
    run.Compare(args.Last(), PlainNumber(run.Session.Platform.System.Beeps));
}

// All that the printer was given since the last time.
void ExpectPrinted(Script& run, Args args) {
    const std::string& printed = run.Session.Platform.Printer.Printed;
    run.Compare(args.Last(), ToUtf8(std::string_view(printed).substr(run.ExpectedPrint)));
    run.ExpectedPrint = printed.size();
}

void ExpectPreviewed(Script& run, Args args) {
    const std::string& shown = run.Session.Platform.Printer.Previewed;
    run.Compare(args.Last(), ToUtf8(std::string_view(shown).substr(run.ExpectedPreview)));
    run.ExpectedPreview = shown.size();
}

void ExpectClock(Script& run, Args args) {
    run.Compare(args.Last(), PlainNumber(static_cast<std::int64_t>(run.Session.Platform.System.Clock)));
}

void ExpectRunning(Script& run, Args args) {
    if (args.Last() != "yes" && args.Last() != "no") throw ScriptError{"either yes or no"};
    run.Compare(args.Last(), run.Session.Running() ? "yes" : "no");
}

constexpr ScriptAction expectations[] = {
    {"cell", {Arg::Number, Arg::Number, Arg::Text}, ExpectCell},
    {"rowcolor", {Arg::Number, Arg::Text}, ExpectRowColor},
    {"header", {Arg::Number, Arg::Text}, ExpectHeader},
    {"columnwidth", {Arg::Number, Arg::Text}, ExpectColumnWidth},
    {"entry", {Arg::Word, Arg::Number, Arg::Text}, ExpectEntry},
    {"entries", {Arg::Word, Arg::Text}, ExpectEntries},
    {"message", {Arg::Text}, ExpectMessage},
    {"title", {Arg::Text}, ExpectTitle},
    {"details", {Arg::Text}, ExpectDetails},
    {"icon", {Arg::Text}, ExpectIcon},
    {"buttons", {Arg::Text}, ExpectButtons},
    {"nomessage", {}, ExpectNoMessage},
    {"file", {Arg::Word, Arg::Text}, ExpectFile},
    {"filehas", {Arg::Word, Arg::Text}, ExpectFileHas},
    {"nofile", {Arg::Text}, ExpectNoFile},
    {"log", {Arg::Text}, ExpectLog},
    {"nolog", {}, ExpectNoLog},
    {"logcount", {Arg::Text}, ExpectLogCount},
    {"focus", {Arg::Text}, ExpectFocus},
    {"clipboard", {Arg::Text}, ExpectClipboard},
    {"printed", {Arg::Text}, ExpectPrinted},
    {"previewed", {Arg::Text}, ExpectPreviewed},
    {"clock", {Arg::Text}, ExpectClock},
    {"op", {Arg::Number, Arg::Word, Arg::Text}, script::ExpectOperation},
    {"opcount", {Arg::Word, Arg::Text}, script::ExpectOperationCount},
    {"picture", {Arg::Text}, script::ExpectPicture},
    {"sent", {Arg::Text}, ExpectSent},
    {"port", {Arg::Text}, ExpectPort},
    {"portsettings", {Arg::Text}, ExpectPortSettings},
    {"beeps", {Arg::Text}, ExpectBeeps},
    {"running", {Arg::Text}, ExpectRunning},
};

}  // namespace

std::span<const ScriptAction> ScriptExpectations() { return expectations; }

}  // namespace kvt
