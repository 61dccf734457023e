#include "EditorRecords.h"
#include "controls/DialogRunner.h"
#include "editors/InstructorDlg.h"
#include "editors/RoomPage.h"
#include "editors/TimeListPage.h"
#include "res/strings/EditorStrings.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QtTest>

using namespace EditorRecords;

namespace {

QLineEdit* Edit(QWidget& dialog, const char* name)
{
    return dialog.findChild<QLineEdit*>(QLatin1String(name));
}

QAction* Action(QWidget& dialog, const char* name)
{
    return dialog.findChild<QAction*>(QLatin1String(name));
}

bool IsLinked(quint32 courseId, quint32 instructorId)
{
    bool linked = false;
    CCourseInstructorTable links;
    links.Open(1);
    const CCeDBProp key(courseId);
    links.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = links.MoveFirst(1); ok; ok = links.MoveNext(1))
        linked = linked || links.GetInstructorID() == instructorId;
    return linked;
}

QStringList Names(const InstructorDlg& dialog)
{
    QStringList names;
    for (const InstructorEntry& entry : dialog.Entries())
        names << entry.name;
    return names;
}

} // namespace

// The instructors editor in course mode and all-instructors mode.
class TestInstructorDlg : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { DialogRunner::SetHook({}); }

    void deleteCurrent_data();
    void deleteCurrent();
    void fromPrevious();
    void brandNewWithHoursAndBuilding();
    void menusAndFieldsFollowTheList();
    void choosingAnotherKeepsTheShownFields();
    void cancelWritesNothing();
};

void TestInstructorDlg::deleteCurrent_data()
{
    QTest::addColumn<bool>("allMode");
    QTest::addColumn<bool>("linked");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QStringList>("questions");
    QTest::addColumn<bool>("instructorStays");

    const QStringList inUse{EditorStrings::InstructorInUse()};
    const QStringList plain{EditorStrings::ConfirmDeleteInstructor()};
    QTest::newRow("course mode: unlinks only, asks nothing")
        << false << true << true << QStringList() << true;
    QTest::newRow("all instructors, used by one course, Yes")
        << true << true << true << inUse << false;
    QTest::newRow("all instructors, unused, Yes") << true << false << true << plain << false;
    QTest::newRow("all instructors, No keeps it") << true << true << false << inUse << true;
}

void TestInstructorDlg::deleteCurrent()
{
    QFETCH(bool, allMode);
    QFETCH(bool, linked);
    QFETCH(bool, yes);
    QFETCH(QStringList, questions);
    QFETCH(bool, instructorStays);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 botany = Records::Course(QStringLiteral("Botany"));
    const quint32 zoology = Records::Course(QStringLiteral("Zoology"));
    const quint32 vale = Instructor(QStringLiteral("Dr. Vale"));
    const quint32 hours = Time(vale, CTimeTable::Tuesday);
    OutlookLink(vale, 77, COutlookTable::olContactItem);
    if (linked || !allMode)
        Link(botany, vale);
    if (!allMode)
        Link(zoology, vale);

    InstructorDlg dialog(allMode ? InstructorDlg::AllInstructors : botany);
    QCOMPARE(Names(dialog), QStringList{QStringLiteral("Dr. Vale")});
    MessageAnswers answers({yes ? QMessageBox::Yes : QMessageBox::No});
    Action(dialog, "actionDeleteCurrent")->trigger();
    QCOMPARE(answers.Texts(), questions);
    QCOMPARE(dialog.Entries().empty(), yes);
    QVERIFY(dialog.OnOK());

    QCOMPARE(CountWhere("Instructor", "id", vale), instructorStays ? 1 : 0);
    if (!allMode) {
        QVERIFY(!IsLinked(botany, vale));
        QVERIFY(IsLinked(zoology, vale));
        QCOMPARE(CountWhere("Time", "id", hours), 1);
        InstructorDlg all(InstructorDlg::AllInstructors);
        QCOMPARE(Names(all), QStringList{QStringLiteral("Dr. Vale")});
    } else if (!instructorStays) {
        QCOMPARE(CountWhere("CourseInstructor", "InstructorID", vale), 0);
        QCOMPARE(CountWhere("Time", "ForeignRecordID", vale), 0);
        QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", vale), 0);
    } else {
        QCOMPARE(IsLinked(botany, vale), linked);
        QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", vale), 1);
    }
}

