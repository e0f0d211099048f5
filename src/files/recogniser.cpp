#include "files/recogniser.h"

#include "basic/text.h"
#include "files/cnc_format.h"

namespace kvt {

namespace {

// The place of a mark, counted from 1, case ignored; 0 for none. Marks and programs are full of blanks, so the mark's
// first other character is looked for, in both cases.
std::size_t Search(std::string_view text, std::string_view mark) {
    const std::size_t anchor = mark.find_first_not_of(' ');
    const char upper = mark[anchor];
    const char lower = upper >= 'A' && upper <= 'Z' ? static_cast<char>(upper - 'A' + 'a') : upper;
    std::size_t first = std::string_view::npos;
    for (const char wanted : {upper, lower}) {
        for (std::size_t at = text.find(wanted, anchor); at < first; at = text.find(wanted, at + 1)) {
            if (EqualIgnoringCase(text.substr(at - anchor, mark.size()), mark)) first = at;
        }
        if (upper == lower) break;
    }
    return first == std::string_view::npos ? 0 : first - anchor + 1;
}

struct Mark {
    std::string_view Text;
    FileKind Kind;
    MachineModel Machine = MachineModel::MK4;
};

constexpr Mark marks[] = {{cnc::MarkMK2, FileKind::Program, MachineModel::MK2},
                          {cnc::MarkMK4, FileKind::Program, MachineModel::MK4},
                          {cnc::MarkF1, FileKind::Program, MachineModel::F1},
                          {cnc::MarkLanguage, FileKind::Language}};

}  // namespace

Recognised Recognise(std::string_view text) {
    Recognised found;
    for (const Mark& mark : marks) {
        found.Position = Search(text, mark.Text);
        if (found.Position == 0) continue;
        found.Kind = mark.Kind;
        found.Machine = mark.Machine;
        const bool maySay = mark.Kind == FileKind::Program && mark.Machine == MachineModel::MK4;
        found.WithoutComments = maySay && Search(text, cnc::MarkWithoutComments) != 0;
        break;
    }
    return found;
}

}  // namespace kvt
