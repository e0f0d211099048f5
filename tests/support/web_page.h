#pragma once

#include <memory>
#include <string>

#include "app/web_session.h"
#include "support/played_page.h"

namespace kvt::test {

// The workbench in a played page. Events are served until nothing more comes of them.
class WebPageFixture {
public:
    PlayedPage Page;
    std::unique_ptr<WebSession> Session;

    void Start();
    // Serves what the page has said.
    void Serve();
    // Lets the page's clock run on.
    void Advance(double milliseconds);
    // A key with its text; keys that write the characters of a text, "\r" for Enter.
    void Press(int key, int held = 0, const std::string& text = {});
    void Type(const std::string& text);
    // What is done with a control: "press", "click", "menu", with members besides.
    void Do(const std::string& what, const std::string& control, const std::string& more = {});
    void Click(const std::string& control);
    // The same so many milliseconds from now, in whatever wait that is.
    void In(double milliseconds, const std::string& what, const std::string& control,
            const std::string& more = {});
    // Opens a program by the menu, as the dialog of the page gives it.
    void Open(const std::string& name, const std::string& content);
    // The text of a field.
    std::string Control(const std::string& name) const;

private:
    std::string EventOf(const std::string& what, const std::string& control, const std::string& more) const;
};

// A text of the program as a JSON text.
std::string JsonOf(std::string_view text);

}  // namespace kvt::test
