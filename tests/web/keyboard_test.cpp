#include <gtest/gtest.h>

#include <fstream>

#include "app/web_session.h"
#include "platform/keys.h"
#include "support/web_page.h"
#include "system/disk_files.h"

namespace kvt::test {

namespace {

// The keys of the story that types the whole sample: a text with "\r" for Enter, or a key by its name.
void TypeTheStory(WebPageFixture& page) {
    std::ifstream story(KVT_SOURCE_DIR "/tests/scripts/type_a_program.kvts");
    for (std::string line; std::getline(story, line);) {
        if (line.starts_with("file ")) break;
        if (line.starts_with("press ")) {
            page.Press(KeyNamed(line.substr(6))->Key);
        } else if (line.starts_with("type ")) {
            std::string text = line.substr(5);
            for (std::size_t at = text.find("\\r"); at != std::string::npos; at = text.find("\\r"))
                text.replace(at, 2, "\r");
            page.Type(text);
        }
    }
}

TEST(WebKeys, AWholeProgramIsTypedAndSavedAsTheSamplesBytes) {
    WebPageFixture page;
    page.Start();
    TypeTheStory(page);
    EXPECT_EQ(page.Session->Workbench.Store.LineCount(), 45);
    // The page has the rows around those in sight.
    const PageEvent told(page.Page.SentOf("rows").back());
    EXPECT_EQ(told.Number("selected"), told.Number("count"));

    DiskFiles disk;
    const std::string sample = disk.ReadWhole(KVT_SOURCE_DIR "/samples/mk4_bolt.cnc");
    const std::string notes = sample.substr(0, sample.find("\r\n%"));
    page.Do("edit", "txtFileNotes", "\"text\":" + JsonOf(notes));
    page.Advance(1000);
    EXPECT_EQ(page.Page.Shown("mnuSave", "Enabled"), "true");
    page.Page.Answers.emplace("save", R"("name":"bolt.cnc")");
    page.Press('S', key::CtrlHeld);
    EXPECT_EQ(page.Page.Stored["bolt.cnc"], sample);
    EXPECT_FALSE(page.Session->Workbench.Store.ProgramChanged);
}

TEST(WebKeys, ThePageHearsWhichKeysWereUsed) {
    WebPageFixture page;
    page.Start();
    const auto used = [&](int pressed, int held, const std::string& text) {
        page.Page.Sent.clear();
        page.Press(pressed, held, text);
        return PageEvent(page.Page.SentOf("used").at(0)).Flag("used");
    };
    EXPECT_TRUE(used('G', key::ShiftHeld, "G"));
    EXPECT_TRUE(used('S', key::CtrlHeld, ""));
    EXPECT_TRUE(used(key::Tab, 0, ""));
    EXPECT_FALSE(used('D', key::AltHeld, "d"));
    // Only the page knows how it has broken the lines of a field of several.
    page.Do("press", "txtFileNotes");
    EXPECT_FALSE(used(key::Down, key::ShiftHeld, ""));
    EXPECT_FALSE(used(key::Home, 0, ""));
    EXPECT_TRUE(used(key::Home, key::CtrlHeld, ""));
    EXPECT_TRUE(used(key::Left, 0, ""));
}

struct Pressed {
    const char* Json;
    int Key, Held, Character;
};

TEST(WebKeys, KeysOfThePageArePresses) {
    const Pressed cases[] = {
        {R"({"key":71,"held":1,"char":"G"})", 'G', 1, 'G'},
        {R"({"key":13})", key::Enter, 0, 13},
        {R"({"key":90,"held":2,"char":"z"})", 'Z', 2, 26},
        // AltGr on a German keyboard writes its third character.
        {R"({"key":81,"held":6,"char":"@"})", 0, 0, '@'},
        // A sign by its place, and one of the numeric block.
        {R"({"key":187,"char":"+"})", KeyOfCharacter('+'), 0, '+'},
        {R"({"key":107,"char":"+"})", 107, 0, '+'},
        {R"({"key":0,"char":"€"})", 0, 0, 0x80},
        {R"({"key":40,"held":4})", key::Down, 4, 0},
    };
    for (const Pressed& one : cases) {
        const std::vector<KeyPress> presses = PressesOf(PageEvent(one.Json));
        ASSERT_EQ(presses.size(), 1U) << one.Json;
        EXPECT_EQ(presses[0].Stroke, (KeyStroke{one.Key, one.Held})) << one.Json;
        EXPECT_EQ(presses[0].Character, one.Character) << one.Json;
    }
    EXPECT_TRUE(PressesOf(PageEvent(R"({"key":0,"char":"Ж"})")).empty());
    EXPECT_TRUE(PressesOf(PageEvent(R"({"key":0,"char":5})")).empty());
}

TEST(WebKeys, ComposedAndPastedTextArrivesWhereTheFocusIs) {
    WebPageFixture page;
    page.Start();
    page.Do("press", "txtFileNotes");
    page.Page.Say(R"({"on":"text","text":"Groesse Ж"})");
    page.Page.Say(R"({"on":"paste","text":" in\nmmЖ\u0000"})");
    page.Serve();
    EXPECT_EQ(page.Control("txtFileNotes"), "Groesse  in\r\nmm");
    EXPECT_EQ(page.Page.Shown("txtFileNotes", "Text"), "Groesse  in\nmm");
    EXPECT_EQ(page.Page.Shown("txtFileNotes", "Selection"), "[14,0,false]");
    // An editor of the page's own brings the whole text.
    page.Do("edit", "txtFileNotes", R"("text":"a\nb","start":2,"length":1)");
    EXPECT_EQ(page.Control("txtFileNotes"), "a\r\nb");
}

}  // namespace

}  // namespace kvt::test
