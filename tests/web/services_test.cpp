#include <gtest/gtest.h>

#include <map>

#include "basic/run_time_error.h"
#include "files/folders.h"
#include "program/page_texts.h"
#include "support/web_page.h"
#include "support/workbench_fixture.h"

namespace kvt::test {

namespace {

int ErrorOf(const std::function<void()>& statement) {
    try {
        statement();
        return 0;
    } catch (const RunTimeError& error) {
        return error.Number;
    }
}

TEST(WebFiles, EachFolderIsKeptWhereItBelongs) {
    WebPageFixture page;
    page.Start();
    WebFiles& files = page.Session->Platform.Files;
    files.WriteWhole("/data/EMCO/note.txt", "a\x80\xFF");
    EXPECT_EQ(page.Page.Stored["/data/EMCO/note.txt"], "a\x80\xFF");
    files.Append("\\data\\EMCO\\note.txt", "b");
    EXPECT_EQ(files.ReadWhole("/data/EMCO/note.txt"),
              "a\x80\xFF"
              "b");
    EXPECT_TRUE(files.Exists("/data/EMCO"));
    EXPECT_EQ(files.List("/data/EMCO/", "*.TXT"), std::vector<std::string>{"note.txt"});
    files.Delete("/data/EMCO/note.txt");
    EXPECT_EQ(page.Page.Stored.count("/data/EMCO/note.txt"), 0U);
    EXPECT_EQ(ErrorOf([&] { files.ReadWhole("/data/EMCO/note.txt"); }), fault::FileNotFound);
    EXPECT_EQ(ErrorOf([&] { files.Delete("/data/EMCO/note.txt"); }), fault::FileNotFound);
    // What the page brings stays as it is; elsewhere there is no place.
    files.Put("/share/samples/a.cnc", "A");
    EXPECT_EQ(ErrorOf([&] { files.WriteWhole("/share/samples/a.cnc", "B"); }), fault::PathFileAccess);
    EXPECT_EQ(ErrorOf([&] { files.WriteWhole("/etc/a", "B"); }), fault::PathFileAccess);
    EXPECT_EQ(files.ReadWhole("/share/samples/a.cnc"), "A");
}

TEST(WebFiles, AFullStorageIsError75AndLeavesTheOldFile) {
    WebPageFixture page;
    page.Start();
    WebFiles& files = page.Session->Platform.Files;
    files.WriteWhole("/data/x", "old");
    page.Page.Answers.emplace("store", R"("ok":false)");
    EXPECT_EQ(ErrorOf([&] { files.WriteWhole("/data/x", "new"); }), fault::PathFileAccess);
    EXPECT_EQ(files.ReadWhole("/data/x"), "old");
    // Without a storage it is kept until the end.
    files.SetStorage(false);
    page.Page.Sent.clear();
    files.WriteWhole("/data/x", "new");
    EXPECT_EQ(files.ReadWhole("/data/x"), "new");
    EXPECT_TRUE(page.Page.Sent.empty());
}

// The log grows with each fault, and the browser's storage is small.
TEST(WebFiles, OfAFileThatGrowsTheEndIsKeptInWholeLines) {
    WebPageFixture page;
    page.Start();
    WebFiles& files = page.Session->Platform.Files;
    for (int i = 0; i < 700; ++i)
        files.Append("/data/log", std::to_string(i) + std::string(197, '.') + "\r\n");
    const std::string log = files.ReadWhole("/data/log");
    EXPECT_TRUE(log.size() <= 65536 && log.size() > 65000) << log.size();
    EXPECT_EQ(log.substr(0, 4), "376.");
    EXPECT_TRUE(log.ends_with(".\r\n"));
}

TEST(WebFiles, AProgramIsOpenedChangedAndSavedBack) {
    WebPageFixture page;
    page.Start();
    const std::string program = FileText("MK4", {{"92", "  2000", "", "   500"}, {"M30"}});
    page.Open("part.cnc", program);
    EXPECT_EQ(page.Page.Shown("frmMain", "Caption"), "Kestrel Vise Toolkit - part.cnc");
    page.Do("edit", "txtFileNotes", R"("text":"Note")");
    page.Advance(1000);
    // Refused first: nothing is lost, and the next save asks anew.
    page.Page.Answers.emplace("saveFile", R"("ok":false)");
    page.Do("menu", "mnuSave");
    EXPECT_TRUE(page.Session->Workbench.Store.Unsaved());
    page.Do("menu", "mnuSave");
    EXPECT_EQ(page.Page.Stored["part.cnc"], "Note\r\n" + program);
    EXPECT_FALSE(page.Session->Workbench.Store.Unsaved());
    // One that is dropped; a name is a name, wherever it says it lies.
    page.Page.Say(R"({"on":"drop","name":"../../data/x.cnc","content":)" + JsonOf(program) + "}");
    page.Serve();
    EXPECT_EQ(page.Page.Shown("frmMain", "Caption"), "Kestrel Vise Toolkit - x.cnc");
    EXPECT_EQ(page.Session->Platform.Files.ReadWhole("x.cnc"), program);
}

TEST(WebFiles, WhatThePageHasKeptIsThereAgainAndReadWhenItIsNeeded) {
    WebPageFixture page;
    page.Page.SayHello(R"("stored":{"/data/a":"é","b.cnc":null},"share":{"/share/c":"C"},
        "times":{"/data/a":"86400","/share/c":"1x","/data/other":"1"})");
    page.Start();
    WebFiles& files = page.Session->Platform.Files;
    EXPECT_EQ(files.WrittenAt("/data/a").value_or(std::tm{}).tm_year, 70);
    EXPECT_FALSE(files.WrittenAt("/share/c") || files.WrittenAt("/data/other"));
    EXPECT_EQ(files.ReadWhole("/data/a"), "\xE9");
    EXPECT_EQ(files.ReadWhole("/share/c"), "C");
    // What its user does not agree to now may be had later.
    page.Page.Answers.emplace("read", R"("missing":true)");
    EXPECT_FALSE(files.Exists("b.cnc"));
    page.Page.Answers.emplace("read", R"("missing":true)");
    EXPECT_EQ(ErrorOf([&] { files.ReadWhole("b.cnc"); }), fault::FileNotFound);
    page.Page.Answers.emplace("read", R"("content":"B")");
    EXPECT_EQ(files.ReadWhole("b.cnc"), "B");
}

// What an address of the page brings has a name and no file, so that no save goes over one; another's unsaved program is
// given up by its user alone.
TEST(WebFiles, AnAddressBringsAProgramAndTakesOne) {
    const std::string program = FileText("MK4", {{"92", "  2000", "", "   500"}, {"M30"}});
    WebPageFixture page;
    page.Page.SayHello(R"("name":"a.cnc","content":)" + JsonOf(program) +
                       R"(,"share":{"/share/samples/b.cnc":)" + JsonOf(program) + "}");
    page.Start();
    EXPECT_EQ(page.Page.Shown("lblPath", "Caption"), "a.cnc");
    page.Page.Say(R"({"on":"link"})");
    page.Serve();
    const PageEvent link(page.Page.SentOf("link").at(0));
    EXPECT_EQ(link.Raw("name"), "a.cnc");
    EXPECT_EQ(link.Bytes("content"), program);
    page.Do("edit", "txtFileNotes", R"("text":"Note")");
    page.Advance(1000);
    page.Page.Answers.emplace("message", R"("value":"No")");
    page.Page.Sent.clear();
    page.Page.Say(R"({"on":"brought","name":"b.cnc","file":"/share/samples/b.cnc"})");
    page.Serve();
    EXPECT_EQ(page.Page.SentOf("message").size(), 1U);
    EXPECT_EQ(page.Page.Shown("lblPath", "Caption"), "b.cnc");
    page.Do("edit", "txtFileNotes", R"("text":"Note")");
    page.Advance(1000);
    page.Do("menu", "mnuSave");
    EXPECT_EQ(page.Page.SentOf("save").size(), 1U);
    EXPECT_TRUE(page.Page.SentOf("saveFile").empty());
}

TEST(WebPort, LinesLeaveAtTheirPaceAndSettingsWaitForThem) {
    WebPageFixture page;
    page.Page.SayHello(R"("names":["USB serial"])");
    page.Start();
    WebPort& port = page.Session->Platform.Port;
    std::string events;
    port.OnComm = [&](CommEvent event) { events += std::to_string(static_cast<int>(event)); };
    if (!port.IsOpen()) port.Open();
    EXPECT_EQ(port.DeviceName(1), "USB serial");
    EXPECT_EQ(port.DeviceName(2), "");
    page.Page.Sent.clear();
    port.Output("%\r\n");
    // The same settings change nothing, others wait until the line has left.
    port.SetSettings("300,N,8,1");
    port.SetSettings("2400,E,7,1");
    EXPECT_GT(port.MillisecondsLeft(), 12);
    page.Advance(10);
    EXPECT_TRUE(page.Page.SentOf("portSettings").empty());
    page.Advance(200);
    ASSERT_EQ(page.Page.SentOf("portSettings").size(), 1U);
    EXPECT_EQ(PageEvent(page.Page.SentOf("portSettings")[0]).Raw("settings"), "2400,E,7,1");
    EXPECT_EQ(PageEvent(page.Page.SentOf("portWrite").at(0)).Bytes("data"), "%\r\n");
    EXPECT_EQ(events, "1");
    page.Page.Say(R"({"on":"port","data":"aÿ"})");
    page.Serve();
    EXPECT_EQ(port.Input(), "a\xFF");
    // Nothing is under way: what comes next goes with the settings chosen for it.
    port.SetSettings("300,N,8,1");
    page.Page.Sent.clear();
    port.Output("N00");
    ASSERT_EQ(page.Page.Sent.size(), 2U);
    EXPECT_EQ(PageEvent(page.Page.Sent[0]).Raw("do"), "portSettings");
    EXPECT_EQ(PageEvent(page.Page.Sent[1]).Raw("do"), "portWrite");
    // Unplugged in mid-line.
    page.Page.Say(R"({"on":"port","vanished":true})");
    page.Serve();
    EXPECT_EQ(events, "123");
    EXPECT_FALSE(port.IsOpen());
    EXPECT_EQ(port.MillisecondsLeft(), 0);
    EXPECT_EQ(ErrorOf([&] { port.Output("x"); }), fault::PortNotOpen);
}

// What the page tells to lie there still is waited for; when nothing of it has left for five seconds the device counts as
// gone.
TEST(WebPort, ADeviceThatTakesNothingIsLetGo) {
    WebPageFixture page;
    page.Page.SayHello(R"("names":["A"])");
    page.Start();
    WebPort& port = page.Session->Platform.Port;
    std::string events;
    port.OnComm = [&](CommEvent event) { events += std::to_string(static_cast<int>(event)); };
    if (!port.IsOpen()) port.Open();
    const auto waits = [&page](int bytes) {
        page.Page.Say(R"({"on":"port","waits":)" + std::to_string(bytes) + "}");
        page.Serve();
    };
    // One that is only slow.
    port.Output(std::string(30, 'x'));
    for (const int left : {30, 20, 10}) {
        waits(left);
        page.Advance(4000);
        EXPECT_EQ(events, "");
        EXPECT_GT(port.MillisecondsLeft(), 300);
    }
    waits(0);
    page.Advance(10);
    EXPECT_EQ(events, "1");
    page.Page.Sent.clear();
    port.Output(std::string(30, 'x'));
    waits(30);
    page.Advance(5900);
    EXPECT_EQ(events, "1");
    EXPECT_TRUE(port.IsOpen());
    page.Advance(300);
    EXPECT_EQ(events, "13");
    EXPECT_FALSE(port.IsOpen());
    EXPECT_EQ(page.Page.SentOf("portClose").size(), 1U);
    // The next one begins anew.
    port.Open();
    EXPECT_EQ(port.MillisecondsLeft(), 0);
}

TEST(WebPort, AClosedPortIsLetGoWhenItsLastLineHasLeft) {
    WebPageFixture page;
    page.Page.SayHello(R"("names":["A"])");
    page.Start();
    WebPort& port = page.Session->Platform.Port;
    if (!port.IsOpen()) port.Open();
    port.Output(std::string(30, 'x'));
    page.Page.Sent.clear();
    port.Close();
    EXPECT_TRUE(page.Page.SentOf("portClose").empty());
    // Opened before that it goes on.
    port.Open();
    EXPECT_TRUE(page.Page.SentOf("portOpen").empty());
    port.Close();
    page.Advance(1500);
    EXPECT_EQ(page.Page.SentOf("portClose").size(), 1U);
    page.Page.Answers.emplace("portOpen", R"("error":"in use")");
    EXPECT_EQ(ErrorOf([&] { port.Open(); }), fault::PortAlreadyOpen);
}

TEST(WebPrinter, ProgramAndDrawingAreA4Pages) {
    WebPageFixture page;
    page.Start();
    page.Open("<b>&.cnc", FileText("MK4", {{"92", "  2000", "", "   500", "", "", "<i>"}, {"M30"}}));
    page.Advance(1000);
    page.Do("menu", "mnuPrint");
    const std::vector<std::string> jobs = page.Page.SentOf("print");
    ASSERT_EQ(jobs.size(), 1U);
    EXPECT_NE(jobs[0].find("width=\\\"595.28pt\\\""), std::string::npos);
    // What names and comments say is text.
    EXPECT_EQ(jobs[0].find("<i>"), std::string::npos);
    EXPECT_NE(jobs[0].find("&lt;i&gt;"), std::string::npos);
    EXPECT_NE(jobs[0].find(R"("file":"<b>&")"), std::string::npos);
    page.Page.Answers.emplace("print", R"("cancelled":true)");
    page.Page.Say(R"({"on":"key","key":116})");
    page.Serve();
    page.Do("menu", "frmDraw.mnuPrint");
    ASSERT_EQ(page.Page.SentOf("print").size(), 2U);
    EXPECT_NE(page.Page.SentOf("print")[1].find("viewBox"), std::string::npos);
    EXPECT_NE(page.Page.SentOf("print")[1].find(R"("file":"<b>& )"), std::string::npos);
    // Where a printer is chosen and nothing printed its user is told where they are.
    EXPECT_TRUE(page.Page.SentOf("printers").empty());
    page.Do("menu", "mnuPrinter");
    page.Click("cmdPrinterDialog");
    page.Serve();
    EXPECT_EQ(page.Page.SentOf("printers").size(), 1U);
}

// The code of the language and two of the page's own texts, as the page was told last.
std::string ToldTexts(const PlayedPage& page) {
    const PageEvent event(page.SentOf("language").back());
    std::map<std::string, std::string> texts;
    event.EachFile("texts", [&texts](const std::string& name, const std::string* text) {
        texts[name] = text ? *text : "";
    });
    EXPECT_EQ(texts.size(), PageTextNames().size());
    return std::string(event.Raw("code")) + " " + texts["ok"] + " " + texts["yes"];
}

// Those that a language lacks are English. The first visit has the language of the browser, later ones that of the user.
TEST(WebLanguages, ThePageIsToldItsOwnTexts) {
    const std::string module =
        R"("share":{"/share/languages/Mine.txt":"[Kestrel Vise Toolkit, Language Resource]\r\n)"
        R"([System Variables]\r\nLanguage Name=Mine\r\nLanguage Code=pt_BR\r\n)"
        R"([Browser Page]\r\n1=Ol\u00e1\r\n2=\r\n"})";
    WebPageFixture page;
    page.Page.SayHello(module + R"(,"language":"fr")");
    page.Start();
    EXPECT_EQ(ToldTexts(page.Page), " OK Yes");
    page.Page.Say(R"({"on":"unload"})");
    page.Serve();
    WebPageFixture first;
    first.Page.SayHello(module + R"(,"language":"pt-PT")");
    first.Start();
    EXPECT_EQ(ToldTexts(first.Page), "pt_BR Ol\xE1 Yes");
    std::string stored;
    for (const auto& [path, content] : page.Page.Stored)
        stored += (stored.empty() ? "" : ",") + JsonOf(path) + ":" + JsonOf(content);
    WebPageFixture later;
    later.Page.SayHello(module + R"(,"language":"pt-PT","stored":{)" + stored + "}");
    later.Start();
    EXPECT_EQ(ToldTexts(later.Page), " OK Yes");
    later.Do("menu", "mnuLanguages(1)");
    EXPECT_EQ(ToldTexts(later.Page), "pt_BR Ol\xE1 Yes");
}

