#pragma once

#include <cstdint>

#include "files/cnc_reader.h"
#include "files/pre_processor_window.h"
#include "platform/menu_array.h"
#include "program/texts.h"

namespace kvt {

// External programs that turn a foreign file "name" into a program file. They leave "name.~pp", the result,
// "name.~ppERR", why there is none, and "name.~ppINFO"; each is deleted after use. Those of the machine in force
// are in a menu.
class PreProcessor {
public:
    struct Parts {
        ProgramStore& Store;
        FileControls& Controls;
        CncReader& Reader;
        Menu& mnuImport;
        Services& Platform;
        const Texts& Language;
    };
    explicit PreProcessor(Parts parts);

    PreProcessorWindow Window;
    // Where they lie, with a separator at its end. There are none while it is empty.
    std::string PreProcessorFolder;
    std::int16_t PreProcessorCount = 0;

    // Makes the menu anew for the machine in force.
    void RefreshPreProcessors();
    // Asks for a file, has the pre-processor of an entry convert it, and loads what comes out as a changed program.
    // Meanwhile events are served; after two seconds the user can end it. Where nothing comes out that is told.
    void mnuPP_Click(int index);
    // Ends one that is running; nothing is loaded then.
    void Abort() { aborted_ = true; }

private:
    bool ChooseFile(std::string& name);
    // False where the user has ended it.
    bool WaitFor(int program, const std::string& name);
    bool Convert(const std::string& command, const std::string& name);
    bool RemoveOldResult(const std::string& file);
    bool ShowMessage(const std::string& file, DialogText caption);
    void Remove(const std::string& file);
    void ShowNotice(MessageText message, const std::string& name);

    Parts parts_;
    MenuArray mnuPP_;
    bool running_ = false;
    bool aborted_ = false;
};

}  // namespace kvt
