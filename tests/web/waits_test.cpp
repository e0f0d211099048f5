#include <gtest/gtest.h>

#include "platform/keys.h"
#include "support/web_page.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

const std::string program = FileText("MK4", {{"92", "  2000", "", "   500"},
                                             {"00", "  1500", "", "   300"},
                                             {"01", "  1000", "", "   200", "  50"},
                                             {"M30"}});

std::string Cell(const WebPageFixture& page, int row, int column) {
    return std::string(page.Session->Workbench.Store.lvCncProgram.Row(row)[column]);
}

TEST(WebWaits, AQuestionInsideADrawingInsideAStepRunEndsAsEverywhere) {
    WebPageFixture page;
    page.Start();
    page.Open("p.cnc", program);
    page.Advance(1000);
    ASSERT_EQ(page.Page.Shown("cmdRun", "Enabled"), "true");
    // While the step waits: the drawing, which waits for a step of its own; there a line is deleted after a question,
    // a step is made and the rest is drawn; then the run goes on, and is stopped.
    page.Page.SayAt(page.Page.Clock + 100, R"({"on":"key","key":116})");
    page.In(200, "menu", "frmDraw.mnuSim(1)");
    page.In(400, "row", "lvCncProgram", R"("row":2,"button":1)");
    page.In(500, "click", "cmdDelete");
    page.In(600, "click", "frmDraw.cmdStep");
    page.In(700, "click", "frmDraw.cmdRun");
    bool askedInside = false;
    page.Page.OnAsked = [&](const std::string& task, const PageEvent&) {
        askedInside |= task == "message" && page.Session->Workbench.Draw.Controls.frmDraw.Visible;
    };
    page.In(900, "click", "cmdStop");
    page.Click("cmdRun");
    EXPECT_TRUE(askedInside);
    EXPECT_FALSE(page.Session->Workbench.Store.EditorRunMode);
    EXPECT_EQ(Cell(page, 2, 2), " 01 ");
    EXPECT_TRUE(page.Session->Workbench.Log.Records().empty());
    EXPECT_FALSE(page.Page.Operations.empty());
}

TEST(WebWaits, TimersGoOnBelowAQuestionAndKeysDoNot) {
    WebPageFixture page;
    page.Start();
    page.Open("p.cnc", program);
    page.Click("lvCncProgram");
    page.Do("row", "lvCncProgram", R"("row":2,"button":1)");
    ASSERT_NE(page.Page.Shown("mnuSaveAs", "Enabled"), "true");
    // The answer takes its time; what is typed meanwhile is nobody's.
    page.Page.Late.emplace("message", 1500);
    page.Page.SayAt(page.Page.Clock + 100, R"({"on":"key","key":71,"char":"G"})");
    page.Page.Answers.emplace("message", R"("value":"No")");
    page.Click("cmdDelete");
    EXPECT_EQ(page.Page.SentOf("message").size(), 1U);
    EXPECT_EQ(page.Session->Workbench.Store.LineCount(), 4);
    EXPECT_EQ(page.Page.Shown("mnuSaveAs", "Enabled"), "true");
    EXPECT_EQ(page.Control("txtGMcode"), "00");
}

TEST(WebWaits, WhatAHandlerDefersAndPressesComesWhenItHasEnded) {
    WebPageFixture page;
    page.Start();
    WebSystem& system = page.Session->Platform.System;
    std::string order;
    CommandButton& button = page.Session->Workbench.Main.cmdDelete;
    button.OnClick = [&] {
        system.Later([&] { order += "later "; });
        system.PressKey(key::Escape);
        system.Later([] { throw std::runtime_error("a fault of the program's"); });
        for (int i = 0; i < 5; ++i) system.DoEvents();
        order += "end ";
    };
    page.Session->Workbench.frmMain.OnKeyDown = [&](int pressed, int) {
        order += std::to_string(pressed) + " ";
    };
    int handled = 0;
    system.OnHandled = [&] { ++handled; };
    button.Enabled = true;
    page.Click("cmdDelete");
    EXPECT_EQ(order, "end 27 later ");
    EXPECT_GE(handled, 4);
    ASSERT_EQ(page.Session->Workbench.Log.Records().size(), 1U);
    EXPECT_EQ(page.Session->Workbench.Log.Records()[0].Procedure, "Later");
}

TEST(WebWaits, AWaitThatNothingComesInTakesNoProcessor) {
    WebPageFixture page;
    page.Start();
    WebSystem& system = page.Session->Platform.System;
    int turns = 0;
    const double before = page.Page.Clock;
    while (page.Page.Clock < before + 1000) turns += system.DoEvents() ? 1 : 0;
    EXPECT_LT(turns, 120);
    // A wait that ends by itself does so in time.
    const double end = page.Page.Clock + 33;
    EXPECT_TRUE(system.WaitUntil([&] { return end - page.Page.Clock; }));
    EXPECT_NEAR(page.Page.Clock, end, 1);
}

}  // namespace

}  // namespace kvt::test
