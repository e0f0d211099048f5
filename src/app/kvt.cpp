#include <QCommandLineParser>
#include <QFileInfo>
#include <QTimer>
#include <QWindow>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "basic/failure.h"
#include "basic/installation.h"
#include "desktop/application.h"
#include "desktop/desktop_platform.h"
#include "desktop/end_signals.h"
#include "desktop/form_view.h"
#include "desktop/text.h"
#include "files/folders.h"
#include "shell/program_usage.h"
#include "shell/workbench.h"
#include "system/disk_files.h"
#include "system/pre_processor_copies.h"
#include "system/system_programs.h"

namespace {

constexpr const char* programName = "Kestrel Vise Toolkit";
constexpr int wrongUsage = 2;
constexpr int failed = 1;
constexpr int lookInterval = 50;  // milliseconds
constexpr int longestWait = 5000;
constexpr QSize pictureSize(1280, 800);  // of the drawing window

struct Options {
    QString File;
    double Scale = 0;  // 0 for that of the screen
    QString Screenshot;
    QString DrawScreenshot;
    bool New = false;
    bool Receive = false;
};

// The options of the table; help and version are the parser's own.
void Describe(QCommandLineParser& parser) {
    const kvt::ProgramUsage& usage = kvt::WindowUsage();
    parser.setApplicationDescription(QString::fromStdString(usage.Text));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("The program to open."),
                                 QString::fromStdString(usage.Words));
    parser.addHelpOption();
    parser.addVersionOption();
    for (const kvt::UsageOption& option : usage.Options) {
        if (option.Names[1] != '-') continue;
        parser.addOption({QString::fromStdString(option.Names.substr(2)),
                          QString::fromStdString(option.Text + "."), QString::fromStdString(option.Value)});
    }
}

// Help and version need no display. True when one of them was asked for.
bool TellAboutIt(int argc, char** argv) {
    QCommandLineParser parser;
    Describe(parser);
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments += QString::fromLocal8Bit(argv[i]);
    // What is meant for the toolkit is unknown here.
    parser.parse(arguments);
    if (parser.isSet(QStringLiteral("version"))) {
        std::printf("kvt %s\n", kvt::VersionText().c_str());
        return true;
    }
    if (!parser.isSet(QStringLiteral("help"))) return false;
    const QString help =
        parser.helpText().replace(QStringLiteral("<executable_name>"), QStringLiteral("kvt"));
    std::fputs(help.toLocal8Bit().constData(), stdout);
    return true;
}

bool Read(const QStringList& arguments, Options& options, QString& problem) {
    QCommandLineParser parser;
    Describe(parser);
    if (!parser.parse(arguments)) {
        problem = parser.errorText();
        return false;
    }
    const QStringList files = parser.positionalArguments();
    if (files.size() > 1) {
        problem = QStringLiteral("more than one file");
        return false;
    }
    // Whole, since it becomes the last file of a run that may start elsewhere.
    if (!files.isEmpty()) options.File = QFileInfo(files.constFirst()).absoluteFilePath();
    options.New = parser.isSet(QStringLiteral("new"));
    options.Receive = parser.isSet(QStringLiteral("receive"));
    if (options.New && !files.isEmpty()) {
        problem = QStringLiteral("--new takes no file");
        return false;
    }
    options.Screenshot = parser.value(QStringLiteral("screenshot"));
    options.DrawScreenshot = parser.value(QStringLiteral("screenshot-draw"));
    if (!parser.isSet(QStringLiteral("scale"))) return true;
    bool isNumber = false;
    options.Scale = parser.value(QStringLiteral("scale")).toDouble(&isNumber);
    if (isNumber && options.Scale >= 1 && options.Scale <= 2) return true;
    problem = QStringLiteral("--scale takes a number from 1 to 2");
    return false;
}

// Does something once a window has been painted, or has had the time for it.
void WhenPainted(QMainWindow& window, const std::function<void()>& then) {
    auto* clock = new QTimer(&window);
    QObject::connect(clock, &QTimer::timeout, clock, [&window, clock, then, left = longestWait]() mutable {
        left -= clock->interval();
        // Exposed at the look before too, so that what was left to be painted has been.
        const bool exposed = window.windowHandle() && window.windowHandle()->isExposed();
        const bool painted = exposed && clock->property("exposed").toBool();
        clock->setProperty("exposed", exposed);
        if (!painted && left > 0) return;
        clock->stop();
        then();
    });
    clock->start(lookInterval);
}

