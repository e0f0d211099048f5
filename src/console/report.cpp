#include "console/report.h"

#include <algorithm>
#include <ctime>
#include <new>

#include "basic/code_page.h"
#include "basic/installation.h"
#include "basic/line_end.h"
#include "basic/local_time.h"
#include "basic/number.h"
#include "basic/text.h"
#include "console/commands.h"
#include "console/drawing.h"
#include "console/listing.h"
#include "console/loaded_file.h"
#include "console/output_file.h"
#include "console/report_page.h"

namespace kvt {

namespace {

// What the page shows of a file. Texts are UTF-8, not escaped yet, but for the drawing.
struct Reported {
    std::string File;
    std::string Machine;
    std::string Notes;
    std::string Verdict;
    std::string Finding;
    std::string Explanation;
    std::string Time;
    std::string Lines;
    std::string Drawing;
    int Status = status::Usage;
};

constexpr const char* cleanSentence = "No errors.";
constexpr const char* kinds[] = {"good", "bad", "none"};  // by status

// The first line of the notes says what the program makes.
std::string FirstNote(const Workbench& workbench) {
    const std::string notes = Replace(ToUtf8(workbench.File.txtFileNotes.Text), "\r", "\n");
    for (const std::string_view line : Split(notes, "\n")) {
        if (!Trim(line).empty()) return std::string(Trim(line));
    }
    return {};
}

std::string VerdictWords(const LoadedFile& loaded, const Verdict& verdict) {
    if (verdict.Findings > 1) return PlainNumber(verdict.Findings) + " lines have errors";
    if (verdict.Findings == 1) return "1 line has an error";
    if (loaded.Status() != status::Succeeded) return "Error";
    return verdict.Complete ? "No errors" : "Not complete";
}

Reported Read(const std::string& file) {
    Reported one;
    one.File = IsUtf8(file) ? file : ToUtf8(file);
    const LoadedFile loaded(file);
    if (const char* error = loaded.Error()) {
        Complain(file, error);
        one.Verdict = "Not read";
        one.Finding = std::string("The file ") + error + ".";
        return one;
    }
    const Workbench& workbench = *loaded.Workbench;
    const Verdict verdict = VerdictOf(workbench);
    one.Machine = MachineName(workbench.Store);
    one.Notes = FirstNote(workbench);
    one.Verdict = VerdictWords(loaded, verdict);
    one.Finding = verdict.First.empty() ? verdict.Sentence : verdict.First;
    one.Explanation = verdict.Explanation;
    one.Time = workbench.Results.lblPPMachineTime.Caption;
    one.Lines = workbench.Results.lblPPLines.Caption;
    one.Drawing = DrawingAsSvg(file);
    one.Status = loaded.Status();
    return one;
}

Reported TooLarge(const std::string& file) {
    Reported one;
    one.File = file;
    one.Verdict = "Not read";
    one.Finding = "The file is too large for the memory of this machine.";
    return one;
}

std::string Now() {
    const std::tm local = LocalNow();
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M", &local)};
}

// A cell, and what it is sorted by where that is not its text.
std::string Cell(const std::string& html, const std::string& key = {}) {
    return "<td" + (key.empty() ? std::string() : " data-key=\"" + key + "\"") + ">" + html + "</td>";
}

// The names in a drawing are its own, so that each of many on a page has its patterns.
std::string DrawingOnPage(const std::string& svg, const std::string& number) {
    const std::string own = Replace(svg, "id=\"hatch\"", "id=\"hatch" + number + "\"");
    return Replace(own, "url(#hatch)", "url(#hatch" + number + ")");
}

std::string RowOf(const Reported& one, std::size_t number) {
    const auto text = [](const std::string& plain) { return EscapedForHtml(plain); };
    const std::string place = PlainNumber(static_cast<std::int64_t>(number));
    std::string row = "<tr class=\"" + std::string(kinds[std::clamp(one.Status, 0, 2)]) + "\">";
    row += Cell(place);
    const std::size_t name = one.File.find_last_of('/') + 1;
    row += Cell("<bdi>" + text(one.File.substr(name)) + "</bdi><p>" + text(one.Notes) + "</p><p><bdi>" +
                text(one.File.substr(0, name)) + "</bdi></p>");
    row += Cell(text(one.Machine));
    row += Cell("<b>" + text(one.Verdict) + "</b>", PlainNumber(one.Status));
    // "No errors." stands before it.
    std::string finding = one.Finding == cleanSentence ? std::string() : text(one.Finding);
    for (const std::string_view line : Split(one.Explanation, LineEnd))
        finding += "<p>" + text(std::string(line)) + "</p>";
    row += Cell(finding);
    row += Cell(text(one.Lines));
    row += Cell(text(one.Time));
    row += Cell(DrawingOnPage(one.Drawing, place));
    return row + "</tr>\n";
}

std::string Summary(const std::vector<Reported>& programs) {
    std::int64_t counts[] = {0, 0, 0};
    for (const Reported& one : programs) ++counts[std::clamp(one.Status, 0, 2)];
    const auto total = static_cast<std::int64_t>(programs.size());
    std::string text = PlainNumber(total) + (total == 1 ? " program: " : " programs: ") +
                       PlainNumber(counts[0]) + " without errors, " + PlainNumber(counts[1]) + " with errors";
    if (counts[2] > 0) text += ", " + PlainNumber(counts[2]) + " not read";
    return text + ".";
}

std::string Page(const std::vector<Reported>& programs) {
    std::string page(report_page::Head);
    page += "<p>" + Summary(programs) + " Checked on " + Now() + " with kvtc " + VersionText() + ".</p>\n";
    page += report_page::TableHead;
    for (std::size_t i = 0; i < programs.size(); ++i) page += RowOf(programs[i], i + 1);
    page += report_page::End;
    return page;
}

}  // namespace

std::string EscapedForHtml(std::string_view text) {
    std::string escaped;
    for (const char c : WithoutControls(text)) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            case '"': escaped += "&quot;"; break;
            case '\'': escaped += "&#39;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

int Report(const std::vector<std::string>& files, const std::string& out) {
    if (const std::string why = WhyNotWritten(out); !why.empty()) return Complain(out, why);
    int worst = status::Succeeded;
    std::vector<Reported> programs;
    for (const std::string& file : files) {
        if (const std::string why = WhyNotWritten(out, file); !why.empty()) return Complain(out, why);
        try {
            programs.push_back(Read(file));
        } catch (const std::bad_alloc&) {
            Complain(file, "is too large for the memory of this machine");
            programs.push_back(TooLarge(file));
        }
        worst = std::max(worst, programs.back().Status);
    }
    DiskFiles disk;
    PrepareToWrite(disk);
    try {
        disk.WriteWhole(NameFromSystem(out), Page(programs));
    } catch (const Failure&) {
        return Complain(out, "could not be written");
    }
    return worst;
}

}  // namespace kvt
