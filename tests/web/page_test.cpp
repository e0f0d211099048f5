#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "platform/keys.h"
#include "support/web_page.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

TEST(WebPage, EveryControlIsMadeOnceBehindWhatItLiesIn) {
    PlayedPage page;
    WebSession session(page);
    session.Start();
    const std::vector<std::string> made = page.SentOf("make");
    std::size_t shown = 0;
    for (const Form* form : session.Workbench.Forms()) {
        ++shown;
        for (const Control* one : form->Controls())
            shown += one->Kind() != ControlKind::Timer && one->Kind() != ControlKind::FileDialog;
    }
    EXPECT_EQ(made.size(), shown);
    int last = 0;
    for (const std::string& message : made) {
        const PageEvent event(message);
        EXPECT_LT(event.Number("parent"), event.Number("id")) << message;
        EXPECT_NE(event.Raw("kind"), "") << message;
        EXPECT_GT(event.Number("id"), std::exchange(last, event.Number("id"))) << message;
    }
    EXPECT_EQ(page.Shown("txtGMcode", "Visible"), "true");
    // For who builds the page: what it will be told.
    if (const char* const file = std::getenv("KVT_MAKE_JSON")) {
        std::ofstream out(file);
        out << "[";
        for (std::size_t i = 0; i < page.Sent.size(); ++i) out << (i > 0 ? ",\n" : "\n") << page.Sent[i];
        out << "\n]\n";
    }
}

// The width of the main window, and whether the user was asked or told anything.
std::string StartOn(int width, int height, const std::string& later = {}) {
    WebPageFixture page;
    page.Page.SayHello("\"width\":" + std::to_string(width) + ",\"height\":" + std::to_string(height));
    page.Start();
    if (!later.empty()) page.Page.Say(later);
    page.Serve();
    return page.Page.Shown("frmMain", "Width") + " " + page.Page.Shown("frmMain", "Height") + " " +
           page.Page.Shown("frmMain", "WindowState") + " " +
           std::to_string(page.Page.SentOf("message").size());
}

TEST(WebPage, TheMainWindowFillsThePageAndIsNeverTooSmallForItsControls) {
    EXPECT_EQ(StartOn(20490, 11520), "20490 11520 Maximised 0");
    EXPECT_EQ(StartOn(20490, 11520, R"({"on":"screen","width":15000,"height":9000})"),
              "15000 9000 Maximised 0");
    EXPECT_EQ(StartOn(20490, 11520, R"({"on":"resize","id":1,"width":20000,"height":11000})"),
              "20000 11000 Maximised 0");
    EXPECT_EQ(StartOn(20490, 11520, R"({"on":"state","id":1,"state":"Normal"})"), "20490 11520 Maximised 0");
    // A phone.
    EXPECT_EQ(StartOn(5850, 12600), "11800 12600 Maximised 0");
    EXPECT_EQ(StartOn(12600, 5850), "12600 6000 Maximised 0");
    EXPECT_EQ(StartOn(12600, 5850, R"({"on":"resize","id":1,"width":-1,"height":1e300})"),
              "12600 6000 Maximised 0");
}

