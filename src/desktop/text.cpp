#include "desktop/text.h"

#include <QFile>

#include "basic/code_page.h"
#include "basic/line_end.h"

namespace kvt {

QString ToQt(std::string_view text) { return QString::fromStdString(ToUtf8(text)); }

QString ShownToQt(std::string_view text) { return QString::fromStdString(ShownToUtf8(text)); }

std::string FromQt(const QString& text) { return FromUtf8(text.toStdString()); }

int CharacterNumber(QChar character) {
    if (character.unicode() < 0x80) return character.unicode();
    const std::string text = FromQt(QString(character));
    return text.size() == 1 && text != "?" ? static_cast<unsigned char>(text[0]) : 0;
}

QChar CharacterOf(int number) {
    const char byte = static_cast<char>(number);
    return ToQt(std::string_view(&byte, 1)).at(0);
}

QString WithToolkitLineEnds(QString text) {
    return text.replace(ToQt(LineEnd), QStringLiteral("\n")).replace(u'\r', u'\n');
}

QString WithProgramLineEnds(QString text) { return text.replace(u'\n', ToQt(LineEnd)); }

QString Cleaned(const QString& text, bool keepLineEnds) {
    QString cleaned;
    cleaned.reserve(text.size());
    for (const QChar c : text.normalized(QString::NormalizationForm_C)) {
        const bool lineEnd = c == u'\r' || c == u'\n';
        if (lineEnd ? keepLineEnds : CharacterNumber(c) != 0) cleaned += c;
    }
    return cleaned;
}

std::string PathText(const QString& path) { return NameFromSystem(QFile::encodeName(path).toStdString()); }

QString PathToQt(std::string_view path) {
    const QByteArray bytes(path.data(), static_cast<qsizetype>(path.size()));
    const QString plain = QFile::decodeName(bytes);
    return QFile::exists(plain) ? plain : ShownToQt(path);
}

}  // namespace kvt
