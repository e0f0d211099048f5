#include "files/pre_processor.h"

#include <algorithm>
#include <limits>

#include "basic/line_end.h"
#include "basic/run_time_error.h"
#include "basic/stack_guard.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr const char* preProcessorName = "Pre-Processor";
constexpr const char* resultEnding = ".~pp";
constexpr const char* errorEnding = ".~ppERR";
constexpr const char* informationEnding = ".~ppINFO";
constexpr std::string_view anyFile = "|*.*";
constexpr std::size_t maxEntries = std::numeric_limits<std::int16_t>::max();

}  // namespace

PreProcessor::PreProcessor(Parts parts)
    : Window(parts.Platform.Focus),
      parts_(parts),
      mnuPP_(parts.mnuImport, "mnuPP", [this](int index) { mnuPP_Click(index); }) {
    mnuPP_.At(0);
    Window.cmdAbort.OnClick = [this] { Abort(); };
}

void PreProcessor::RefreshPreProcessors() {
    std::vector<std::string> names;
    if (!PreProcessorFolder.empty()) {
        const std::string pattern = "*." + std::string(NameOf(parts_.Store.Machine));
        Attempt("RefreshPreProcessors",
                [&] { names = parts_.Platform.Files.List(PreProcessorFolder, pattern); });
    }
    if (names.size() > maxEntries) names.resize(maxEntries);
    PreProcessorCount = static_cast<std::int16_t>(names.size());
    mnuPP_.Show(names);
    parts_.mnuImport.Visible = PreProcessorCount > 0;
}

bool PreProcessor::ChooseFile(std::string& name) {
    FileDialog& dialog = parts_.Controls.dlgFile;
    dialog.Filter = std::string(parts_.Language.DialogTexts(text::PreProcessorFiles)).append(anyFile);
    // A save may have left it on; here a cancelled dialog is no failure.
    dialog.CancelError = false;
    bool chosen = false;
    Attempt(preProcessorName, [&] { chosen = parts_.Platform.Dialogs.ShowOpen(dialog); });
    if (chosen) name = dialog.FileName;
    return !name.empty();
}

void PreProcessor::mnuPP_Click(int index) {
    const StackGuard guard(running_);
    if (!guard.Entered()) return;
    std::string name;
    if (!ChooseFile(name)) return;
    // What an earlier run has left must not speak for this one.
    for (const char* ending : {resultEnding, errorEnding, informationEnding}) {
        if (!RemoveOldResult(name + ending)) return;
    }
    // The name is not quoted: one with a blank gives two arguments.
    const std::string result = name + resultEnding;
    const bool converted = Convert(PreProcessorFolder + mnuPP_.At(index).Caption.Get() + " " + name, name);
    // The reader empties the name that it is given.
    if (converted) {
        LoadAs as;
        as.Changed = true;
        as.Step = StepKind::Imported;
        std::string file = result;
        parts_.Reader.LoadFile(file, as);
        Remove(result);
    }
}

// Runs the pre-processor. False where it has left no program, after a message, or where the user has ended it.
bool PreProcessor::Convert(const std::string& command, const std::string& name) {
    int program = 0;
    if (!Attempt(preProcessorName, [&] { program = parts_.Platform.Programs.Start(command, name); })) {
        ShowNotice(text::NotStarted, command.substr(0, command.size() - name.size() - 1));
        return false;
    }
    if (!WaitFor(program, name)) {
        for (const char* ending : {resultEnding, errorEnding, informationEnding}) Remove(name + ending);
        return false;
    }
    if (ShowMessage(name + errorEnding, text::PreProcessorError)) return false;
    ShowMessage(name + informationEnding, text::PreProcessorInformation);
    // One that the system has cut off may have left half a program.
    const std::string result = name + resultEnding;
    if (!parts_.Platform.Programs.WasCutOff(program) && parts_.Platform.Files.Exists(result)) return true;
    Remove(result);
    ShowNotice(text::NoProgramLeft, name);
    return false;
}

bool PreProcessor::WaitFor(int program, const std::string& name) {
    aborted_ = false;
    Window.frmPreProcessor.PlaceOver(parts_.mnuImport.OwningForm());
    Window.tmrAbort.OnTimer = [this, &name] {
        Window.tmrAbort.Enabled = false;
        Window.OfferAbort(std::string(parts_.Language.MessageTexts(text::StillAtWork)).append(LineEnd) + name,
                          parts_.Language.DialogTexts(text::PreProcessorWaits));
    };
    Window.tmrAbort.Enabled = true;
    while (!aborted_ && !parts_.Platform.Programs.HasEnded(program)) {
        if (!parts_.Platform.System.DoEvents()) break;
    }
    if (Window.cmdAbort.Visible) {
        Window.Close();
        Window.cmdAbort.Visible = false;
    }
    Window.tmrAbort.Enabled = false;
    if (aborted_) parts_.Platform.Programs.End(program);
    return !aborted_;
}

// Shows a text that the pre-processor has left, and deletes its file. False where there is none.
bool PreProcessor::ShowMessage(const std::string& file, DialogText caption) {
    if (!parts_.Platform.Files.Exists(file)) return false;
    std::string text;
    Attempt(preProcessorName, [&] { text = parts_.Platform.Files.ReadWhole(file); });
    Window.ShowText(text, parts_.Language.DialogTexts(caption));
    Remove(file);
    return true;
}

void PreProcessor::Remove(const std::string& file) {
    if (!parts_.Platform.Files.Exists(file)) return;
    Attempt(preProcessorName, [&] { parts_.Platform.Files.Delete(file); });
}

// Removes a file of an earlier run. False, after a message, where that fails.
bool PreProcessor::RemoveOldResult(const std::string& file) {
    Remove(file);
    if (!parts_.Platform.Files.Exists(file)) return true;
    ShowNotice(text::OldResultStays, file);
    return false;
}

void PreProcessor::ShowNotice(MessageText message, const std::string& name) {
    const Texts& texts = parts_.Language;
    parts_.Platform.Dialogs.ShowMessage(
        Notice(std::string(texts.MessageTexts(message)).append(LineEnd) + name, "", Icon::Exclamation));
}

}  // namespace kvt
