// "Course Order" and "Tab Order": moving rows, positions rewritten from 0 on
// OK only, the tabs' visibility, and the main view after the commands.
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "maintenance/ArchiveSemesterDlg.h"
#include "maintenance/CourseOrderDlg.h"
#include "maintenance/SemesterDlg.h"
#include "maintenance/TabOrderDlg.h"
#include "res/strings/MaintenanceStrings.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
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

// "course=position" of the working semester's courses, by course id.
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

QStringList ListTexts(const QListWidget* list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->item(i)->text();
    return texts;
}

QStringList TabTexts(const QTabBar* tabs)
{
    QStringList texts;
    for (int i = 0; i < tabs->count(); ++i)
        texts << tabs->tabText(i);
    return texts;
}

// Sets a course's stored position (to start from a sparse order).
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

class TestOrderDlgs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void moves_data();
    void moves();
    void courseOrderOkRewritesDensely();
    void hiddenTabKeepsItsPlace_data();
    void hiddenTabKeepsItsPlace();
    void keyboardAlone();
    void failedWriteChangesNothing();
    void commandsShowTheNewOrder();
    void helpOpensEachSection_data();
    void helpOpensEachSection();

private:
    std::unique_ptr<TestDatabase> m_db;
    quint32 m_math = 0, m_art = 0, m_chem = 0;
};

void TestOrderDlgs::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    m_math = Records::Course(u"Math"_s);
    m_art = Records::Course(u"Art"_s);
    m_chem = Records::Course(u"Chemistry"_s);
    // A course of another semester is never listed.
    Records::Course(u"Latin"_s, Records::Semester(u"Fall 2025"_s));
}

void TestOrderDlgs::cleanup()
{
    DialogRunner::SetHook({});
    m_db.reset();
}

void TestOrderDlgs::moves_data()
{
    QTest::addColumn<int>("selected");
    QTest::addColumn<QString>("moves"); // U up, D down
    QTest::addColumn<QStringList>("order");
    QTest::addColumn<int>("selectedAfter");
    QTest::newRow("up on the first row")
        << 0 << u"U"_s << QStringList{u"Math"_s, u"Art"_s, u"Chemistry"_s} << 0;
    QTest::newRow("down on the last row")
        << 2 << u"D"_s << QStringList{u"Math"_s, u"Art"_s, u"Chemistry"_s} << 2;
    QTest::newRow("no selection") << -1 << u"UD"_s
                                  << QStringList{u"Math"_s, u"Art"_s, u"Chemistry"_s} << -1;
    QTest::newRow("down twice") << 0 << u"DD"_s << QStringList{u"Art"_s, u"Chemistry"_s, u"Math"_s}
                                << 2;
    QTest::newRow("up from the middle")
        << 1 << u"U"_s << QStringList{u"Art"_s, u"Math"_s, u"Chemistry"_s} << 0;
}

void TestOrderDlgs::moves()
{
    QFETCH(int, selected);
    QFETCH(QString, moves);
    QFETCH(QStringList, order);
    QFETCH(int, selectedAfter);
    const QStringList stored = StoredPositions();
    CourseOrderDlg dialog;
    QCOMPARE(ListTexts(dialog.List()), (QStringList{u"Math"_s, u"Art"_s, u"Chemistry"_s}));
    dialog.SelectRow(selected);
    for (QChar move : moves)
        (move == u'U' ? dialog.MoveUpButton() : dialog.MoveDownButton())->click();
    QCOMPARE(ListTexts(dialog.List()), order);
    QCOMPARE(dialog.SelectedRow(), selectedAfter);
    QStringList rows;
    for (const auto& row : dialog.Rows())
        rows << CCourseTable::GetCourseNameFromID(row.id);
    QCOMPARE(rows, order);
    dialog.reject();
    QCOMPARE(StoredPositions(), stored);
}

void TestOrderDlgs::courseOrderOkRewritesDensely()
{
    SetPosition(m_math, 7);
    SetPosition(m_art, 9);
    SetPosition(m_chem, 12);
    CourseOrderDlg dialog;
    dialog.SelectRow(2);
    dialog.MoveUp();
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(StoredPositions(),
             (QStringList{u"Math=0"_s, u"Art=2"_s, u"Chemistry=1"_s, u"Latin=3"_s}));
}

void TestOrderDlgs::hiddenTabKeepsItsPlace_data()
{
    QTest::addColumn<bool>("accept");
    QTest::newRow("OK") << true;
    QTest::newRow("Cancel writes nothing") << false;
}

void TestOrderDlgs::hiddenTabKeepsItsPlace()
{
    QFETCH(bool, accept);
    const QStringList before = StoredTabs();
    TabOrderDlg dialog;
    QCOMPARE(ListTexts(dialog.List()),
             (QStringList{u"Cw Type"_s, u"Past Due"_s, u"Course Week"_s, u"Due By"_s}));
    dialog.SetVisible(1, false);
    // The box moves with its row.
    dialog.SelectRow(1);
    dialog.MoveDown();
    QCOMPARE(dialog.List()->item(2)->checkState(), Qt::Unchecked);
    QVERIFY(!dialog.Rows()[2].visible && dialog.Rows()[1].visible);
    accept ? dialog.accept() : dialog.reject();
    const QStringList written{u"Cw Type:0:1"_s, u"Course Week:1:1"_s, u"Past Due:2:0"_s,
                              u"Due By:3:1"_s};
    QCOMPARE(StoredTabs(), accept ? written : before);
}

