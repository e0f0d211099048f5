#pragma once

#include <span>
#include <string>
#include <string_view>

#include "program/texts.h"

namespace kvt {

// The findings of the check have an explanation each: what the control would do, why, and what helps. The table of
// their texts is numbered by finding and part; the findings on values beyond a limit are one for each letter.
inline constexpr int FindingCount = 29;
inline constexpr int ExplanationPartCount = 3;

// The built-in texts, in English.
std::span<const TextsOf<int>::Default> ExplanationDefaults();

// The number of a finding as the error column shows it, in the language in force: 1 to FindingCount, 0 for a text that
// is none.
int FindingNumber(std::string_view finding, const Texts& texts);
// The finding of a number as the error column shows it; of a limit the beginning, "!X=".
std::string FindingName(int number, const Texts& texts);

// Where it is explained in the help.
std::string FindingSection(int number);

// What is told about a finding, without its text: three lines that end in CR LF but for the last one. Empty for a text
// that is no finding.
std::string Explanation(std::string_view finding, const Texts& texts);
// The same for a number; the limit is left open.
std::string ExplanationOf(int number, const Texts& texts);

}  // namespace kvt
