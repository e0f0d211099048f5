#include "console/help_tables.h"

#include <algorithm>
#include <array>
#include <map>
#include <utility>
#include <vector>

#include "basic/code_page.h"
#include "basic/line_end.h"
#include "basic/text.h"
#include "console/help_markup.h"
#include "program/explanations.h"
#include "shell/workbench.h"
#include "system/offscreen_platform.h"

namespace kvt {

namespace {

struct Words {
    const char *Code, *Meaning, *Parameters, *Parameter, *Codes, *Metric, *Inch;
    // Commands of the machine's own panel.
    const char *Motors, *Tape, *Line;
};
constexpr Words english = {"Code",
                           "Meaning",
                           "Parameters",
                           "Parameter",
                           "Codes",
                           "1/100 mm",
                           "1/1000 inch",
                           "Feed motors without current (at the machine alone)",
                           "Tape of the machine (at the machine alone)",
                           "Serial line (at the machine alone)"};
constexpr Words german = {"Code",
                          "Bedeutung",
                          "Parameter",
                          "Parameter",
                          "Codes",
                          "1/100 mm",
                          "1/1000 Zoll",
                          "Vorschubmotoren stromlos (nur an der Maschine)",
                          "Band der Maschine (nur an der Maschine)",
                          "Serielle Leitung (nur an der Maschine)"};

// Commands that are typed at the machine and are no part of a program; the table of a machine names them all the same.
struct PanelCommand {
    const char* Code;
    const char* Words::*Meaning;
    bool OnMK2;
};
constexpr PanelCommand panelCommands[] = {
    {"G64", &Words::Motors, true}, {"G65", &Words::Tape, false}, {"G66", &Words::Line, false}};

// One parameter of a code, with its range in both units.
struct Parameter {
    std::string Name, Metric, Inch;
};

// "-5999TO5999" for people.
std::string RangeText(const std::string& tag) {
    const std::size_t middle = tag.find("TO");
    return tag.substr(0, middle) + " \xE2\x80\xA6 " + tag.substr(middle + 2);
}

// A workbench of one machine, to be asked about its codes.
class MachineTables {
public:
    MachineTables(MachineModel machine, const std::string& languageModule)
        : workbench_(std::make_unique<Workbench>(platform_.Services)) {
        workbench_->Modules.LoadLanguageModule(languageModule);
        workbench_->Store.Machine = machine;
        workbench_->Display.RefreshMachine();
    }

    const Texts& Language() const { return workbench_->Language; }
    bool IsMK2() const { return workbench_->Store.IsMK2(); }
    // Of the section of a code; the mill shares a document with a lathe.
    std::string AnchorOf(const std::string& code) const {
        return HelpDocuments::AnchorOf(workbench_->Store.Machine, code);
    }

    std::vector<const ListBox*> Lists() const {
        const CodeLists& lists = workbench_->Lists;
        if (workbench_->Store.IsMK2()) return {&lists.lstMK2Gcodes};
        if (workbench_->Store.IsMK4()) return {&lists.lstMK4Gcodes, &lists.lstMK4Mcodes};
        return {&lists.lstF1Gcodes, &lists.lstF1Mcodes};
    }

