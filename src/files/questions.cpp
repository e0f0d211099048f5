#include "files/questions.h"

#include <string>

#include "basic/text.h"

namespace kvt {

bool AskToSave(DialogService& dialogs, const Texts& texts) {
    MessageBox box = Question(texts.MessageTexts(text::SaveNow), texts.MessageTexts(text::ContinueTitle));
    box.Details = texts.FoundTexts(FoundText::CancelledSave);
    return dialogs.ShowMessage(box) == Answer::Yes;
}

bool AskToClear(DialogService& dialogs, const Texts& texts) {
    return dialogs.ShowMessage(Question(texts.MessageTexts(text::ClearAnyway),
                                        texts.MessageTexts(text::ClearTitle))) != Answer::No;
}

Answer AskToOverwrite(Services& platform, const Texts& texts, std::string_view name) {
    if (!platform.Files.Exists(name)) return Answer::Yes;
    std::string question(texts.MessageTexts(text::Overwrite));
    question += " ";
    question += ExtractFileName(name);
    question += "?";
    return platform.Dialogs.ShowMessage(Question(question, "", Buttons::YesNoCancel));
}

void TellSaved(const WorkbenchCalls& calls, const Texts& texts, std::string_view path) {
    Run(calls.Tell, Filled(texts.NoticeTexts(text::Saved), {std::string(ExtractFileName(path))}));
}

std::string PrintedNotice(const Texts& texts, const PrinterService& printer, std::string_view path) {
    const std::string_view name = ExtractFileName(printer.LastFile.empty() ? path : printer.LastFile);
    return Filled(texts.NoticeTexts(text::Printed),
                  {std::string(name.empty() ? texts.NoticeTexts(text::NoName) : name)});
}

}  // namespace kvt
