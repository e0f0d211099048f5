#include "files/pre_processor_window.h"

#include "platform/keys.h"

namespace kvt {

namespace {

constexpr int firstSize = 5000;
constexpr int smallestSize = 1000;
constexpr int offerAbortAfter = 2000;  // milliseconds

}  // namespace

PreProcessorWindow::PreProcessorWindow(FocusService& focus)
    : frmPreProcessor("frmPreProcessor"),
      rtfPP(frmPreProcessor, "rtfPP"),
      cmdAbort(frmPreProcessor, "cmdAbort", "Abort"),
      tmrAbort(frmPreProcessor, "tmrAbort", offerAbortAfter),
      focus_(focus) {
    frmPreProcessor.Visible = false;
    frmPreProcessor.TopMost = true;
    frmPreProcessor.SmallestWidth = smallestSize;
    frmPreProcessor.SmallestHeight = smallestSize;
    tmrAbort.Enabled = false;
    rtfPP.Plain = true;
    cmdAbort.TabIndex = 1;
    cmdAbort.Visible = false;
    frmPreProcessor.Width = firstSize;
    frmPreProcessor.Height = firstSize;
    Form_Resize();
    frmPreProcessor.OnResize = [this] { Form_Resize(); };
    frmPreProcessor.OnQueryUnload = [this] { Close(); };
    frmPreProcessor.OnKeyDown = [this](int pressed, int) {
        if (pressed == key::Escape) Close();
    };
}

void PreProcessorWindow::ShowText(std::string_view text, std::string_view caption) {
    cmdAbort.Visible = false;
    Form_Load(text, caption);
    focus_.SetFocus(rtfPP);
}

void PreProcessorWindow::OfferAbort(std::string_view text, std::string_view caption) {
    cmdAbort.Visible = true;
    Form_Load(text, caption);
    focus_.SetFocus(cmdAbort);
}

// A window that was closed comes in its first size again.
void PreProcessorWindow::Form_Load(std::string_view text, std::string_view caption) {
    if (!frmPreProcessor.Visible) {
        focusBefore_ = focus_.Focused();
        frmPreProcessor.Width = firstSize;
        frmPreProcessor.Height = firstSize;
    }
    rtfPP.Text = text;
    frmPreProcessor.Caption = caption;
    frmPreProcessor.Visible = true;
}

void PreProcessorWindow::Form_Resize() {
    if (frmPreProcessor.State.Get() == WindowState::Minimised) return;
    if (frmPreProcessor.Width < smallestSize) frmPreProcessor.Width = smallestSize;
    if (frmPreProcessor.Height < smallestSize) frmPreProcessor.Height = smallestSize;
    rtfPP.Left = 100;
    rtfPP.Top = 100;
    rtfPP.Width = frmPreProcessor.Width - 320;
    rtfPP.Height = frmPreProcessor.Height - 680;
    cmdAbort.Left = 100;
    cmdAbort.Top = frmPreProcessor.Height - 500;
    cmdAbort.Width = 1200;
    cmdAbort.Height = 400;
}

void PreProcessorWindow::Close() {
    if (!frmPreProcessor.Visible) return;
    const Control* const focused = focus_.Focused();
    const bool hadFocus = focused && &focused->OwningForm() == &frmPreProcessor;
    frmPreProcessor.Visible = false;
    // What is still at work is told again a little later.
    if (cmdAbort.Visible) tmrAbort.Enabled = true;
    if (hadFocus && focusBefore_) focus_.SetFocus(*focusBefore_);
}

}  // namespace kvt
