#pragma once

#include <memory>
#include <vector>

#include "web/form_view.h"
#include "web/web_clipboard.h"
#include "web/web_dialogs.h"
#include "web/web_files.h"
#include "web/web_focus.h"
#include "web/web_keyboard.h"
#include "web/web_port.h"
#include "web/web_printer.h"
#include "web/web_screen.h"
#include "web/web_system.h"

namespace kvt {

// The half of the platform that shows the controls in a browser page. Stands on a link to the page, and on programs
// that it is given.
class WebPlatform {
public:
    // Waits for the page's first event, which tells what it is and what it has kept.
    WebPlatform(PageLink& link, ProgramService& programs);

    // Shows a form. The form must outlive the platform, or all windows be taken down before.
    void Show(Form& form);
    void TakeDownWindows() { windows_.clear(); }
    // The window of a form fills the page, unless it was given a part of it.
    void FillPage(const Form& form);
    // Serves the page until the program ends.
    void Run();

    // The page's first event.
    const PageEvent& Hello() const { return hello_; }
    // Events that are none of the controls' or the services', by their names.
    std::map<std::string, std::function<void(const PageEvent& event)>, std::less<>> OnOther;

private:
    static PageEvent AwaitHello(PageLink& link);
    void Take(const PageEvent& event);
    bool TakeForService(const PageEvent& event);
    WebFormView* FrontView() const;
    WebFormView* ViewOf(const PageEvent& event) const;
    void TakeDrop(const PageEvent& event);

    PageEvent hello_;

public:
    WebPage Page;
    WebSystem System{Page};
    WebFocus Focus{Page};
    WebFiles Files{System};
    WebDialogs Dialogs{System, Files};
    WebClipboard Clipboard{Page, System};
    WebKeyboard Keys{Page, Focus, System, Clipboard};
    WebScreen Screen;
    WebPort Port{Page, System};
    WebPrinter Printer{System};
    kvt::Services Services;

private:
    WebContext context_{Page, System, Focus, Keys};
    std::vector<std::unique_ptr<WebFormView>> windows_;
};

}  // namespace kvt
