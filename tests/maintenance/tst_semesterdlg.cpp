// "Semester Information" and "Archive Semester": the name suggestions, the
// archive, renames and deletes written on OK only, "View Old Semester", and
// the Semester... command of the main frame.
#include "BrindleData.h"
#include "app/Clock.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "grading/PredictionStore.h"
#include "maintenance/ArchiveSemesterDlg.h"
#include "maintenance/EditSemesterDlg.h"
#include "maintenance/SemesterDlg.h"
#include "res/strings/MaintenanceStrings.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

CAppStateTable& State()
{
    return CAppStateTable::Instance();
}

// The semester each course's order record points at.
QMap<quint32, quint32> SemesterOfCourses()
{
    QMap<quint32, quint32> semesterOf;
    CCourseOrderTable orders;
    orders.Open();
    for (int ok = orders.MoveFirst(1); ok; ok = orders.MoveNext(1))
        semesterOf.insert(orders.GetCourseID(), orders.GetSemesterID());
    return semesterOf;
}

// "name@end date" of every semester record, in id order.
QStringList StoredSemesters()
{
    QStringList semesters;
    CSemesterTable table;
    table.Open();
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        semesters << u"%1@%2"_s.arg(table.GetSemesterName()).arg(table.GetEndDate());
    return semesters;
}

QStringList RowNames(const SemesterDlg& dialog)
{
    QStringList names;
    for (const SemesterDlg::SemesterRow& row : dialog.Rows())
        names << row.name;
    return names;
}

// Plays the archive dialog: unchecks the listed rows, names it and answers.
void ArchiveWith(const QList<int>& unchecked, const QString& name, bool accept = true)
{
    DialogRunner::SetHook([=](QDialog& dialog) {
        auto* archive = qobject_cast<ArchiveSemesterDlg*>(&dialog);
        if (!archive)
            return int(QDialog::Rejected);
        for (int row : unchecked)
            archive->SetChecked(row, false);
        archive->NameBox()->setEditText(name);
        if (accept)
            archive->accept();
        else
            archive->reject();
        return archive->result();
    });
}

} // namespace

class TestSemesterDlg : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void suggestionsByMonth_data();
    void suggestionsByMonth();
    void archiveNameIsTrimmedAndRequired_data();
    void archiveNameIsTrimmedAndRequired();
    void okArchivesRenamesAndDeletes();
    void archiveWithoutSemester_data();
    void archiveWithoutSemester();
    void cancelWritesNothing();
    void viewOldSemester_data();
    void viewOldSemester();
    void failedWriteChangesNothing();
    void keyboardReachesTheRowCommands();
    void semesterCommandRefreshesTheView();

private:
    std::unique_ptr<TestDatabase> m_db;
    quint32 m_math = 0, m_art = 0, m_chem = 0, m_old = 0;
    quint32 m_fall = 0;
};

void TestSemesterDlg::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    BrindleClock::SetNow(QDateTime(QDate(2026, 5, 20), QTime(14, 30)));
    m_fall = Records::Semester(u"Fall 2025"_s);
    m_math = Records::Course(u"Math"_s);
    m_art = Records::Course(u"Art"_s);
    m_chem = Records::Course(u"Chemistry"_s);
    m_old = Records::Course(u"Latin"_s, m_fall);
}

void TestSemesterDlg::cleanup()
{
    DialogRunner::SetHook({});
    CPredictionStore::Instance().SetActive(false);
    BrindleClock::SetNow({});
    m_db.reset();
}

void TestSemesterDlg::suggestionsByMonth_data()
{
    QTest::addColumn<int>("month");
    QTest::addColumn<QString>("preselected");
    // March to September: Spring of this year; every other month the first
    // suggestion, Fall of last year.
    const QStringList names{u"Fall 2025"_s, u"Spring 2026"_s};
    for (int month = 1; month <= 12; ++month)
        QTest::addRow("month %d", month) << month << names[month >= 3 && month <= 9 ? 1 : 0];
}

