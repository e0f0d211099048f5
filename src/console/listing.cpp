#include "console/listing.h"

#include <algorithm>

#include "basic/code_page.h"
#include "basic/line_end.h"
#include "basic/number.h"
#include "basic/text.h"
#include "program/explanations.h"

namespace kvt {

namespace {

constexpr const char* red = "\x1b[31m";
constexpr const char* bold = "\x1b[1m";
constexpr const char* plain = "\x1b[0m";

std::string_view UnitsName(const ProgramStore& store) {
    return store.Metric ? "lengths in 1/100 mm" : "lengths in 1/1000 inch";
}

// The finding of a row; empty for none.
std::string_view FindingOf(const ListRow& row) { return Trim(row[column::Error]); }

std::string LineName(const ListRow& row) { return "N" + std::string(Trim(row[column::Number])); }

// One column of the listing: a visible column of the list, as wide as its widest text.
struct ListedColumn {
    int Column;
    std::size_t Width;
};

std::vector<ListedColumn> ColumnsOf(const ProgramStore& store) {
    const ListView& list = store.lvCncProgram;
    std::vector<ListedColumn> columns;
    for (int c = column::Number; c < column::Comment; ++c) {
        // Findings stand under their lines.
        if (c == column::Error || list.Header(c + 1).Width == 0) continue;
        std::size_t width = list.Header(c + 1).Text.size();
        bool used = false;
        for (int i = 1; i <= store.LineCount(); ++i) {
            const std::size_t length = TrimRight(list.Row(i)[c]).size();
            width = std::max(width, length);
            used = used || length > 0;
        }
        // A column that the machine has no use for, as H on most, only widens the page.
        if (used) columns.push_back({c, width});
    }
    return columns;
}

// Text for a terminal: nothing in a file may steer it.
std::string Printable(std::string text) {
    for (char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 || byte == 127) c = '.';
    }
    // The control characters of the bytes without a character in the code page.
    return Replace(text, "\xC2\x9B", ".");
}

// What belongs to the program stands closely, as on the control; results stand apart.
const char* GapBefore(int column) { return column < column::ToolX ? "  " : "   "; }

bool IsComplete(const Workbench& workbench) {
    return workbench.Results.lblPPMachineTime.Caption.Get() != "xx:xx:xx";
}

// What is to be said of a program in which no line has an error. An arc whose centre offsets are both 0 ends the run
// without a finding, as does what cannot be run.
std::string WithoutFinding(const Workbench& workbench) {
    const std::string executed = workbench.Results.lblPPLinesExe.Caption.Get();
    if (!IsComplete(workbench) && executed == "xxx")
        return "No errors, but the check ends before a line has run.";
    if (!IsComplete(workbench))
        return "No errors, but the check ends before the program does, after " + executed + " lines.";
    if (workbench.Store.EndCodePresent) return "No errors.";
    return "No errors. The end code is missing; it is added when the program is saved.";
}

class Lister {
public:
    Lister(const Workbench& workbench, bool colour) : workbench_(workbench), colour_(colour) {}

    std::string Make(std::string_view file) {
        Head(file);
        Rows();
        Summary();
        return std::move(text_);
    }

private:
    void Line(std::string_view line) {
        text_ += TrimRight(line);
        text_ += '\n';
    }
    std::string Painted(const char* how, std::string_view text) const {
        return colour_ ? how + std::string(text) + plain : std::string(text);
    }

    void Head(std::string_view file) {
        const ProgramStore& store = workbench_.Store;
        Line(Painted(bold, Printable(std::string(file))));
        std::string line(MachineName(store));
        line += ", ";
        line += UnitsName(store);
        Line(line);
        const std::string notes =
            Replace(Replace(ToUtf8(workbench_.File.txtFileNotes.Text), LineEnd, "\n"), "\r", "\n");
        for (const std::string_view note : Split(notes, "\n")) {
            if (!Trim(note).empty()) Line("  " + Printable(std::string(note)));
        }
        Line("");
    }

