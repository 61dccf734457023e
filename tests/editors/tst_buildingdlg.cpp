// The buildings editor: edits land on OK only; a renamed building shows in
// its courses, a deleted one leaves their id behind.
#include "EditorRecords.h"
#include "editors/BuildingDlg.h"
#include "editors/CourseDlg.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
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

const QByteArray Names = "SELECT group_concat(BuildingName, '|') FROM Building";

} // namespace

class TestBuildingDlg : public QObject
{
    Q_OBJECT

private slots:
    void editsLandOnOkOnly();
    void renameReachesCoursesDeleteLeavesTheirId();
};

void TestBuildingDlg::editsLandOnOkOnly()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    Building(u"Library"_s);
    Building(u"Gym"_s);
    const QStringList before = DumpAll();

    for (bool ok : {false, true}) {
        BuildingDlg dialog;
        QCOMPARE(MenuTexts(dialog, 0),
                 (QStringList{u"New Building"_s, u"Edit Building"_s, u"Delete Building"_s}));
        QCOMPARE(MenuTexts(dialog, -1), QStringList{u"New Building"_s});
        auto* buttons = dialog.findChild<QDialogButtonBox*>(u"buttons"_s);
        QVERIFY(Pick(dialog, -1, u"New Building"_s));
        QVERIFY(!buttons->isEnabled());
        // Typing goes into the name at once.
        QCOMPARE(dialog.focusWidget(), dialog.findChild<QLineEdit*>(u"buildingName"_s));
        EnterName(dialog, u"Annex"_s);
        QVERIFY(buttons->isEnabled());
        // Two buildings may share a name; names stop at 100 characters.
        QVERIFY(Pick(dialog, -1, u"New Building"_s));
        EnterName(dialog, u"Annex"_s + QString(100, u'x'));
        QCOMPARE(dialog.Entries().back().name, u"Annex"_s + QString(95, u'x'));
        QVERIFY(Pick(dialog, 3, u"Edit Building"_s));
        EnterName(dialog, u"Annex"_s);
        QVERIFY(Pick(dialog, 0, u"Edit Building"_s));
        QCOMPARE(dialog.findChild<QLineEdit*>(u"buildingName"_s)->text(), u"Library"_s);
        EnterName(dialog, u"Main Library"_s);
        QVERIFY(Pick(dialog, 1, u"Delete Building"_s));
        QCOMPARE(dialog.findChild<QListWidget*>(u"buildingList"_s)->count(), 3);
        if (ok) {
            dialog.accept();
        } else {
            dialog.reject();
            QCOMPARE(DumpAll(), before);
        }
    }
    QCOMPARE(Sql(Names), u"Main Library|Annex|Annex"_s);
}

void TestBuildingDlg::renameReachesCoursesDeleteLeavesTheirId()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
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
        editor.SetCourse(course);
        QCOMPARE(editor.findChild<QComboBox*>(u"buildingBox"_s)->currentText(), u"Great Hall"_s);
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
    editor.SetCourse(course);
    auto* box = editor.findChild<QComboBox*>(u"buildingBox"_s);
    QVERIFY(box->currentText().isEmpty());
    box->setEditText(u"Great Hall"_s);
    QVERIFY(editor.OnOK());
    QVERIFY(Sql(buildingId).toUInt() != hall);
    QCOMPARE(CBuildingTable::GetBuildingNameFromID(Sql(buildingId).toUInt()), u"Great Hall"_s);
}

QTEST_MAIN(TestBuildingDlg)
#include "tst_buildingdlg.moc"
