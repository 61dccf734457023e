// The semester, archive, course order and tab order dialogs, and the main view
// after their commands.
// Fault tried, and caught: Course Order rewriting positions from 1 (courseOrder).
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "maintenance/ArchiveSemesterDlg.h"
#include "maintenance/CourseOrderDlg.h"
#include "maintenance/SemesterDlg.h"
#include "maintenance/TabOrderDlg.h"
#include "res/strings/MaintenanceStrings.h"
#include "store/Clock.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QAction>
#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>

using namespace Qt::StringLiterals;

namespace {

// The semester the course's order record points at.
quint32 SemesterOf(quint32 course)
{
    return Records::Rows("SELECT SemesterID FROM CourseOrder WHERE CourseID = " +
                         QByteArray::number(course))
        .value(0)
        .toUInt();
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

QStringList StoredPositions()
{
    return Records::Rows("SELECT CourseName, CoursePosition FROM CourseOrder "
                         "JOIN Course ON Course.id = CourseID ORDER BY CourseOrder.id");
}

// Archives the working semester from the dialog: the archive dialog's listed
// rows unchecked, the name typed in, OK.
void Archive(SemesterDlg& dialog, const QList<int>& unchecked = {},
             const QString& name = u"Spring 2026"_s)
{
    DialogRunner::SetHook([=](QDialog& box) {
        auto* archive = qobject_cast<ArchiveSemesterDlg*>(&box);
        if (!archive)
            return int(QDialog::Rejected);
        for (int row : unchecked)
            archive->SetChecked(row, false);
        archive->NameBox()->setEditText(name);
        archive->accept();
        return archive->result();
    });
    dialog.ArchiveSemester();
}

void Refuse(const char* sqlTrigger)
{
    QVERIFY(CDataTable::GetMount()->Execute(QByteArray("CREATE TRIGGER Refuse ") + sqlTrigger +
                                            " BEGIN SELECT RAISE(ABORT, 'refused'); END"));
}

} // namespace

class TestSemesterDlg : public DatabaseTest
{
    Q_OBJECT

    quint32 m_math = 0, m_art = 0, m_chem = 0, m_old = 0, m_fall = 0;

private slots:
    void init()
    {
        DatabaseTest::init();
        BrindleClock::SetNow(QDateTime(QDate(2026, 5, 20), QTime(14, 30)));
        m_fall = Records::Semester(u"Fall 2025"_s);
        m_math = Records::Course(u"Math"_s);
        m_art = Records::Course(u"Art"_s);
        m_chem = Records::Course(u"Chemistry"_s);
        m_old = Records::Course(u"Latin"_s, m_fall);
        // Sparse positions, in this order.
        QVERIFY(CDataTable::GetMount()->Execute(
            "UPDATE CourseOrder SET CoursePosition = 2 * CoursePosition + 7 WHERE SemesterID = 0"));
    }
    void cleanup()
    {
        BrindleClock::SetNow({});
        DatabaseTest::cleanup();
    }

    void archiveSuggestionsByMonth_data()
    {
        QTest::addColumn<int>("month");
        QTest::addColumn<QString>("preselected");
        // March to September: Spring of this year; every other month the first
        // suggestion, Fall of last year.
        const QStringList names{u"Fall 2025"_s, u"Spring 2026"_s};
        for (int month : {2, 3, 9, 10})
            QTest::addRow("month %d", month) << month << names[month >= 3 && month <= 9 ? 1 : 0];
    }

    void archiveSuggestionsByMonth()
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
        // The courses offered: closingWritesOrDrops, by what its archive takes.
        // Blanks are no name (closingWritesOrDrops sees a padded one trimmed).
        dialog.NameBox()->setEditText(u"   "_s);
        MessageAnswers answers;
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(answers.Texts(), QStringList{MaintenanceStrings::SemesterNameRequired()});
    }

