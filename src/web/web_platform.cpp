#include "web/web_platform.h"

namespace kvt {

namespace {

constexpr double untilAnything = 60'000;  // milliseconds

}  // namespace

PageEvent WebPlatform::AwaitHello(PageLink& link) {
    for (;;) {
        PageEvent event(link.Next(untilAnything));
        if (event.Is("hello")) return event;
    }
}

WebPlatform::WebPlatform(PageLink& link, ProgramService& programs)
    : hello_(AwaitHello(link)), Page(link), Services{Files, Dialogs, Clipboard, Screen,  System,
                                                     Focus, Port,    Printer,   programs} {
    Screen.Follow(hello_);
    Port.TakeNames(hello_);
    Files.SetStorage(!hello_.Flag("withoutStorage"));
    for (const char* kept : {"share", "stored"}) {
        hello_.EachFile(kept, [this](const std::string& path, const std::string* content) {
            Files.Put(path, content ? std::optional(*content) : std::nullopt);
        });
    }
    hello_.EachFile("times", [this](const std::string& path, const std::string* seconds) {
        if (seconds) Files.SetWritten(path, *seconds);
    });
    System.OnEvent = [this](const PageEvent& event) { Take(event); };
    System.OnKey = [this](int key) { Keys.PressByCode(key); };
}

void WebPlatform::Show(Form& form) {
    windows_.push_back(std::make_unique<WebFormView>(context_, form, Screen, Screen.Edges()));
}

void WebPlatform::FillPage(const Form& form) {
    for (const auto& window : windows_) {
        if (&window->Window() == &form) window->FillPage();
    }
}

void WebPlatform::Run() {
    while (!System.Ended()) System.Turn(untilAnything);
    Page.TellChanges();
}

void WebPlatform::Take(const PageEvent& event) {
    if (TakeForService(event)) return;
    if (event.Has("id")) {
        WebView* const view = Page.Find(event.Number("id"));
        if (view) view->Take(event);
        return;
    }
    WebFormView* window = ViewOf(event);
    if (!window) return;
    // What was typed into a window that has gone since was typed on.
    const bool typed = event.Is("key") || event.Is("text") || event.Is("paste");
    if (typed && !window->Window().Visible) window = FrontView();
    if (event.Is("key")) {
        Keys.TakeKey(window->Window(), event);
    } else if (event.Is("text")) {
        Keys.TakeText(window->Window(), event);
    } else if (event.Is("paste")) {
        Keys.TakePaste(window->Window(), event);
    } else if (event.Is("drop")) {
        TakeDrop(event);
    } else {
        window->Take(event);
    }
}

bool WebPlatform::TakeForService(const PageEvent& event) {
    if (event.Is("port")) {
        Port.Take(event);
    } else if (event.Is("ports")) {
        Port.TakeNames(event);
    } else if (event.Is("screen")) {
        Screen.Follow(event);
        for (const auto& window : windows_) window->FollowScreen();
    } else if (const auto other = OnOther.find(event.Name()); other != OnOther.end()) {
        System.Run(other->first.c_str(), [&] { other->second(event); });
    } else {
        return false;
    }
    return true;
}

WebFormView* WebPlatform::FrontView() const {
    for (const auto& window : windows_) {
        if (&window->Window() == Focus.Front()) return window.get();
    }
    return windows_.empty() ? nullptr : windows_.front().get();
}

// The window that an event tells; the one in front where it tells none.
WebFormView* WebPlatform::ViewOf(const PageEvent& event) const {
    const int number = event.Number("form");
    for (const auto& window : windows_) {
        if (window->Number() == number) return window.get();
    }
    return number == 0 ? FrontView() : nullptr;
}

void WebPlatform::TakeDrop(const PageEvent& event) {
    WebFormView* const window = ViewOf(event);
    if (!window || event.Raw("name").empty()) return;
    const std::string path = WebFiles::PathOf(event.Path("name"));
    Files.Put(path, event.Bytes("content"));
    window->Drop(path);
}

}  // namespace kvt
