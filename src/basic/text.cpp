#include "basic/text.h"

#include <algorithm>

#include "basic/run_time_error.h"

namespace kvt {

std::string UpperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper) c = UpperChar(c);
    return upper;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return UpperChar(x) == UpperChar(y); });
}

std::string_view TrimLeft(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? text.substr(text.size()) : text.substr(first);
}

std::string_view TrimRight(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? text.substr(0, 0) : text.substr(0, last + 1);
}

std::string_view Trim(std::string_view text) { return TrimRight(TrimLeft(text)); }

std::string_view Left(std::string_view text, std::ptrdiff_t length) {
    if (length < 0) throw RunTimeError(fault::InvalidCall);
    return text.substr(0, static_cast<std::size_t>(length));
}

std::string_view Right(std::string_view text, std::ptrdiff_t length) {
    if (length < 0) throw RunTimeError(fault::InvalidCall);
    const auto wanted = static_cast<std::size_t>(length);
    return wanted >= text.size() ? text : text.substr(text.size() - wanted);
}

std::string_view Mid(std::string_view text, std::ptrdiff_t start) {
    if (start < 1) throw RunTimeError(fault::InvalidCall);
    return text.substr(std::min(static_cast<std::size_t>(start) - 1, text.size()));
}

std::string_view Mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t length) {
    if (length < 0) throw RunTimeError(fault::InvalidCall);
    return Mid(text, start).substr(0, static_cast<std::size_t>(length));
}

std::size_t Find(std::string_view text, std::string_view what, Compare compare) {
    if (compare == Compare::Exact) {
        const std::size_t at = text.find(what);
        return at == std::string_view::npos ? 0 : at + 1;
    }
    const auto at = std::search(text.begin(), text.end(), what.begin(), what.end(),
                                [](char x, char y) { return UpperChar(x) == UpperChar(y); });
    return at == text.end() && !what.empty() ? 0 : static_cast<std::size_t>(at - text.begin()) + 1;
}

bool BeginsWithIgnoringCase(std::string_view text, std::string_view beginning) {
    return EqualIgnoringCase(text.substr(0, beginning.size()), beginning);
}

std::string RightPad(std::string_view text, std::size_t width) {
    if (text.size() >= width) return std::string(text.substr(text.size() - width));
    std::string padded(width - text.size(), ' ');
    padded += text;
    return padded;
}

std::vector<std::string_view> Split(std::string_view text, std::string_view delimiter, int limit,
                                    Compare compare) {
    std::vector<std::string_view> parts;
    if (text.empty() || limit == 0) return parts;
    while (!delimiter.empty() && (limit < 0 || static_cast<int>(parts.size()) + 1 < limit)) {
        const std::size_t at = Find(text, delimiter, compare);
        if (at == 0) break;
        parts.push_back(text.substr(0, at - 1));
        text.remove_prefix(at - 1 + delimiter.size());
    }
    parts.push_back(text);
    return parts;
}

std::string Replace(std::string_view text, std::string_view find, std::string_view replacement,
                    std::ptrdiff_t start, int count, Compare compare) {
    text = Mid(text, start);
    std::string replaced;
    while (!find.empty() && count != 0) {
        const std::size_t at = Find(text, find, compare);
        if (at == 0) break;
        replaced += text.substr(0, at - 1);
        replaced += replacement;
        text.remove_prefix(at - 1 + find.size());
        if (count > 0) --count;
    }
    replaced += text;
    return replaced;
}

std::string PathIn(std::string_view folder, std::string_view name) {
    std::string path(folder);
    if (!path.empty()) path += '/';
    return path.append(name);
}

std::string_view ExtractFileName(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string_view RemoveExtension(std::string_view name) { return name.substr(0, name.rfind('.')); }

void ParseKeyLine(std::string_view line, std::string& key, std::string& value) {
    const std::string plain = Replace(Replace(line, "[", ""), "]", "");
    const std::size_t equals = Find(plain, "=");
    if (equals == 0) {
        key = Trim(plain);
        value.clear();
        return;
    }
    key = Trim(std::string_view(plain).substr(0, equals - 1));
    value = Trim(std::string_view(plain).substr(equals));
}

}  // namespace kvt
