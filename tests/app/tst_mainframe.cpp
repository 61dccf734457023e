// The main frame: its menu bar, the command-state rules and help, and the
// grade bar after each command that changes it: new coursework in prediction
// mode, predicted grades after the prediction options (grade names after
// Institution: tst_reports); the Today companion's start at log-in.
// Checked against: two Tools items swapped; RecomputeCourseGrade not writing
// the grade.
#include "BrindleData.h"
#include "app/CourseworkListModel.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "app/TodayAutostart.h"
#include "app/TodayCompanionDlg.h"
#include "controls/HelpViewer.h"
#include "controls/NumericEdit.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "store/Clock.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

QAction* Action(CMainFrame& frame, const char* name)
{
    return frame.findChild<QAction*>(QString::fromLatin1(name));
}

void Trigger(CMainFrame& frame, const char* name)
{
    QAction* action = Action(frame, name);
    QVERIFY(action);
    frame.UpdateCommandStates();
    QVERIFY(action->isEnabled());
    action->trigger();
}

} // namespace

class TestMainFrame : public DatabaseTest
{
    Q_OBJECT

    quint32 m_course = 0;

private slots:
    // Biology, current, stored at 85 % and graded by points on the scale A to
    // D (90, 80, 70, 60); its one item, Lab 1, is ungraded out of 10.
    void init()
    {
        DatabaseTest::init();
        BrindleClock::SetNow(QDateTime(QDate(2024, 9, 7), QTime(10, 0)));
        m_course = Records::Course(u"Biology"_s, 0, 0.85);
        Records::Policy(m_course, CGradingPolicyTable::WeightNone);
        for (quint16 grade = 0; grade < 4; ++grade)
            Records::MinimumPercent(m_course, grade, 90.0 - 10.0 * grade);
        Records::Coursework(m_course, Records::CwType(m_course, u"Labs"_s, 0.0, 0, 0), u"Lab 1"_s,
                            -1.0, 10.0);
        CAppStateTable::Instance().SetCurrentCourseID(m_course);
        QVERIFY(CAppStateTable::Instance().UpdateRecord());
    }
    void cleanup()
    {
        DatabaseTest::cleanup();
        BrindleClock::SetNow({});
    }

    // The menu texts and their order as the user sees them, a course being
    // current (tst_coursecommands has the Course menu without one).
    void menusAndHelp()
    {
        CMainFrame frame;
        QStringList texts;
        for (QAction* title : frame.menuBar()->actions()) {
            texts << title->text() + u":"_s;
            for (const QAction* action : title->menu()->actions())
                texts << (action->isSeparator() ? u"-"_s : action->text());
        }
        QCOMPARE(texts.join(u", "_s),
                 u"&Course:, New Course..., Sort Courses..., Delete Course..., Progress Report..., "
                 u"-, Add Coursework..., Edit Course..., Edit Instructors..., "
                 u"Edit Grading Policy..., &Tools:, About Brindle..., Database..., -, Semester..., "
                 u"Tab Order..., Buildings..., All Instructors..., Institution..., Report Card..., "
                 u"-, Grade Planner..., Today Companion..., -, Export Folders..., &Prediction:, "
                 u"Options..., Turn On"_s);

        // Help opens on the main window's contents.
        Trigger(frame, "actionHelp");
        auto* viewer = frame.findChild<CHelpViewer*>();
        QVERIFY(viewer);
        QCOMPARE(viewer->CurrentTopic(), u"main_contents"_s);
        QVERIFY(viewer->Browser()->toPlainText().contains(u"The main window"_s));
        QCOMPARE(viewer->Browser()->source().fragment(), u"main_contents"_s);
    }

