#include "console/loaded_file.h"

#include <cstdio>

#include "basic/code_page.h"
#include "console/commands.h"
#include "console/listing.h"

namespace kvt {

namespace {

const char* ErrorOf(LoadResult result) {
    switch (result) {
        case LoadResult::Loaded: return nullptr;
        case LoadResult::Nothing: return "no such file";
        case LoadResult::Unreadable: return "cannot be read";
        case LoadResult::LanguageModule: return "is a language module, not a CNC program";
        case LoadResult::NotRecognised: break;
    }
    return "is not recognised as a CNC program";
}

}  // namespace

int Complain(std::string_view file, std::string_view what) {
    const std::string told = WithoutControls(std::string(file) + ": " + std::string(what));
    std::fprintf(stderr, "kvtc: %s\n", told.c_str());
    return status::Usage;
}

LoadedFile::LoadedFile(const std::string& file)
    : Workbench(std::make_unique<kvt::Workbench>(Platform.Services)) {
    std::string name = NameFromSystem(file);
    error_ = ErrorOf(Workbench->Reader.LoadFile(name));
}

int LoadedFile::Status() const { return HasFinding(*Workbench) ? status::Finding : status::Succeeded; }

}  // namespace kvt
