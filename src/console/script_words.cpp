#include "console/script_words.h"

#include <charconv>

namespace kvt {

namespace {

constexpr std::string_view blanks = " \t";

std::string_view WithoutBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

struct Escape {
    char Letter;
    char Character;
};

constexpr Escape escapes[] = {{'r', '\r'}, {'n', '\n'}, {'t', '\t'}, {'0', '\0'}, {'\\', '\\'}};

// Replaces escapes and variables. A variable's text is taken as it is.
std::string Expanded(std::string_view text, const Arguments::Variables& variables) {
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        const std::string_view rest = text.substr(at);
        std::size_t taken = 0;
        if (rest[0] == '\\' && rest.size() > 1) {
            for (const Escape& escape : escapes) {
                if (rest[1] != escape.Letter) continue;
                result += escape.Character;
                taken = 2;
            }
        } else if (rest.substr(0, 2) == "${") {
            for (const auto& [name, value] : variables) {
                if (rest.substr(2, name.size() + 1) != name + "}") continue;
                result += value;
                taken = name.size() + 3;
            }
        }
        if (taken == 0) {
            result += rest[0];
            taken = 1;
        }
        at += taken;
    }
    return result;
}

int WholeNumber(std::string_view word) {
    int number = 0;
    const auto read = std::from_chars(word.data(), word.data() + word.size(), number);
    if (read.ec != std::errc() || read.ptr != word.data() + word.size()) {
        throw ScriptError{"not a whole number: " + Quoted(word)};
    }
    return number;
}

// A word, without the double quotes that it may have.
std::string_view TakeQuotedWord(std::string_view& line) {
    line = WithoutBlanks(line);
    const std::size_t end = line.substr(0, 1) == "\"" ? line.find('"', 1) : std::string_view::npos;
    if (end == std::string_view::npos) return NextWord(line);
    const std::string_view word = line.substr(1, end - 1);
    line = WithoutBlanks(line.substr(end + 1));
    return word;
}

std::string_view WithoutQuotes(std::string_view text) {
    const bool quoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

Arguments::Arguments(std::string_view line, const Shape& shape, const Variables& variables) {
    line = WithoutBlanks(line);
    for (const Arg kind : shape) {
        if (kind == Arg::None) break;
        Value one;
        if (kind == Arg::Line) {
            one.Text = std::exchange(line, {});
        } else if (kind == Arg::Text) {
            one.Text = Expanded(WithoutQuotes(std::exchange(line, {})), variables);
        } else if (!line.empty()) {
            one.Text = Expanded(TakeQuotedWord(line), variables);
            if (kind != Arg::Word) one.Number = WholeNumber(one.Text);
        } else if (kind == Arg::MaybeNumber) {
            break;
        } else {
            throw ScriptError{"an argument is missing"};
        }
        values_.push_back(std::move(one));
    }
    if (!line.empty()) throw ScriptError{"what is this: " + Quoted(line)};
}

std::string_view NextWord(std::string_view& line) {
    line = WithoutBlanks(line);
    const std::string_view word = line.substr(0, line.find_first_of(blanks));
    line = WithoutBlanks(line.substr(word.size()));
    return word;
}

std::string Escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        char letter = 0;
        for (const Escape& escape : escapes) {
            if (c == escape.Character) letter = escape.Letter;
        }
        if (letter != 0) {
            result += '\\';
            result += letter;
        } else {
            result += c;
        }
    }
    return result;
}

std::string Quoted(std::string_view text) { return "\"" + Escaped(text) + "\""; }

}  // namespace kvt
