// The main window after each command shows what the command changed: grade
// names after Institution, new coursework in prediction mode, predicted grades
// after the prediction options; a fresh database lists done work; a press on a
// predicted score shows only its note; Delete on a row asks first; the menus
// open with Alt and their first letter.
#include "BrindleData.h"
#include "app/CourseworkListModel.h"
#include "app/CourseworkListView.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "controls/NumericEdit.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "store/Clock.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QTreeWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

CAppStateTable& State()
{
    return CAppStateTable::Instance();
}

void Trigger(CMainFrame& frame, const char* name)
{
    auto* action = frame.findChild<QAction*>(QString::fromLatin1(name));
    QVERIFY(action);
    frame.UpdateCommandStates();
    QVERIFY(action->isEnabled());
    action->trigger();
}

// A main view showing the fixture's course.
std::unique_ptr<CMainView> CourseView()
{
    auto view = std::make_unique<CMainView>();
    view->RebuildTabs();
    view->RebuildCourseSelector();
    view->RefreshList();
    return view;
}

QString GradeBar(CMainFrame& frame)
{
    return frame.View()->GradeBar()->text();
}

} // namespace

class TestViewRefresh : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void commandRefreshesTheGrade_data();
    void commandRefreshesTheGrade();
    void courseworkEditorSaysScoresAreNotSaved_data();
    void courseworkEditorSaysScoresAreNotSaved();
    void freshDatabaseListsDoneWork();
    void pressOnPredictedScoreShowsOnlyTheNote_data();
    void pressOnPredictedScoreShowsOnlyTheNote();
    void deleteKeyAsksFirst_data();
    void deleteKeyAsksFirst();
    void menusHaveMnemonics();
    void deleteKeyClearsAPercentToGive();

private:
    std::unique_ptr<TestDatabase> m_db;
    quint32 m_course = 0;
    quint32 m_type = 0;
    quint32 m_item = 0;
};

void TestViewRefresh::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    BrindleClock::SetNow(QDateTime(QDate(2024, 9, 7), QTime(10, 0)));
    m_course = Records::Course(u"Biology"_s, 0, 0.85);
    Records::Policy(m_course, CGradingPolicyTable::WeightNone);
    for (quint16 grade = 0; grade < 4; ++grade)
        Records::MinimumPercent(m_course, grade, 90.0 - 10.0 * grade);
    m_type = Records::CwType(m_course, u"Labs"_s, 0.0, 0, 0);
    // Ungraded, out of 10: a score to give makes it count.
    m_item = Records::Coursework(m_course, m_type, u"Lab 1"_s, -1.0, 10.0);
    State().SetCurrentCourseID(m_course);
    QVERIFY(State().UpdateRecord());
}

void TestViewRefresh::cleanup()
{
    DialogRunner::SetHook({});
    CPredictionStore::Instance().SetActive(false);
    BrindleClock::SetNow({});
    m_db.reset();
}

void TestViewRefresh::commandRefreshesTheGrade_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<bool>("predicting");
    QTest::addColumn<QString>("after");
    QTest::addColumn<int>("rowsAdded");

    QTest::newRow("Institution renames the grade")
        << QByteArray("actionInstitution") << false << u"Grade: 85% Good"_s << 0;
    // 5 of 10, stored or predicted: below every minimum, so no grade name.
    QTest::newRow("Add Coursework, prediction off")
        << QByteArray("actionAddCoursework") << false << u"Grade: 50%"_s << 1;
    QTest::newRow("Add Coursework, prediction on")
        << QByteArray("actionAddCoursework") << true << u"Grade: 50%"_s << 1;
    // Lab 1 counts as 9.5 of 10 in the list and in the grade alike.
    QTest::newRow("prediction options")
        << QByteArray("actionPredictionOptions") << true << u"Grade: 95% A"_s << 0;
}

void TestViewRefresh::commandRefreshesTheGrade()
{
    QFETCH(QByteArray, action);
    QFETCH(bool, predicting);
    QFETCH(QString, after);
    QFETCH(int, rowsAdded);
    CPredictionStore::Instance().SetActive(predicting);
    CMainFrame frame;
    QCOMPARE(GradeBar(frame), u"Grade: 85% B"_s);
    const int rowsBefore = frame.View()->ListModel()->rowCount();
    DialogRunner::SetHook([](QDialog& dialog) {
        if (auto* coursework = qobject_cast<CourseworkDlg*>(&dialog)) {
            coursework->InfoPage()->NameEdit()->setText(u"Quiz"_s);
            QTest::keyClicks(coursework->InfoPage()->ScoreEdit(), u"5"_s);
            QTest::keyClicks(coursework->InfoPage()->OutOfEdit(), u"10"_s);
        } else if (auto* options = qobject_cast<GradePredictionDlg*>(&dialog)) {
            options->SetPercent(0, 95.0);
        } else {
            // What the Institution dialog's OK does to a grade name, done directly.
            CGradeScaleTable scale;
            scale.Open();
            for (int ok = scale.MoveFirst(1); ok; ok = scale.MoveNext(1)) {
                if (scale.GetGrade() == 1) {
                    scale.SetGradeName(u"Good"_s);
                    scale.UpdateRecord();
                }
            }
            return int(QDialog::Accepted);
        }
        dialog.accept();
        return dialog.result();
    });
    Trigger(frame, action.constData());
    QCOMPARE(GradeBar(frame), after);
    QCOMPARE(frame.View()->ListModel()->rowCount(), rowsBefore + rowsAdded);
    if (predicting) {
        // Nothing of a prediction reached the database.
        CCourseTable course;
        QVERIFY(course.Open() && course.MoveToRecord(m_course));
        QCOMPARE(course.GetCurrentGrade(), 0.85);
    }
}

