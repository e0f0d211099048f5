#include "web/web_clipboard.h"

#include "basic/code_page.h"
#include "basic/run_time_error.h"

namespace kvt {

std::string KnownCharactersOf(std::string_view utf8) {
    std::string characters = FromUtf8(utf8);
    if (utf8.find('?') == std::string_view::npos) std::erase(characters, '?');
    std::erase(characters, '\0');
    return characters;
}

void WebClipboard::Hold(std::string_view utf8) { held_ = KnownCharactersOf(utf8); }

std::string WebClipboard::GetText() {
    if (held_) return *held_;
    const PageEvent answer = system_.Ask(Message("clipboardRead"), WebSystem::Meanwhile::Nothing);
    return answer.Has("text") ? KnownCharactersOf(answer.Raw("text")) : last_;
}

void WebClipboard::SetText(std::string_view text) {
    last_ = text;
    page_.Send(Message("clipboardWrite").Code("text", text));
}

void WebClipboard::SetPicture(const Pixels& picture) {
    last_.clear();
    Message message("clipboardPicture");
    message.Bytes("png", PngOf(picture));
    if (!system_.Ask(message, WebSystem::Meanwhile::Nothing).Flag("ok"))
        throw RunTimeError(fault::InvalidCall);
}

}  // namespace kvt
