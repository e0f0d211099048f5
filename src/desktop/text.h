#pragma once

#include <QString>
#include <string>
#include <string_view>

// Texts cross between the program's code page and the toolkit's Unicode here.
namespace kvt {

QString ToQt(std::string_view text);
// The same for a caption or a message, which may contain file names.
QString ShownToQt(std::string_view text);
// A character that the code page lacks becomes "?".
std::string FromQt(const QString& text);

// The number of a character in the code page, 0 where it has none.
int CharacterNumber(QChar character);
QChar CharacterOf(int number);

// Line ends are CR LF in the program and LF alone in the toolkit.
QString WithToolkitLineEnds(QString text);
QString WithProgramLineEnds(QString text);

// What of a text may enter a field: characters of the code page; line ends only where they are kept.
QString Cleaned(const QString& text, bool keepLineEnds);

// A path as the program holds it: in the code page where that is possible without loss, its bytes otherwise.
std::string PathText(const QString& path);
QString PathToQt(std::string_view path);

}  // namespace kvt
