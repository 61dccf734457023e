// The instructors editor in course mode and all-instructors mode. A failed
// OK is in tst_savefailures.
// Faults tried (each failed a test here, then reverted): deleting an
// instructor left its export link; keeping the shown instructor's fields
// forgot its typed building (the building was lost on showing another).
#include "EditorRecords.h"
#include "controls/DialogRunner.h"
#include "editors/BuildingListPage.h"
#include "editors/InstructorDlg.h"
#include "editors/RoomPage.h"
#include "editors/TimeListPage.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

using namespace EditorRecords;
using namespace Qt::StringLiterals;

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
    return Sql("SELECT count(*) FROM CourseInstructor WHERE CourseID = " +
               QByteArray::number(courseId) +
               " AND InstructorID = " + QByteArray::number(instructorId)) != u"0"_s;
}

QStringList Names(const InstructorDlg& dialog)
{
    QStringList names;
    for (const InstructorEntry& entry : dialog.Entries())
        names << entry.name;
    return names;
}

QString Column(const char* column, quint32 instructorId)
{
    return Sql(QByteArray("SELECT ") + column +
               " FROM Instructor WHERE id = " + QByteArray::number(instructorId));
}

} // namespace

class TestInstructorDlg : public DatabaseTest
{
    Q_OBJECT

private slots:
    void deleteCurrent_data()
    {
        QTest::addColumn<bool>("allMode");
        QTest::addColumn<bool>("linked"); // to a course other than the one edited
        QTest::addColumn<bool>("yes");
        QTest::addColumn<QStringList>("questions");
        const QStringList inUse{u"Another course is currently using this instructor.\n"
                                u"Continue with Delete?"_s};
        QTest::newRow("course mode: unlinks only, asks nothing")
            << false << true << true << QStringList();
        QTest::newRow("all instructors, used by a course, Yes") << true << true << true << inUse;
        QTest::newRow("all instructors, unused, Yes")
            << true << false << true
            << QStringList{u"Are you sure you want to delete the instructor?"_s};
        QTest::newRow("all instructors, No keeps it") << true << true << false << inUse;
    }
    void deleteCurrent()
    {
        QFETCH(bool, allMode);
        QFETCH(bool, linked);
        QFETCH(bool, yes);
        QFETCH(QStringList, questions);
        const quint32 botany = Records::Course(u"Botany"_s);
        const quint32 zoology = Records::Course(u"Zoology"_s);
        const quint32 vale = Instructor(u"Dr. Vale"_s);
        Time(vale, CTimeTable::Tuesday);
        OutlookLink(vale, 77, COutlookTable::olContactItem);
        if (!allMode)
            Link(botany, vale);
        if (linked)
            Link(zoology, vale);

        const QStringList before = DumpAll();
        InstructorDlg dialog(allMode ? InstructorDlg::AllInstructors : botany);
        QCOMPARE(Names(dialog), QStringList{u"Dr. Vale"_s});
        MessageAnswers answers({yes ? QMessageBox::Yes : QMessageBox::No});
        Action(dialog, "actionDeleteCurrent")->trigger();
        QCOMPARE(answers.Texts(), questions);
        QCOMPARE(dialog.Entries().empty(), yes);
        // Nothing is written before OK.
        QCOMPARE(DumpAll(), before);
        QVERIFY(dialog.OnOK());

        // The instructor goes with its office hours and export link only in
        // all-instructors mode; in course mode it leaves that course only.
        const bool stays = !allMode || !yes;
        QCOMPARE(CountWhere("Instructor", "id", vale), int(stays));
        QCOMPARE(CountWhere("Time", "ForeignRecordID", vale), int(stays));
        QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", vale), int(stays));
        QVERIFY(!IsLinked(botany, vale));
        QCOMPARE(IsLinked(zoology, vale), linked && stays);
    }

