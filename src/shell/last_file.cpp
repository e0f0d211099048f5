#include "shell/last_file.h"

#include "basic/text.h"

namespace kvt {

std::string LastFile::NameInCommandLine() const {
    std::string_view name = Trim(CommandLine);
    if (!name.empty() && name.front() == '"') {
        const std::size_t last = name.rfind('"');
        name = last > 0 ? name.substr(1, last - 1) : name.substr(1);
    }
    return std::string(name);
}

void LastFile::Forget() {
    missing_ = false;
    name_.clear();
}

void LastFile::Choose(const std::string& last) {
    missing_ = false;
    file_.LastProgram = last;
    name_ = last;
    if (Trim(CommandLine).empty()) return;
    name_ = NameInCommandLine();
    missing_ = !platform_.Files.Exists(name_);
}

void LastFile::Open() {
    if (!Exists()) return;
    std::string name = name_;
    reader_.LoadFile(name);
}

std::string LastFile::ForNextStart() const {
    const std::string& path = file_.lblPath.Caption.Get();
    // A mistyped name on the command line changes nothing, and a source is no program.
    const bool keeps = path.empty() ? missing_ : file_.NamesSource;
    return keeps ? file_.LastProgram : path;
}

void LastFile::TellMissing() {
    if (!missing_) return;
    platform_.Dialogs.ShowMessage(Notice(FileMessage(language_, NameInCommandLine(), text::NotFound),
                                         language_.ErrorTexts(text::OpenTitle), Icon::Exclamation));
}

}  // namespace kvt