void TestSemesterDlg::suggestionsByMonth()
{
    QFETCH(int, month);
    QFETCH(QString, preselected);
    BrindleClock::SetNow(QDateTime(QDate(2026, month, 15), QTime(9, 0)));
    ArchiveSemesterDlg dialog;
    QStringList offered;
    for (int i = 0; i < dialog.NameBox()->count(); ++i)
        offered << dialog.NameBox()->itemText(i);
    QCOMPARE(offered,
             (QStringList{u"Fall 2025"_s, u"Spring 2026"_s, u"Fall 2026"_s, u"Spring 2025"_s}));
    QCOMPARE(dialog.NameBox()->currentText(), preselected);
    // Every working-semester course is offered, checked, in course order.
    QList<quint32> ids;
    for (const auto& course : dialog.Courses())
        ids << (course.checked ? course.id : 0);
    QCOMPARE(ids, (QList<quint32>{m_math, m_art, m_chem}));
}

void TestSemesterDlg::archiveNameIsTrimmedAndRequired_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("kept");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("blanks") << u"   "_s << QString();
    QTest::newRow("padded") << u"  Summer 2026 "_s << u"Summer 2026"_s;
}

void TestSemesterDlg::archiveNameIsTrimmedAndRequired()
{
    QFETCH(QString, typed);
    QFETCH(QString, kept);
    ArchiveSemesterDlg dialog;
    dialog.NameBox()->setEditText(typed);
    MessageAnswers answers;
    dialog.accept();
    const bool refused = kept.isEmpty();
    QCOMPARE(dialog.result(), refused ? int(QDialog::Rejected) : int(QDialog::Accepted));
    QCOMPARE(answers.Texts(),
             refused ? QStringList{MaintenanceStrings::SemesterNameRequired()} : QStringList{});
    QCOMPARE(dialog.SemesterName(), kept);
}

void TestSemesterDlg::okArchivesRenamesAndDeletes()
{
    const quint32 spring = Records::Semester(u"Spring 2025"_s);
    const quint32 gone = Records::Course(u"Greek"_s, spring);
    SemesterDlg dialog;
    QCOMPARE(RowNames(dialog), (QStringList{u"Fall 2025"_s, u"Spring 2025"_s}));

    MessageAnswers answers({QMessageBox::Yes});
    ArchiveWith({1}, u" Spring 2026 "_s);
    dialog.ArchiveSemester();
    QCOMPARE(answers.Texts(), QStringList{MaintenanceStrings::ConfirmArchive()});
    QVERIFY(dialog.IsArchivePending());
    QVERIFY(!dialog.ArchiveButton()->isEnabled());
    dialog.RenameSemester(0, u"Autumn 2025"_s);
    dialog.DeleteSemester(1);
    QCOMPARE(RowNames(dialog), (QStringList{u"Autumn 2025"_s, u"Spring 2026"_s}));
    // Nothing is written before OK.
    QCOMPARE(StoredSemesters().size(), 2);

    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    const double now = BrindleDate::FromDateTime(BrindleClock::Now());
    QCOMPARE(StoredSemesters(), (QStringList{u"Autumn 2025@0"_s, u"Spring 2026@%1"_s.arg(now)}));
    quint32 archive = 0;
    CSemesterTable semesters;
    semesters.Open();
    for (int ok = semesters.MoveFirst(1); ok; ok = semesters.MoveNext(1))
        archive = semesters.GetRecordID();
    const auto semesterOf = SemesterOfCourses();
    QCOMPARE(semesterOf.value(m_math), archive);
    QCOMPARE(semesterOf.value(m_chem), archive);
    QCOMPARE(semesterOf.value(m_art), WorkingSemesterID);
    // The deleted semester's course came back; the course itself stays.
    QCOMPARE(semesterOf.value(gone), WorkingSemesterID);
    QCOMPARE(CCourseTable::GetCourseNameFromID(gone), u"Greek"_s);
    QCOMPARE(semesterOf.value(m_old), m_fall);
    QCOMPARE(dialog.ChosenCourseID(), AllCoursesID);
}

void TestSemesterDlg::archiveWithoutSemester_data()
{
    QTest::addColumn<QList<int>>("unchecked");
    QTest::addColumn<bool>("rowDeleted");
    QTest::newRow("every course unchecked") << QList<int>{0, 1, 2} << false;
    QTest::newRow("pending row deleted") << QList<int>{} << true;
}