void TestViewRefresh::courseworkEditorSaysScoresAreNotSaved_data()
{
    QTest::addColumn<bool>("predicting");
    QTest::newRow("prediction off") << false;
    QTest::newRow("prediction on") << true;
}

void TestViewRefresh::courseworkEditorSaysScoresAreNotSaved()
{
    QFETCH(bool, predicting);
    CPredictionStore::Instance().SetActive(predicting);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(m_item);
    QVERIFY(dialog.OnInitDialog());
    auto* note = dialog.findChild<QLabel*>(u"predictionNote"_s);
    QVERIFY(note);
    QCOMPARE(note->isVisibleTo(&dialog), predicting);
    QVERIFY(!note->text().isEmpty());
}

void TestViewRefresh::freshDatabaseListsDoneWork()
{
    // The fixture's database is new: a scored item (done) stays in view.
    Records::Coursework(m_course, m_type, u"Scored"_s, 9.0, 10.0, 0.0, 100);
    const auto view = CourseView();
    QVERIFY(view->ShowDoneBox()->isChecked());
    QCOMPARE(view->ListModel()->rowCount(), 2);
}

void TestViewRefresh::pressOnPredictedScoreShowsOnlyTheNote_data()
{
    QTest::addColumn<bool>("onScore");
    QTest::addColumn<bool>("menu");
    QTest::newRow("held on the predicted score") << true << false;
    QTest::newRow("held on the name") << false << true;
}

void TestViewRefresh::pressOnPredictedScoreShowsOnlyTheNote()
{
    QFETCH(bool, onScore);
    QFETCH(bool, menu);
    CPredictionStore::Instance().SetActive(true);
    CPredictionStore::Instance().SetOverride(m_item,
                                             EffectiveScore{7, 10, EffectiveScore::Overridden});
    const auto view = CourseView();
    view->resize(view->fontMetrics().height() * 40, view->fontMetrics().height() * 30);
    view->show();
    QVERIFY(QTest::qWaitForWindowExposed(view.get()));

    auto* list = qobject_cast<CCourseworkListView*>(view->List());
    QVERIFY(list);
    const QRect row = list->visualRect(view->ListModel()->index(0));
    const int zone = list->PredictionZoneWidth();
    const QPoint point(onScore ? row.right() - zone / 2 : row.left() + 5, row.center().y());
    MessageAnswers answers;
    // The box takes the release; the held press then finishes as a hold.
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, point);
    QMenu* opened = list->OnPressAndHold(point);
    QCOMPARE(opened != nullptr, menu);
    QCOMPARE(answers.Texts().size(), onScore ? 1 : 0);
    if (opened)
        opened->close();
}

void TestViewRefresh::deleteKeyAsksFirst_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<int>("rowsAfter");
    QTest::newRow("No keeps it") << int(QMessageBox::No) << 1;
    QTest::newRow("Yes deletes it") << int(QMessageBox::Yes) << 0;
}

void TestViewRefresh::deleteKeyAsksFirst()
{
    QFETCH(int, answer);
    QFETCH(int, rowsAfter);
    const auto view = CourseView();
    QCOMPARE(view->ListModel()->rowCount(), 1);
    view->List()->setCurrentIndex(view->ListModel()->index(0));
    MessageAnswers answers({QMessageBox::StandardButton(answer)});
    QTest::keyClick(view->List(), Qt::Key_Delete);
    QCOMPARE(answers.Texts(), QStringList{u"Are you sure you want to delete this coursework?"_s});
    QCOMPARE(view->ListModel()->rowCount(), rowsAfter);
}

void TestViewRefresh::menusHaveMnemonics()
{
    CMainFrame frame;
    QStringList titles;
    for (const QAction* action : frame.menuBar()->actions())
        titles << action->text();
    QCOMPARE(titles, QStringList({u"&Course"_s, u"&Tools"_s, u"&Prediction"_s}));
}

void TestViewRefresh::deleteKeyClearsAPercentToGive()
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

QTEST_MAIN(TestViewRefresh)
#include "tst_viewrefresh.moc"
