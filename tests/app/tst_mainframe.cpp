// The main frame: its two menu bars, the command-state rules and help.
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "grading/PredictionStore.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QLabel>
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

    void menuBarFollowsTheCurrentCourse();
    void toolsAndPredictionMenus();
    void predictionCommandStates_data();
    void predictionCommandStates();
    void toggleSwitchesPredictionMode();
    void helpOpensTheMainContents();
    void aboutBoxNamesTheProgram();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void TestMainFrame::menuBarFollowsTheCurrentCourse()
{
    const quint32 course = Records::Course(u"Statistics"_s);
    CMainFrame frame;
    QCOMPARE(BarTitles(frame), QStringList({u"Course"_s, u"Tools"_s, u"Prediction"_s}));
    QCOMPARE(MenuTexts(CourseMenu(frame)), QStringList({u"New Course..."_s, u"Sort Courses..."_s}));

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
    QVERIFY(!MenuTexts(CourseMenu(frame)).contains(u"Delete Course..."_s));
}

void TestMainFrame::toolsAndPredictionMenus()
{
    CMainFrame frame;
    const auto menus = frame.menuBar()->actions();
    QCOMPARE(MenuTexts(menus.at(1)->menu()),
             QStringList({u"About Brindle..."_s, u"Database..."_s, u"-"_s, u"Semester..."_s,
                          u"Tab Order..."_s, u"Buildings..."_s, u"All Instructors..."_s,
                          u"Institution..."_s, u"Report Card..."_s, u"-"_s,
                          u"Grade Planner..."_s, u"Today Companion..."_s, u"-"_s,
                          u"Export Folders..."_s}));
    QCOMPARE(MenuTexts(menus.at(2)->menu()), QStringList({u"Options..."_s, u"Turn On"_s}));
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
}

void TestMainFrame::toggleSwitchesPredictionMode()
{
    CMainFrame frame;
    QAction* toggle = Action(frame, "actionTogglePrediction");
    QVERIFY(toggle->isEnabled());
    CPredictionStore::Instance().SetScoreToGive(7, 0.8);

    toggle->trigger();
    QVERIFY(CPredictionStore::Instance().IsActive());
    QCOMPARE(toggle->text(), u"Turn Off"_s);
    QVERIFY(CPredictionStore::Instance().ScoreToGive(7).has_value());

    toggle->trigger();
    QVERIFY(!CPredictionStore::Instance().IsActive());
    QCOMPARE(toggle->text(), u"Turn On"_s);
    QVERIFY(!CPredictionStore::Instance().ScoreToGive(7).has_value());
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

void TestMainFrame::aboutBoxNamesTheProgram()
{
    CMainFrame frame;
    QString shown;
    DialogRunner::SetHook([&](QDialog& dialog) {
        shown =
            dialog.objectName() + u" "_s + dialog.findChild<QLabel*>(u"qt_msgbox_label"_s)->text();
        return int(QDialog::Accepted);
    });
    Action(frame, "actionAbout")->trigger();
    DialogRunner::SetHook({});
    QVERIFY2(shown.startsWith(u"AboutBox "_s), qPrintable(shown));
    QVERIFY(shown.contains(u"Brindle"_s));
}

QTEST_MAIN(TestMainFrame)
#include "tst_mainframe.moc"