    void closingWritesOrDrops_data()
    {
        QTest::addColumn<bool>("view");    // View Old Semester on the first row; else OK
        QTest::addColumn<bool>("pending"); // an archive waits to be written
        QTest::addColumn<int>("answer");   // to "archive before you go?"
        QTest::addColumn<bool>("refused"); // the write fails
        QTest::addColumn<bool>("written"); // the archive, the rename and the delete
        QTest::addColumn<int>("result");
        const int accepted = QDialog::Accepted, rejected = QDialog::Rejected;
        QTest::newRow("OK") << false << true << 0 << false << true << accepted;
        QTest::newRow("OK refused") << false << true << 0 << true << false << rejected;
        QTest::newRow("View, no archive pending")
            << true << false << 0 << false << false << accepted;
        QTest::newRow("View, Yes writes first")
            << true << true << int(QMessageBox::Yes) << false << true << accepted;
        QTest::newRow("View, No drops it")
            << true << true << int(QMessageBox::No) << false << false << accepted;
        QTest::newRow("View, Cancel stays")
            << true << true << int(QMessageBox::Cancel) << false << false << rejected;
    }

    void closingWritesOrDrops()
    {
        QFETCH(bool, view);
        QFETCH(bool, pending);
        QFETCH(int, answer);
        QFETCH(bool, refused);
        QFETCH(bool, written);
        QFETCH(int, result);
        const quint32 spring = Records::Semester(u"Spring 2025"_s);
        const quint32 gone = Records::Course(u"Greek"_s, spring);
        if (refused)
            Refuse("BEFORE UPDATE ON CourseOrder");
        const QStringList before = StoredSemesters();
        CPredictionStore::Instance().SetActive(true);
        SemesterDlg dialog;
        MessageAnswers answers({QMessageBox::Yes, QMessageBox::StandardButton(answer)});
        if (pending) {
            Archive(dialog, {1}, u" Spring 2026 "_s);
            QCOMPARE(answers.Texts(), QStringList{MaintenanceStrings::ConfirmArchive()});
            QVERIFY(dialog.IsArchivePending() && !dialog.ArchiveButton()->isEnabled());
        }
        dialog.RenameSemester(0, u"Autumn 2025"_s);
        dialog.DeleteSemester(1);
        QStringList rows;
        for (const SemesterDlg::SemesterRow& row : dialog.Rows())
            rows << row.name;
        QCOMPARE(rows, QStringList{u"Autumn 2025"_s} +
                           (pending ? QStringList{u"Spring 2026"_s} : QStringList()));
        QCOMPARE(StoredSemesters(), before); // nothing is written before the dialog closes

        if (view) {
            dialog.SelectRow(0);
            dialog.ViewOldSemester();
            // The semester stays chosen even when the user stays in the dialog.
            QCOMPARE(CAppStateTable::Instance().GetCurrentSemesterID(), m_fall);
            QCOMPARE(CPredictionStore::Instance().IsActive(), result != int(QDialog::Accepted));
        } else {
            dialog.accept();
        }
        QCOMPARE(dialog.result(), result);
        QCOMPARE(answers.Texts().contains(MaintenanceStrings::ArchiveBeforeExit()),
                 view && pending);
        QCOMPARE(answers.Texts().contains(MaintenanceStrings::SemestersNotSaved()), refused);
        if (!written) {
            QCOMPARE(StoredSemesters(), before);
            QCOMPARE(SemesterOf(m_math), WorkingSemesterID);
            return;
        }
        const double now = BrindleDate::FromDateTime(BrindleClock::Now());
        QCOMPARE(StoredSemesters(),
                 (QStringList{u"Autumn 2025@0"_s, u"Spring 2026@%1"_s.arg(now)}));
        const quint32 archive = Records::Rows("SELECT max(id) FROM Semester").value(0).toUInt();
        QCOMPARE(SemesterOf(m_math), archive);
        QCOMPARE(SemesterOf(m_chem), archive);
        QCOMPARE(SemesterOf(m_art), WorkingSemesterID);
        // The deleted semester's course came back; the course itself stays.
        QCOMPARE(SemesterOf(gone), WorkingSemesterID);
        QCOMPARE(CCourseTable::GetCourseNameFromID(gone), u"Greek"_s);
        QCOMPARE(SemesterOf(m_old), m_fall);
        QCOMPARE(dialog.ChosenCourseID(), AllCoursesID);
    }

