#include <QFile>
#include <QTemporaryDir>

#include "test_window.h"

namespace kvt::test {

namespace {

TEST_F(WindowTest, PrintedTextBecomesAPdfWhosePagesBreak) {
    const QTemporaryDir folder;
    // 300 lines of 10 points take five pages or six of A4 or Letter; 60 lines of 5 points take one.
    struct {
        double Size;
        int Lines, LeastPages, MostPages;
    } const cases[] = {{10, 300, 4, 7}, {5, 60, 1, 1}};
    for (const auto& [size, lines, least, most] : cases) {
        DesktopPrinter printer(platform.Desktop);
        ASSERT_FALSE(printer.Fonts().empty());
        printer.FontSize = size;
        const QString file = folder.filePath(u"page.pdf"_s);
        printer.PrintToFile(file);
        for (int i = 0; i < lines / 2; ++i) printer.Print("one\r\ntwo");
        printer.EndDocument();
        QFile pdf(file);
        ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
        const QByteArray content = pdf.readAll();
        EXPECT_TRUE(content.startsWith("%PDF"));
        const auto pages = content.count("/Type /Page\n");
        EXPECT_GE(pages, least);
        EXPECT_LE(pages, most);
    }
}

TEST_F(WindowTest, AMenuEntryMadeLaterIsShownAndWorks) {
    Open();
    Menu later(form, "mnuLater", "Later", 1);
    later.Container = &mnuFile;
    int clicks = 0;
    later.OnClick = [&] { ++clicks; };
    form.TellControlsAdded();
    QMenu* const entries = dynamic_cast<MenuView*>(mnuFile.View)->Entries();
    ASSERT_EQ(entries->actions().constLast()->text(), u"Later"_s);
    entries->actions().constLast()->trigger();
    EXPECT_EQ(clicks, 1);
    window.reset();
}

}  // namespace

}  // namespace kvt::test
