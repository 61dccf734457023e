// The main frame: its two menu bars, the command-state rules and help.
// Checked against: two Tools items swapped.
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "controls/HelpViewer.h"
#include "grading/PredictionStore.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QTextBrowser>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QStringList MenuTexts(const QMenu* menu)
{
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts << (action->isSeparator() ? u"-"_s : action->text());
    return texts;
}

QStringList BarTitles(QMainWindow& frame)
{
    QStringList titles;
    // Without the mnemonic markers.
    for (const QAction* action : frame.menuBar()->actions())
        titles << action->text().remove(u'&');
    return titles;
}

QMenu* CourseMenu(QMainWindow& frame)
{
    return frame.menuBar()->actions().value(0)->menu();
}

QAction* Action(QMainWindow& frame, const char* name)
{
    return frame.findChild<QAction*>(QString::fromLatin1(name));
}

} // namespace

class TestMainFrame : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup()
    {
        CPredictionStore::Instance().SetActive(false);
        m_db.reset();
    }

    void menusAndTheCurrentCourse();
    void predictionCommandStates_data();
    void predictionCommandStates();
    void helpOpensTheMainContents();

private:
    std::unique_ptr<TestDatabase> m_db;
};

// The menu texts and their order as the user sees them; the Course menu
// grows by the course commands while a course is current.
void TestMainFrame::menusAndTheCurrentCourse()
{
    const quint32 course = Records::Course(u"Statistics"_s);
    CMainFrame frame;
    QCOMPARE(BarTitles(frame), QStringList({u"Course"_s, u"Tools"_s, u"Prediction"_s}));
    QCOMPARE(MenuTexts(CourseMenu(frame)), QStringList({u"New Course..."_s, u"Sort Courses..."_s}));
    const auto menus = frame.menuBar()->actions();
    QCOMPARE(MenuTexts(menus.at(1)->menu()),
             QStringList({u"About Brindle..."_s, u"Database..."_s, u"-"_s, u"Semester..."_s,
                          u"Tab Order..."_s, u"Buildings..."_s, u"All Instructors..."_s,
                          u"Institution..."_s, u"Report Card..."_s, u"-"_s, u"Grade Planner..."_s,
                          u"Today Companion..."_s, u"-"_s, u"Export Folders..."_s}));
    QCOMPARE(MenuTexts(menus.at(2)->menu()), QStringList({u"Options..."_s, u"Turn On"_s}));

    CAppStateTable::Instance().SetCurrentCourseID(course);
    QVERIFY(CAppStateTable::Instance().UpdateRecord());
    frame.RefreshMenuBar();
    QCOMPARE(
        MenuTexts(CourseMenu(frame)),
        QStringList({u"New Course..."_s, u"Sort Courses..."_s, u"Delete Course..."_s,
                     u"Progress Report..."_s, u"-"_s, u"Add Coursework..."_s, u"Edit Course..."_s,
                     u"Edit Instructors..."_s, u"Edit Grading Policy..."_s}));
    CAppStateTable::Instance().SetCurrentCourseID(AllCoursesID);
    frame.RefreshMenuBar();
    QCOMPARE(MenuTexts(CourseMenu(frame)), QStringList({u"New Course..."_s, u"Sort Courses..."_s}));
}

void TestMainFrame::predictionCommandStates_data()
{
    QTest::addColumn<bool>("archived");
    QTest::addColumn<bool>("predicting");
    QTest::addColumn<QString>("toggleText");
    QTest::newRow("working semester, off") << false << false << u"Turn On"_s;
    QTest::newRow("working semester, on") << false << true << u"Turn Off"_s;
    QTest::newRow("archived semester") << true << false << u"Turn On"_s;
}

void TestMainFrame::predictionCommandStates()
{
    QFETCH(bool, archived);
    QFETCH(bool, predicting);
    QFETCH(QString, toggleText);
    if (archived)
        CAppStateTable::Instance().SetCurrentSemesterID(Records::Semester(u"Fall 2025"_s));
    CPredictionStore::Instance().SetActive(predicting);

    CMainFrame frame;
    frame.UpdateCommandStates();
    QAction* toggle = Action(frame, "actionTogglePrediction");
    QAction* options = Action(frame, "actionPredictionOptions");
    QVERIFY(toggle && options);
    QCOMPARE(toggle->text(), toggleText);
    QCOMPARE(toggle->isEnabled(), !archived);
    if (archived)
        QVERIFY(!options->isEnabled());
    // The other commands do not depend on the semester.
    QVERIFY(Action(frame, "actionAbout")->isEnabled());
    if (archived)
        return;

    // The toggle switches the mode; turning it off forgets the scores to give.
    CPredictionStore::Instance().SetScoreToGive(7, 0.8);
    toggle->trigger();
    QCOMPARE(CPredictionStore::Instance().IsActive(), !predicting);
    QCOMPARE(toggle->text(), predicting ? u"Turn On"_s : u"Turn Off"_s);
    QCOMPARE(CPredictionStore::Instance().ScoreToGive(7).has_value(), !predicting);
}

void TestMainFrame::helpOpensTheMainContents()
{
    CMainFrame frame;
    QAction* help = Action(frame, "actionHelp");
    QVERIFY(help && help->isEnabled());
    help->trigger();
    auto* viewer = frame.findChild<CHelpViewer*>();
    QVERIFY(viewer);
    QCOMPARE(viewer->CurrentTopic(), u"main_contents"_s);
    QVERIFY(viewer->Browser()->toPlainText().contains(u"The main window"_s));
    QCOMPARE(viewer->Browser()->source().fragment(), u"main_contents"_s);
}

QTEST_MAIN(TestMainFrame)
#include "tst_mainframe.moc"
