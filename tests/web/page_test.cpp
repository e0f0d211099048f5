#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>

#include "app/web_session.h"
#include "support/played_page.h"

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

}  // namespace

}  // namespace kvt::test
