#include "headless/memory_platform.h"

namespace kvt {

Answer MemoryDialogs::ShowMessage(const MessageBox& box) {
    const Answer byDefault = OffscreenDialogs::ShowMessage(box);
    const Answer asked = Answers.empty() ? Answer::Ok : Answers.front();
    const bool asks = box.Choice != Buttons::Ok;
    const bool fits =
        asked == Answer::Cancel ? box.Choice == Buttons::YesNoCancel : (asked != Answer::Ok) == asks;
    if (Answers.empty() || !fits) {
        if (!Answers.empty()) Answers.pop_front();
        if (OnUnanswered) OnUnanswered(box);
        return byDefault;
    }
    Answers.pop_front();
    return asked;
}

bool MemoryDialogs::Choose(FileDialog& dialog) {
    FileAnswer answer{true, {}};
    if (!FileAnswers.empty()) {
        answer = FileAnswers.front();
        FileAnswers.pop_front();
    }
    if (!answer.Cancelled) {
        dialog.FileName = answer.Path;
        return true;
    }
    return Cancel(dialog);
}

bool MemoryDialogs::ShowColor(Color& color) {
    if (ColorAnswers.empty()) return false;
    const std::optional<Color> answer = ColorAnswers.front();
    ColorAnswers.pop_front();
    if (answer) color = *answer;
    return answer.has_value();
}

void MemoryClipboard::Clear() {
    Content.clear();
    Picture = {};
}

void MemoryClipboard::SetText(std::string_view text) {
    Content = text;
    Picture = {};
}

void MemoryClipboard::SetPicture(const Pixels& picture) {
    Content.clear();
    Picture = picture;
}

}  // namespace kvt