void TestSemesterDlg::archiveWithoutSemester()
{
    QFETCH(QList<int>, unchecked);
    QFETCH(bool, rowDeleted);
    SemesterDlg dialog;
    MessageAnswers answers({QMessageBox::Yes});
    ArchiveWith(unchecked, u"Spring 2026"_s);
    dialog.ArchiveSemester();
    QCOMPARE(dialog.Rows().size(), size_t(rowDeleted ? 2 : 1));
    if (rowDeleted) {
        dialog.SelectRow(1);
        QVERIFY(!dialog.ViewButton()->isEnabled()); // nothing to view yet
        dialog.DeleteSemester(1);
        QVERIFY(dialog.DeletedIDs().empty());
    }
    // A dropped archive may be made again; one without courses may not.
    QCOMPARE(dialog.IsArchivePending(), !rowDeleted);
    QCOMPARE(dialog.ArchiveButton()->isEnabled(), rowDeleted);
    dialog.accept();
    QCOMPARE(StoredSemesters().size(), 1);
    QCOMPARE(SemesterOfCourses().value(m_math), WorkingSemesterID);
}

void TestSemesterDlg::cancelWritesNothing()
{
    const auto before = SemesterOfCourses();
    SemesterDlg dialog;
    MessageAnswers answers({QMessageBox::Yes, QMessageBox::Cancel});
    ArchiveWith({}, u"Spring 2026"_s);
    dialog.ArchiveSemester();
    dialog.RenameSemester(0, u"Renamed"_s);
    // A view asked for and then cancelled leaves the semester on view.
    dialog.SelectRow(0);
    dialog.ViewOldSemester();
    dialog.DeleteSemester(0);
    dialog.reject();
    QCOMPARE(StoredSemesters(), QStringList{u"Fall 2025@0"_s});
    QCOMPARE(SemesterOfCourses(), before);
    QCOMPARE(State().GetCurrentSemesterID(), WorkingSemesterID);
}

void TestSemesterDlg::viewOldSemester_data()
{
    QTest::addColumn<bool>("pending");
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("archived");
    QTest::newRow("no archive pending") << false << 0 << int(QDialog::Accepted) << false;
    QTest::newRow("Yes writes first")
        << true << int(QMessageBox::Yes) << int(QDialog::Accepted) << true;
    QTest::newRow("No drops it") << true << int(QMessageBox::No) << int(QDialog::Accepted) << false;
    QTest::newRow("Cancel stays") << true << int(QMessageBox::Cancel) << int(QDialog::Rejected)
                                  << false;
}

void TestSemesterDlg::viewOldSemester()
{
    QFETCH(bool, pending);
    QFETCH(int, answer);
    QFETCH(int, result);
    QFETCH(bool, archived);
    CPredictionStore::Instance().SetActive(true);
    SemesterDlg dialog;
    MessageAnswers answers({QMessageBox::Yes, QMessageBox::StandardButton(answer)});
    if (pending) {
        ArchiveWith({}, u"Spring 2026"_s);
        dialog.ArchiveSemester();
    }
    dialog.RenameSemester(0, u"Renamed"_s);
    dialog.SelectRow(0);
    QVERIFY(dialog.ViewButton()->isEnabled());
    dialog.ViewOldSemester();

    QCOMPARE(dialog.result(), result);
    QCOMPARE(answers.Texts().contains(MaintenanceStrings::ArchiveBeforeExit()), pending);
    // The semester stays chosen even when the user stays in the dialog.
    QCOMPARE(State().GetCurrentSemesterID(), m_fall);
    QCOMPARE(CPredictionStore::Instance().IsActive(), result != int(QDialog::Accepted));
    QCOMPARE(SemesterOfCourses().value(m_math) != WorkingSemesterID, archived);
    // Only the Yes path writes the dialog's other changes.
    QCOMPARE(StoredSemesters().first().startsWith(u"Renamed"_s), archived);
}

