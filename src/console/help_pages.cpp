#include "console/help_pages.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <memory>

#include "basic/code_page.h"
#include "basic/text.h"
#include "console/help_markup.h"
#include "console/help_tables.h"
#include "console/loaded_file.h"
#include "draw/svg.h"
#include "platform/twips.h"
#include "system/offscreen_window.h"

namespace kvt {

namespace {

namespace fs = std::filesystem;

constexpr int pictureWidth = 7400, pictureHeight = 6600;  // of the drawing window, twips
constexpr double widest = 460, highest = 340;             // of a drawing in the document, pixels

std::string ReadAll(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool WriteAll(const fs::path& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text;
    return static_cast<bool>(out.flush());
}

// A small program of a document, typed in as a user does it, and drawn on white.
class Example {
public:
    Example(const HelpBlock& block, const std::string& languageModule)
        : block_(block),
          workbench_(std::make_unique<Workbench>(platform_.Services)),
          window_(workbench_->Draw.Controls.frmDraw, platform_.Screen, platform_.Focus) {
        ReadHead();
        ProgramStore& store = workbench_->Store;
        workbench_->Display.RefreshMachine();
        store.AddBlankLine(false);
        for (const std::string& line : block.Lines) {
            ++line_;
            if (!Trim(line).empty()) Enter(line);
        }
        const bool failed = store.ErrorRow != 0;
        if (failed != wantsError_) {
            throw HelpFault{block.Line - 1, failed ? "the check finds " + FirstFinding()
                                                   : std::string("the check finds no error")};
        }
        // Heads and findings of the listing; the lines are entered by the letters of the English labels.
        workbench_->Modules.LoadLanguageModule(languageModule);
    }

    std::string Listing() const {
        const bool mill = workbench_->Store.IsF1();
        std::vector<int> columns = {column::Number, column::Code, column::X};
        if (mill) columns.push_back(column::Y);
        columns.insert(columns.end(), {column::Z, column::F});
        if (workbench_->Store.IsMK4()) columns.push_back(column::H);
        columns.push_back(column::Comment);
        const ListView& list = workbench_->Store.lvCncProgram;
        std::string text;
        for (const int c : columns) {
            std::string head = list.Header(c + 1).Text;
            head.resize(std::max<std::size_t>(head.size(), c == column::Comment ? 0 : WidthOf(c)), ' ');
            text += head + " ";
        }
        text = std::string(TrimRight(text)) + "\n";
        for (int row = 1; row <= workbench_->Store.LineCount(); ++row) {
            std::string line;
            for (const int c : columns) {
                std::string cell(list.Row(row)[c]);
                if (c != column::Comment) cell.resize(std::max<std::size_t>(cell.size(), WidthOf(c)), ' ');
                line += cell + " ";
            }
            text += std::string(TrimRight(line)) + "\n";
            const std::string finding(Trim(list.Row(row)[column::Error]));
            if (!finding.empty()) text += "   ^ " + finding + "\n";
        }
        return "<pre>" + HtmlText(ToUtf8(text)) + "</pre>\n";
    }

    // The drawing as an SVG document; empty where nothing is drawn.
    std::string Draw(double& width, double& height) {
        DrawWindow& draw = workbench_->Draw;
        // A window as large as the picture is to be, so that lines keep their width.
        platform_.Screen.WidthTwips = 0;
        draw.Controls.frmDraw.Width = pictureWidth;
        draw.Controls.frmDraw.Height = pictureHeight;
        draw.Controls.mnuBackground.Checked = true;
        draw.Controls.mnuGrid.Checked = false;
        draw.Controls.mnuRadiiArcs.Checked = false;
        platform_.System.Watch(draw.Controls.frmDraw);
        draw.Show();
        const PictureBox& field = draw.Controls.pbxDrawField;
        const bool moves = workbench_->Results.lblXAxisTravel.Caption != "0" ||
                           workbench_->Results.lblYAxisTravel.Caption != "0" ||
                           workbench_->Results.lblZAxisTravel.Caption != "0";
        if (!moves) return {};
        const FieldArea area = AreaOf(field.Operations(), field.ScaleWidth(), field.ScaleHeight());
        const double scale =
            std::min({widest * TwipsPerPixel / area.Width, highest * TwipsPerPixel / area.Height, 1.0});
        width = area.Width / TwipsPerPixel * scale;
        height = area.Height / TwipsPerPixel * scale;
        return SvgOf(
            field.Operations(),
            {std::string(NameOf(workbench_->Store.Machine)), draw.State.DrawScale,
             workbench_->Store.Metric ? "0.01 mm" : "0.001 inch", field.ScaleWidth(), field.ScaleHeight()});
    }

private:
    static std::size_t WidthOf(int c) {
        return c == column::Number ? 3 : c == column::F ? 4 : c == column::H ? 4 : 6;
    }

    void ReadHead() {
        bool units = false;
        for (const std::string_view word : Split(block_.Head, " ")) {
            if (const auto machine = MachineNamed(word)) {
                workbench_->Store.Machine = *machine;
            } else if (word == "mm" || word == "inch") {
                workbench_->Machine.SetUnits(UnitsOf(word == "mm"));
                units = true;
            } else if (word == "error") {
                wantsError_ = true;
            } else if (!word.empty()) {
                throw HelpFault{block_.Line - 1, "an example does not know " + std::string(word)};
            }
        }
        if (!units) throw HelpFault{block_.Line - 1, "an example needs a machine and units"};
    }

    // "G01 X0 Z-100 F80 ; comment" as the line that follows.
    void Enter(std::string_view line) {
        const std::size_t comment = line.find(';');
        const std::vector<std::string_view> words = Split(Trim(line.substr(0, comment)), " ");
        EntryRow& entry = workbench_->Entry;
        if (words[0].size() < 3) Fail("no code: " + std::string(line));
        entry.lblGMcode.Caption = words[0].substr(0, 1);
        std::string code(words[0].substr(1));
        entry.txtGMcode.Text = code;
        workbench_->Layout.InputFields(code);
        for (TextBox* field : {&entry.txtXI, &entry.txtYJ, &entry.txtZK, &entry.txtFKTL, &entry.txtH})
            field->Text = field->Visible ? "0" : "";
        for (std::size_t i = 1; i < words.size(); ++i) {
            if (!words[i].empty()) FieldOf(words[i]).Text = words[i].substr(1);
        }
        entry.txtComment.Text =
            comment == std::string_view::npos ? "" : FromUtf8(Trim(line.substr(comment + 1)));
        ListView& list = workbench_->Store.lvCncProgram;
        list.Select(list.Count());
        workbench_->Lines.LineEdit();
    }

    TextBox& FieldOf(std::string_view word) {
        EntryRow& entry = workbench_->Entry;
        for (const auto& [label, field] :
             std::initializer_list<std::pair<Label*, TextBox*>>{{&entry.lblXI, &entry.txtXI},
                                                                {&entry.lblYJ, &entry.txtYJ},
                                                                {&entry.lblZK, &entry.txtZK},
                                                                {&entry.lblFKTL, &entry.txtFKTL},
                                                                {&entry.lblH, &entry.txtH}}) {
            // The label of a target says "Line".
            const std::string& caption = label->Caption.Get();
            if (field->Visible && !caption.empty() && caption[0] == word[0]) return *field;
        }
        Fail(std::string("no field for ") + std::string(word));
    }

    [[noreturn]] void Fail(const std::string& what) const { throw HelpFault{block_.Line + line_ - 1, what}; }

    std::string FirstFinding() const {
        const ListRow& row = workbench_->Store.lvCncProgram.Row(workbench_->Store.ErrorRow);
        return std::string(Trim(row[column::Error])) + " in line " + std::string(Trim(row[column::Number]));
    }

    const HelpBlock& block_;
    OffscreenPlatform platform_;
    std::unique_ptr<Workbench> workbench_;
    OffscreenWindow window_;
    int line_ = 0;
    bool wantsError_ = false;
};

// The language module of a folder of sources: "de" has the German one, beside the folder of all sources.
std::string ModuleOf(const fs::path& folder) {
    if (folder.filename() != "de") return {};
    return NameFromSystem((folder.parent_path().parent_path() / "languages/Deutsch.txt").string());
}

// One document with its drawings.
void MakePage(const fs::path& source, const fs::path& folder) {
    const std::string name = source.stem().string();
    int drawings = 0;
    HelpInserts inserts;
    inserts.Directive = [&](std::string_view words, int line) {
        const std::string table = HelpTable(words, ModuleOf(source.parent_path()));
        if (table.empty()) throw HelpFault{line, "no such table: " + std::string(words)};
        return table;
    };
    inserts.Example = [&](const HelpBlock& block) {
        Example example(block, ModuleOf(source.parent_path()));
        double width = 0;
        double height = 0;
        const std::string svg = example.Draw(width, height);
        if (svg.empty()) return example.Listing();
        const std::string file = name + "_" + std::to_string(++drawings) + ".svg";
        if (!WriteAll(folder / file, svg)) throw HelpFault{block.Line, file + " cannot be written"};
        return example.Listing() + "<p><img src=\"" + file + "\" width=\"" +
               std::to_string(static_cast<int>(width)) + "\" height=\"" +
               std::to_string(static_cast<int>(height)) + "\"></p>\n";
    };
    const std::string page = HelpPage(ReadAll(source), inserts);
    if (!WriteAll(folder / (name + ".html"), page)) throw HelpFault{0, "cannot be written"};
}

}  // namespace

int MakeHelp(const fs::path& sources, const fs::path& target) {
    int result = 0;
    for (const fs::directory_entry& language : fs::directory_iterator(sources)) {
        if (!language.is_directory()) continue;
        const fs::path folder = target / language.path().filename();
        fs::create_directories(folder);
        for (const fs::directory_entry& file : fs::directory_iterator(language.path())) {
            if (file.path().extension() != ".md") continue;
            try {
                MakePage(file.path(), folder);
            } catch (const HelpFault& fault) {
                std::fprintf(stderr, "%s:%d: %s\n", file.path().c_str(), fault.Line, fault.what());
                result = 1;
            }
        }
    }
    return result;
}

}  // namespace kvt
