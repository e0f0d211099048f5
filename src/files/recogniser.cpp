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
    FileKind Kind;
    std::string_view Text;
};

constexpr Mark marks[] = {{FileKind::MK2, cnc::MarkMK2},
                          {FileKind::MK4, cnc::MarkMK4},
                          {FileKind::F1, cnc::MarkF1},
                          {FileKind::Language, cnc::MarkLanguage}};

}  // namespace

Recognised Recognise(std::string_view text) {
    Recognised found;
    for (const Mark& mark : marks) {
        found.Position = Search(text, mark.Text);
        if (found.Position == 0) continue;
        found.Kind = mark.Kind;
        found.WithoutComments = mark.Kind == FileKind::MK4 && Search(text, cnc::MarkWithoutComments) != 0;
        break;
    }
    return found;
}

}  // namespace kvt