void TestOrderDlgs::keyboardAlone()
{
    TabOrderDlg dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QApplication::setActiveWindow(&dialog);
    dialog.List()->setFocus();
    QCOMPARE(dialog.SelectedRow(), 0);
    // Space clears the box, Ctrl+Down moves the row, Tab reaches Move Up.
    QTest::keyClick(dialog.List(), Qt::Key_Space);
    QTest::keyClick(dialog.List(), Qt::Key_Down, Qt::ControlModifier);
    QTRY_COMPARE(dialog.SelectedRow(), 1);
    QTest::keyClick(dialog.List(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), dialog.MoveUpButton());
    QTest::keyClick(dialog.MoveUpButton(), Qt::Key_Space);
    QTest::keyClick(dialog.MoveUpButton(), Qt::Key_Space);
    QCOMPARE(dialog.SelectedRow(), 0);
    QTest::keyClick(dialog.MoveUpButton(), Qt::Key_Down, Qt::ControlModifier);
    QTest::keyClick(dialog.List(), Qt::Key_Return);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(StoredTabs().first(2), (QStringList{u"Past Due:0:1"_s, u"Cw Type:1:0"_s}));
}

void TestOrderDlgs::failedWriteChangesNothing()
{
    QVERIFY(CDataTable::GetMount()->Execute(
        "CREATE TRIGGER RefuseThird BEFORE UPDATE ON CourseOrder WHEN NEW.CoursePosition = 2 "
        "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    SetPosition(m_chem, 5);
    const QStringList before = StoredPositions();
    CourseOrderDlg dialog;
    MessageAnswers answers;
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(answers.Texts(), QStringList{MaintenanceStrings::CourseOrderNotSaved()});
    QCOMPARE(StoredPositions(), before);
}

void TestOrderDlgs::commandsShowTheNewOrder()
{
    State().SetCurrentTabID(CViewTabTable::PastDueTab);
    CMainFrame frame;
    DialogRunner::SetHook([](QDialog& dialog) {
        auto* order = qobject_cast<OrderListDlg*>(&dialog);
        if (!order)
            return int(QDialog::Rejected);
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
    QComboBox* selector = frame.View()->CourseSelector();
    QCOMPARE(selector->itemText(1), u"Art"_s);
    QCOMPARE(selector->itemText(2), u"Math"_s);
    QCOMPARE(TabTexts(frame.View()->TabBar()),
             (QStringList{u"No Filter"_s, u"Cw Type"_s, u"Course Week"_s, u"Due By"_s}));
    // The hidden current tab gives way to "No Filter", stored at once.
    QCOMPARE(frame.View()->TabBar()->currentIndex(), 0);
    QCOMPARE(State().GetCurrentTabID(), CViewTabTable::NoFilter);
    QVERIFY(m_db->Reopen());
    QCOMPARE(State().GetCurrentTabID(), CViewTabTable::NoFilter);
}

void TestOrderDlgs::helpOpensEachSection_data()
{
    QTest::addColumn<QString>("topic");
    QTest::addColumn<bool>("byKey");
    for (const char* name :
         {"SemesterDlg", "ArchiveSemesterDlg", "CourseOrderDlg", "TabOrderDlg"}) {
        QTest::addRow("%s button", name) << QString::fromLatin1(name) << false;
        QTest::addRow("%s F1", name) << QString::fromLatin1(name) << true;
    }
}

void TestOrderDlgs::helpOpensEachSection()
{
    QFETCH(QString, topic);
    QFETCH(bool, byKey);
    std::unique_ptr<QDialog> dialog;
    if (topic == u"SemesterDlg"_s)
        dialog = std::make_unique<SemesterDlg>();
    else if (topic == u"ArchiveSemesterDlg"_s)
        dialog = std::make_unique<ArchiveSemesterDlg>();
    else if (topic == u"CourseOrderDlg"_s)
        dialog = std::make_unique<CourseOrderDlg>();
    else
        dialog = std::make_unique<TabOrderDlg>();
    QCOMPARE(dialog->objectName(), topic);
    if (byKey) {
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        QApplication::setActiveWindow(dialog.get());
        QTest::keyClick(dialog.get(), Qt::Key_F1);
    } else {
        auto* buttons = dialog->findChild<QDialogButtonBox*>(u"buttons"_s);
        QVERIFY(buttons && buttons->button(QDialogButtonBox::Help));
        buttons->button(QDialogButtonBox::Help)->click();
    }
    auto* viewer = dialog->findChild<CHelpViewer*>();
    QVERIFY(viewer);
    QCOMPARE(viewer->CurrentTopic(), topic);
    viewer->close();

    QFile help(GetInstallationPath() + u"/Brindle.htm"_s);
    QVERIFY(help.open(QIODevice::ReadOnly));
    QVERIFY(QString::fromUtf8(help.readAll()).contains(u"<a name=\"%1\"></a>"_s.arg(topic)));
}

QTEST_MAIN(TestOrderDlgs)
#include "tst_orderdlgs.moc"
