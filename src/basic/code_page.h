#pragma once

#include <string>
#include <string_view>

// Texts inside the program are Windows-1252; these cross its border.
namespace kvt {

// UTF-8 of a text; a byte without a character in the code page becomes the control character of its number.
std::string ToUtf8(std::string_view text);
void AppendUtf8(std::string_view text, std::string& out);

// The same for a caption or a message, which may contain file names: the bytes of a name that the code page does not
// hold are UTF-8 already, and stay.
std::string ShownToUtf8(std::string_view text);

// Whether the bytes are well-formed UTF-8.
bool IsUtf8(std::string_view bytes);

// The text of UTF-8; a character that the code page lacks, or a stray byte, becomes "?".
std::string FromUtf8(std::string_view utf8);

// UTF-8 as it may go to a terminal, in one line: a control character, or a stray byte that some terminals take for
// one, shows as ".".
std::string WithoutControls(std::string_view utf8);

// A file name of the system as the program holds it: in the code page where that is possible without loss.
std::string NameFromSystem(std::string_view name);

}  // namespace kvt