TEST(WebPrograms, IsoCodeIsConvertedByACallAndLeavesNoFiles) {
    WebPageFixture page;
    page.Start();
    const std::string folder = FoldersBelow("/data").PreProcessorFolder;
    EXPECT_EQ(page.Session->Platform.Files.List(folder, "*.F1"), std::vector<std::string>{"iso2emco.F1"});
    page.Do("menu", "mnuImport");
    page.Page.Answers.emplace(
        "open", R"("name":"my part.nc","content":"G21 G90\nG00 X20 Z5\nG01 X10 Z0 F50\nM30\n")");
    page.Do("menu", "mnuPP(0)");
    EXPECT_GT(page.Session->Workbench.Store.LineCount(), 2);
    EXPECT_TRUE(page.Session->Workbench.Store.ProgramChanged);
    EXPECT_EQ(page.Session->Platform.Files.List("", "*").size(), 1U);
    EXPECT_TRUE(page.Page.SentOf("saveFile").empty());
    // What it does not know it refuses, and tells where.
    const int lines = page.Session->Workbench.Store.LineCount();
    page.Page.Answers.emplace("open", R"("name":"bad.nc","content":"G21\nG06.2 X1\n")");
    page.Do("menu", "mnuPP(0)");
    EXPECT_EQ(page.Session->Workbench.Store.LineCount(), lines);
}

TEST(WebDialogs, BoxesTellWhatTheyAskAndNothingElseAnswersThem) {
    WebPageFixture page;
    page.Start();
    WebDialogs& dialogs = page.Session->Platform.Dialogs;
    MessageBox box = Question("Delete \xE4?", "Title", Buttons::YesNoCancel);
    page.Page.Answers.emplace("message", R"("value":"What?")");
    EXPECT_EQ(dialogs.ShowMessage(box), Answer::Cancel);
    const PageEvent shown(page.Page.SentOf("message").back());
    EXPECT_EQ(shown.Raw("text"), "Delete ä?");
    EXPECT_EQ(shown.Raw("buttons"), "YesNoCancel");
    box.Choice = Buttons::YesNo;
    page.Page.Answers.emplace("message", R"("value":"No")");
    EXPECT_EQ(dialogs.ShowMessage(box), Answer::No);
    Color color = 0x123456;
    page.Page.Answers.emplace("color", R"("cancelled":true)");
    EXPECT_FALSE(dialogs.ShowColor(color));
    page.Page.Answers.emplace("color", R"("color":255)");
    EXPECT_TRUE(dialogs.ShowColor(color));
    EXPECT_EQ(color, 255U);
}

}  // namespace

}  // namespace kvt::test
