// The maintenance dialogs: "Semester Information" and "Archive Semester" (the
// name suggestions, the archive, renames and deletes written on OK only and in
// one transaction, "View Old Semester"), "Course Order" and "Tab Order"
// (positions rewritten from 0 on OK only, the tabs' visibility), and the main
// view after their commands. A failed write leaves everything whole.
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "grading/PredictionStore.h"
#include "maintenance/ArchiveSemesterDlg.h"
#include "maintenance/CourseOrderDlg.h"
#include "maintenance/SemesterDlg.h"
#include "maintenance/TabOrderDlg.h"
#include "res/strings/MaintenanceStrings.h"
#include "store/Clock.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
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
void ArchiveWith(const QList<int>& unchecked, const QString& name)
{
    DialogRunner::SetHook([=](QDialog& dialog) {
        auto* archive = qobject_cast<ArchiveSemesterDlg*>(&dialog);
        if (!archive)
            return int(QDialog::Rejected);
        for (int row : unchecked)
            archive->SetChecked(row, false);
        archive->NameBox()->setEditText(name);
        archive->accept();
        return archive->result();
    });
}

// "course=position" of every course order record.
QStringList StoredPositions()
{
    QStringList positions;
    CCourseOrderTable orders;
    orders.Open();
    for (int ok = orders.MoveFirst(1); ok; ok = orders.MoveNext(1))
        positions << u"%1=%2"_s.arg(CCourseTable::GetCourseNameFromID(orders.GetCourseID()))
                         .arg(orders.GetCoursePosition());
    return positions;
}

// "text:order:visible" of every tab record, in tab order.
QStringList StoredTabs()
{
    QStringList tabs;
    CViewTabTable table;
    table.Open(2);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        tabs << u"%1:%2:%3"_s.arg(table.GetTabText())
                    .arg(table.GetTabOrder())
                    .arg(table.GetIsVisible());
    return tabs;
}

void SetPosition(quint32 courseId, quint16 position)
{
    CCourseOrderTable orders;
    orders.Open(1);
    const CCeDBProp key(courseId);
    orders.SetSeekValue(&key, CDataTable::SeekValueEqual);
    if (orders.MoveFirst(1)) {
        orders.SetCoursePosition(position);
        orders.UpdateRecord();
    }
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
    void archiveNameIsRequired();
    void okArchivesRenamesAndDeletes();
    void archiveWithoutSemester_data();
    void archiveWithoutSemester();
    void viewOldSemester_data();
    void viewOldSemester();
    void failedWriteChangesNothing();
    void semesterCommandRefreshesTheView();
    void moves_data();
    void moves();
    void hiddenTabKeepsItsPlace();
    void failedCourseOrderWriteChangesNothing();
    void orderCommandsShowTheNewOrder();

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
    // Sparse positions, in this order.
    SetPosition(m_math = Records::Course(u"Math"_s), 7);
    SetPosition(m_art = Records::Course(u"Art"_s), 9);
    SetPosition(m_chem = Records::Course(u"Chemistry"_s), 12);
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
    for (int month : {2, 3, 9, 10})
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

void TestSemesterDlg::archiveNameIsRequired()
{
    // Blanks are no name (okArchivesRenamesAndDeletes sees a padded one trimmed).
    ArchiveSemesterDlg dialog;
    dialog.NameBox()->setEditText(u"   "_s);
    MessageAnswers answers;
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(answers.Texts(), QStringList{MaintenanceStrings::SemesterNameRequired()});
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

    // The banner's exit goes back to the working semester.
    frame.OnBannerCommand();
    QCOMPARE(State().GetCurrentSemesterID(), WorkingSemesterID);
    QCOMPARE(frame.View()->CourseSelector()->count(), 4);
}

void TestSemesterDlg::moves_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<QString>("moves"); // U up, D down
    QTest::addColumn<QStringList>("stored");
    QTest::addColumn<int>("selectedAfter");
    QTest::newRow("up on the first row, down on the last")
        << 0 << u"UDDD"_s << QStringList{u"Math=2"_s, u"Art=0"_s, u"Chemistry=1"_s} << 2;
    QTest::newRow("no selection") << -1 << u"UD"_s
                                  << QStringList{u"Math=0"_s, u"Art=1"_s, u"Chemistry=2"_s} << -1;
    QTest::newRow("up from the last")
        << 2 << u"U"_s << QStringList{u"Math=0"_s, u"Art=2"_s, u"Chemistry=1"_s} << 1;
}

