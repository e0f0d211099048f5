#pragma once

#include <string_view>

#include "platform/services.h"

namespace kvt {

// What a pre-processor has to say, in a window that stays above the others; and the way to end one that takes
// long.
class PreProcessorWindow {
public:
    explicit PreProcessorWindow(FocusService& focus);

    Form frmPreProcessor;
    RichText rtfPP;
    CommandButton cmdAbort;
    Timer tmrAbort;

    // Shows a text under a caption. Escape and the window's own close control close it.
    void ShowText(std::string_view text, std::string_view caption);
    // The same with the button that ends what is running.
    void OfferAbort(std::string_view text, std::string_view caption);
    void Close();

private:
    void Form_Load(std::string_view text, std::string_view caption);
    void Form_Resize();

    FocusService& focus_;
    // Where the focus was before the window came.
    Control* focusBefore_ = nullptr;
};

}  // namespace kvt