// The pre-processors lie beside the program in a build, and where an installation has them.
void BringPreProcessors(kvt::FileService& files, const std::string& dataFolder) {
    const kvt::Folders folders = kvt::FoldersBelow(dataFolder);
    const std::filesystem::path here = QApplication::applicationDirPath().toStdString();
    kvt::SuppliedRecord record(files, folders.SuppliedFile());
    for (const std::string& installed : {std::string("preprocessors"), kvt::PreProcessorsFromPrograms()})
        kvt::BringPreProcessors(here / installed, kvt::NameForSystem(folders.PreProcessorFolder), record);
    record.Write();
}

// What the command line asks for besides a file.
void Begin(kvt::Workbench& workbench, const Options& options) {
    if (options.New && workbench.Main.mnuNew.Enabled) workbench.Main.mnuNew.Click();
    if (options.Receive) {
        kvt::Menu& receive = workbench.Transfer.mnuRX;
        if (receive.Enabled) {
            receive.Click();
        } else if (receive.OnRefused) {
            receive.OnRefused();
        }
    }
}

int RunProgram(int argc, char** argv) {
    // A file that may not grow any more is a write that fails.
    std::signal(SIGXFSZ, SIG_IGN);
    if (TellAboutIt(argc, argv)) return 0;
    kvt::Application application(argc, argv);
    QApplication::setApplicationName(QString::fromLatin1(programName));
    // By this name the desktops that know no icons of windows find the installed one.
    QGuiApplication::setDesktopFileName(QStringLiteral("kvt"));
    // While the window is on its way to the screen.
    QTimer::singleShot(0, &application, [] { QApplication::setWindowIcon(kvt::ProgramIcon()); });
    Options options;
    QString problem;
    if (!Read(QApplication::arguments(), options, problem)) {
        std::fprintf(stderr, "kvt: %s\n", problem.toLocal8Bit().constData());
        return wrongUsage;
    }

    kvt::DiskFiles files;
    kvt::SystemPrograms programs;
    const kvt::FormFont font =
        options.Scale > 0 ? kvt::FontForFactor(QApplication::font(), options.Scale)
                          : kvt::DesktopPlatform::FontOfScreen({kvt::SmallestWidth, kvt::LeastHeight});
    kvt::DesktopPlatform platform(files, programs, font);
    kvt::DesktopSystem& system = platform.Desktop.System;
    files.SetDataFolder(kvt::FoldersBelow(system.LocalDataFolder()).DataFolder);
    files.RemoveLeftovers();
    kvt::InstallResetCopies(files, system.LocalDataFolder());
    BringPreProcessors(files, system.LocalDataFolder());
    kvt::Workbench workbench(platform.Services);
    workbench.Help.StartFolder = kvt::PathText(QApplication::applicationDirPath()) + "/";
    // In quotes, so that the name keeps the blanks at its ends.
    workbench.Form_Load(options.File.isEmpty() ? std::string() : "\"" + kvt::PathText(options.File) + "\"");
    if (system.Ended()) return 0;
    Begin(workbench, options);

    kvt::Form& main = workbench.frmMain;
    // The windows that the workbench shows later are made with it; they stay hidden until then.
    std::vector<std::unique_ptr<kvt::FormView>> windows;
    for (kvt::Form* form : workbench.Forms()) {
        windows.push_back(std::make_unique<kvt::FormView>(platform.Desktop, *form));
    }
    QMainWindow& window = windows.front()->Window();
    // A second signal does not wait for the answer to the question that the first one has led to.
    bool ending = false;
    const kvt::EndSignals signalsToEnd([&] {
        if (std::exchange(ending, true) || workbench.Ending()) return system.EndProgram();
        system.Run(main, "QueryUnload", main.OnQueryUnload);
        ending = false;
    });
    const bool takesPicture = !options.Screenshot.isEmpty() || !options.DrawScreenshot.isEmpty();
    bool saved = false;
    if (!options.DrawScreenshot.isEmpty()) {
        workbench.Draw.Show();
        QMainWindow& drawing = windows[1]->Window();
        drawing.showNormal();
        drawing.resize(pictureSize);
        WhenPainted(drawing, [&] {
            // In step with the zero point that the window's size has led to.
            workbench.Draw.Redraw();
            saved = drawing.grab().save(options.DrawScreenshot);
            system.EndProgram();
        });
    } else if (takesPicture) {
        WhenPainted(window, [&] {
            saved = window.grab().save(options.Screenshot);
            system.EndProgram();
        });
    }
    QApplication::exec();
    return !takesPicture || saved ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    return kvt::RunMain("kvt", failed, [&] { return RunProgram(argc, argv); });
}
