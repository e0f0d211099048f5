#include "headless/memory_platform.h"

namespace kvt {

Answer MemoryDialogs::ShowMessage(const MessageBox& box) {
    Shown.push_back(box);
    if (Answers.empty()) {
        if (OnUnanswered) OnUnanswered(box);
        return box.Choice == Buttons::Ok ? Answer::Ok : Answer::Yes;
    }
    const Answer answer = Answers.front();
    Answers.pop_front();
    return answer;
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

std::string MemoryClipboard::GetText() {
    faults_.Pass("clipboard", fault::InvalidCall);
    return Content;
}

void MemoryClipboard::Clear() {
    faults_.Pass("clipboard", fault::InvalidCall);
    Content.clear();
}

void MemoryClipboard::SetText(std::string_view text) {
    faults_.Pass("clipboard", fault::InvalidCall);
    Content = text;
}

bool MemorySystem::DoEvents() {
    if (Events.empty()) return false;
    const std::function<void()> event = std::move(Events.front());
    Events.pop_front();
    event();
    return true;
}

std::tm MemorySystem::Now() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
#if defined(_WIN32)
    localtime_s(&local, &now);
#else
    localtime_r(&now, &local);
#endif
    return local;
}

void MemoryFocus::SetFocus(Control& control) {
    if (control.Kind() == ControlKind::Form || &control == focused_) return;
    if (!control.ReallyVisible() || !control.ReallyEnabled()) return;
    Control* before = focused_;
    focused_ = &control;
    if (before && before->OnLostFocus) before->OnLostFocus();
    // The handler may have sent the focus elsewhere.
    if (focused_ == &control && control.OnGotFocus) control.OnGotFocus();
}

}  // namespace kvt
