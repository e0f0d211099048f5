#include "web/web_clipboard.h"

namespace kvt {

std::string WebClipboard::GetText() {
    if (held_) return *held_;
    const PageEvent answer = system_.Ask(Message("clipboardRead"), WebSystem::Meanwhile::Nothing);
    return answer.Has("text") ? answer.Code("text") : last_;
}

void WebClipboard::SetText(std::string_view text) {
    last_ = text;
    page_.Send(Message("clipboardWrite").Code("text", text));
}

void WebClipboard::SetPicture(const Pixels& picture) {
    last_.clear();
    page_.Send(Message("clipboardPicture").Bytes("png", PngOf(picture)));
}

}  // namespace kvt