void TestSemesterDlg::failedWriteChangesNothing()
{
    QVERIFY(
        CDataTable::GetMount()->Execute("CREATE TRIGGER RefuseMoves BEFORE UPDATE ON CourseOrder "
                                        "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    SemesterDlg dialog;
    MessageAnswers answers({QMessageBox::Yes});
    ArchiveWith({}, u"Spring 2026"_s);
    dialog.ArchiveSemester();
    dialog.RenameSemester(0, u"Renamed"_s);
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(answers.Texts().last(), MaintenanceStrings::SemestersNotSaved());
    QCOMPARE(StoredSemesters(), QStringList{u"Fall 2025@0"_s});
    QCOMPARE(SemesterOfCourses().value(m_math), WorkingSemesterID);
}

void TestSemesterDlg::keyboardReachesTheRowCommands()
{
    Records::Semester(u"Spring 2025"_s);
    SemesterDlg dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.List()->setFocus();
    dialog.SelectRow(0);

    // The Menu key opens the row menu on the selected row, a right click on
    // the row under the pointer.
    auto menuOf = [&dialog](QWidget* target, QContextMenuEvent::Reason reason, QPoint at) {
        QContextMenuEvent request(reason, at, target->mapToGlobal(at));
        QApplication::sendEvent(target, &request);
        auto* menu = dialog.findChild<QMenu*>(u"semesterMenu"_s);
        QStringList items;
        for (QAction* action : menu ? menu->actions() : QList<QAction*>{})
            items << action->text();
        delete menu;
        return items;
    };
    const QStringList commands{MaintenanceStrings::EditSemester(),
                               MaintenanceStrings::DeleteSemester()};
    QCOMPARE(menuOf(dialog.List(), QContextMenuEvent::Keyboard, QPoint(1, 1)), commands);
    QCOMPARE(dialog.SelectedRow(), 0);
    const QPoint second = dialog.List()->visualItemRect(dialog.List()->item(1)).center();
    QCOMPARE(menuOf(dialog.List()->viewport(), QContextMenuEvent::Mouse, second), commands);
    QCOMPARE(dialog.SelectedRow(), 1);
    dialog.SelectRow(0);

    // F2 renames through "Edit Semester", Delete removes the row.
    DialogRunner::SetHook([](QDialog& dialog) {
        auto* editor = qobject_cast<EditSemesterDlg*>(&dialog);
        if (!editor)
            return int(QDialog::Rejected);
        editor->NameField()->setText(u" Autumn 2025 "_s);
        editor->accept();
        return editor->result();
    });
    QTest::keyClick(dialog.List(), Qt::Key_F2);
    QTest::keyClick(dialog.List(), Qt::Key_Down);
    QTest::keyClick(dialog.List(), Qt::Key_Delete);
    QCOMPARE(RowNames(dialog), QStringList{u"Autumn 2025"_s});
    // Return is the dialog's OK.
    QTest::keyClick(dialog.List(), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(StoredSemesters(), QStringList{u"Autumn 2025@0"_s});
}

void TestSemesterDlg::semesterCommandRefreshesTheView()
{
    State().SetCurrentCourseID(m_art);
    CMainFrame frame;
    QAction* semester = frame.findChild<QAction*>(u"actionSemester"_s);
    QVERIFY(semester && semester->isEnabled());

    DialogRunner::SetHook([](QDialog& dialog) {
        auto* semesters = qobject_cast<SemesterDlg*>(&dialog);
        if (!semesters)
            return int(QDialog::Rejected);
        semesters->SelectRow(0);
        semesters->ViewOldSemester();
        return semesters->result();
    });
    semester->trigger();
    QCOMPARE(State().GetCurrentSemesterID(), m_fall);
    QCOMPARE(State().GetCurrentCourseID(), AllCoursesID);
    QVERIFY(!frame.View()->Banner()->isHidden());
    QCOMPARE(frame.View()->CourseSelector()->itemText(1), u"Latin"_s);
    QVERIFY(!frame.findChild<QAction*>(u"actionTogglePrediction"_s)->isEnabled());
    QCOMPARE(frame.menuBar()->actions().first()->menu()->objectName(), u"menuCourseNoCourse"_s);

    // The banner's exit goes back to the working semester.
    frame.OnBannerCommand();
    QCOMPARE(State().GetCurrentSemesterID(), WorkingSemesterID);
    QCOMPARE(frame.View()->CourseSelector()->count(), 4);
}

QTEST_MAIN(TestSemesterDlg)
#include "tst_semesterdlg.moc"