void TestInstructorDlg::fromPrevious()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 botany = Records::Course(QStringLiteral("Botany"));
    const quint32 vale = Instructor(QStringLiteral("Dr. Vale"));
    const quint32 ash = Instructor(QStringLiteral("Prof. Ash"));
    Time(ash, CTimeTable::Thursday);
    Link(botany, vale);

    InstructorDlg dialog(botany);
    Edit(dialog, "instructorPhone")->setText(QStringLiteral("555-0101"));

    quint32 choose = vale;
    QString title;
    QStringList offered;
    DialogRunner::SetHook([&](QDialog& chooser) {
        title = chooser.windowTitle();
        auto* list = chooser.findChild<QListWidget*>(QStringLiteral("chooserList"));
        offered.clear();
        for (int i = 0; i < list->count(); ++i) {
            offered << list->item(i)->text();
            if (list->item(i)->data(Qt::UserRole).toUInt() == choose)
                list->setCurrentRow(i);
        }
        return int(QDialog::Accepted);
    });
    QAction* fromPrevious = Action(dialog, "actionFromPrevious");
    QVERIFY(fromPrevious->isEnabled());

    // Already listed: only selected, never twice.
    fromPrevious->trigger();
    QCOMPARE(title, EditorStrings::CurrentInstructors());
    QCOMPARE(offered, (QStringList{QStringLiteral("Dr. Vale"), QStringLiteral("Prof. Ash")}));
    QCOMPARE(Names(dialog), QStringList{QStringLiteral("Dr. Vale")});
    QCOMPARE(dialog.ShownIndex(), 0);

    choose = ash;
    fromPrevious->trigger();
    QCOMPARE(Names(dialog), (QStringList{QStringLiteral("Dr. Vale"), QStringLiteral("Prof. Ash")}));
    QCOMPARE(dialog.ShownIndex(), 1);
    QCOMPARE(Edit(dialog, "instructorName")->text(), QStringLiteral("Prof. Ash"));
    QCOMPARE(dialog.Entries()[1].officeHours.size(), size_t(1));
    // The fields shown before were kept.
    QCOMPARE(dialog.Entries()[0].phone, QStringLiteral("555-0101"));

    QVERIFY(dialog.OnOK());
    QVERIFY(IsLinked(botany, ash));
    QCOMPARE(CountWhere("CourseInstructor", "CourseID", botany), 2);
    QCOMPARE(Records::Count("Instructor"), 2);
}

void TestInstructorDlg::brandNewWithHoursAndBuilding()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 botany = Records::Course(QStringLiteral("Botany"));
    InstructorDlg dialog(botany);
    QVERIFY(!Action(dialog, "actionFromPrevious")->isEnabled());

    Action(dialog, "actionBrandNew")->trigger();
    QCOMPARE(Edit(dialog, "instructorName")->text(), EditorStrings::EnterName());
    QVERIFY(Edit(dialog, "instructorName")->isEnabled());
    dialog.RoomPage()->BuildingBox()->setEditText(QStringLiteral("Greenhouse"));
    Edit(dialog, "roomNumber")->setText(QStringLiteral("G12"));
    CTimeListPage* hours = dialog.HoursPage();
    hours->NewTime();
    // While the time editor is open, the other pages wait.
    QVERIFY(!Edit(dialog, "instructorName")->isEnabled());
    QVERIFY(!Edit(dialog, "roomNumber")->isEnabled());
    hours->Editor()->DayButton(2)->click();
    hours->EditorButtons()->button(QDialogButtonBox::Ok)->click();
    QVERIFY(Edit(dialog, "instructorName")->isEnabled());
    dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttons"))
        ->button(QDialogButtonBox::Ok)
        ->click();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));

    CInstructorTable instructors;
    instructors.Open();
    QVERIFY(instructors.MoveFirst(1));
    const quint32 id = instructors.GetRecordID();
    QCOMPARE(instructors.GetInstructorName(), EditorStrings::EnterName());
    QCOMPARE(instructors.GetRoomNumber(), QStringLiteral("G12"));
    QCOMPARE(CBuildingTable::GetBuildingNameFromID(instructors.GetBuildingID()),
             QStringLiteral("Greenhouse"));
    QVERIFY(IsLinked(botany, id));
    CTimeTable times;
    times.Open(0);
    const CCeDBProp key(id);
    times.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QVERIFY(times.MoveFirst(1));
    QCOMPARE(times.GetDayOfWeek(), quint16(CTimeTable::Tuesday));
}

