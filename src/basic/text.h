#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// Texts are bytes of one single-byte code page, so a position is a column. Positions count from 1.
namespace kvt {

enum class Compare { Exact, IgnoreCase };

// Upper case of the letters a to z; every other byte stays.
constexpr char UpperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
std::string UpperCase(std::string_view text);
bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Trimming takes off blanks only.
std::string_view Trim(std::string_view text);
std::string_view TrimLeft(std::string_view text);
std::string_view TrimRight(std::string_view text);

// Cutting. A start below 1 or a length below 0 is error 5; past the end there is just less.
std::string_view Left(std::string_view text, std::ptrdiff_t length);
std::string_view Right(std::string_view text, std::ptrdiff_t length);
std::string_view Mid(std::string_view text, std::ptrdiff_t start);
std::string_view Mid(std::string_view text, std::ptrdiff_t start, std::ptrdiff_t length);

// Position of the first occurrence, 0 for none. An empty text is found at 1.
std::size_t Find(std::string_view text, std::string_view what, Compare compare = Compare::Exact);
bool BeginsWithIgnoringCase(std::string_view text, std::string_view beginning);

// Right-justifies, despite its name: blanks in front up to width, or the last width characters.
std::string RightPad(std::string_view text, std::size_t width);

// The parts between delimiters; at most limit of them, the last with what is left; -1 for all. An empty text
// has no parts, an empty delimiter gives the text as one. The parts look into text.
std::vector<std::string_view> Split(std::string_view text, std::string_view delimiter, int limit = -1,
                                    Compare compare = Compare::Exact);

// text from start on, with the first count occurrences replaced; -1 for all. A start below 1 is error 5.
std::string Replace(std::string_view text, std::string_view find, std::string_view replacement,
                    std::ptrdiff_t start = 1, int count = -1, Compare compare = Compare::Exact);

// What follows the last folder separator ("\" and "/" both separate).
std::string_view ExtractFileName(std::string_view path);
// The path of a file in a folder; the bare name where the folder has none.
std::string PathIn(std::string_view folder, std::string_view name);
// The name without the part after its last point, and without the point.
std::string_view RemoveExtension(std::string_view name);

// Splits "key = value" at the first "=" after taking out "[" and "]"; both sides trimmed. Without "=" the
// whole line is the key and the value empty.
void ParseKeyLine(std::string_view line, std::string& key, std::string& value);

}  // namespace kvt
