#include "desktop/colors.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <algorithm>

#include "desktop/edged_style.h"

namespace kvt::test {
namespace {

struct Desktop {
    const char* Name;
    QRgb Window, WindowText, Base, Text, Button, Highlight, HighlightedText;
};

// Palettes as desktops have them; what is greyed is what the toolkit makes of them.
constexpr Desktop desktops[] = {
    {"light", 0xefefef, 0x000000, 0xffffff, 0x000000, 0xefefef, 0x308cc6, 0xffffff},
    {"dark", 0x31363b, 0xeff0f1, 0x232629, 0xeff0f1, 0x31363b, 0x3daee9, 0xeff0f1},
    {"middle", 0x5a5a5a, 0xf0f0f0, 0x6a6a6a, 0xffffff, 0x606060, 0x808080, 0xffffff},
    {"white on black", 0x000000, 0xffffff, 0x000000, 0xffffff, 0x000000, 0xffff00, 0x000000},
    {"black on white", 0xffffff, 0x000000, 0xffffff, 0x000000, 0xffffff, 0x000080, 0xffffff},
    {"green on black", 0x000000, 0x00ff00, 0x000000, 0x00ff00, 0x000000, 0x008000, 0xffffff},
};

QPalette PaletteOf(const Desktop& desktop) {
    QPalette palette(QColor(desktop.Button), QColor(desktop.Window));
    palette.setColor(QPalette::WindowText, desktop.WindowText);
    palette.setColor(QPalette::Base, desktop.Base);
    palette.setColor(QPalette::AlternateBase, desktop.Base);
    palette.setColor(QPalette::Text, desktop.Text);
    palette.setColor(QPalette::ButtonText, desktop.WindowText);
    palette.setColor(QPalette::Highlight, desktop.Highlight);
    palette.setColor(QPalette::HighlightedText, desktop.HighlightedText);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x9a, 0x9a, 0x9a));
    palette.setColor(QPalette::PlaceholderText, QColor(0x80, 0x80, 0x80, 0x80));
    return palette;
}

void ExpectReadable(const QColor& text, const QColor& ground, const char* what) {
    EXPECT_GE(Contrast(text, ground), LeastContrast)
        << what << " " << text.name().toStdString() << " on " << ground.name().toStdString();
}

TEST(DesktopColors, EveryTextCanBeReadOnEveryDesktop) {
    for (const Desktop& desktop : desktops) {
        SCOPED_TRACE(desktop.Name);
        const QPalette palette = ReadablePalette(PaletteOf(desktop));
        for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const auto expect = [&](QPalette::ColorRole text, QPalette::ColorRole ground, const char* what) {
                ExpectReadable(palette.color(group, text), palette.color(group, ground), what);
            };
            expect(QPalette::WindowText, QPalette::Window, "caption");
            expect(QPalette::Text, QPalette::Base, "field");
            expect(QPalette::ButtonText, QPalette::Button, "button");
            expect(QPalette::HighlightedText, QPalette::Highlight, "selection");
            expect(QPalette::Link, QPalette::Base, "link");
            expect(QPalette::PlaceholderText, QPalette::Base, "hint");
        }
        const QColor base = palette.color(QPalette::Base);
        for (const QColor& ground : {base, SelectedGround(palette, true), SelectedGround(palette, false)}) {
            ExpectReadable(FindingColor(ground), ground, "finding");
            ExpectReadable(Readable(palette.color(QPalette::Text), ground), ground, "row");
            // The colours of incremental and of absolute lines, and others that a user may choose.
            for (const QColor& chosen : {QColor(Qt::blue), QColor(Qt::black), QColor(Qt::yellow)})
                ExpectReadable(Readable(chosen, ground), ground, "line");
        }
        ExpectReadable(SelectedEdge(palette), base, "edge of the selection");
        if (IsDarkOrStrong(palette)) ExpectReadable(GridColor(palette), base, "grid");
    }
}

TEST(DesktopColors, FieldsAndBoxesHaveAnEdgeOnBlack) {
    EdgedStyle style(QStringLiteral("fusion"));
    QLineEdit field;
    QCheckBox box;
    for (QWidget* widget : std::initializer_list<QWidget*>{&field, &box}) {
        widget->setStyle(&style);
        widget->setPalette(ReadablePalette(PaletteOf(desktops[3])));
        widget->resize(80, 24);
        const QImage image = widget->grab().toImage();
        double contrast = 1;
        for (int x = 0; x < 8; ++x)
            contrast = std::max(contrast, Contrast(image.pixelColor(x, 12), Qt::black));
        EXPECT_GE(contrast, LeastContrast);
    }
}

TEST(DesktopColors, TextsOfAnOwnColorFollowAnotherPalette) {
    const QPalette before = QApplication::palette();
    QLineEdit field;
    SetTextColor(field, 0xFF0000);
    EXPECT_EQ(field.palette().color(QPalette::Text), QColor(Qt::blue));
    for (const Desktop& desktop : desktops) {
        QApplication::setPalette(ReadablePalette(PaletteOf(desktop)));
        RefreshTextColors();
        ExpectReadable(field.palette().color(QPalette::Text), field.palette().color(QPalette::Base),
                       desktop.Name);
    }
    QApplication::setPalette(before);
}

TEST(DesktopColors, LightPaperIsLeftAsItIs) {
    const QPalette palette = ReadablePalette(PaletteOf(desktops[0]));
    EXPECT_FALSE(IsDarkOrStrong(palette));
    EXPECT_TRUE(IsDarkOrStrong(PaletteOf(desktops[1])));
    EXPECT_TRUE(IsDarkOrStrong(PaletteOf(desktops[4])));
    EXPECT_EQ(palette.color(QPalette::WindowText), QColor(Qt::black));
    EXPECT_EQ(FindingColor(Qt::white), QColor(0xC0, 0x00, 0x20));
    EXPECT_EQ(Readable(Qt::blue, Qt::white), QColor(Qt::blue));
    // What is greyed can still be told from what is not.
    EXPECT_GT(Contrast(palette.color(QPalette::WindowText),
                       palette.color(QPalette::Disabled, QPalette::WindowText)),
              3);
}

}  // namespace
}  // namespace kvt::test
