#include "support/web_page.h"

#include <gtest/gtest.h>

#include "basic/code_page.h"
#include "platform/keys.h"

namespace kvt::test {

void WebPageFixture::Start() {
    Session = std::make_unique<WebSession>(Page);
    Session->Start();
    Serve();
}

void WebPageFixture::Serve() {
    while (!Page.Silent() && !Session->Platform.System.Ended()) Session->Platform.System.Turn(0);
    Session->Platform.Page.TellChanges();
}

void WebPageFixture::Advance(double milliseconds) {
    const double end = Page.Clock + milliseconds;
    while (Page.Clock < end && !Session->Platform.System.Ended())
        Session->Platform.System.Turn(end - Page.Clock);
    Session->Platform.Page.TellChanges();
}

void WebPageFixture::Press(int key, int held, const std::string& text) {
    Page.Say(R"({"on":"key","seq":1,"key":)" + std::to_string(key) + ",\"held\":" + std::to_string(held) +
             ",\"char\":\"" + text + "\"}");
    Serve();
}

void WebPageFixture::Type(const std::string& text) {
    for (const char one : text) {
        const KeyPress press = PressOf(one == '\r' ? 'x' : one);
        if (one == '\r') {
            Press(key::Enter);
        } else {
            Press(press.Stroke.Key, press.Stroke.Held, ToUtf8(std::string(1, one)));
        }
    }
}

std::string WebPageFixture::EventOf(const std::string& what, const std::string& control,
                                    const std::string& more) const {
    const int number = Page.NumberOf(control);
    if (number == 0) ADD_FAILURE() << control << " is not in the page";
    return "{\"on\":\"" + what + "\",\"id\":" + std::to_string(number) + (more.empty() ? "" : "," + more) +
           "}";
}

void WebPageFixture::Do(const std::string& what, const std::string& control, const std::string& more) {
    Page.Say(EventOf(what, control, more));
    Serve();
}

void WebPageFixture::In(double milliseconds, const std::string& what, const std::string& control,
                        const std::string& more) {
    Page.SayAt(Page.Clock + milliseconds, EventOf(what, control, more));
}

void WebPageFixture::Open(const std::string& name, const std::string& content) {
    Page.Answers.emplace("open", "\"name\":\"" + name + "\",\"content\":" + JsonOf(content));
    Do("menu", "mnuOpen");
}

void WebPageFixture::Click(const std::string& control) {
    Do("press", control);
    Do("click", control);
}

std::string JsonOf(std::string_view text) {
    Message message("text");
    const std::string json(message.Code("text", text).End());
    return json.substr(json.find(',') + 8, json.size() - json.find(',') - 9);
}

std::string WebPageFixture::Control(const std::string& name) const {
    for (const Form* form : Session->Workbench.Forms()) {
        if (const auto* box = dynamic_cast<const TextBox*>(form->FindControl(name))) return box->Text.Get();
    }
    return "?";
}

}  // namespace kvt::test