    void courseOrder_data()
    {
        QTest::addColumn<int>("selected");
        QTest::addColumn<QString>("moves");      // U up, D down
        QTest::addColumn<QStringList>("stored"); // empty: the write is refused
        QTest::addColumn<int>("selectedAfter");
        QTest::newRow("up on the first row, down on the last")
            << 0 << u"UDDD"_s << QStringList{u"Math|2"_s, u"Art|0"_s, u"Chemistry|1"_s} << 2;
        QTest::newRow("no selection")
            << -1 << u"UD"_s << QStringList{u"Math|0"_s, u"Art|1"_s, u"Chemistry|2"_s} << -1;
        QTest::newRow("up from the last")
            << 2 << u"U"_s << QStringList{u"Math|0"_s, u"Art|2"_s, u"Chemistry|1"_s} << 1;
        QTest::newRow("third position refused") << 0 << u"D"_s << QStringList() << 1;
    }

    void courseOrder()
    {
        QFETCH(int, selected);
        QFETCH(QString, moves);
        QFETCH(QStringList, stored);
        QFETCH(int, selectedAfter);
        if (stored.isEmpty())
            Refuse("BEFORE UPDATE ON CourseOrder WHEN NEW.CoursePosition = 2");
        const QStringList before = StoredPositions();
        for (bool accept : {false, true}) {
            CourseOrderDlg dialog;
            MessageAnswers answers;
            QCOMPARE(dialog.List()->count(), 3);
            dialog.SelectRow(selected);
            for (QChar move : moves)
                (move == u'U' ? dialog.MoveUpButton() : dialog.MoveDownButton())->click();
            QCOMPARE(dialog.SelectedRow(), selectedAfter);
            accept ? dialog.accept() : dialog.reject();
            const bool written = accept && !stored.isEmpty();
            QCOMPARE(StoredPositions(), written ? stored + QStringList{u"Latin|3"_s} : before);
            QCOMPARE(dialog.result(), int(written ? QDialog::Accepted : QDialog::Rejected));
            QCOMPARE(answers.Texts(), accept && !written
                                          ? QStringList{MaintenanceStrings::CourseOrderNotSaved()}
                                          : QStringList());
        }
    }

    void commandsRefreshTheMainView()
    {
        CAppStateTable::Instance().SetCurrentCourseID(m_art);
        CAppStateTable::Instance().SetCurrentTabID(CViewTabTable::PastDueTab);
        CMainFrame frame;
        DialogRunner::SetHook([](QDialog& dialog) {
            if (auto* semesters = qobject_cast<SemesterDlg*>(&dialog)) {
                semesters->SelectRow(0);
                semesters->ViewOldSemester();
                return semesters->result();
            }
            // The first course moves down; "Past Due", the current tab, is
            // hidden, then moved down (its box moves with it).
            auto* order = qobject_cast<OrderListDlg*>(&dialog);
            auto* tabs = qobject_cast<TabOrderDlg*>(order);
            order->SelectRow(tabs ? 1 : 0);
            if (tabs)
                tabs->SetVisible(1, false);
            order->MoveDown();
            order->accept();
            return order->result();
        });
        auto trigger = [&frame](const char* name) {
            QAction* action = frame.findChild<QAction*>(QString::fromLatin1(name));
            QVERIFY(action && action->isEnabled());
            action->trigger();
        };
        trigger("actionSortCourses");
        trigger("actionTabOrder");
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
        QCOMPARE(CAppStateTable::Instance().GetCurrentTabID(), CViewTabTable::NoFilter);

        trigger("actionSemester");
        QCOMPARE(CAppStateTable::Instance().GetCurrentSemesterID(), m_fall);
        QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), AllCoursesID);
        QVERIFY(!frame.View()->Banner()->isHidden());
        QCOMPARE(selector->itemText(1), u"Latin"_s);
        QVERIFY(!frame.findChild<QAction*>(u"actionTogglePrediction"_s)->isEnabled());
        // The banner's exit goes back to the working semester.
        frame.OnBannerCommand();
        QCOMPARE(CAppStateTable::Instance().GetCurrentSemesterID(), WorkingSemesterID);
        QCOMPARE(selector->count(), 4);
    }
};

QTEST_MAIN(TestSemesterDlg)
#include "tst_semesterdlg.moc"
