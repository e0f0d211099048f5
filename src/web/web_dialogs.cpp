#include "web/web_dialogs.h"

#include "basic/run_time_error.h"

namespace kvt {

namespace {

constexpr std::string_view programName = "Kestrel Vise Toolkit";

const char* NameOf(Icon icon) {
    switch (icon) {
        case Icon::None: return "None";
        case Icon::Information: return "Information";
        case Icon::Exclamation: return "Exclamation";
        case Icon::Question: return "Question";
        case Icon::Critical: return "Critical";
    }
    return "None";
}

const char* NameOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::Ok: return "Ok";
        case Buttons::YesNo: return "YesNo";
        case Buttons::YesNoCancel: return "YesNoCancel";
    }
    return "Ok";
}

}  // namespace

Answer WebDialogs::ShowMessage(const MessageBox& box) {
    const bool asks = box.Choice != Buttons::Ok;
    const Answer refusal = box.Choice == Buttons::YesNoCancel ? Answer::Cancel
                           : asks                             ? Answer::No
                                                              : Answer::Ok;
    if (system_.Ended()) return refusal;
    Message message("message");
    message.Shown("text", box.Text).Shown("title", box.Title.empty() ? programName : box.Title);
    message.Add("icon", NameOf(box.Picture)).Add("buttons", NameOf(box.Choice)).Shown("details", box.Details);
    const PageEvent answer = system_.Ask(message, WebSystem::Meanwhile::Timers);
    const std::string_view value = answer.Raw("value");
    if (!asks) return Answer::Ok;
    if (value == "Yes") return Answer::Yes;
    if (value == "No") return Answer::No;
    return refusal;
}

PageEvent WebDialogs::AskForFile(const char* task, FileDialog& dialog) {
    PageEvent answer;
    if (!system_.Ended()) {
        Message message(task);
        message.Code("filter", dialog.Filter).Shown("name", dialog.FileTitle());
        answer = system_.Ask(message, WebSystem::Meanwhile::Timers);
    }
    if (answer.Raw("name").empty() && dialog.CancelError) throw RunTimeError(fault::Cancelled);
    return answer;
}

bool WebDialogs::ShowOpen(FileDialog& dialog) {
    const PageEvent answer = AskForFile("open", dialog);
    if (answer.Raw("name").empty()) return false;
    dialog.FileName = WebFiles::PathOf(answer.Path("name"));
    files_.Put(dialog.FileName, answer.Bytes("content"));
    return true;
}

bool WebDialogs::ShowSave(FileDialog& dialog) {
    const PageEvent answer = AskForFile("save", dialog);
    if (answer.Raw("name").empty()) return false;
    dialog.FileName = WebFiles::PathOf(answer.Path("name"));
    return true;
}

bool WebDialogs::ShowColor(Color& color) {
    if (system_.Ended()) return false;
    const PageEvent answer = system_.Ask(Message("color").Add("color", color), WebSystem::Meanwhile::Timers);
    if (!answer.Has("color")) return false;
    color = static_cast<Color>(answer.Number("color")) & 0xFFFFFF;
    return true;
}

}  // namespace kvt
