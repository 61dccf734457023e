// The buildings editor: edits, by menu or key, land on OK only; Escape without
// an open entry editor cancels; a renamed building shows in its courses, a
// deleted one leaves their id behind.
#include "EditorRecords.h"
#include "editors/BuildingDlg.h"
#include "editors/CourseDlg.h"
#include "support/DatabaseTest.h"
#include "support/Records.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QtTest>

using namespace EditorRecords;
using namespace Qt::StringLiterals;

namespace {

QStringList MenuTexts(BuildingDlg& dialog, int row)
{
    QStringList texts;
    for (QAction* action : dialog.Page()->ContextMenu(row)->actions())
        texts << action->text();
    return texts;
}

bool Pick(BuildingDlg& dialog, int row, const QString& command)
{
    for (QAction* action : dialog.Page()->ContextMenu(row)->actions()) {
        if (action->text() == command) {
            action->trigger();
            return true;
        }
    }
    return false;
}

// Types a name into the open editor, keys only, and presses its OK.
void EnterName(BuildingDlg& dialog, const QString& name)
{
    QLineEdit* edit = dialog.findChild<QLineEdit*>(u"buildingName"_s);
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(edit, name);
    dialog.Page()->EditorButtons()->button(QDialogButtonBox::Ok)->click();
}

QComboBox* BuildingBox(CourseDlg& editor, quint32 course)
{
    editor.SetCourse(course);
    return editor.findChild<QComboBox*>(u"buildingBox"_s);
}

} // namespace

class TestBuildingDlg : public DatabaseTest
{
    Q_OBJECT

private slots:
    void editsLandOnOkOnly()
    {
        Building(u"Library"_s);
        Building(u"Gym"_s);
        const QStringList before = DumpAll();

        for (bool ok : {false, true}) {
            BuildingDlg dialog;
            QCOMPARE(MenuTexts(dialog, 0),
                     (QStringList{u"New Building"_s, u"Edit Building"_s, u"Delete Building"_s}));
            QCOMPARE(MenuTexts(dialog, -1), QStringList{u"New Building"_s});
            auto* buttons = dialog.findChild<QDialogButtonBox*>(u"buttons"_s);
            auto* name = dialog.findChild<QLineEdit*>(u"buildingName"_s);
            QListWidget* list = dialog.Page()->List();
            QVERIFY(Pick(dialog, -1, u"New Building"_s));
            QVERIFY(!buttons->isEnabled());
            // Typing goes into the name at once.
            QCOMPARE(dialog.focusWidget(), name);
            EnterName(dialog, u"Annex"_s);
            QVERIFY(buttons->isEnabled());
            // Two buildings may share a name; names stop at 100 characters.
            // Insert, F2 and Delete on the list act as the menu's commands.
            QTest::keyClick(list, Qt::Key_Insert);
            EnterName(dialog, u"Annex"_s + QString(100, u'x'));
            QCOMPARE(dialog.Entries().back().name, u"Annex"_s + QString(95, u'x'));
            QVERIFY(Pick(dialog, 3, u"Edit Building"_s));
            EnterName(dialog, u"Annex"_s);
            list->setCurrentRow(0);
            QTest::keyClick(list, Qt::Key_F2);
            QCOMPARE(name->text(), u"Library"_s);
            EnterName(dialog, u"Main Library"_s);
            QVERIFY(Pick(dialog, 1, u"Delete Building"_s));
            list->setCurrentRow(2);
            QTest::keyClick(list, Qt::Key_Delete);
            QCOMPARE(list->count(), 2);
            if (ok) {
                dialog.accept();
                continue;
            }
            // Escape, with no entry editor open, cancels the dialog.
            dialog.show();
            QVERIFY(QTest::qWaitForWindowActive(&dialog));
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
            QVERIFY(!dialog.isVisible());
            QCOMPARE(dialog.result(), int(QDialog::Rejected));
            QCOMPARE(DumpAll(), before);
        }
        QCOMPARE(Sql("SELECT group_concat(BuildingName, '|') FROM Building"),
                 u"Main Library|Annex"_s);
    }

    void renameReachesCoursesDeleteLeavesTheirId()
    {
        const quint32 hall = Building(u"Hall"_s);
        const quint32 course = Records::Course(u"Botany"_s);
        Sql("UPDATE Course SET BuildingID = " + QByteArray::number(hall));
        {
            BuildingDlg dialog;
            dialog.Page()->EditBuilding(0);
            EnterName(dialog, u"Great Hall"_s);
            QVERIFY(dialog.OnOK());
        }
        {
            CourseDlg editor;
            QCOMPARE(BuildingBox(editor, course)->currentText(), u"Great Hall"_s);
            editor.reject();
        }
        {
            BuildingDlg dialog;
            dialog.Page()->DeleteBuilding(0);
            QVERIFY(dialog.OnOK());
        }
        const QByteArray buildingId = "SELECT BuildingID FROM Course";
        QCOMPARE(Sql(buildingId).toUInt(), hall);
        // Typed again in the course editor, it comes back under a new id.
        CourseDlg editor;
        QComboBox* box = BuildingBox(editor, course);
        QVERIFY(box->currentText().isEmpty());
        box->setEditText(u"Great Hall"_s);
        QVERIFY(editor.OnOK());
        QVERIFY(Sql(buildingId).toUInt() != hall);
        QCOMPARE(CBuildingTable::GetBuildingNameFromID(Sql(buildingId).toUInt()), u"Great Hall"_s);
    }
};

QTEST_MAIN(TestBuildingDlg)
#include "tst_buildingdlg.moc"
