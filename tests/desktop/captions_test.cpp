#include <QAbstractButton>
#include <QDir>
#include <QFontDatabase>
#include <QLabel>
#include <QStyleOptionButton>
#include <QTabBar>
#include <QTemporaryDir>

#include "desktop/text.h"
#include "shell/workbench.h"
#include "test_window.h"

namespace kvt::test {
namespace {

struct DesktopFont {
    const char* Family;
    double Points;
};

// What desktops write with that nobody has set up.
constexpr DesktopFont desktopFonts[] = {{"Cantarell", 11}, {"Noto Sans", 10},   {"DejaVu Sans", 9},
                                        {"Cantarell", 12}, {"DejaVu Sans", 12}, {"Noto Sans", 12}};

// The captions of the workbench in the widgets that show them, in a font and a language.
class ShownCaptions {
public:
    ShownCaptions(const QFont& font, const std::string& module)
        : platform_(files_, programs_, FontOfDesktop(font, {8000, 6000}, {SmallestWidth, LeastHeight})) {
        qputenv("XDG_DATA_HOME", data_.path().toLocal8Bit());
        bench_ = std::make_unique<Workbench>(platform_.Services);
        bench_->Form_Load("");
        for (Form* form : bench_->Forms())
            windows_.push_back(std::make_unique<FormView>(platform_.Desktop, *form));
        std::string file = module;
        if (!file.empty()) bench_->Reader.LoadFile(file);
        bench_->Draw.Show();
    }

    // Those that are cut, with the program of a machine in the editor.
    std::string Cut(const char* sample) {
        std::string file = std::string(KVT_SOURCE_DIR "/samples/") + sample + ".cnc";
        bench_->Store.ProgramChanged = false;
        bench_->Reader.LoadFile(file);
        std::string cut;
        for (const Form* form : bench_->Forms()) {
            for (const Control* control : form->Controls()) {
                const View* const view = View::Of(*control);
                // Names of files are shortened by their nature.
                if (!view || control == &bench_->File.lblPath || control == &bench_->File.lblFileName)
                    continue;
                if (control->Width > 0 && !Fits(*control, *view->Widget())) cut += control->Name() + " ";
            }
        }
        return cut + CutHeaders();
    }

private:
    static bool FitsWidth(const QWidget& widget, const QString& text, int room) {
        return widget.fontMetrics().horizontalAdvance(text) <= room;
    }
    static bool FitsHeight(const QWidget& widget, const QString& text) {
        return widget.fontMetrics().tightBoundingRect(text).height() <= widget.height();
    }
    static bool Fits(const Control& control, QWidget& widget) {
        switch (control.Kind()) {
            case ControlKind::Label: {
                const auto& label = static_cast<QLabel&>(widget);
                if (label.wordWrap()) return label.heightForWidth(label.width()) <= label.height();
                return FitsWidth(label, label.text(), label.contentsRect().width()) &&
                       FitsHeight(label, label.text());
            }
            case ControlKind::Frame: {
                const QString text = ToQt(static_cast<const Frame&>(control).Caption);
                return text.isEmpty() ||
                       FitsWidth(widget, text, widget.width() - widget.fontMetrics().height() / 2 - 6);
            }
            case ControlKind::CheckBox:
            case ControlKind::OptionButton:
                return widget.sizeHint().width() <= widget.width() &&
                       FitsHeight(widget, static_cast<QAbstractButton&>(widget).text());
            case ControlKind::CommandButton: {
                QStyleOptionButton option;
                option.initFrom(&widget);
                const QRect room =
                    widget.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &widget);
                const QString text = static_cast<QAbstractButton&>(widget).text();
                return FitsWidth(widget, text, room.width()) && FitsHeight(widget, text);
            }
            case ControlKind::TabStrip: {
                const auto* const bar = widget.findChild<QTabBar*>();
                return bar->sizeHint().width() <= bar->width();
            }
            default: return true;
        }
    }
    std::string CutHeaders() const {
        std::string cut;
        const ListView& list = bench_->Store.lvCncProgram;
        const QWidget& widget = *View::Of(list)->Widget();
        for (int header = 1; header <= ListRow::Capacity; ++header) {
            const ColumnHeader& one = list.Header(header);
            const int room = platform_.Desktop.Lengths.Pixels(one.Width - 75) - 2;
            if (one.Width > 0 && !FitsWidth(widget, ToQt(one.Text), room)) cut += "header " + one.Text + " ";
        }
        return cut;
    }

    QTemporaryDir data_;
    DiskFiles files_;
    SystemPrograms programs_;
    DesktopPlatform platform_;
    std::unique_ptr<Workbench> bench_;
    std::vector<std::unique_ptr<FormView>> windows_;
};

TEST(DesktopCaptions, NoneIsCutInAnyLanguageAndFont) {
    const QFont before = QApplication::font();
    QStringList modules = {QString()};
    for (const QFileInfo& module : QDir(KVT_SOURCE_DIR "/languages").entryInfoList({"*.txt"}))
        modules += module.filePath();
    ASSERT_GT(modules.size(), 1);
    for (const DesktopFont& one : desktopFonts) {
        if (!QFontDatabase::hasFamily(one.Family)) continue;
        QFont font(QString::fromLatin1(one.Family));
        font.setPointSizeF(one.Points);
        for (const QString& module : modules) {
            ShownCaptions shown(font, PathText(module));
            for (const char* sample : {"mk2_knob", "mk4_fault_quadrant", "f1_lid"}) {
                EXPECT_EQ(shown.Cut(sample), "")
                    << one.Family << " " << one.Points << " " << PathText(module) << " " << sample;
            }
        }
    }
    QApplication::setFont(before);
}

TEST(DesktopCaptions, TheFontGivesWayALittleOnASmallScreen) {
    QFont font = QApplication::font();
    font.setPixelSize(16);
    const QSize smallest(11800, 6000);
    const FormFont large = FontOfDesktop(font, {1900, 1000}, smallest);
    EXPECT_GT(large.Factor, 1.2);
    EXPECT_EQ(large.Font.pixelSize(), 16);
    const FormFont fitting = FontOfDesktop(font, {960, 520}, smallest);
    EXPECT_LE(fitting.Factor * 11800 / 15, 960.5);
    EXPECT_LT(fitting.Font.pixelSize(), 16);
    // No farther than it can still be read by who chose it; the rest is scrolled to.
    const FormFont tiny = FontOfDesktop(font, {300, 200}, smallest);
    EXPECT_NEAR(tiny.Factor, large.Factor * 0.8, 0.001);
    EXPECT_GE(tiny.Font.pixelSize(), 12);
}

TEST(DesktopCaptions, TheProgramIsWrittenInOneWidth) {
    const QFontMetricsF metrics(FixedPitchFont());
    for (const QChar letter : u"iW.0M\u00D6-"_s)
        EXPECT_EQ(metrics.horizontalAdvance(letter), metrics.horizontalAdvance(u'x'));
}

}  // namespace
}  // namespace kvt::test
