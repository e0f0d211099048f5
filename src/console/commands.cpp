#include "console/commands.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <new>

#include "basic/code_page.h"
#include "console/listing.h"
#include "console/loaded_file.h"
#include "console/output_file.h"
#include "console/state.h"

namespace kvt {

namespace {

// Whether a file has line ends of LF or CR alone, which the machines' files do not: its lines are not found then.
bool HasBareLineEnds(LoadedFile& loaded, const std::string& file) {
    const std::string text = loaded.Platform.Files.ReadWhole(NameFromSystem(file));
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n') return true;
        if (text[i] != '\r') continue;
        if (i + 1 == text.size() || text[i + 1] != '\n') return true;
        ++i;
    }
    return false;
}

int CheckOne(const std::string& file, const ConsoleOptions& options, bool first) {
    LoadedFile loaded(file);
    if (const char* error = loaded.Error()) return Complain(file, error);
    if (!first) std::fputc('\n', stdout);
    std::string listing = Listing(file, *loaded.Workbench, options.Colour);
    if (HasBareLineEnds(loaded, file)) {
        listing +=
            "Not all lines of this file end in CR LF, as the machines' files do: some were not found.\n";
    }
    std::fwrite(listing.data(), 1, listing.size(), stdout);
    return loaded.Status();
}

int CheckOneAsJson(const std::string& file, JsonSink& out) {
    const LoadedFile loaded(file);
    int result = status::Usage;
    if (const char* error = loaded.Error()) {
        Complain(file, error);
        WriteFileError(out, file, error);
    } else {
        WriteState(out, file, *loaded.Workbench, loaded.Platform.Dialogs);
        result = loaded.Status();
    }
    out.Put('\n');
    return result;
}

}  // namespace

int Check(const std::vector<std::string>& files, bool json, const ConsoleOptions& options) {
    int worst = status::Succeeded;
    bool first = true;
    JsonSink out(stdout);
    for (const std::string& file : files) {
        int one = status::Usage;
        try {
            one = json ? CheckOneAsJson(file, out) : CheckOne(file, options, first);
        } catch (const std::bad_alloc&) {
            Complain(file, "is too large for the memory of this machine");
        }
        worst = std::max(worst, one);
        first = false;
    }
    return worst;
}

int WriteLanguageModule(const std::string& out) {
    if (const std::string why = WhyNotWritten(out); !why.empty()) return Complain(out, why);
    OffscreenPlatform platform;
    PrepareToWrite(platform.Files);
    const auto workbench = std::make_unique<Workbench>(platform.Services);
    try {
        platform.Files.WriteWhole(NameFromSystem(out), workbench->Modules.WriteModule());
        return status::Succeeded;
    } catch (const RunTimeError&) {
        return Complain(out, "could not be written");
    }
}

int FormatFile(const std::string& file, const std::string& out) {
    if (const std::string why = WhyNotWritten(out, file, SourceUse::MayReplace); !why.empty())
        return Complain(out, why);
    LoadedFile loaded(file);
    if (const char* error = loaded.Error()) return Complain(file, error);
    Workbench& workbench = *loaded.Workbench;
    // Writing these back would lose what was not found.
    if (HasBareLineEnds(loaded, file))
        return Complain(file, "not all of its lines end in CR LF; nothing was written");
    PrepareToWrite(loaded.Platform.Files);
    workbench.File.lblPath.Caption = NameFromSystem(out);
    const std::size_t shown = loaded.Platform.Dialogs.Shown.size();
    workbench.Writer.mnuSave_Click();
    if (loaded.Platform.Dialogs.Shown.size() > shown) return Complain(out, "could not be written");
    return loaded.Status();
}

}  // namespace kvt
