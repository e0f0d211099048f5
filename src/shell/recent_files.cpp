#include "shell/recent_files.h"

#include <algorithm>

#include "basic/number.h"
#include "basic/run_time_error.h"
#include "basic/text.h"

namespace kvt {

namespace {

constexpr std::size_t longestFolder = 40;  // characters; of a longer one the end is shown

std::string KeyAt(std::size_t place) { return "Recent" + PlainNumber(static_cast<std::int64_t>(place + 1)); }

std::string ShownFolder(std::string_view path) {
    std::string_view folder = path.substr(0, path.size() - ExtractFileName(path).size());
    while (folder.size() > 1 && (folder.back() == '/' || folder.back() == '\\')) folder.remove_suffix(1);
    if (folder.size() <= longestFolder) return std::string(folder);
    return "\x85" + std::string(folder.substr(folder.size() - longestFolder));
}

}  // namespace

RecentFiles::RecentFiles(const Parts& parts)
    : parts_(parts), entries_(parts_.Main.mnuRecent, "mnuRecentFile", [this](int index) {
          mnuRecentFile_Click(static_cast<std::size_t>(index));
      }) {
    entries_.At(static_cast<int>(Most) - 1);
    Show();
}

void RecentFiles::BindKeys(SettingsFile& keys) {
    for (std::size_t place = 0; place < Most; ++place) {
        keys.Bind(
            KeyAt(place), [this, place](const std::string& value) { Apply(place, value); },
            [this, place] { return ValueAt(place); });
    }
}

// An empty one changes nothing: a reset of the settings leaves the files known.
void RecentFiles::Apply(std::size_t place, const std::string& value) {
    if (value.empty()) return;
    const std::string_view text = value;
    const std::size_t comma = text.find(',');
    const std::string_view machine = Trim(text.substr(0, comma));
    if (comma == std::string_view::npos || !MachineNamed(machine)) throw RunTimeError(fault::TypeMismatch);
    programs_[place] = {std::string(machine), std::string(Trim(text.substr(comma + 1)))};
    Show();
}

std::string RecentFiles::ValueAt(std::size_t place) const {
    const Program& program = programs_[place];
    return program.Path.empty() ? std::string() : program.Machine + ", " + program.Path;
}

void RecentFiles::Use(const std::string& path) {
    const auto same = std::find_if(programs_.begin(), programs_.end(),
                                   [&](const Program& program) { return program.Path == path; });
    // The last one goes where the program was not among them.
    const auto end = same == programs_.end() ? programs_.end() - 1 : same;
    std::move_backward(programs_.begin(), end, end + 1);
    programs_.front() = {std::string(NameOf(parts_.Store.Machine)), path};
    Show();
}

void RecentFiles::LeaveOut(const std::function<bool(const std::string& path)>& isGone) {
    for (Program& program : programs_) {
        if (!program.Path.empty() && isGone(program.Path)) program = {};
    }
    Show();
}

void RecentFiles::mnuRecentFile_Click(std::size_t place) {
    const std::string path = programs_[place].Path;
    if (parts_.Platform.Files.Exists(path)) return Open(path);
    std::move(programs_.begin() + static_cast<std::ptrdiff_t>(place) + 1, programs_.end(),
              programs_.begin() + static_cast<std::ptrdiff_t>(place));
    programs_.back() = {};
    Show();
    Run(parts_.Calls.Tell, Filled(parts_.Language.NoticeTexts(text::FileGone), {path}));
}

void RecentFiles::Show() {
    // What the settings left out is no gap.
    std::stable_partition(programs_.begin(), programs_.end(),
                          [](const Program& program) { return !program.Path.empty(); });
    std::vector<std::string> captions;
    for (const Program& program : programs_) {
        if (program.Path.empty()) break;
        // The number chooses the entry.
        const std::string folder = ShownFolder(program.Path);
        captions.push_back(PlainNumber(static_cast<std::int64_t>(captions.size() + 1)) + "  " +
                           std::string(ExtractFileName(program.Path)) + "  (" + program.Machine + ")" +
                           (folder.empty() ? folder : "  " + folder));
    }
    entries_.Show(captions);
    parts_.Main.mnuRecent.Enabled = !captions.empty();
}

}  // namespace kvt
