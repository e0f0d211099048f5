#include "shell/grey_reasons.h"

#include <algorithm>

namespace kvt {

void GreyReasons::Wire() {
    for (Control* control : parts_.Main.Window.Controls()) {
        const bool canTell =
            control->Kind() == ControlKind::CommandButton || control->Kind() == ControlKind::Menu;
        if (!canTell || control->OnRefused) continue;
        control->OnRefused = [this, control] {
            Run(BringUpToDate);
            if (control->EffectivelyEnabled()) return control->Click();
            const std::string why = Why(*control);
            if (!why.empty()) Run(parts_.Calls.Tell, why);
        };
    }
}

std::string GreyReasons::Why(const Control& control) const {
    const Texts& texts = parts_.Language;
    const auto told = [&](NoticeText notice) { return std::string(texts.NoticeTexts(notice)); };
    if (const std::string frozen = WhyFrozen(); !frozen.empty()) return frozen;
    if (IsTransfer(control)) {
        const std::string off = parts_.Port.WhyOff();
        if (!off.empty()) return off;
    }
    if (&control == &parts_.Machine.mnuINCHtoMM || &control == &parts_.Machine.mnuMMtoINCH)
        return told(text::UnitsAlready);
    if (&control == &parts_.Entry.cmdFeedA || &control == &parts_.Entry.cmdFeedB) return told(text::NoFeed);
    if (parts_.Store.LineCount() == 0) return told(text::NoLinesYet);
    const MainControls& main = parts_.Main;
    if (&control == &main.mnuSave || &control == &main.Button(TopButton::Save))
        return told(text::NothingChanged);
    return {};
}

// What lies over the editor, or keeps it as it is.
std::string GreyReasons::WhyFrozen() const {
    const auto told = [this](NoticeText notice) { return std::string(parts_.Language.NoticeTexts(notice)); };
    if (parts_.Port.IsSending) return told(text::IsSending);
    if (parts_.Transfer.frRXcode.Visible) return told(text::IsReceiving);
    const auto documents = parts_.Main.Documents();
    const bool reading = std::any_of(documents.begin(), documents.end(),
                                     [](const RichText* document) { return document->Visible.Get(); });
    return reading ? told(text::DocumentOpen) : std::string();
}

bool GreyReasons::IsTransfer(const Control& control) const {
    const TransferControls& transfer = parts_.Transfer;
    const MainControls& main = parts_.Main;
    const Control* const all[] = {&transfer.mnuRX,
                                  &transfer.mnuTX,
                                  &transfer.RCmnuRX,
                                  &transfer.RCmnuTX,
                                  &main.Button(TopButton::Receive),
                                  &main.Button(TopButton::Transmit)};
    return std::find(std::begin(all), std::end(all), &control) != std::end(all);
}

}  // namespace kvt
