#include "shell/sample_menu.h"

#include "basic/run_time_error.h"
#include "basic/text.h"
#include "files/folders.h"

namespace kvt {

namespace {

constexpr const char* fillName = "mnuSamples";

// The name of a sample for the menu: without machine and ending.
std::string ShownName(std::string_view name, std::string_view machine) {
    return Replace(RemoveExtension(name.substr(machine.size() + 1)), "_", " ");
}

}  // namespace

void SampleMenu::Fill(const std::string& startFolder) {
    if (!entries_.empty()) return;
    std::vector<std::string> names;
    for (const std::string& folder : ProgramFolders(startFolder, "samples")) {
        folder_ = folder;
        Attempt(fillName, [&] { names = parts_.Platform.Files.List(folder_, "*.cnc"); });
        if (!names.empty()) break;
    }
    for (const MachineFacts& machine : Machines()) AddGroup(machine.Model, names);
    parts_.Main.mnuSamples.Visible = !entries_.empty();
    parts_.Main.Window.TellControlsAdded();
}

void SampleMenu::AddGroup(MachineModel machine, const std::vector<std::string>& names) {
    Form& form = parts_.Main.Window;
    const std::string beginning = std::string(NameOf(machine)) + "_";
    Menu* group = nullptr;
    for (const std::string& name : names) {
        if (!BeginsWithIgnoringCase(name, beginning)) continue;
        if (!group) {
            groups_.push_back(std::make_unique<Menu>(form, "mnuSampleGroup", NameOf(machine),
                                                     static_cast<int>(groups_.size())));
            group = groups_.back().get();
            group->Container = &parts_.Main.mnuSamples;
        }
        entries_.push_back(std::make_unique<Menu>(form, "mnuSample", ShownName(name, NameOf(machine)),
                                                  static_cast<int>(entries_.size())));
        entries_.back()->Container = group;
        entries_.back()->OnClick = [this, name] { mnuSample_Click(name); };
    }
}

void SampleMenu::mnuSample_Click(const std::string& name) {
    LoadAs as;
    as.Name = PathIn(parts_.Platform.System.DocumentsFolder(), name);
    as.FromSource = true;
    std::string path = folder_ + name;
    const LoadResult result = parts_.Reader.LoadFile(path, as);
    Run(parts_.Calls.RefreshTitle);
    if (result == LoadResult::Loaded) Run(parts_.Calls.Tell, parts_.Language.NoticeTexts(text::SampleOpened));
}

}  // namespace kvt