    void fromPrevious()
    {
        const quint32 botany = Records::Course(u"Botany"_s);
        const quint32 vale = Instructor(u"Dr. Vale"_s);
        const quint32 ash = Instructor(u"Prof. Ash"_s);
        Time(ash, CTimeTable::Thursday);
        Link(botany, vale);

        InstructorDlg dialog(botany);
        Edit(dialog, "instructorPhone")->setText(u"555-0101"_s);
        quint32 choose = vale;
        QString title;
        QStringList offered;
        DialogRunner::SetHook([&](QDialog& chooser) {
            title = chooser.windowTitle();
            auto* list = chooser.findChild<QListWidget*>(u"chooserList"_s);
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
        QCOMPARE(title, u"Current Instructors"_s);
        QCOMPARE(offered, (QStringList{u"Dr. Vale"_s, u"Prof. Ash"_s}));
        QCOMPARE(Names(dialog), QStringList{u"Dr. Vale"_s});
        QCOMPARE(dialog.ShownIndex(), 0);

        choose = ash;
        fromPrevious->trigger();
        QCOMPARE(Names(dialog), (QStringList{u"Dr. Vale"_s, u"Prof. Ash"_s}));
        QCOMPARE(dialog.ShownIndex(), 1);
        QCOMPARE(Edit(dialog, "instructorName")->text(), u"Prof. Ash"_s);
        QCOMPARE(dialog.Entries()[1].officeHours.size(), size_t(1));
        // The fields shown before were kept.
        QCOMPARE(dialog.Entries()[0].phone, u"555-0101"_s);

        QVERIFY(dialog.OnOK());
        QVERIFY(IsLinked(botany, ash));
        QCOMPARE(CountWhere("CourseInstructor", "CourseID", botany), 2);
        QCOMPARE(Records::Count("Instructor"), 2);
    }

    void brandNewWithHoursAndBuilding()
    {
        const quint32 botany = Records::Course(u"Botany"_s);
        InstructorDlg all(InstructorDlg::AllInstructors);
        QVERIFY(!Action(all, "actionFromPrevious"));
        InstructorDlg dialog(botany);
        // No instructor yet: nothing to take over, delete or type into.
        QVERIFY(!Action(dialog, "actionFromPrevious")->isEnabled());
        QVERIFY(!Action(dialog, "actionDeleteCurrent")->isEnabled());
        QLineEdit* name = Edit(dialog, "instructorName");
        QVERIFY(!name->isEnabled());
        QVERIFY(!dialog.HoursPage()->isEnabled());

        Action(dialog, "actionBrandNew")->trigger();
        QVERIFY(Action(dialog, "actionDeleteCurrent")->isEnabled());
        QCOMPARE(name->text(), u"(Enter Name)"_s);
        QVERIFY(name->isEnabled());
        // The instructor box follows the name as it is typed.
        name->selectAll();
        QTest::keyClicks(name, u"Grace"_s);
        QCOMPARE(dialog.findChild<QComboBox*>(u"currentInstructors"_s)->currentText(), u"Grace"_s);
        // The building box has the Buildings dialog's limit.
        const QString building = u"Greenhouse"_s + QString(CBuildingListPage::NameLimit, u'x');
        dialog.RoomPage()->BuildingBox()->setEditText(building);
        QCOMPARE(dialog.RoomPage()->BuildingText(), building.left(CBuildingListPage::NameLimit));
        Edit(dialog, "roomNumber")->setText(u"G12"_s);
        CTimeListPage* hours = dialog.HoursPage();
        hours->NewTime();
        // While the time editor is open, the other pages wait.
        QVERIFY(!name->isEnabled());
        QVERIFY(!Edit(dialog, "roomNumber")->isEnabled());
        hours->Editor()->DayButton(2)->click();
        hours->EditorButtons()->button(QDialogButtonBox::Ok)->click();
        QVERIFY(name->isEnabled());
        QCOMPARE(Records::Count("Instructor"), 0);
        dialog.findChild<QDialogButtonBox*>(u"buttons"_s)->button(QDialogButtonBox::Ok)->click();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));

        const quint32 id = Sql("SELECT id FROM Instructor").toUInt();
        QCOMPARE(Column("InstructorName", id), u"Grace"_s);
        QCOMPARE(Column("RoomNumber", id), u"G12"_s);
        QCOMPARE(CBuildingTable::GetBuildingNameFromID(Column("BuildingID", id).toUInt()),
                 building.left(CBuildingListPage::NameLimit));
        QVERIFY(IsLinked(botany, id));
        QCOMPARE(Sql("SELECT group_concat(DayOfWeek) FROM Time WHERE ForeignRecordID = " +
                     QByteArray::number(id)),
                 QString::number(CTimeTable::Tuesday));
    }

    // What is typed for the shown instructor stays with it, whichever way
    // another is shown and this one again.
    void shownFieldsStayWithTheirInstructor_data()
    {
        QTest::addColumn<QString>("step");
        QTest::newRow("keys in the instructor box") << u"keys"_s;
        QTest::newRow("another deleted") << u"delete"_s;
        QTest::newRow("From Previous") << u"previous"_s;
    }
    void shownFieldsStayWithTheirInstructor()
    {
        QFETCH(QString, step);
        const quint32 course = Records::Course(u"Art"_s);
        const quint32 ada = Instructor(u"Ada"_s);
        Link(course, ada);
        Link(course, Instructor(u"Bob"_s));
        const quint32 carl = Instructor(u"Carl"_s);

        InstructorDlg dialog(course);
        QCOMPARE(dialog.ShownIndex(), 0);
        QComboBox* building = dialog.RoomPage()->BuildingBox();
        Edit(dialog, "instructorEmail")->setText(u"ada@example.edu"_s);
        building->setEditText(u"Science Hall"_s);
        if (step == u"keys"_s) {
            auto* box = dialog.findChild<QComboBox*>(u"currentInstructors"_s);
            QTest::keyClick(box, Qt::Key_Down);
            QCOMPARE(dialog.ShownIndex(), 1);
            QCOMPARE(Edit(dialog, "instructorName")->text(), u"Bob"_s);
            QVERIFY(Edit(dialog, "instructorEmail")->text().isEmpty());
            QVERIFY(building->currentText().isEmpty());
            QTest::keyClick(box, Qt::Key_Up);
        } else if (step == u"delete"_s) {
            dialog.SelectEntry(1);
            dialog.OnDeleteCurrent(); // Bob goes; Ada is shown again
        } else {
            dialog.AddPrevious(carl);
            dialog.SelectEntry(0);
        }
        QCOMPARE(dialog.ShownIndex(), 0);
        QCOMPARE(Edit(dialog, "instructorEmail")->text(), u"ada@example.edu"_s);
        QCOMPARE(dialog.RoomPage()->BuildingText(), u"Science Hall"_s);
        QVERIFY(dialog.OnOK());

        QCOMPARE(Column("Email", ada), u"ada@example.edu"_s);
        QCOMPARE(CBuildingTable::GetBuildingNameFromID(Column("BuildingID", ada).toUInt()),
                 u"Science Hall"_s);
        QCOMPARE(Sql("SELECT count(*) FROM Instructor WHERE BuildingID <> 0"), u"1"_s);
    }
};

QTEST_MAIN(TestInstructorDlg)
#include "tst_instructordlg.moc"
