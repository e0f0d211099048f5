#include "console/help_markup.h"

#include <algorithm>
#include <array>

#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* styles =
    "<style>body{font-family:sans-serif;max-width:52em;margin:1em auto;padding:0 1em}"
    "table{border-collapse:collapse}td,th{text-align:left;vertical-align:top}"
    "pre,code{font-family:monospace}</style>";

// The code point that begins at a place of a text; the place goes behind it.
char32_t TakeCodePoint(std::string_view utf8, std::size_t& at) {
    const auto first = static_cast<unsigned char>(utf8[at++]);
    if (first < 0x80) return first;
    const int more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    char32_t point = first & (0x3F >> more);
    for (int i = 0; i < more && at < utf8.size(); ++i)
        point = (point << 6) | (static_cast<unsigned char>(utf8[at++]) & 0x3F);
    return point;
}

// Where a mark that opens at a place closes; npos where it does not.
std::size_t Close(std::string_view text, std::string_view mark, std::size_t from) {
    const std::size_t end = text.find(mark, from);
    return end == from ? std::string_view::npos : end;
}

struct Span {
    std::string_view Mark;
    const char* Element;
};
constexpr Span spans[] = {{"**", "b"}, {"*", "i"}, {"`", "code"}};

std::string Inline(std::string_view text);

// The piece at the beginning of a text that a mark changes, and how long it is; empty where there is none.
std::string TakeSpan(std::string_view text, std::size_t& length) {
    for (const Span& span : spans) {
        if (!text.starts_with(span.Mark)) continue;
        const std::size_t end = Close(text, span.Mark, span.Mark.size());
        if (end == std::string_view::npos) continue;
        const std::string_view inside = text.substr(span.Mark.size(), end - span.Mark.size());
        length = end + span.Mark.size();
        const std::string element = span.Element;
        return "<" + element + ">" + (element == "code" ? HtmlText(inside) : Inline(inside)) + "</" +
               element + ">";
    }
    if (text.starts_with("[")) {
        const std::size_t middle = text.find("](");
        const std::size_t end = middle == std::string_view::npos ? middle : text.find(')', middle);
        if (end != std::string_view::npos) {
            length = end + 1;
            return "<a href=\"" + HtmlText(text.substr(middle + 2, end - middle - 2)) + "\">" +
                   Inline(text.substr(1, middle - 1)) + "</a>";
        }
    }
    return {};
}

std::string Inline(std::string_view text) {
    std::string html;
    std::size_t plain = 0;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t length = 0;
        const std::string span = TakeSpan(text.substr(at), length);
        if (length == 0) {
            ++at;
            continue;
        }
        html += HtmlText(text.substr(plain, at - plain)) + span;
        at += length;
        plain = at;
    }
    return html + HtmlText(text.substr(plain));
}

std::vector<std::string> CellsOf(std::string_view line) {
    std::vector<std::string> cells;
    line = Trim(line);
    if (line.ends_with('|')) line.remove_suffix(1);
    for (const std::string_view cell : Split(line.substr(1), "|")) cells.push_back(Inline(Trim(cell)));
    return cells;
}

class PageWriter {
public:
    PageWriter(std::string_view text, const HelpInserts& inserts) : inserts_(inserts) {
        for (std::string_view line : Split(text, "\n")) {
            if (line.ends_with('\r')) line.remove_suffix(1);
            lines_.push_back(line);
        }
    }

    std::string Write() {
        while (at_ < lines_.size()) WriteBlock();
        return "<!DOCTYPE html>\n<html><head><meta charset=\"us-ascii\"><title>" + title_ + "</title>" +
               styles + "</head>\n<body>\n" + html_ + "</body></html>\n";
    }

private:
    std::string_view Line() const { return at_ < lines_.size() ? lines_[at_] : std::string_view(); }
    int Number() const { return static_cast<int>(at_) + 1; }

    void WriteBlock() {
        const std::string_view line = Line();
        if (Trim(line).empty()) {
            ++at_;
        } else if (line.starts_with('#')) {
            WriteHeading();
        } else if (line.starts_with("{{")) {
            const std::size_t end = line.find("}}");
            if (end == std::string_view::npos) throw HelpFault{Number(), "}} is missing"};
            html_ += inserts_.Directive(Trim(line.substr(2, end - 2)), Number());
            ++at_;
        } else if (line.starts_with("```")) {
            WriteExample();
        } else if (line.starts_with('|')) {
            WriteTable();
        } else if (ItemBegin(line) > 0) {
            WriteList();
        } else {
            WriteParagraph();
        }
    }

