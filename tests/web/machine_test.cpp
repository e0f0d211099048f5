#include <gtest/gtest.h>

#include "basic/text.h"
#include "support/web_page.h"
#include "support/workbench_fixture.h"
#include "transfer/played_control.h"

namespace kvt::test {

namespace {

// A page with one granted port, a program with a note and a comment, and somebody at the panel of the machine.
class MachinePage : public WebPageFixture {
public:
    explicit MachinePage(const std::string& members = R"("names":["USB"])") {
        Page.SayHello(members);
        Start();
        Open("part.cnc", "A note\r\n" + FileText("MK4", {{"92", "  2000", "", "   500", "", "", "Mill"},
                                                         {"00", "  1000", "", "   100"},
                                                         {"M30"}}));
        Advance(1000);
        Page.Sent.clear();
    }

    void Panel(const std::string& what) {
        Page.Say(EventOfPanel(what));
        Serve();
    }
    void PanelIn(double milliseconds, const std::string& what) {
        Page.SayAt(Page.Clock + milliseconds, EventOfPanel(what));
    }
    // What the panel shows now.
    PageEvent Shown() {
        Advance(200);
        const std::vector<std::string> told = Page.SentOf("machine");
        return PageEvent(told.empty() ? "{}" : told.back());
    }
    // The machine's memory, put together as the page does.
    std::string Memory() const {
        std::string memory;
        for (const std::string& one : Page.SentOf("machine")) {
            const PageEvent told(one);
            if (told.Flag("shown"))
                memory = memory.substr(0, static_cast<std::size_t>(told.Number("from"))) + told.Bytes("text");
        }
        return memory;
    }
    std::string OnTheWire() { return ControlSending(Session->Workbench.Writer.GenerateAll()); }
    std::size_t Count(const std::string& task) const { return Page.SentOf(task).size(); }

private:
    static std::string EventOfPanel(const std::string& what) {
        return R"({"on":"machine","what":")" + what + R"(","baud":9600})";
    }
};

}  // namespace

TEST(WebMachine, AProgramGoesToItAndComesBackAtThePaceOfTheLine) {
    MachinePage page;
    page.Panel("open");
    EXPECT_EQ(page.Count("portClose"), 1U);
    EXPECT_EQ(page.Shown().Raw("state"), "listening");
    page.Panel("send");
    EXPECT_EQ(page.Shown().Raw("state"), "nothing");
    const double from = page.Page.Clock;
    page.Do("menu", "mnuTX");
    const std::string wire = page.OnTheWire();
    const double needs = static_cast<double>(wire.size()) * 1000 / 30;
    EXPECT_NEAR(page.Page.Clock - from, needs, 500);
    EXPECT_EQ(page.Memory(), wire);
    const PageEvent received = page.Shown();
    EXPECT_EQ(received.Raw("state"), "received");
    EXPECT_EQ(received.Number("lines"), 3);
    EXPECT_EQ(received.Raw("type"), "MK4");
    EXPECT_EQ(page.Count("portWrite") + page.Count("portOpen"), 0U);

    // The first character brings up the receive view; Stop ends the sending, and the next one begins anew.
    page.Panel("send");
    page.Advance(2000);
    page.Panel("stop");
    page.Advance(1000);
    EXPECT_EQ(page.Page.Shown("frRXcode", "Visible"), "true");
    EXPECT_NEAR(static_cast<double>(page.Control("txtRX").size()), 60 + 16, 5);
    page.Click("cmdReceiveNew");
    page.Panel("baud");
    page.Panel("send");
    page.Advance(static_cast<double>(wire.size()) * 1000 / 960 + 100);
    EXPECT_EQ(page.Control("txtRX"), wire);
    EXPECT_EQ(page.Shown().Raw("state"), "sent");
    page.Click("cmdReceiveImport");
    EXPECT_EQ(page.OnTheWire(), wire);
    // A closed port hears nothing.
    page.Do("menu", "mnuCOM");
    page.Click("chkEnableCom");
    page.Panel("send");
    EXPECT_EQ(page.Shown().Raw("state"), "portClosed");
    page.Click("chkEnableCom");
    page.Panel("close");
    EXPECT_EQ(page.Count("portOpen"), 1U);
    EXPECT_FALSE(page.Shown().Flag("shown"));
}

// Without the filter the M of a comment ends the reception at the control; the workbench cannot know.
TEST(WebMachine, WhatComesBehindTheEndOfTheReceptionIsLost) {
    MachinePage page;
    page.Panel("open");
    page.Do("menu", "mnuCOM");
    page.Click("chkTXfilter");
    page.Do("menu", "mnuTX");
    const PageEvent ended = page.Shown();
    EXPECT_EQ(ended.Raw("state"), "received");
    EXPECT_EQ(ended.Number("lines"), 1);
    EXPECT_GT(ended.Number("lost"), 60);
    EXPECT_TRUE(page.Memory().ends_with("Mill\r\n"));
    // The next program finds it listening again.
    page.Do("menu", "mnuCOM");
    page.Click("chkTXfilter");
    page.Advance(1000);
    page.Do("menu", "mnuTX");
    EXPECT_EQ(page.Shown().Number("lost"), 0);
    EXPECT_EQ(page.Memory(), page.OnTheWire());
    page.Panel("clear");
    EXPECT_EQ(page.Shown().Raw("state"), "listening");
    EXPECT_EQ(page.Memory(), "");
}

TEST(WebMachine, TheLineIsNotTakenFromUnderATransmission) {
    MachinePage page;
    page.PanelIn(1500, "open");
    page.Do("menu", "mnuTX");
    std::string written;
    for (const std::string& one : page.Page.SentOf("portWrite")) written += PageEvent(one).Bytes("data");
    EXPECT_EQ(written, page.OnTheWire());
    EXPECT_FALSE(page.Shown().Flag("waits"));
    EXPECT_EQ(page.Count("portClose"), 1U);
    page.Page.Sent.clear();
    // Hidden in the middle it takes the program to its end.
    page.PanelIn(1500, "close");
    page.Do("menu", "mnuTX");
    EXPECT_EQ(page.Count("portWrite"), 0U);
    page.Advance(200);
    EXPECT_EQ(page.Count("portOpen"), 1U);
    page.Panel("open");
    EXPECT_EQ(page.Memory(), page.OnTheWire());
}

TEST(WebMachine, ABrowserWithoutPortsHasItAlone) {
    MachinePage page(R"("names":["Played machine"],"withoutSerial":true)");
    EXPECT_EQ(page.Page.Shown("chkEnableCom", "Value"), "true");
    page.Do("menu", "mnuTX");
    EXPECT_TRUE(page.Shown().Flag("shown"));
    EXPECT_EQ(page.Memory(), page.OnTheWire());
    page.Panel("close");
    page.Panel("open");
    EXPECT_EQ(page.Count("portOpen") + page.Count("portWrite"), 0U);
}

// A port that is still to be chosen is asked for by whoever needs it first; none is no fault of the port.
TEST(WebPort, TheUserChoosesADeviceWhenItIsNeeded) {
    WebPageFixture page;
    page.Page.SayHello(R"("names":["Port to choose"])");
    for (int i = 0; i < 2; ++i) page.Page.Answers.emplace("portOpen", R"("ok":true,"later":true)");
    page.Start();
    page.Open("part.cnc", FileText("MK4", {{"92", "  2000", "", "   500"}, {"M30"}}));
    page.Page.Sent.clear();
    for (const char* entry : {"mnuRX", "mnuTX"}) {
        page.Page.Answers.emplace("portChoose", R"("cancelled":true)");
        page.Do("menu", entry);
    }
    const std::vector<std::string> boxes = page.Page.SentOf("message");
    ASSERT_EQ(boxes.size(), 2U);
    EXPECT_EQ(PageEvent(boxes[1]).Raw("text"), "No serial port was chosen. Nothing was sent or received.");
    EXPECT_EQ(page.Page.Shown("frRXcode", "Visible"), "false");
    EXPECT_TRUE(page.Page.SentOf("portWrite").empty() && page.Session->Workbench.Port.ComEnabled);
    page.Do("menu", "mnuRX");
    EXPECT_EQ(page.Page.Shown("frRXcode", "Visible"), "true");
    page.Page.Say(R"({"on":"ports","names":["USB A","USB B"]})");
    page.Click("cmdReceiveExit");
    EXPECT_EQ(page.Page.Shown("optPortRX(1)", "Enabled"), "true");
    EXPECT_EQ(page.Page.Shown("optPortTX(0)", "ToolTip"), "USB A");
    page.Do("menu", "mnuTX");
    EXPECT_EQ(page.Page.SentOf("portChoose").size(), 3U);
    EXPECT_EQ(page.Page.SentOf("portWrite").size(), 5U);
    // One that another program holds by then does not open.
    page.Page.Answers.emplace("portOpen", R"("ok":true,"later":true)");
    page.Do("menu", "mnuCOM");
    page.Click("optPortTX(1)");
    page.Page.Sent.clear();
    page.Page.Answers.emplace("portChoose", R"("ok":false)");
    page.Do("menu", "mnuTX");
    EXPECT_EQ(page.Page.SentOf("message").size(), 1U);
    EXPECT_FALSE(page.Session->Workbench.Port.ComEnabled);
}

}  // namespace kvt::test
