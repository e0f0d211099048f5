// Takes pictures of the windows for the documents: kvt_pictures FOLDER PREFIX [SCALE [WHAT]], on a display of its own.
// WHAT is "editor", "drawing" for the drawing of each machine on black and on white, "help", "german", "desk" for one picture
// of each view as another desktop shows it, or "film" for the pictures of a drawing that grows step by step. SCALE 0 is
// that of the desktop's font on the screen.

#include <unistd.h>

#include <QApplication>
#include <QMessageBox>
#include <QScreen>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "basic/line_end.h"
#include "console/played_machine.h"
#include "desktop/desktop_platform.h"
#include "desktop/form_view.h"
#include "shell/workbench.h"
#include "system/disk_files.h"
#include "system/system_programs.h"

namespace {

class Photographer {
public:
    Photographer(QString folder, QString prefix, double scale)
        : folder_(std::move(folder)),
          prefix_(std::move(prefix)),
          platform_(files_, programs_, FontFor(scale)) {
        qputenv("XDG_DATA_HOME", data_.path().toLocal8Bit());
        workbench_ = std::make_unique<kvt::Workbench>(platform_.Services);
        workbench_->Help.StartFolder = QCoreApplication::applicationDirPath().toStdString() + "/";
        workbench_->Form_Load("");
        kvt::Form& form = workbench_->frmMain;
        form.Left = 0;
        form.Top = 0;
        form.Width = platform_.Services.Screen.Width();
        form.Height = platform_.Services.Screen.WorkAreaHeight() - menuBar;
        for (kvt::Form* one : workbench_->Forms()) {
            windows_.push_back(std::make_unique<kvt::FormView>(platform_.Desktop, *one));
        }
        failed_ = !named_ || !QTest::qWaitForWindowActive(&windows_.front()->Window());
    }

    void TakeAll() {
        Save("empty");
        Type("92\r4000\r1000\rStart point\r00\r1900\r");
        Save("typing");
        QTimer::singleShot(600, qApp, [this] {
            Save("refusal");
            QWidget* const box = QApplication::activeModalWidget();
            if (box) QTest::keyClick(box, Qt::Key_Return);
        });
        Type("40000\r");
        for (const char* name : {"mk2_knob", "mk4_bolt", "f1_lid", "mk4_fault_quadrant"}) {
            Open(name);
            Save(name);
        }
        TakeTransfer();
    }

    // Each machine on black and on white, the latter with the listing; last a measurement.
    void TakeDrawings() {
        for (const char* name : {"mk2_knob", "mk4_pawn", "f1_lid"}) {
            ShowDrawing(name);
            Save((std::string("draw_") + name + "_black").c_str());
            workbench_->Draw.Controls.mnuBackground.Checked = true;
            workbench_->Draw.Controls.mnuProgramWindow.Checked = true;
            workbench_->Draw.Redraw();
            Save((std::string("draw_") + name + "_white").c_str());
            workbench_->Draw.Controls.mnuProgramWindow.Checked = false;
            workbench_->Draw.Controls.mnuBackground.Checked = false;
        }
        ShowDrawing("mk4_pawn");
        QWidget* const field = kvt::View::Of(workbench_->Draw.Controls.pbxDrawField)->Widget();
        const QPoint middle = field->visibleRegion().boundingRect().center();
        QTest::mouseClick(field, Qt::LeftButton, Qt::NoModifier, middle);
        QTest::mouseMove(field, middle + QPoint(180, -90));
        Save("draw_measuring");
    }

    // The documents on each machine.
    void TakeHelp() {
        for (const char* name : {"mk2_knob", "mk4_bolt", "f1_lid"}) {
            Open(name);
            workbench_->Help.mnuGhelp_Click();
            const bool mk2 = workbench_->Store.IsMK2();
            kvt::MainControls& main = workbench_->Main;
            (mk2 ? main.rtfGcodeHelpMK2 : main.rtfGcodeHelpMK4).ShowSection("G02");
            Save((std::string("help_") + name).c_str());
            workbench_->Modes.cmdReturn_Click();
        }
        workbench_->Help.mnuHelpText_Click();
        Save("help");
        workbench_->Modes.cmdReturn_Click();
        workbench_->Help.mnuAbout_Click();
        Save("about");
        workbench_->Modes.cmdReturn_Click();
    }

    // In German: each machine, the settings, the help and the drawing.
    void TakeGerman() {
        std::string module = KVT_SOURCE_DIR "/languages/Deutsch.txt";
        workbench_->Reader.LoadFile(module);
        for (const char* name : {"mk2_knob", "mk4_fault_quadrant", "f1_lid"}) {
            Open(name);
            Save((std::string("german_") + name).c_str());
        }
        for (int page = 0; page < 5; ++page) {
            if (page == 0) workbench_->Main.mnuGeneral.Click();
            workbench_->Main.tabSettings.Value = page;
            Save((std::string("german_settings_") + std::to_string(page)).c_str());
        }
        workbench_->Help.mnuHelpText_Click();
        Save("german_help");
        workbench_->Modes.cmdReturn_Click();
        ShowDrawing("f1_lid");
        Save("german_draw");
    }

    // One picture of each view.
    void TakeDesk() {
        Open("mk4_fault_quadrant");
        Save("editor");
        workbench_->Main.mnuGeneral.Click();
        Save("settings");
        workbench_->Modes.cmdReturn_Click();
        workbench_->Help.mnuHelpText_Click();
        Save("help");
        workbench_->Modes.cmdReturn_Click();
        ShowDrawing("f1_lid");
        Save("draw");
        workbench_->Draw.Controls.mnuDistinctColors.Click();
        Save("draw_clear_colors");
    }

