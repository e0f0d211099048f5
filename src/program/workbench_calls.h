#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace kvt {

// Whether the window takes what its user does, or is frozen by a transfer or a document.
enum class ControlsMode : std::uint8_t { Frozen, Free };

struct StepName;

// What a lower room sets off in one above it. The shell fills it once; a call that no window has filled does
// nothing.
struct WorkbenchCalls {
    std::function<void()> cmdReturn_Click;
    std::function<void()> ClearProgram_Click;
    // Puts a copy of the unsaved program where the next start finds it. False where it could not be written.
    std::function<bool()> KeepRecoveryCopy;
    // What changes from here to its end can be taken back in one go; see EditStep.
    std::function<void(const StepName& name)> BeginStep;
    std::function<void()> EndStep;
    // The file of the program holds it now.
    std::function<void()> ProgramSaved;
    // Have the drawing repainted where its window is up, when the handler that is running has ended; RedrawAfterEdit
    // only if it follows every edit.
    std::function<void()> mnuDraw_Click;
    std::function<void()> RedrawAfterEdit;
    std::function<void()> ControlsPositioning;
    std::function<void(ControlsMode mode)> ControlsEnable;
    std::function<void()> RefreshMachine;
    std::function<void()> RefreshTitle;
    std::function<void(std::string_view initial)> FirstFieldFocus;
    std::function<void(const std::string& fileName)> LoadLanguageModule;
    std::function<void()> LoadClipboardModule;
    std::function<void()> HideSettings;
    // Shows in the quiet line of the window what has happened. It stays until the next one, the next command (which
    // begins with cmdReturn_Click) or the next check of the program, which follows every edit; empty takes it away.
    std::function<void(std::string_view what)> Tell;
    // The program in the editor is now that of this file, by opening or by saving it.
    std::function<void(const std::string& path)> FileUsed;
    // Closes the windows of the drawing, which write their settings then.
    std::function<void()> UnloadDraw;
};

// Runs a call where one is there.
template <class Call, class... Arguments>
void Run(const std::function<Call>& call, Arguments&&... arguments) {
    if (call) call(std::forward<Arguments>(arguments)...);
}

}  // namespace kvt