    std::vector<Parameter> ParametersOf(const std::string& code) {
        std::vector<Parameter> parameters;
        for (const bool metric : {true, false}) {
            workbench_->Machine.SetUnits(UnitsOf(metric));
            workbench_->Entry.lblGMcode.Caption = code.substr(0, 1);
            std::string form = code.substr(1);
            workbench_->Entry.txtGMcode.Text = form;
            workbench_->Layout.InputFields(form);
            std::size_t place = 0;
            const EntryRow& entry = workbench_->Entry;
            for (const auto& [label, field] : std::initializer_list<std::pair<const Label*, const TextBox*>>{
                     {&entry.lblXI, &entry.txtXI},
                     {&entry.lblYJ, &entry.txtYJ},
                     {&entry.lblZK, &entry.txtZK},
                     {&entry.lblFKTL, &entry.txtFKTL},
                     {&entry.lblH, &entry.txtH}}) {
                if (!field->Visible) continue;
                const std::string range = HtmlText(RangeText(field->Tag.Get()));
                if (metric) parameters.push_back({label->Caption.Get(), range, {}});
                if (!metric && place < parameters.size()) parameters[place].Inch = range;
                ++place;
            }
        }
        return parameters;
    }

private:
    OffscreenPlatform platform_;
    std::unique_ptr<Workbench> workbench_;
};

std::string CodeOf(const std::string& entry) { return std::string(Trim(Left(entry, 4))); }

std::string Commands(MachineTables& machine, const Words& words) {
    // By code, as the lists have them.
    std::map<std::string, std::vector<std::string>> byCode;
    const auto row = [&](const std::string& code, const std::string& meaning, const std::string& letters) {
        return std::vector<std::string>{"<a href=\"#" + machine.AnchorOf(code) + "\">" + code + "</a>",
                                        meaning, letters};
    };
    for (const ListBox* list : machine.Lists()) {
        for (const std::string& entry : list->Entries()) {
            std::string letters;
            for (const Parameter& one : machine.ParametersOf(CodeOf(entry)))
                letters += (letters.empty() ? "" : ", ") + one.Name;
            const std::string code = CodeOf(entry);
            byCode[code] = row(code, HtmlText(ToUtf8(EntryDescription(entry))), letters);
        }
    }
    for (const PanelCommand& command : panelCommands) {
        if (command.OnMK2 || !machine.IsMK2())
            byCode[command.Code] = {"<a href=\"#" + std::string(command.Code) + "\">" + command.Code + "</a>",
                                    words.*command.Meaning, ""};
    }
    std::vector<std::vector<std::string>> rows = {{words.Code, words.Meaning, words.Parameters}};
    for (auto& [code, cells] : byCode) rows.push_back(std::move(cells));
    return HtmlTable(rows);
}

std::string Ranges(MachineTables& machine, const Words& words) {
    // Codes with the same range share a row.
    std::vector<std::vector<std::string>> rows = {{words.Parameter, words.Codes, words.Metric, words.Inch}};
    for (const ListBox* list : machine.Lists()) {
        for (const std::string& entry : list->Entries()) {
            const std::string code = CodeOf(entry);
            for (const Parameter& one : machine.ParametersOf(code)) {
                const auto same = std::find_if(rows.begin() + 1, rows.end(), [&](const auto& row) {
                    return row[0] == one.Name && row[2] == one.Metric && row[3] == one.Inch;
                });
                if (same == rows.end()) {
                    rows.push_back({one.Name, code, one.Metric, one.Inch});
                } else {
                    (*same)[1] += " " + code;
                }
            }
        }
    }
    std::stable_sort(rows.begin() + 1, rows.end(), [](const auto& a, const auto& b) { return a[0] < b[0]; });
    return HtmlTable(rows);
}

std::string Limits(MachineTables& machine, const std::string& code, const Words& words) {
    std::vector<std::vector<std::string>> rows = {{words.Parameter, words.Metric, words.Inch}};
    for (const Parameter& one : machine.ParametersOf(code)) rows.push_back({one.Name, one.Metric, one.Inch});
    return rows.size() == 1 ? std::string() : HtmlTable(rows);
}

// What the findings of the check mean, each under a heading that F1 finds.
std::string Findings(const Texts& texts) {
    std::string page;
    for (int number = 1; number <= FindingCount; ++number) {
        page += "<h4><a name=\"" + FindingSection(number) + "\">" +
                HtmlText(ToUtf8(Trim(FindingName(number, texts)))) + "</a></h4>\n<p>";
        const std::string text = HtmlText(ToUtf8(ExplanationOf(number, texts)));
        page += Replace(text, LineEnd, "<br>\n") + "</p>\n";
    }
    return page;
}

}  // namespace

std::string HelpTable(std::string_view words, const std::string& languageModule) {
    const std::vector<std::string_view> parts = Split(words, " ");
    if (words == "findings") return Findings(MachineTables(MachineModel::MK4, languageModule).Language());
    const Words& heads = languageModule.empty() ? english : german;
    if (parts.size() < 2) return {};
    const auto model = MachineNamed(parts.back());
    if (!model) return {};
    MachineTables machine(*model, languageModule);
    if (parts.size() == 2 && parts[0] == "commands") return Commands(machine, heads);
    if (parts.size() == 2 && parts[0] == "ranges") return Ranges(machine, heads);
    if (parts.size() == 3 && parts[0] == "limits") return Limits(machine, std::string(parts[1]), heads);
    return {};
}

}  // namespace kvt
