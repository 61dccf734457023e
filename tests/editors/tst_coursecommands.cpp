// The main frame's course commands, and the course removal cascade behind
// Delete Course: everything of the course goes, everything of other courses
// and every export link stays.
// Faults tried (each failed the cascade test, then reverted): CwTypeOrder rows,
// TextbookOrder rows left behind.
#include "EditorRecords.h"
#include "app/MainFrame.h"
#include "controls/DialogRunner.h"
#include "editors/CourseDlg.h"
#include "editors/CourseRemoval.h"
#include "editors/InstructorDlg.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QtTest>

using namespace EditorRecords;
using namespace Qt::StringLiterals;

namespace {

QAction* Action(QMainWindow& frame, const char* name)
{
    return frame.findChild<QAction*>(QLatin1String(name));
}

bool CourseMenuHas(QMainWindow& frame, const char* name)
{
    QMenu* menu = frame.menuBar()->actions().value(0)->menu();
    return menu && menu->actions().contains(Action(frame, name));
}

void SetCurrentCourse(quint32 id)
{
    CAppStateTable::Instance().SetCurrentCourseID(id);
    CAppStateTable::Instance().UpdateRecord();
}

// A course with a row in each of its tables; returns its coursework id.
quint32 FillCourse(quint32 courseId, quint32 instructorId)
{
    Time(courseId, CTimeTable::Monday | CTimeTable::Wednesday);
    Textbook(courseId, u"Reader"_s, 0);
    Link(courseId, instructorId);
    const quint32 type = Records::CwType(courseId, u"Homework"_s);
    Records::Policy(courseId, CGradingPolicyTable::WeightByType);
    Records::MinimumPercent(courseId, 0, 90.0);
    return Records::Coursework(courseId, type, u"Essay"_s);
}

} // namespace

class TestCourseCommands : public DatabaseTest
{
    Q_OBJECT

private slots:
    void answered_data()
    {
        QTest::addColumn<bool>("newCourse"); // else Delete Course
        QTest::addColumn<bool>("yes");       // OK, or Yes to the question
        QTest::newRow("New Course, OK") << true << true;
        QTest::newRow("New Course, Cancel") << true << false;
        QTest::newRow("Delete Course, Yes") << false << true;
        QTest::newRow("Delete Course, No") << false << false;
    }
    void answered()
    {
        QFETCH(bool, newCourse);
        QFETCH(bool, yes);
        const quint32 botany = newCourse ? 0 : Records::Course(u"Botany"_s);
        SetCurrentCourse(botany ? botany : AllCoursesID);
        CMainFrame frame;
        QAction* command = Action(frame, newCourse ? "actionNewCourse" : "actionDeleteCourse");
        QVERIFY(command && command->isEnabled());
        QVERIFY(CourseMenuHas(frame, "actionDeleteCourse") == !newCourse);
        const QStringList before = DumpAll();

        quint32 created = 0;
        DialogRunner::SetHook([&](QDialog& dialog) {
            auto* editor = qobject_cast<CourseDlg*>(&dialog);
            if (!editor)
                return int(QDialog::Rejected);
            created = editor->CourseID();
            editor->findChild<QLineEdit*>(u"courseName"_s)->setText(u"Astronomy"_s);
            yes ? editor->accept() : editor->reject();
            return editor->result();
        });
        MessageAnswers answers({yes ? QMessageBox::Yes : QMessageBox::No});
        command->trigger();

        if (newCourse) {
            QVERIFY(created != 0);
            QVERIFY(answers.Texts().isEmpty());
        } else {
            QCOMPARE(answers.Texts(),
                     QStringList{u"Are you sure you want to delete the course 'Botany'?"_s});
        }
        if (!yes) {
            QCOMPARE(DumpAll(), before);
            return;
        }
        // The view follows: a new course is current, a deleted one gives way to
        // All Courses, also after the next start.
        const quint32 current = newCourse ? created : AllCoursesID;
        QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), current);
        QCOMPARE(GetSemesterCourses(),
                 newCourse ? std::vector<quint32>{created} : std::vector<quint32>{});
        QCOMPARE(CourseMenuHas(frame, "actionDeleteCourse"), newCourse);
        QVERIFY(CourseMenuHas(frame, "actionNewCourse"));
        QVERIFY(m_db->Reopen());
        QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), current);
    }

    void instructorCommandsOpenTheirMode()
    {
        const quint32 course = Records::Course(u"Botany"_s);
        SetCurrentCourse(course);
        CMainFrame frame;
        QList<qint64> opened;
        DialogRunner::SetHook([&](QDialog& dialog) {
            auto* instructors = qobject_cast<InstructorDlg*>(&dialog);
            opened << (instructors ? qint64(instructors->CourseID()) : -1);
            return int(QDialog::Rejected);
        });
        Action(frame, "actionEditInstructors")->trigger();
        Action(frame, "actionAllInstructors")->trigger();
        Action(frame, "actionBuildings")->trigger();
        QCOMPARE(opened, (QList<qint64>{course, 0, -1}));
    }

    void removalTakesEveryRowOfTheCourseOnly()
    {
        const quint32 shared = Instructor(u"Dr. Vale"_s);
        const quint32 doomed = Records::Course(u"Botany"_s);
        const quint32 kept = Records::Course(u"Zoology"_s);
        const quint32 doomedWork = FillCourse(doomed, shared);
        const quint32 keptWork = FillCourse(kept, shared);
        OutlookLink(doomedWork, 501, COutlookTable::olTaskItem);
        OutlookLink(keptWork, 502, COutlookTable::olTaskItem);
        OutlookLink(shared, 503, COutlookTable::olContactItem);
        SetCurrentCourse(kept);

        QVERIFY(RemoveCourse(doomed));

        QList<std::pair<const char*, const char*>> perCourse{{"Course", "id"},
                                                             {"Time", "ForeignRecordID"}};
        for (const char* table :
             {"Textbook", "TextbookOrder", "CourseInstructor", "Coursework", "CwType",
              "CwTypeOrder", "GradingPolicyGrade", "GradingPolicy", "CourseOrder"})
            perCourse.append(std::pair(table, "CourseID"));
        for (const auto& [table, column] : perCourse) {
            QVERIFY2(CountWhere(table, column, doomed) == 0, table);
            QVERIFY2(CountWhere(table, column, kept) == 1, table);
        }
        // The shared instructor and the other course's link stay; so do all
        // export links, and the other course stays current.
        QCOMPARE(Records::Count("Instructor"), 1);
        QCOMPARE(CountWhere("CourseInstructor", "InstructorID", shared), 1);
        QCOMPARE(Records::Count("OutlookLink"), 3);
        QCOMPARE(CountWhere("OutlookLink", "BrindleItemID", doomedWork), 1);
        QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), kept);

        // A course that is gone: nothing changes, but rows left behind by it
        // are still cleared.
        const QStringList before = DumpAll();
        RemoveCourse(doomed);
        QCOMPARE(DumpAll(), before);
        Sql("DELETE FROM Course WHERE id = " + QByteArray::number(kept));
        RemoveCourse(kept);
        QCOMPARE(CountWhere("Time", "ForeignRecordID", kept), 0);
        QCOMPARE(CountWhere("CourseOrder", "CourseID", kept), 0);
    }
};

QTEST_MAIN(TestCourseCommands)
#include "tst_coursecommands.moc"
