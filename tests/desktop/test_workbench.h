#pragma once

#include <QTemporaryDir>
#include <QTimer>

#include "shell/workbench.h"
#include "test_window.h"

namespace kvt::test {

// The whole workbench in a real window, with data of its own.
class DesktopWorkbench : public ::testing::Test {
protected:
    DesktopWorkbench() { qputenv("XDG_DATA_HOME", data_.path().toLocal8Bit()); }

    void Open(const std::string& file) {
        workbench.Form_Load(file);
        for (Form* form : workbench.Forms())
            windows.push_back(std::make_unique<FormView>(platform.Desktop, *form));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&windows.front()->Window()));
        QTest::qWait(1);
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QWidget* const focus = QApplication::focusWidget();
        QTest::keyClick(focus ? focus : &windows.front()->Window(), key, held);
        QCoreApplication::processEvents();
    }
    // The text of a script: \r is Enter.
    void Type(const std::string& text) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text.compare(i, 2, "\\r") == 0) {
                ++i;
                Key(Qt::Key_Enter, Qt::KeypadModifier);
                continue;
            }
            QTest::keyClick(QApplication::focusWidget(), text[i]);
            QCoreApplication::processEvents();
        }
    }
    // Does something to the dialog that the next key brings up, as soon as it is there.
    template <class Dialog, class Act>
    void WhenShown(Act act) {
        auto* look = new QTimer(qApp);
        QObject::connect(look, &QTimer::timeout, look, [look, act] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible()) return;
            look->deleteLater();
            act(*dialog);
        });
        look->start(20);
    }
    Control* Focused() { return platform.Services.Focus.Focused(); }

    // Nothing goes to a device of this machine.
    const bool noPorts = qputenv("KVT_PORTS", "/nonexistent/port");
    DiskFiles files;
    SystemPrograms programs;
    DesktopPlatform platform{files, programs, 1};
    Workbench workbench{platform.Services};
    std::vector<std::unique_ptr<FormView>> windows;
    QTemporaryDir data_;
};

}  // namespace kvt::test
