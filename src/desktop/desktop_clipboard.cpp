#include "desktop/desktop_clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

#include "desktop/pixel_image.h"
#include "desktop/text.h"

namespace kvt {

// Line ends are CR LF here, whatever those of the program that the text comes from.
std::string DesktopClipboard::GetText() {
    return FromQt(WithProgramLineEnds(WithToolkitLineEnds(QGuiApplication::clipboard()->text())));
}

void DesktopClipboard::Clear() { QGuiApplication::clipboard()->clear(); }

void DesktopClipboard::SetText(std::string_view text) { QGuiApplication::clipboard()->setText(ToQt(text)); }

void DesktopClipboard::SetPicture(const Pixels& picture) {
    QGuiApplication::clipboard()->setImage(ImageOf(picture));
}

}  // namespace kvt