    // A picture for each step that has drawn something.
    void TakeFilm() {
        kvt::DrawWindow& draw = workbench_->Draw;
        ShowDrawing("mk2_knob");
        draw.Controls.mnuProgramWindow.Checked = true;
        draw.Listing.frmProgramWindow.Height = 1900;
        draw.Listing.frmProgramWindow.Top = platform_.Services.Screen.Height() - 2500;
        QTimer stepper;
        bool busy = false;
        int frames = 0;
        std::size_t shown = 0;
        QObject::connect(&stepper, &QTimer::timeout, [&] {
            if (busy || !draw.Controls.cmdStep.Enabled) return;
            busy = true;
            const std::size_t drawn = draw.Controls.pbxDrawField.Operations().size();
            if (drawn != std::exchange(shown, drawn) && frames++ % stepsAFrame == 0)
                Save(QString::asprintf("%02d", frames / stepsAFrame + 1).toLatin1().constData());
            busy = false;
            draw.Controls.cmdStep.Click();
        });
        stepper.start(10);
        draw.Sim.SelectSim(kvt::simulation::Step);
        draw.Redraw();
    }
    bool Failed() const { return failed_; }

private:
    static constexpr int menuBar = 330;  // twips
    static constexpr int stepsAFrame = 4;

    static kvt::FormFont FontFor(double scale) {
        return scale > 0 ? kvt::FontForFactor(QApplication::font(), scale)
                         : kvt::DesktopPlatform::FontOfScreen({kvt::SmallestWidth, kvt::LeastHeight});
    }
    void Open(const char* name) {
        workbench_->Store.ProgramChanged = false;
        std::string file = std::string(KVT_SOURCE_DIR "/samples/") + name + ".cnc";
        workbench_->Reader.LoadFile(file);
        workbench_->Modes.cmdReturn_Click();
    }
    // A part of the program comes back as the machine sends it, then the whole goes out at 300 baud.
    void TakeTransfer() {
        Open("mk4_bolt");
        const std::string program = workbench_->Writer.GenerateAll();
        const std::size_t begins = program.find("%" + std::string(kvt::LineEnd)) + 3;
        const std::string part =
            program.substr(begins, program.find(kvt::LineEnd, begins + 800) + kvt::LineEnd.size() - begins);
        if (write(line_.Handle(), part.data(), part.size()) != static_cast<ssize_t>(part.size()))
            failed_ = true;
        QTest::qWait(500);
        Save("receive");
        workbench_->Received.cmdReceiveExit_Click();
        QTimer::singleShot(7500, qApp, [this] {
            Save("transmit");
            workbench_->Results.cmdStop.Click();
        });
        workbench_->Transmit.mnuTX_Click();
    }

    // In a window that fills the screen.
    void ShowDrawing(const char* name) {
        workbench_->Draw.Unload();
        Open(name);
        workbench_->Draw.Show();
        QMainWindow& window = windows_[1]->Window();
        window.showNormal();
        window.setGeometry(QGuiApplication::primaryScreen()->geometry());
        window.raise();
        kvt::Form& listing = workbench_->Draw.Listing.frmProgramWindow;
        workbench_->Draw.Listing.Load();
        listing.Left = platform_.Services.Screen.Width() - listing.Width - 600;
        listing.Top = platform_.Services.Screen.Height() - listing.Height - 600;
        QTest::qWait(200);
        workbench_->Draw.Redraw();
    }
    void Type(const char* keys) {
        for (; *keys != 0; ++keys) {
            QWidget* const target = QApplication::focusWidget();
            if (!target) continue;
            if (*keys == '\r') {
                QTest::keyClick(target, Qt::Key_Enter, Qt::KeypadModifier);
            } else {
                QTest::keyClick(target, *keys);
            }
            QCoreApplication::processEvents();
        }
    }
    // The whole screen, with whatever box stands over the window.
    void Save(const char* name) {
        QTest::qWait(150);
        const QString file = folder_ + "/" + prefix_ + "_" + QString::fromLatin1(name) + ".png";
        if (!QGuiApplication::primaryScreen()->grabWindow(0).save(file)) failed_ = true;
    }

    QString folder_, prefix_;
    // The line to the machine, and the only port.
    kvt::PseudoTerminal line_;
    bool named_ = qputenv("KVT_PORTS", QByteArray::fromStdString(line_.Path()));
    QTemporaryDir data_;
    kvt::DiskFiles files_;
    kvt::SystemPrograms programs_;
    kvt::DesktopPlatform platform_;
    std::unique_ptr<kvt::Workbench> workbench_;
    std::vector<std::unique_ptr<kvt::FormView>> windows_;
    bool failed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("usage: kvt_pictures FOLDER PREFIX [SCALE [editor|drawing|help|german|desk|film]]\n",
                   stderr);
        return 2;
    }
    Photographer photographer(arguments[1], arguments[2], arguments.value(3, QStringLiteral("1")).toDouble());
    const QString what = arguments.value(4, QStringLiteral("editor"));
    if (what == QLatin1String("editor")) photographer.TakeAll();
    if (what == QLatin1String("drawing")) photographer.TakeDrawings();
    if (what == QLatin1String("help")) photographer.TakeHelp();
    if (what == QLatin1String("german")) photographer.TakeGerman();
    if (what == QLatin1String("desk")) photographer.TakeDesk();
    if (what == QLatin1String("film")) photographer.TakeFilm();
    return photographer.Failed() ? 1 : 0;
}
