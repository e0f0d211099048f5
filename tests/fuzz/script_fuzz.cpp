// Scripts: any bytes as the lines of one, or as the doings of somebody who knows nothing of the workbench. Whatever
// they do, also inside of waits, the rows stay in order. They write in folders of their own alone, and start no
// program: none is found, and no pre-processor can be put there.

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "console/script_run.h"
#include "support/map_files.h"

using kvt::test::Demand;

namespace {

// With its line ends written as a script writes them.
constexpr const char* mk4 =
    R"(%\r\n    N` G`   X `    Z `  F`  H \r\n    00 92  2000    500\r\n    01 01  1000 - 2000  50\r\n)"
    R"(    02 02  1500 - 2250  50\r\n    03 84   900 - 1500 100  40\r\n    04 25            L 06\r\n)"
    R"(    05M30\r\n    06M17\r\n   M\r\n)";
constexpr const char* f1 =
    R"(%\r\n    N` G`  X  `  Y `   Z ` F  \r\n    00 92    00   00   500\r\n    01M06D  500S1200    00T 01\r\n)"
    R"(    02 72  1580 1580-  200  70\r\n    03 73           - 1200  50\r\n    04M30\r\n   MI\r\n)";
constexpr const char* mk2 =
    R"(%\r\n   N00 G92 X 3200 Z  1000 F   \r\n   N01 G03 X 2200 Z-  400 F 40\r\n   M\r\n)";
constexpr const char* programs[] = {mk4, f1, mk2};

constexpr const char* keys[] = {"Enter",  "Tab",    "Shift+Tab", "Esc",    "Insert", "Delete", "Backspace",
                                "Up",     "Down",   "Left",      "Right",  "Home",   "End",    "F1",
                                "F2",     "F5",     "F6",        "F9",     "Ctrl+A", "Ctrl+C", "Ctrl+V",
                                "Ctrl+X", "Ctrl+S", "Ctrl+F",    "Ctrl+P", "Ctrl+T", "Ctrl+R", "Ctrl+O"};
constexpr char letters[] = "0123456789GMgmRrABab-+*/P.,';%!";
constexpr const char* answers[] = {"yes", "no", "cancel", "ok"};
constexpr const char* lines[] = {"00\\r100\\r200\\r",
                                 "01\\r50\\r-300\\r40\\r\\r",
                                 "02\\r500\\r500\\r80\\r\\r",
                                 "90\\r\\r",
                                 "25\\r3\\r\\r",
                                 "27\\r0\\r\\r",
                                 "84\\r-100\\r-2000\\r80\\r50\\r",
                                 "-06\\r500\\r9\\r0\\r1",
                                 "33\\r10\\r-2000\\r100\\r\\r",
                                 "00\\r5\\r5\\r5\\r\\r"};

// The names that a script calls the controls by.
const std::vector<std::string>& Names() {
    static const std::vector<std::string> names = [] {
        std::vector<std::string> found;
        const kvt::ScriptRun run("names", "", {});
        for (const kvt::Form* form : run.Session.Forms()) {
            for (const kvt::Control* control : form->Controls()) {
                std::string name = form->Name() + "." + control->Name();
                if (control->Index() >= 0) name += " " + std::to_string(control->Index());
                found.push_back(std::move(name));
            }
        }
        return found;
    }();
    return names;
}

class Doings {
public:
    Doings(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    std::string Script() {
        std::string script = "write ${TMP}/p.cnc " + std::string(Of(programs)) + "\nstart ${TMP}/p.cnc\n";
        while (size_ > 0) script += Line() + "\n";
        return script;
    }

private:
    int Below(std::size_t bound) {
        if (size_ == 0) return 0;
        --size_;
        return static_cast<int>(*data_++ % bound);
    }
    template <class Item, std::size_t N>
    Item Of(Item const (&items)[N]) {
        return items[Below(N)];
    }
    const std::string& Name() {
        const auto high = static_cast<std::size_t>(Below(256));
        return Names()[(high * 256 + static_cast<std::size_t>(Below(256))) % Names().size()];
    }
    // A name of a text box, which text can be put into.
    std::string Field() {
        std::string name = Name();
        for (int i = 0; i < 64 && name.find(".txt") == std::string::npos; ++i) name = Name();
        return name.find(".txt") == std::string::npos ? "txtGMcode" : name;
    }
    std::string Number(std::size_t bound) { return std::to_string(Below(bound)); }

    std::string Line() {
        switch (Below(16)) {
            case 0: return std::string("type ") + Of(lines);
            case 1: return std::string("type ") + letters[Below(sizeof letters - 1)];
            case 2:
            case 3: return std::string("press ") + Of(keys);
            case 4: return "clickrow " + Number(12);
            case 5: return "advance " + Number(250) + "0";
            case 6: return "set " + Field() + " " + Number(256) + letters[Below(sizeof letters - 1)];
            case 7: return std::string("answer ") + Of(answers);
            case 8: return "file ${TMP}/" + Number(3) + ".cnc";
            case 9:
                return std::string("fails ") + (Below(2) == 0 ? "file " : "clipboard ") +
                       std::to_string(1 + Below(5));
            case 10: return "mousedown " + Number(200) + "00 " + Number(200) + "00";
            case 11: return "during " + std::to_string(1 + Below(4)) + " " + Line();
            case 12: return "receive " + std::string(Of(programs));
            case 13: return "close frmDraw";
            default: return "click " + Name();
        }
    }

    const std::uint8_t* data_;
    std::size_t size_;
};

// Without what puts a program there, and without waits that a user would give up.
std::string Harmless(const std::string& script) {
    std::string kept;
    for (std::size_t at = 0; at < script.size();) {
        const std::size_t end = std::min(script.find('\n', at), script.size());
        const std::string line = script.substr(at, end - at);
        at = end + 1;
        const bool barred = line.find("program") != std::string::npos ||
                            line.find("PP") != std::string::npos || line.find("Proc") != std::string::npos ||
                            line.find("advance") != std::string::npos;
        if (!barred) kept += line + "\n";
    }
    return kept;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2 || size > 2048) return 0;
    static const bool alone = setenv("PATH", "/nonexistent", 1) == 0;
    Demand(alone);
    const std::string script = data[0] % 4 == 0
                                   ? Harmless({reinterpret_cast<const char*>(data + 1), size - 1})
                                   : Doings(data + 1, size - 1).Script();
    kvt::ScriptOptions options;
    options.Ports = {2};
    kvt::ScriptRun run("script", script, options);
    const int status = run.Run();
    Demand(status >= 0 && status <= 2);
    if (!run.Session.Running()) return 0;
    const kvt::ListView& rows = run.Session.Program();
    Demand(rows.Count() - run.Session.Workbench().Store.LineCount() <= 1);
    Demand(rows.Count() == 0 || (rows.SelectedRow() >= 1 && rows.SelectedRow() <= rows.Count()));
    return 0;
}
