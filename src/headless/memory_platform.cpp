#include "headless/memory_platform.h"

#include <algorithm>

#include "basic/run_time_error.h"

namespace kvt {

Answer MemoryDialogs::ShowMessage(const MessageBox& box) {
    Shown.push_back(box);
    // Titles that nobody named are the program's.
    if (box.Title.empty()) Shown.back().Title = "Kestrel Vise Toolkit";
    const Answer asked = Answers.empty() ? Answer::Ok : Answers.front();
    const bool asks = box.Choice != Buttons::Ok;
    const bool fits =
        asked == Answer::Cancel ? box.Choice == Buttons::YesNoCancel : (asked != Answer::Ok) == asks;
    if (Answers.empty() || !fits) {
        if (!Answers.empty()) Answers.pop_front();
        if (OnUnanswered) OnUnanswered(box);
        return asks ? Answer::Yes : Answer::Ok;
    }
    Answers.pop_front();
    return asked;
}

WindowPlace MemoryScreen::OnScreen(const WindowPlace& place) {
    const int width = std::min(place.Width, WidthTwips);
    const int height = std::min(place.Height, HeightTwips);
    return {height, std::clamp(place.Left, 0, WidthTwips - width),
            std::clamp(place.Top, 0, HeightTwips - height), width};
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
    if (dialog.CancelError) throw RunTimeError(fault::Cancelled);
    return false;
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
