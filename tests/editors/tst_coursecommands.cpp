#include "EditorRecords.h"
#include "app/MainFrame.h"
#include "controls/DialogRunner.h"
#include "editors/CourseDlg.h"
#include "editors/InstructorDlg.h"
#include "res/strings/AppStrings.h"
#include "res/strings/EditorStrings.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QtTest>

namespace {

QAction* Action(QMainWindow& frame, const char* name)
{
    return frame.findChild<QAction*>(QLatin1String(name));
}

bool CourseMenuHas(QMainWindow& frame, QAction* action)
{
    QMenu* menu = frame.menuBar()->actions().value(0)->menu();
    return menu && menu->actions().contains(action);
}

} // namespace

// The main frame's course commands: each opens its dialog, and after an
// accepted one the view follows.
class TestCourseCommands : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { DialogRunner::SetHook({}); }

    void newCourse_data();
    void newCourse();
    void deleteCourse_data();
    void deleteCourse();
    void instructorCommandsOpenTheirMode();
};

void TestCourseCommands::newCourse_data()
{
    QTest::addColumn<bool>("accept");
    QTest::newRow("OK") << true;
    QTest::newRow("Cancel") << false;
}

void TestCourseCommands::newCourse()
{
    QFETCH(bool, accept);
    TestDatabase db;
    QVERIFY(db.IsReady());
    CMainFrame frame;
    QAction* newCourse = Action(frame, "actionNewCourse");
    QVERIFY(newCourse && newCourse->isEnabled());
    const QStringList before = EditorRecords::DumpAll();

    quint32 created = 0;
    DialogRunner::SetHook([&](QDialog& dialog) {
        auto* editor = qobject_cast<CourseDlg*>(&dialog);
        if (!editor)
            return int(QDialog::Rejected);
        created = editor->CourseID();
        editor->findChild<QLineEdit*>(QStringLiteral("courseName"))
            ->setText(QStringLiteral("Astronomy"));
        if (accept)
            editor->accept();
        else
            editor->reject();
        return editor->result();
    });
    newCourse->trigger();

    QVERIFY(created != 0);
    if (!accept) {
        QCOMPARE(EditorRecords::DumpAll(), before);
        QVERIFY(!CourseMenuHas(frame, Action(frame, "actionDeleteCourse")));
        return;
    }
    QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), created);
    QCOMPARE(GetSemesterCourses(), std::vector<quint32>{created});
    // The menu with a course is up.
    QVERIFY(CourseMenuHas(frame, Action(frame, "actionDeleteCourse")));
}

void TestCourseCommands::deleteCourse_data()
{
    QTest::addColumn<bool>("yes");
    QTest::newRow("Yes") << true;
    QTest::newRow("No") << false;
}

void TestCourseCommands::deleteCourse()
{
    QFETCH(bool, yes);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    CAppStateTable::Instance().SetCurrentCourseID(course);
    CAppStateTable::Instance().UpdateRecord();
    CMainFrame frame;
    QAction* remove = Action(frame, "actionDeleteCourse");
    QVERIFY(CourseMenuHas(frame, remove));
    QVERIFY(remove->isEnabled());

    MessageAnswers answers({yes ? QMessageBox::Yes : QMessageBox::No});
    remove->trigger();
    QCOMPARE(answers.Texts(),
             QStringList{EditorStrings::ConfirmDeleteCourse(QStringLiteral("Botany"))});
    QCOMPARE(EditorRecords::CountWhere("Course", "id", course), yes ? 0 : 1);
    QVERIFY(db.Reopen());
    QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), yes ? AllCoursesID : course);
    QCOMPARE(CourseMenuHas(frame, Action(frame, "actionNewCourse")), true);
    if (yes)
        QVERIFY(!CourseMenuHas(frame, remove));
}

void TestCourseCommands::instructorCommandsOpenTheirMode()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    CAppStateTable::Instance().SetCurrentCourseID(course);
    CAppStateTable::Instance().UpdateRecord();
    CMainFrame frame;

    QList<qint64> opened;
    DialogRunner::SetHook([&](QDialog& dialog) {
        if (auto* instructors = qobject_cast<InstructorDlg*>(&dialog))
            opened << instructors->CourseID();
        else
            opened << -1;
        return int(QDialog::Rejected);
    });
    Action(frame, "actionEditInstructors")->trigger();
    Action(frame, "actionAllInstructors")->trigger();
    Action(frame, "actionBuildings")->trigger();
    QCOMPARE(opened, (QList<qint64>{course, 0, -1}));
    QVERIFY(Action(frame, "actionEditCourse")->isEnabled());
}

QTEST_MAIN(TestCourseCommands)
#include "tst_coursecommands.moc"
