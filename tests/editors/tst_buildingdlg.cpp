#include "EditorRecords.h"
#include "editors/BuildingDlg.h"
#include "editors/CourseDlg.h"
#include "res/strings/EditorStrings.h"
#include "support/MessageAnswers.h"
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

namespace {

bool Pick(CListEditPage* page, int row, const QString& command)
{
    for (QAction* action : page->ContextMenu(row)->actions()) {
        if (action->text() == command) {
            action->trigger();
            return true;
        }
    }
    return false;
}

// Types a name into the open editor and presses its OK.
void EnterName(BuildingDlg& dialog, const QString& name)
{
    QLineEdit* edit = dialog.findChild<QLineEdit*>(QStringLiteral("buildingName"));
    edit->clear();
    QTest::keyClicks(edit, name);
    dialog.Page()->EditorButtons()->button(QDialogButtonBox::Ok)->click();
}

QStringList StoredNames()
{
    QStringList names;
    CBuildingTable table;
    table.Open();
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        names << table.GetBuildingName();
    return names;
}

} // namespace

// The buildings editor.
class TestBuildingDlg : public QObject
{
    Q_OBJECT

private slots:
    void menu_data();
    void menu();
    void editsLandOnOkOnly();
    void renameReachesCoursesDeleteLeavesTheirId();
    void nameLimit();
};

void TestBuildingDlg::menu_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("on a row") << 0
                              << QStringList{EditorStrings::NewBuilding(),
                                             EditorStrings::EditBuilding(),
                                             EditorStrings::DeleteBuilding()};
    QTest::newRow("below the rows") << -1 << QStringList{EditorStrings::NewBuilding()};
}

void TestBuildingDlg::menu()
{
    QFETCH(int, row);
    QFETCH(QStringList, expected);
    TestDatabase db;
    QVERIFY(db.IsReady());
    Building(QStringLiteral("Library"));
    BuildingDlg dialog;
    QStringList texts;
    for (QAction* action : dialog.Page()->ContextMenu(row)->actions())
        texts << action->text();
    QCOMPARE(texts, expected);
}

void TestBuildingDlg::editsLandOnOkOnly()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    Building(QStringLiteral("Library"));
    Building(QStringLiteral("Gym"));
    const QStringList before = DumpAll();

    for (bool ok : {false, true}) {
        BuildingDlg dialog;
        auto* buttons = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttons"));
        QVERIFY(Pick(dialog.Page(), -1, EditorStrings::NewBuilding()));
        QVERIFY(!buttons->isEnabled());
        // Typing goes into the name at once.
        QCOMPARE(dialog.focusWidget(),
                 dialog.findChild<QLineEdit*>(QStringLiteral("buildingName")));
        EnterName(dialog, QStringLiteral("Annex"));
        QVERIFY(buttons->isEnabled());
        // Two buildings may share a name.
        QVERIFY(Pick(dialog.Page(), -1, EditorStrings::NewBuilding()));
        EnterName(dialog, QStringLiteral("Annex"));
        QVERIFY(Pick(dialog.Page(), 0, EditorStrings::EditBuilding()));
        QCOMPARE(dialog.findChild<QLineEdit*>(QStringLiteral("buildingName"))->text(),
                 QStringLiteral("Library"));
        EnterName(dialog, QStringLiteral("Main Library"));
        QVERIFY(Pick(dialog.Page(), 1, EditorStrings::DeleteBuilding()));
        auto* list = dialog.findChild<QListWidget*>(QStringLiteral("buildingList"));
        QCOMPARE(list->count(), 3);
        if (ok)
            dialog.accept();
        else
            dialog.reject();
        if (!ok)
            QCOMPARE(DumpAll(), before);
    }
    QCOMPARE(StoredNames(), (QStringList{QStringLiteral("Main Library"), QStringLiteral("Annex"),
                                         QStringLiteral("Annex")}));
}

void TestBuildingDlg::renameReachesCoursesDeleteLeavesTheirId()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 hall = Building(QStringLiteral("Hall"));
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    {
        CCourseTable table;
        table.Open();
        table.MoveToRecord(course);
        table.SetBuildingID(hall);
        table.UpdateRecord();
    }
    {
        BuildingDlg dialog;
        dialog.Page()->EditBuilding(0);
        EnterName(dialog, QStringLiteral("Great Hall"));
        QVERIFY(dialog.OnOK());
    }
    {
        CourseDlg editor;
        editor.SetCourse(course);
        QCOMPARE(editor.findChild<QComboBox*>(QStringLiteral("buildingBox"))->currentText(),
                 QStringLiteral("Great Hall"));
        editor.reject();
    }
    {
        BuildingDlg dialog;
        dialog.Page()->DeleteBuilding(0);
        QVERIFY(dialog.OnOK());
    }
    CCourseTable table;
    table.Open();
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(table.GetBuildingID(), hall);
    // Typed again in the course editor, it comes back under a new id.
    CourseDlg editor;
    editor.SetCourse(course);
    auto* box = editor.findChild<QComboBox*>(QStringLiteral("buildingBox"));
    QVERIFY(box->currentText().isEmpty());
    box->setEditText(QStringLiteral("Great Hall"));
    QVERIFY(editor.OnOK());
    QVERIFY(table.MoveToRecord(course));
    QVERIFY(table.GetBuildingID() != hall);
    QCOMPARE(CBuildingTable::GetBuildingNameFromID(table.GetBuildingID()),
             QStringLiteral("Great Hall"));
}

void TestBuildingDlg::nameLimit()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    BuildingDlg dialog;
    dialog.Page()->NewBuilding();
    EnterName(dialog, QString(101, QLatin1Char('b')));
    QCOMPARE(dialog.Entries().at(0).name.size(), 100);
}

QTEST_MAIN(TestBuildingDlg)
#include "tst_buildingdlg.moc"
