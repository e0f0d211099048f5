#pragma once

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QString>
#include <QTest>

#include "desktop/desktop_platform.h"
#include "desktop/form_view.h"
#include "platform/list_view.h"
#include "system/disk_files.h"
#include "system/system_programs.h"

namespace kvt::test {

// Places a control in pixels.
template <class Kind>
Kind& Placed(Kind& control, int x, int y, int width, int height, int tabIndex = -1) {
    control.Left = x * 15;
    control.Top = y * 15;
    control.Width = width * 15;
    control.Height = height * 15;
    control.TabIndex = tabIndex;
    return control;
}

// A window with a bit of everything, on the screen and with the keyboard.
using namespace Qt::StringLiterals;

class WindowTest : public ::testing::Test {
protected:
    WindowTest() {
        form.Width = 600 * 15;
        form.Height = 400 * 15;
        form.Caption = "Gr\xF6\337e";
        Placed(txtA, 10, 10, 100, 24, 0);
        Placed(txtB, 120, 10, 100, 24, 1);
        Placed(frGroup, 230, 5, 200, 120);
        Placed(chkBox, 10, 20, 120, 20, 2).Container = &frGroup;
        Placed(optOne, 10, 45, 120, 20, 3).Container = &frGroup;
        Placed(optTwo, 10, 70, 120, 20, 4).Container = &frGroup;
        Placed(cmdGo, 10, 40, 100, 28, 5);
        Placed(txtNotes, 10, 80, 200, 60, 6);
        Placed(lvList, 10, 150, 400, 220, 7);
        Placed(lstCodes, 420, 150, 170, 120, 8);
        mnuOpen.Container = &mnuFile;
        mnuBar.Container = &mnuFile;
        mnuGrid.Container = &mnuFile;
        mnuOpen.Shortcut = "Ctrl+O";
        lvList.SetHeaderText(2, "N");
        lvList.SetHeaderWidth(2, 600);
        lvList.SetHeaderText(9, "Error");
        lvList.SetHeaderWidth(9, 2000);
    }

    void Open() {
        window = std::make_unique<FormView>(platform.Desktop, form);
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window->Window()));
        QTest::qWait(1);
    }
    static QWidget* WidgetOf(const Control& control) { return View::Of(control)->Widget(); }
    // Where the keys go now.
    QWidget* Keyboard() {
        QWidget* focus = QApplication::focusWidget();
        return focus ? focus : &window->Window();
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QTest::keyClick(Keyboard(), key, held);
    }
    void Type(const char* text) {
        for (; *text; ++text) QTest::keyClick(Keyboard(), *text);
    }
    void Focus(Control& control) { platform.Services.Focus.SetFocus(control); }
    Control* Focused() { return platform.Services.Focus.Focused(); }
    void Rows(int count) {
        for (int i = 0; i < count; ++i) lvList.AddRow()[1] = std::to_string(i);
        lvList.RowsChanged();
    }

    DiskFiles files;
    SystemPrograms programs;
    DesktopPlatform platform{files, programs, 1};
    Form form{"frmTest"};
    Menu mnuFile{form, "mnuFile", "File"}, mnuOpen{form, "mnuOpen", "Open"}, mnuBar{form, "mnuBar", "-"},
        mnuGrid{form, "mnuGrid", "Grid"};
    TextBox txtA{form, "txtA"}, txtB{form, "txtB"}, txtNotes{form, "txtNotes"};
    Frame frGroup{form, "frGroup", "Group"};
    CheckBox chkBox{form, "chkBox", "Box"};
    OptionButton optOne{form, "optOne", "One"}, optTwo{form, "optTwo", "Two"};
    CommandButton cmdGo{form, "cmdGo", "Go"};
    ListView lvList{form, "lvList"};
    ListBox lstCodes{form, "lstCodes"};
    std::unique_ptr<FormView> window;
};

}  // namespace kvt::test