TEST(WebPage, WindowsBesideEachOtherShareAPageThatGetsAnotherSize) {
    WebPageFixture page;
    page.Page.SayHello(R"("width":36000,"height":15000)");
    page.Start();
    page.Open("a.cnc", FileText("MK4", {{"92", "  2000", "", "   500"}, {"M30"}}));
    page.Advance(1000);
    page.Do("menu", "mnuDraw");
    page.Do("menu", "mnuBeside");
    const auto shown = [&](const char* form, const char* what) {
        return std::stoi(page.Page.Shown(form, what));
    };
    const int edge = 180;  // what the drawing reckons for edges that its window in the page does not have
    const int middle = shown("frmDraw", "Left");
    EXPECT_GT(middle, 0);
    EXPECT_EQ(shown("frmMain", "Width"), middle);
    EXPECT_EQ(middle + shown("frmDraw", "Width") - edge, 36000);
    page.Page.Say(R"({"on":"screen","width":24000,"height":12000})");
    page.Serve();
    EXPECT_EQ(shown("frmDraw", "Left"), middle * 2 / 3);
    EXPECT_EQ(shown("frmDraw", "Left") + shown("frmDraw", "Width") - edge, 24000);
    EXPECT_EQ(shown("frmMain", "Height"), 12000);
    // One that its user has put elsewhere stays there.
    page.Page.Say(R"({"on":"place","form":)" + std::to_string(page.Page.NumberOf("frmDraw")) +
                  R"(,"left":500,"top":500})");
    page.Page.Say(R"({"on":"screen","width":30000,"height":12000})");
    page.Serve();
    EXPECT_EQ(shown("frmDraw", "Left"), 500);
}

TEST(WebPage, WindowsComeToTheFrontAndGoBackWithTheKeys) {
    WebPageFixture page;
    page.Start();
    const auto front = [&] { return PageEvent(page.Page.SentOf("front").back()).Number("id"); };
    page.Open("p.cnc", FileText("MK4", {{"92", "  2000", "", "   500"}, {"M30"}}));
    page.Advance(1000);
    page.Press(key::F5);
    EXPECT_EQ(front(), page.Page.NumberOf("frmDraw"));
    EXPECT_EQ(page.Page.Shown("frmDraw", "Visible"), "true");
    page.Do("activate", "frmMain");
    EXPECT_EQ(front(), page.Page.NumberOf("frmMain"));
    EXPECT_EQ(PageEvent(page.Page.SentOf("focus").back()).Number("id"), page.Page.NumberOf("txtGMcode"));
    page.Do("activate", "frmDraw");
    page.Do("close", "frmDraw");
    EXPECT_EQ(page.Page.Shown("frmDraw", "Visible"), "false");
    EXPECT_EQ(front(), page.Page.NumberOf("frmMain"));
    // Keys that have been on their way to a window that has gone go to the one in front.
    page.Press('F', key::CtrlHeld);
    const std::string inFind = R"({"on":"key","form":)" + std::to_string(page.Page.NumberOf("frmFind"));
    page.Page.Say(inFind + R"(,"key":27})");
    page.Page.Say(inFind + R"(,"key":77,"char":"m"})");
    page.Serve();
    EXPECT_EQ(page.Page.Shown("lblGMcode", "Caption"), "M");
    // The way out ends the program, and its waits.
    page.Do("close", "frmMain");
    EXPECT_TRUE(page.Session->Platform.System.Ended());
    EXPECT_EQ(page.Page.SentOf("end").size(), 1U);
}

TEST(WebPage, WhatComesForAControlThatIsGoneOrNotToBeUsedChangesNothing) {
    WebPageFixture page;
    page.Start();
    for (const char* event :
         {R"({"on":"click","id":9999})", R"({"on":"click","id":"x"})", R"({"on":"key"})", "[]", "null", "{",
          "", R"({"on":"row","id":86,"row":99})", R"({"on":"entry","id":44,"index":-5})",
          R"({"on":"tab","id":36,"page":77})", R"({"on":"reply","ask":12345,"value":"Yes"})",
          R"({"on":"mouse","id":5,"what":"down","x":"1"})", R"({"on":"sight","id":86,"top":-9,"rows":-3})"})
        page.Page.Say(event);
    page.Serve();
    page.Do("menu", "mnuSave");
    EXPECT_TRUE(page.Page.SentOf("save").empty());
    EXPECT_TRUE(page.Page.SentOf("message").empty());
    EXPECT_TRUE(page.Session->Workbench.Log.Records().empty());
    EXPECT_EQ(page.Session->Workbench.Store.LineCount(), 0);
}

