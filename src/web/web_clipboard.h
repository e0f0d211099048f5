#pragma once

#include <optional>

#include "web/web_system.h"

namespace kvt {

// The characters of a text of the page's; those that the code page lacks are left out.
std::string KnownCharactersOf(std::string_view utf8);

// The clipboard of the browser. What was put there last is known all the same where the browser lets nobody read it.
class WebClipboard : public ClipboardService {
public:
    WebClipboard(WebPage& page, WebSystem& system) : page_(page), system_(system) {}

    std::string GetText() override;
    void Clear() override { SetText({}); }
    void SetText(std::string_view text) override;
    void SetPicture(const Pixels& picture) override;

    // Between these two the clipboard has this text, UTF-8, which the page was given with the user's key.
    void Hold(std::string_view utf8);
    void LetGo() { held_.reset(); }

private:
    WebPage& page_;
    WebSystem& system_;
    std::optional<std::string> held_;
    std::string last_;
};

}  // namespace kvt