    void Rows() {
        const ProgramStore& store = workbench_.Store;
        const ListView& list = store.lvCncProgram;
        const std::vector<ListedColumn> columns = ColumnsOf(store);
        std::string heads;
        for (const ListedColumn& one : columns) {
            heads += GapBefore(one.Column);
            heads += RightPad(list.Header(one.Column + 1).Text, one.Width);
        }
        heads += "   ";
        heads += list.Header(column::Comment + 1).Text;
        Line(ToUtf8(heads));
        for (int i = 1; i <= store.LineCount(); ++i) {
            const ListRow& row = list.Row(i);
            std::string line;
            for (const ListedColumn& one : columns) {
                line += GapBefore(one.Column);
                line += RightPad(TrimRight(row[one.Column]), one.Width);
            }
            line += "   ";
            line += row[column::Comment].View();
            Line(Printable(ToUtf8(line)));
            const std::string_view finding = FindingOf(row);
            if (!finding.empty()) Line(Painted(red, "   ^ " + LineName(row) + ": " + ToUtf8(finding)));
        }
        Line("");
    }

    void Axis(std::string_view name, const Label& min, const Label& max, const Label& travel) {
        Line("  " + std::string(name) + RightPad(min.Caption, 10) + " to" + RightPad(max.Caption, 9) +
             "   travel" + RightPad(travel.Caption, 9));
    }

    void Summary() {
        const ProgramStore& store = workbench_.Store;
        const InterpreterControls& results = workbench_.Results;
        Line("Lines " + results.lblPPLines.Caption.Get() + ", executed " +
             results.lblPPLinesExe.Caption.Get() + ", time " + results.lblPPMachineTime.Caption.Get());
        Axis("X", results.lblXAxisMin, results.lblXAxisMax, results.lblXAxisTravel);
        if (store.IsF1()) Axis("Y", results.lblYAxisMin, results.lblYAxisMax, results.lblYAxisTravel);
        Axis("Z", results.lblZAxisMin, results.lblZAxisMax, results.lblZAxisTravel);
        Verdict();
    }

    void Verdict() {
        const kvt::Verdict verdict = VerdictOf(workbench_);
        Line(verdict.Findings == 0 ? verdict.Sentence : Painted(red, verdict.Sentence));
    }

    const Workbench& workbench_;
    bool colour_;
    std::string text_;
};

}  // namespace

std::string_view MachineName(const ProgramStore& store) {
    if (store.IsMK2()) return "Lathe Compact 5 CNC MK2";
    if (store.IsMK4()) return "Lathe Compact 5 CNC MK4";
    return store.Horizontal ? "Mill F1 CNC, horizontal" : "Mill F1 CNC, vertical";
}

Verdict VerdictOf(const Workbench& workbench) {
    const ProgramStore& store = workbench.Store;
    const ListView& list = store.lvCncProgram;
    const int lines = store.LineCount();
    Verdict verdict;
    verdict.Complete = lines > 0 && IsComplete(workbench);
    for (int i = 1; i <= lines; ++i) verdict.Findings += FindingOf(list.Row(i)).empty() ? 0 : 1;
    if (lines == 0) {
        verdict.Sentence = "The file holds no program line.";
    } else if (verdict.Findings == 0) {
        verdict.Sentence = WithoutFinding(workbench);
    } else {
        // The first error is the one that the header of the error column names.
        const ListRow& first = list.Row(std::clamp(static_cast<int>(store.ErrorLine) + 1, 1, lines));
        verdict.First = LineName(first) + ": " + ToUtf8(FindingOf(first));
        verdict.Explanation = ToUtf8(Explanation(first[column::Error], workbench.Language));
        verdict.Sentence = "First error in line " + verdict.First + ".";
        if (verdict.Findings > 1)
            verdict.Sentence += " " + PlainNumber(verdict.Findings) + " lines have errors.";
    }
    return verdict;
}

std::string Listing(std::string_view file, const Workbench& workbench, bool colour) {
    return Lister(workbench, colour).Make(file);
}

bool HasFinding(const Workbench& workbench) {
    const ListView& list = workbench.Store.lvCncProgram;
    for (int i = 1; i <= list.Count(); ++i) {
        const Cell& cell = list.Row(i)[column::Error];
        if (cell.View().substr(0, 1) == "!") return true;
        if (cell == workbench.Language.ErrorTexts(text::MaximumLines)) return true;
    }
    return false;
}

}  // namespace kvt