void TestInstructorDlg::menusAndFieldsFollowTheList()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    Instructor(QStringLiteral("Dr. Vale"));
    const quint32 botany = Records::Course(QStringLiteral("Botany"));

    InstructorDlg all(InstructorDlg::AllInstructors);
    QVERIFY(!Action(all, "actionFromPrevious"));
    QVERIFY(Action(all, "actionBrandNew")->isEnabled());

    InstructorDlg course(botany);
    QVERIFY(course.Entries().empty());
    QVERIFY(Action(course, "actionFromPrevious")->isEnabled());
    QVERIFY(!Action(course, "actionDeleteCurrent")->isEnabled());
    QVERIFY(!Edit(course, "instructorName")->isEnabled());
    QVERIFY(!course.HoursPage()->isEnabled());

    Action(course, "actionBrandNew")->trigger();
    QVERIFY(Action(course, "actionDeleteCurrent")->isEnabled());
    QVERIFY(course.HoursPage()->isEnabled());
    Action(course, "actionDeleteCurrent")->trigger();
    QVERIFY(!Edit(course, "instructorName")->isEnabled());
    QVERIFY(Edit(course, "instructorName")->text().isEmpty());

    for (const char* field : {"instructorName", "instructorPhone", "instructorEmail"})
        QVERIFY(Edit(course, field)->maxLength() > 0);
    QCOMPARE(Edit(course, "instructorName")->maxLength(), 50);
    QCOMPARE(Edit(course, "instructorPhone")->maxLength(), 15);
    QCOMPARE(Edit(course, "instructorEmail")->maxLength(), 50);
    QCOMPARE(Edit(course, "roomNumber")->maxLength(), 20);
}

void TestInstructorDlg::choosingAnotherKeepsTheShownFields()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 vale = Instructor(QStringLiteral("Dr. Vale"));
    Instructor(QStringLiteral("Prof. Ash"));
    InstructorDlg dialog(InstructorDlg::AllInstructors);
    auto* box = dialog.findChild<QComboBox*>(QStringLiteral("currentInstructors"));
    QCOMPARE(box->count(), 2);
    Edit(dialog, "instructorEmail")->setText(QStringLiteral("vale@example.edu"));

    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(dialog.ShownIndex(), 1);
    QCOMPARE(Edit(dialog, "instructorName")->text(), QStringLiteral("Prof. Ash"));
    QVERIFY(Edit(dialog, "instructorEmail")->text().isEmpty());
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(Edit(dialog, "instructorEmail")->text(), QStringLiteral("vale@example.edu"));

    QVERIFY(dialog.OnOK());
    CInstructorTable table;
    table.Open();
    QVERIFY(table.MoveToRecord(vale));
    QCOMPARE(table.GetEmail(), QStringLiteral("vale@example.edu"));
}

void TestInstructorDlg::cancelWritesNothing()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 botany = Records::Course(QStringLiteral("Botany"));
    Link(botany, Instructor(QStringLiteral("Dr. Vale")));
    const QStringList before = DumpAll();
    {
        InstructorDlg dialog(botany);
        Action(dialog, "actionDeleteCurrent")->trigger();
        Action(dialog, "actionBrandNew")->trigger();
        dialog.reject();
    }
    QCOMPARE(DumpAll(), before);
}

QTEST_MAIN(TestInstructorDlg)
#include "tst_instructordlg.moc"