    void predictionCommandStates_data()
    {
        QTest::addColumn<bool>("archived");
        QTest::addColumn<bool>("predicting");
        QTest::addColumn<QString>("toggleText");
        QTest::newRow("working semester, off") << false << false << u"Turn On"_s;
        QTest::newRow("working semester, on") << false << true << u"Turn Off"_s;
        QTest::newRow("archived semester") << true << false << u"Turn On"_s;
    }
    void predictionCommandStates()
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
        QVERIFY(toggle);
        QCOMPARE(toggle->text(), toggleText);
        QCOMPARE(toggle->isEnabled(), !archived);
        QVERIFY(!archived || !Action(frame, "actionPredictionOptions")->isEnabled());
        if (archived)
            return;
        // The toggle switches the mode; turning it off forgets the scores to give.
        CPredictionStore::Instance().SetScoreToGive(7, 0.8);
        toggle->trigger();
        QCOMPARE(CPredictionStore::Instance().IsActive(), !predicting);
        QCOMPARE(toggle->text(), predicting ? u"Turn On"_s : u"Turn Off"_s);
        QCOMPARE(CPredictionStore::Instance().ScoreToGive(7).has_value(), !predicting);
    }

    void commandRefreshesTheGrade_data()
    {
        QTest::addColumn<QByteArray>("action");
        QTest::addColumn<bool>("predicting");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("rowsAdded");
        // 5 of 10, stored or predicted: below every minimum, so no grade name.
        QTest::newRow("Add Coursework, prediction off")
            << QByteArray("actionAddCoursework") << false << u"Grade: 50%"_s << 1;
        QTest::newRow("Add Coursework, prediction on")
            << QByteArray("actionAddCoursework") << true << u"Grade: 50%"_s << 1;
        // Lab 1 counts as 9.5 of 10 in the list and in the grade alike.
        QTest::newRow("prediction options")
            << QByteArray("actionPredictionOptions") << true << u"Grade: 95% A"_s << 0;
    }
    void commandRefreshesTheGrade()
    {
        QFETCH(QByteArray, action);
        QFETCH(bool, predicting);
        QFETCH(QString, after);
        QFETCH(int, rowsAdded);
        CPredictionStore::Instance().SetActive(predicting);
        CMainFrame frame;
        QCOMPARE(frame.View()->GradeBar()->text(), u"Grade: 85% B"_s);
        const int rowsBefore = frame.View()->ListModel()->rowCount();
        int noteShown = -1; // the coursework editor's word that scores are not saved
        DialogRunner::SetHook([&noteShown](QDialog& dialog) {
            if (auto* coursework = qobject_cast<CourseworkDlg*>(&dialog)) {
                auto* note = dialog.findChild<QLabel*>(u"predictionNote"_s);
                noteShown = note && note->isVisibleTo(&dialog) && !note->text().isEmpty();
                coursework->InfoPage()->NameEdit()->setText(u"Quiz"_s);
                QTest::keyClicks(coursework->InfoPage()->ScoreEdit(), u"5"_s);
                QTest::keyClicks(coursework->InfoPage()->OutOfEdit(), u"10"_s);
            } else if (auto* options = qobject_cast<GradePredictionDlg*>(&dialog)) {
                options->SetPercent(0, 95.0);
            } else {
                return int(QDialog::Rejected);
            }
            dialog.accept();
            return dialog.result();
        });
        Trigger(frame, action.constData());
        QCOMPARE(frame.View()->GradeBar()->text(), after);
        QCOMPARE(frame.View()->ListModel()->rowCount(), rowsBefore + rowsAdded);
        if (action == "actionAddCoursework")
            QCOMPARE(noteShown, int(predicting));
        if (predicting) {
            // Nothing of a prediction reached the database.
            CCourseTable course;
            QVERIFY(course.Open() && course.MoveToRecord(m_course));
            QCOMPARE(course.GetCurrentGrade(), 0.85);
        }
    }

    void deleteKeyClearsAPercentToGive()
    {
        GradePredictionDlg dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        dialog.SetPercent(0, 80.0);
        auto* list = dialog.findChild<QTreeWidget*>();
        QVERIFY(list);
        list->setFocus();
        list->setCurrentItem(list->topLevelItem(0));
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(dialog.Courses().front().types.front().percent, GradePredictionDlg::NoPercent);
    }

    // "Start the Today companion at log-in": the entry copied into the user's
    // autostart folder and removed again, and a missing entry refused.
    void startAtLogin()
    {
        QTemporaryDir config;
        qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
        QFile installed(TodayAutostart::InstalledEntry());
        QVERIFY2(installed.open(QIODevice::ReadOnly), qPrintable(installed.fileName()));
        const QByteArray entry = installed.readAll();

        TodayCompanionDlg on;
        QVERIFY(!on.StartAtLogin());
        on.findChild<QCheckBox*>(u"startAtLoginBox"_s)->click();
        QVERIFY(on.OnOK());
        QFile copy(TodayAutostart::UserEntry());
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), entry);
        QVERIFY(copy.fileName().startsWith(config.path()));

        TodayCompanionDlg off;
        QVERIFY(off.StartAtLogin());
        off.SetStartAtLogin(false);
        QVERIFY(off.OnOK());
        QVERIFY(!QFile::exists(TodayAutostart::UserEntry()));

        // An installation without the entry: refused, with its name.
        QTemporaryDir emptyInstall;
        const QByteArray saved = qgetenv("BRINDLE_INSTALL_DIR");
        qputenv("BRINDLE_INSTALL_DIR", emptyInstall.path().toUtf8());
        MessageAnswers answers;
        TodayCompanionDlg dialog;
        dialog.SetStartAtLogin(true);
        const bool ok = dialog.OnOK();
        qputenv("BRINDLE_INSTALL_DIR", saved);
        QVERIFY(!ok);
        QCOMPARE(answers.Texts().size(), 1);
        QVERIFY(answers.Texts().front().contains(u"brindle-today.desktop"_s));
        QVERIFY(!QFile::exists(TodayAutostart::UserEntry()));
    }
};

QTEST_MAIN(TestMainFrame)
#include "tst_mainframe.moc"