// The buttons follow the state of the work twice a second: a press brings one up to date, and is its click then.
TEST(WebPage, AButtonThatIsNotYetUpToDateIsClickedOnce) {
    WebPageFixture page;
    page.Start();
    page.Type("G00\r1900\r100\rUp\r");
    const std::string save = "cmdTopButtons(" + std::to_string(Index(TopButton::Save)) + ")";
    ASSERT_EQ(page.Page.Shown(save, "Enabled"), "false");
    page.Click(save);
    EXPECT_EQ(page.Page.SentOf("save").size(), 1U);
    page.Click(save);
    EXPECT_EQ(page.Page.SentOf("save").size(), 2U);
}

TEST(WebPage, AnEditIsThereAgainWhenThePageComesBackASecondLater) {
    std::string stored;
    {
        WebPageFixture page;
        page.Start();
        page.Type("G00\r1900\r100\rUp\r");
        page.Advance(1000);
        for (const auto& [path, content] : page.Page.Stored)
            stored += (stored.empty() ? "" : ",") + JsonOf(path) + ":" + JsonOf(content);
    }
    WebPageFixture again;
    again.Page.SayHello("\"stored\":{" + stored + "}");
    again.Start();
    EXPECT_EQ(again.Session->Workbench.Store.LineCount(), 1);
    EXPECT_TRUE(again.Session->Workbench.Store.Unsaved());
}

TEST(WebPage, APageThatGoesHasItsSettingsAndTheFileOfLastTime) {
    WebPageFixture page;
    page.Start();
    page.Open("last.cnc", FileText("F1", {{"92", "  2000", "", "   500", "", "Last"}, {"M30"}}));
    page.Page.Say(R"({"on":"unload"})");
    page.Serve();
    std::string stored = "\"last.cnc\":null";
    for (const auto& [path, content] : page.Page.Stored) stored += "," + JsonOf(path) + ":" + JsonOf(content);
    for (const bool granted : {true, false}) {
        WebPageFixture again;
        again.Page.SayHello("\"stored\":{" + stored + "}");
        const std::string content =
            JsonOf(FileText("F1", {{"92", "  2000", "", "   500", "", "Last"}, {"M30"}}));
        again.Page.Answers.emplace("read", granted ? "\"content\":" + content : "\"missing\":true");
        again.Start();
        EXPECT_EQ(again.Session->Workbench.Store.LineCount(), granted ? 2 : 0);
        EXPECT_TRUE(again.Page.SentOf("message").empty());
        EXPECT_EQ(again.Page.Shown("mnuRecentFile(0)", "Caption"), "1  last.cnc  (F1)");
    }
    // A browser that keeps no files.
    stored.replace(0, stored.find(',') + 1, "");
    WebPageFixture without;
    without.Page.SayHello("\"stored\":{" + stored + "}");
    without.Start();
    EXPECT_EQ(without.Page.Shown("mnuRecent", "Enabled"), "false");
    EXPECT_TRUE(without.Page.SentOf("message").empty());
}

TEST(WebPage, WhatAnAddressBringsAsksForUnsavedWorkAndNamesNoPath) {
    WebPageFixture page;
    page.Start();
    page.Type("G00\r1900\r100\rUp\r");
    page.Page.Answers.emplace("message", R"("value":"Yes")");
    page.Page.Answers.emplace("save", R"("name":"mine.cnc")");
    page.Page.Say(R"({"on":"brought","name":"../a<b>.cnc","content":)" + JsonOf(FileText("F1", {{"M30"}})) +
                  "}");
    page.Serve();
    EXPECT_EQ(page.Page.SentOf("message").size(), 1U);
    EXPECT_NE(page.Page.Stored["mine.cnc"].find("Up"), std::string::npos);
    EXPECT_EQ(page.Page.Shown("frmMain", "Caption"), "Kestrel Vise Toolkit - a<b>.cnc");
}

}  // namespace

}  // namespace kvt::test
