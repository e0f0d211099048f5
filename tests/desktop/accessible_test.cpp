#include <QAccessible>
#include <QMessageBox>
#include <QPushButton>

#include "basic/text.h"
#include "test_workbench.h"

namespace kvt::test {
namespace {

class Accessible : public DesktopWorkbench {
protected:
    QAccessibleInterface& Of(const Control& control) {
        return *QAccessible::queryAccessibleInterface(View::Of(control)->Widget());
    }
    QString NameOf(const Control& control) { return Of(control).text(QAccessible::Name); }

    // Roles that hold others, and texts, which have none but what they say.
    static bool MayBeNameless(QAccessible::Role role) {
        return role == QAccessible::Client || role == QAccessible::StaticText || role == QAccessible::Cell ||
               role == QAccessible::MenuBar || role == QAccessible::Border ||
               role == QAccessible::Separator || role == QAccessible::Window;
    }
    // What below an object has no name, with the way there.
    static void FindNameless(QAccessibleInterface& object, const QString& way, QStringList& nameless) {
        const QString here = way + u'/' + object.text(QAccessible::Name);
        const bool seen = !object.state().invisible;
        if (seen && !MayBeNameless(object.role()) && object.text(QAccessible::Name).trimmed().isEmpty()) {
            nameless += QStringLiteral("%1: role %2 %3")
                            .arg(here)
                            .arg(object.role())
                            .arg(object.object() ? object.object()->objectName() : QString());
        }
        for (int i = 0; i < object.childCount(); ++i) {
            QAccessibleInterface* const child = object.child(i);
            ASSERT_TRUE(child && child->isValid()) << here.toStdString() << i;
            FindNameless(*child, here, nameless);
        }
    }
    void ExpectNames(const char* where) {
        QStringList nameless;
        for (const auto& window : windows) {
            if (window->Window().isVisible())
                FindNameless(*QAccessible::queryAccessibleInterface(&window->Window()), {}, nameless);
        }
        EXPECT_EQ(nameless.join(u'\n').toStdString(), "") << where;
    }
};

TEST_F(Accessible, EveryControlHasAName) {
    Open(KVT_SOURCE_DIR "/samples/mk4_bolt.cnc");
    ExpectNames("the editor");
    Type("84\\r");
    ExpectNames("a line being typed");
    for (int page = 0; page < 5; ++page) {
        workbench.Main.mnuGeneral.Click();
        workbench.Main.tabSettings.Value = page;
        ExpectNames("a page of the settings");
    }
    workbench.Main.tabSettings.Visible = false;
    for (const Qt::KeyboardModifiers held : {Qt::NoModifier, Qt::ShiftModifier}) {
        Key(Qt::Key_F1, held);
        ExpectNames("the help");
        Key(Qt::Key_Escape);
    }
    workbench.Help.mnuAbout_Click();
    ExpectNames("what is told about the program");
    workbench.Modes.cmdReturn_Click();
    workbench.Received.mnuRX_Click();
    ExpectNames("receiving");
    workbench.Transfer.cmdReceiveExit.Click();
    workbench.Find.mnuFind_Click();
    ExpectNames("find");
    workbench.Find.frmFind.Visible = false;
    workbench.Main.mnuDraw.Click();
    QTest::qWait(50);
    ExpectNames("the drawing");
    for (const MachineModel machine : {MachineModel::MK2, MachineModel::F1}) {
        workbench.Store.Machine = machine;
        workbench.Display.RefreshMachine();
        workbench.Display.ShowCodeLists();
        ExpectNames("another machine");
    }
}

TEST_F(Accessible, NamesRolesAndStatesFollowTheControls) {
    Open(KVT_SOURCE_DIR "/samples/mk4_bolt.cnc");
    EXPECT_EQ(NameOf(workbench.Entry.txtGMcode), u"Code G"_s);
    Type("-");
    EXPECT_EQ(NameOf(workbench.Entry.txtGMcode), u"Code M"_s);
    Type("-84\\r");
    EXPECT_EQ(NameOf(workbench.Entry.txtXI), u"X"_s);
    EXPECT_NE(Of(workbench.Entry.txtXI).text(QAccessible::Description), u""_s) << "its range";
    EXPECT_EQ(NameOf(workbench.Entry.txtComment), u"Comment"_s);
    EXPECT_EQ(NameOf(workbench.Entry.txtFeedA), u"Feed A"_s);
    EXPECT_EQ(NameOf(workbench.File.txtFileNotes), u"File Notes"_s);
    EXPECT_EQ(NameOf(workbench.Main.Button(TopButton::Transmit)), u"Transmit File"_s);
    EXPECT_EQ(Of(workbench.Main.frView).role(), QAccessible::Grouping);
    EXPECT_EQ(Of(workbench.Draw.Controls.UpDown).role(), QAccessible::SpinBox);
    EXPECT_EQ(Of(workbench.Draw.Controls.UpDown).valueInterface()->currentValue().toInt(),
              workbench.Draw.Controls.UpDown.Value.Get());
    EXPECT_FALSE(Of(workbench.View.chkViewGcode).state().checked);
    workbench.View.chkViewGcode.Value = 1;
    EXPECT_TRUE(Of(workbench.View.chkViewGcode).state().checked);
    EXPECT_TRUE(Of(workbench.Main.Button(TopButton::Transmit)).state().disabled) << "there is no port";

    std::string module = KVT_SOURCE_DIR "/languages/Deutsch.txt";
    workbench.Reader.LoadFile(module);
    EXPECT_EQ(NameOf(workbench.Entry.txtComment), u"Kommentar"_s);
    EXPECT_EQ(NameOf(workbench.Main.Button(TopButton::Transmit)), u"Programm senden"_s);
    EXPECT_EQ(NameOf(workbench.Store.lvCncProgram), u"Programms\u00E4tze"_s);
    // The toolkit's own texts follow as well.
    QMessageBox box(QMessageBox::NoIcon, {}, {}, QMessageBox::Yes);
    EXPECT_EQ(box.button(QMessageBox::Yes)->text().remove(u'&'), u"Ja"_s);
    workbench.Modules.UseEnglish();
    QMessageBox again(QMessageBox::NoIcon, {}, {}, QMessageBox::Yes);
    EXPECT_EQ(again.button(QMessageBox::Yes)->text().remove(u'&'), u"Yes"_s);
}

TEST_F(Accessible, TheProgramIsATable) {
    Open(KVT_SOURCE_DIR "/samples/mk4_bolt.cnc");
    ListView& list = workbench.Store.lvCncProgram;
    QAccessibleInterface& table = Of(list);
    EXPECT_EQ(table.role(), QAccessible::Table);
    QAccessibleTableInterface* const cells = table.tableInterface();
    ASSERT_NE(cells, nullptr);
    EXPECT_EQ(cells->rowCount(), list.Count());
    const int columns = cells->columnCount();
    ASSERT_GT(columns, 5);
    EXPECT_EQ(table.childCount(), columns * (list.Count() + 1));
    EXPECT_EQ(table.child(1)->role(), QAccessible::ColumnHeader);
    EXPECT_EQ(cells->columnDescription(1), u"G"_s);
    QAccessibleInterface* const code = cells->cellAt(2, 1);
    EXPECT_EQ(code->text(QAccessible::Name).toStdString(), Trim(list.Row(3)[column::Code]));
    EXPECT_EQ(table.indexOfChild(code), columns * 3 + 1);
    EXPECT_EQ(table.child(columns * 3 + 1), code);
    QAccessibleTableCellInterface* const cell = code->tableCellInterface();
    EXPECT_EQ(cell->rowIndex(), 2);
    EXPECT_EQ(cell->columnHeaderCells().at(0)->text(QAccessible::Name), u"G"_s);
    EXPECT_EQ(cell->rowHeaderCells().at(0)->text(QAccessible::Name), u"02"_s);
    EXPECT_EQ(table.childAt(code->rect().center().x(), code->rect().center().y()), code);
    EXPECT_TRUE(cells->selectRow(2));
    EXPECT_EQ(list.SelectedRow(), 3);
    EXPECT_TRUE(cell->isSelected());
    EXPECT_EQ(workbench.Entry.txtGMcode.Text.Get(), "03") << "opened as by a click";

    // Other columns make other cells.
    workbench.View.chkViewToolPos.Value = 0;
    workbench.View.chkViewToolPos.Click();
    EXPECT_LT(cells->columnCount(), columns);
    EXPECT_EQ(cells->cellAt(2, 0)->text(QAccessible::Name), u"02"_s);
    EXPECT_EQ(cells->cellAt(list.Count(), 0), nullptr);
}

}  // namespace
}  // namespace kvt::test