void TestSemesterDlg::moves()
{
    QFETCH(int, selected);
    QFETCH(QString, moves);
    QFETCH(QStringList, stored);
    QFETCH(int, selectedAfter);
    const QStringList before = StoredPositions();
    for (bool accept : {false, true}) {
        CourseOrderDlg dialog;
        QCOMPARE(dialog.List()->count(), 3);
        dialog.SelectRow(selected);
        for (QChar move : moves)
            (move == u'U' ? dialog.MoveUpButton() : dialog.MoveDownButton())->click();
        QCOMPARE(dialog.SelectedRow(), selectedAfter);
        accept ? dialog.accept() : dialog.reject();
        QCOMPARE(StoredPositions(), accept ? stored + QStringList{u"Latin=3"_s} : before);
    }
}

void TestSemesterDlg::hiddenTabKeepsItsPlace()
{
    const QStringList before = StoredTabs();
    for (bool accept : {false, true}) {
        TabOrderDlg dialog;
        dialog.SetVisible(1, false);
        dialog.SelectRow(1);
        dialog.MoveDown(); // the box moves with its row
        QCOMPARE(dialog.List()->item(2)->checkState(), Qt::Unchecked);
        accept ? dialog.accept() : dialog.reject();
        const QStringList written{u"Cw Type:0:1"_s, u"Course Week:1:1"_s, u"Past Due:2:0"_s,
                                  u"Due By:3:1"_s};
        QCOMPARE(StoredTabs(), accept ? written : before);
    }
}

void TestSemesterDlg::failedCourseOrderWriteChangesNothing()
{
    QVERIFY(CDataTable::GetMount()->Execute(
        "CREATE TRIGGER RefuseThird BEFORE UPDATE ON CourseOrder WHEN NEW.CoursePosition = 2 "
        "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    const QStringList before = StoredPositions();
    CourseOrderDlg dialog;
    MessageAnswers answers;
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(answers.Texts(), QStringList{MaintenanceStrings::CourseOrderNotSaved()});
    QCOMPARE(StoredPositions(), before);
}

void TestSemesterDlg::orderCommandsShowTheNewOrder()
{
    State().SetCurrentTabID(CViewTabTable::PastDueTab);
    CMainFrame frame;
    DialogRunner::SetHook([](QDialog& dialog) {
        auto* order = qobject_cast<OrderListDlg*>(&dialog);
        order->SelectRow(0);
        order->MoveDown();
        if (auto* tabs = qobject_cast<TabOrderDlg*>(order))
            tabs->SetVisible(0, false); // hides "Past Due", the current tab
        order->accept();
        return order->result();
    });
    for (const char* name : {"actionSortCourses", "actionTabOrder"}) {
        QAction* action = frame.findChild<QAction*>(QString::fromLatin1(name));
        QVERIFY(action && action->isEnabled());
        action->trigger();
    }
    DialogRunner::SetHook({});
    QComboBox* selector = frame.View()->CourseSelector();
    QCOMPARE(selector->itemText(1), u"Art"_s);
    QCOMPARE(selector->itemText(2), u"Math"_s);
    const QTabBar* tabs = frame.View()->TabBar();
    QCOMPARE(tabs->count(), 4);
    QCOMPARE(tabs->tabText(1), u"Cw Type"_s);
    QCOMPARE(tabs->tabText(2), u"Course Week"_s);
    // The hidden current tab gives way to "No Filter", stored at once.
    QCOMPARE(tabs->currentIndex(), 0);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetCurrentTabID(), CViewTabTable::NoFilter);
}

QTEST_MAIN(TestSemesterDlg)
#include "tst_semesterdlg.moc"
