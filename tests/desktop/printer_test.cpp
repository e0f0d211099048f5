#include <QFile>
#include <QRegularExpression>
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
        for (int i = 0; i < lines / 2; ++i) printer.Print("one\r\ntwo", PrintedLine::Text);
        printer.EndDocument();
        QFile pdf(file);
        ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
        const QByteArray content = pdf.readAll();
        EXPECT_TRUE(content.startsWith("%PDF"));
        const auto pages = content.count("/Type /Page\n");
        EXPECT_EQ(printer.LastFile, file.toStdString());
        EXPECT_GE(pages, least);
        EXPECT_LE(pages, most);
    }
}

// Whether the sheet of a PDF of one page lies across.
bool LiesAcross(const QString& file) {
    QFile pdf(file);
    if (!pdf.open(QIODevice::ReadOnly)) return false;
    const QRegularExpression box(u"/MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"_s);
    const auto match = box.match(QString::fromLatin1(pdf.readAll()));
    return match.captured(1).toDouble() > match.captured(2).toDouble();
}

TEST_F(WindowTest, TheSheetIsTurnedToWhatIsPrinted) {
    const QTemporaryDir folder;
    DesktopPrinter printer(platform.Desktop);
    const QString file = folder.filePath(u"page.pdf"_s);
    for (const int width : {130, 60, 130}) {
        printer.BeginJob({});
        printer.PrintToFile(file);
        printer.Print(std::string(static_cast<std::size_t>(width), 'x'), PrintedLine::Table);
        printer.EndDocument();
        EXPECT_EQ(LiesAcross(file), width == 130);
    }
    PictureBox field(form, "pbxField");
    field.Width = 20'000;
    field.Height = 20'000;
    field.Line(0, 0, 9'000, 4'000);
    for (const bool across : {true, false}) {
        printer.BeginJob({});
        printer.PrintToFile(file);
        const FieldArea area = across ? FieldArea{0, 0, 9'000, 4'000} : FieldArea{0, 0, 3'000, 9'000};
        printer.PrintDrawing({field, area, "lid.cnc", "Grid 10"});
        printer.EndDocument();
        EXPECT_EQ(LiesAcross(file), across);
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
    ASSERT_EQ(entries->actions().constLast()->text(), u"&Later"_s);
    entries->actions().constLast()->trigger();
    EXPECT_EQ(clicks, 1);
    window.reset();
}

}  // namespace

}  // namespace kvt::test
