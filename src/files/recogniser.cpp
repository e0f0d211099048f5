#include "files/recogniser.h"

#include <algorithm>
#include <functional>

#include "basic/text.h"
#include "files/cnc_format.h"

namespace kvt {

namespace {

// Marks are full of blanks, and so are programs: skipping ahead by the last character pays.
std::size_t Search(std::string_view upperText, std::string_view mark) {
    const std::string upperMark = UpperCase(mark);
    const auto at = std::search(upperText.begin(), upperText.end(),
                                std::boyer_moore_horspool_searcher(upperMark.begin(), upperMark.end()));
    return at == upperText.end() ? 0 : static_cast<std::size_t>(at - upperText.begin()) + 1;
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
    const std::string upper = UpperCase(text);
    Recognised found;
    for (const Mark& mark : marks) {
        found.Position = Search(upper, mark.Text);
        if (found.Position == 0) continue;
        found.Kind = mark.Kind;
        found.WithoutComments = mark.Kind == FileKind::MK4 && Search(upper, cnc::MarkWithoutComments) != 0;
        break;
    }
    return found;
}

}  // namespace kvt