    void WriteHeading() {
        std::string_view text = Line();
        const auto level = std::min<std::size_t>(text.find_first_not_of('#'), 4);
        text = Trim(text.substr(level));
        std::string anchors;
        const std::size_t names = text.find("{#");
        if (names != std::string_view::npos) {
            std::string_view all = text.substr(names + 1);
            all = all.substr(0, all.find('}'));
            for (const std::string_view name : Split(all, " "))
                anchors += "<a name=\"" + HtmlText(name.substr(1)) + "\"></a>";
            text = Trim(text.substr(0, names));
        }
        const std::string element = "h" + std::to_string(level);
        if (title_.empty()) title_ = HtmlText(text);
        html_ += "<" + element + ">" + anchors + Inline(text) + "</" + element + ">\n";
        ++at_;
    }

    void WriteExample() {
        HelpBlock block{std::string(Trim(Line().substr(3))), {}, Number() + 1};
        constexpr std::string_view word = "example";
        const int begin = Number();
        if (!block.Head.starts_with(word)) throw HelpFault{begin, "a block that is no example"};
        block.Head = Trim(std::string_view(block.Head).substr(word.size()));
        for (++at_; at_ < lines_.size() && !Line().starts_with("```"); ++at_)
            block.Lines.emplace_back(Line());
        if (at_ >= lines_.size()) throw HelpFault{begin, "an example that does not end"};
        ++at_;
        html_ += inserts_.Example(block);
    }

    void WriteTable() {
        std::vector<std::vector<std::string>> rows;
        for (; Line().starts_with('|'); ++at_) {
            if (Line().find_first_not_of("|-: ") != std::string_view::npos) rows.push_back(CellsOf(Line()));
        }
        html_ += HtmlTable(rows);
    }

    // How long the mark of a list's item is; 0 where the line is none.
    static std::size_t ItemBegin(std::string_view line) {
        if (line.starts_with("- ")) return 2;
        const std::size_t digits = line.find_first_not_of("0123456789");
        if (digits == 0 || digits == std::string_view::npos) return 0;
        return line.substr(digits).starts_with(". ") ? digits + 2 : 0;
    }

    void WriteList() {
        const bool bullets = Line().starts_with('-');
        const std::string element = bullets ? "ul" : "ol";
        html_ += "<" + element + ">\n";
        while (ItemBegin(Line()) > 0 && Line().starts_with('-') == bullets) {
            std::string item(Line().substr(ItemBegin(Line())));
            for (++at_; Line().starts_with(' ') && !Trim(Line()).empty(); ++at_)
                item += " " + std::string(Trim(Line()));
            html_ += "<li>" + Inline(item) + "</li>\n";
        }
        html_ += "</" + element + ">\n";
    }

    void WriteParagraph() {
        std::string text;
        for (; !Trim(Line()).empty() && Line().find_first_of("#|`{") != 0 && ItemBegin(Line()) == 0; ++at_)
            text += (text.empty() ? "" : " ") + std::string(Trim(Line()));
        // A line that only looks like the beginning of something else.
        if (text.empty()) text = lines_[at_++];
        html_ += "<p>" + Inline(text) + "</p>\n";
    }

    std::vector<std::string_view> lines_;
    const HelpInserts& inserts_;
    std::size_t at_ = 0;
    std::string title_;
    std::string html_;
};

}  // namespace

std::string HtmlText(std::string_view utf8) {
    std::string html;
    for (std::size_t at = 0; at < utf8.size();) {
        const char32_t point = TakeCodePoint(utf8, at);
        switch (point) {
            case '<': html += "&lt;"; break;
            case '>': html += "&gt;"; break;
            case '&': html += "&amp;"; break;
            case '"': html += "&quot;"; break;
            default:
                if (point < 0x80) {
                    html += static_cast<char>(point);
                } else {
                    html += "&#" + std::to_string(static_cast<unsigned>(point)) + ";";
                }
        }
    }
    return html;
}

std::string HtmlTable(const std::vector<std::vector<std::string>>& rows) {
    std::string html = "<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">\n";
    for (const std::vector<std::string>& row : rows) {
        const std::string cell = &row == rows.data() ? "th" : "td";
        html += "<tr>";
        for (const std::string& text : row) html += "<" + cell + ">" + text + "</" + cell + ">";
        html += "</tr>\n";
    }
    return html + "</table>\n";
}

std::string HelpPage(std::string_view text, const HelpInserts& inserts) {
    return PageWriter(text, inserts).Write();
}

}  // namespace kvt
