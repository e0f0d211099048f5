// Takes pictures of the window for the documents: kvt_pictures FOLDER PREFIX [SCALE], on a display of its own.

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
#include <vector>

#include "console/played_machine.h"
#include "desktop/desktop_platform.h"
#include "desktop/form_view.h"
#include "headless/disk_files.h"
#include "headless/system_programs.h"
#include "shell/workbench.h"

namespace {

class Photographer {
public:
    Photographer(QString folder, QString prefix, double scale)
        : folder_(std::move(folder)), prefix_(std::move(prefix)), platform_(files_, programs_, scale) {
        qputenv("XDG_DATA_HOME", data_.path().toLocal8Bit());
        bench_ = std::make_unique<kvt::Workbench>(platform_.Services);
        bench_->Form_Load("");
        kvt::Form& form = bench_->frmMain;
        form.Left = 0;
        form.Top = 0;
        form.Width = platform_.Services.Screen.Width();
        form.Height = platform_.Services.Screen.WorkAreaHeight() - menuBar;
        for (kvt::Form* one : bench_->Forms()) {
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
    bool Failed() const { return failed_; }

private:
    static constexpr int menuBar = 330;  // twips

    void Open(const char* name) {
        bench_->Store.ProgramChanged = false;
        std::string file = std::string(KVT_SOURCE_DIR "/samples/") + name + ".cnc";
        bench_->Reader.LoadFile(file);
        bench_->cmdReturn_Click();
    }
    // A part of the program comes back as the machine sends it, then the whole goes out at 300 baud.
    void TakeTransfer() {
        Open("mk4_bolt");
        const std::string program = bench_->Writer.GenerateAll();
        const std::size_t begins = program.find("%\r\n") + 3;
        const std::string part = program.substr(begins, program.find("\r\n", begins + 800) + 2 - begins);
        if (write(line_.Handle(), part.data(), part.size()) != static_cast<ssize_t>(part.size()))
            failed_ = true;
        QTest::qWait(500);
        Save("receive");
        bench_->Received.cmdReceiveExit_Click();
        QTimer::singleShot(7500, qApp, [this] {
            Save("transmit");
            bench_->Results.cmdStop.Click();
        });
        bench_->Transmit.mnuTX_Click();
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
    kvt::FaultPlan noFaults_;
    kvt::DiskFiles files_{noFaults_};
    kvt::SystemPrograms programs_;
    kvt::DesktopPlatform platform_;
    std::unique_ptr<kvt::Workbench> bench_;
    std::vector<std::unique_ptr<kvt::FormView>> windows_;
    bool failed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() < 3) {
        std::fputs("usage: kvt_pictures FOLDER PREFIX [SCALE]\n", stderr);
        return 2;
    }
    Photographer photographer(arguments[1], arguments[2], arguments.value(3, QStringLiteral("1")).toDouble());
    photographer.TakeAll();
    return photographer.Failed() ? 1 : 0;
}
