// The grade prediction options: scores to give per type, kept per course
// until OK, refused out of range, and never a recompute.
#include "controls/DialogRunner.h"
#include "controls/NumericEdit.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "store/BrindleData.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QComboBox>
#include <QMenu>
#include <QTreeWidget>
#include <QtTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {
CPredictionStore& Store()
{
    return CPredictionStore::Instance();
}

QStringList MenuTexts(QMenu* menu)
{
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts << action->text();
    return texts;
}

// Answers the "Score to Give" editor: types the text and presses OK, then
// Cancel when OK was refused. Counts the editors it saw.
struct ScoreEditorAnswer
{
    explicit ScoreEditorAnswer(const QString& text)
    {
        DialogRunner::SetHook([this, text](QDialog& editor) {
            ++opened;
            auto* field = editor.findChild<CNumericEdit*>(u"scoreToGiveEdit"_s);
            if (!field)
                return int(QDialog::Rejected);
            shownText = field->text();
            field->setText(text);
            editor.accept();
            return editor.result();
        });
    }
    ~ScoreEditorAnswer() { DialogRunner::SetHook({}); }

    int opened = 0;
    QString shownText;
};

} // namespace

class TestGradePredictionDlg : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_db;

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
        Store().SetActive(true);
    }
    void cleanup()
    {
        Store().SetActive(false);
        m_db.reset();
    }

    void opensWithTypesInOrderAndStoredPercents()
    {
        const quint32 course = Records::Course(u"Physics"_s);
        const quint32 homework = Records::CwType(course, u"Homework"_s, 0.0, 0, 1);
        Records::CwType(course, u"Exams"_s, 0.0, 0, 0);
        Store().SetScoreToGive(homework, 0.8567);
        // A course of an archived semester is not offered.
        Records::Course(u"Old Course"_s, Records::Semester(u"Fall"_s));

        GradePredictionDlg dialog;
        QCOMPARE(static_cast<int>(dialog.Courses().size()), 1);
        auto* list = dialog.findChild<QTreeWidget*>(u"typeList"_s);
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(list->topLevelItem(0)->text(0), u"Exams"_s);
        QCOMPARE(list->topLevelItem(0)->text(1), QString());
        QCOMPARE(list->topLevelItem(1)->text(0), u"Homework"_s);
        QCOMPARE(list->topLevelItem(1)->text(1), u"85.67%"_s);
    }
    void switchingCoursesKeepsValues()
    {
        const quint32 physics = Records::Course(u"Physics"_s);
        const quint32 labs = Records::CwType(physics, u"Labs"_s);
        const quint32 chemistry = Records::Course(u"Chemistry"_s);
        const quint32 quizzes = Records::CwType(chemistry, u"Quizzes"_s);

        GradePredictionDlg dialog;
        auto* combo = dialog.findChild<QComboBox*>(u"courseCombo"_s);
        auto* list = dialog.findChild<QTreeWidget*>(u"typeList"_s);
        QCOMPARE(combo->count(), 2);
        dialog.SetPercent(0, 70.0);
        combo->setCurrentIndex(1); // as the user picks it
        QCOMPARE(dialog.SelectedCourse(), 1);
        QCOMPARE(list->topLevelItem(0)->text(0), u"Quizzes"_s);
        QCOMPARE(list->topLevelItem(0)->text(1), QString());
        dialog.SetPercent(0, 95.5);
        combo->setCurrentIndex(0);
        QCOMPARE(list->topLevelItem(0)->text(1), u"70.00%"_s);
        // Nothing reaches the store before OK.
        QVERIFY(!Store().ScoreToGive(labs).has_value());

        dialog.accept();
        QCOMPARE(Store().ScoreToGive(labs).value_or(-1.0), 0.7);
        QCOMPARE(Store().ScoreToGive(quizzes).value_or(-1.0), 0.955);
    }
    void okReplacesScoresToGiveCancelKeepsThem()
    {
        const quint32 course = Records::Course(u"Physics"_s, WorkingSemesterID, 0.5);
        Records::Policy(course, CGradingPolicyTable::WeightNone);
        const quint32 labs = Records::CwType(course, u"Labs"_s);
        const quint32 exams = Records::CwType(course, u"Exams"_s);
        Records::Coursework(course, labs, u"Lab 1"_s, 5.0, 10.0);
        Records::Coursework(course, labs, u"Lab 2"_s, -1.0, 10.0);
        // A score to give of a type the dialog does not list (an archived course).
        const quint32 oldType =
            Records::CwType(Records::Course(u"Old"_s, Records::Semester(u"Fall"_s)), u"Old Labs"_s);
        Store().SetScoreToGive(oldType, 0.5);
        Store().SetScoreToGive(labs, 0.9);
        Store().SetScoreToGive(exams, 0.7);
        {
            GradePredictionDlg dialog;
            dialog.ClearPercent(0);
            dialog.reject();
        }
        QCOMPARE(Store().ScoreToGive(labs).value_or(-1.0), 0.9);

        GradePredictionDlg dialog;
        dialog.ClearPercent(1);
        QCOMPARE(dialog.findChild<QTreeWidget*>(u"typeList"_s)->topLevelItem(1)->text(1),
                 QString());
        dialog.SetPercent(0, 100.0);
        dialog.accept();
        QCOMPARE(Store().ScoreToGive(labs).value_or(-1.0), 1.0);
        QVERIFY(!Store().ScoreToGive(exams) && !Store().ScoreToGive(oldType));
        // OK stores percents only: nothing is recomputed.
        QVERIFY(!Store().PredictedGrade(course).has_value());
        QCOMPARE(GetCourseGrade(course), 0.5);
    }

    void editPercent_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("taken");
        QTest::addColumn<double>("percent");

        QTest::newRow("in range") << u"72.5"_s << true << 72.5;
        QTest::newRow("hundred") << u"100"_s << true << 100.0;
        QTest::newRow("above 100") << u"100.5"_s << false << 40.0;
        QTest::newRow("empty") << QString() << false << 40.0;
    }
    void editPercent()
    {
        QFETCH(QString, typed);
        QFETCH(bool, taken);
        QFETCH(double, percent);

        const quint32 course = Records::Course(u"Physics"_s);
        const quint32 labs = Records::CwType(course, u"Labs"_s);
        Store().SetScoreToGive(labs, 0.4);

        GradePredictionDlg dialog;
        MessageAnswers answers;
        ScoreEditorAnswer editor(typed);
        // Through the menu, as the user gets there.
        std::unique_ptr<QMenu> menu(dialog.MakeContextMenu(0, nullptr));
        QCOMPARE(MenuTexts(menu.get()), (QStringList{u"Edit Percent"_s, u"Clear Percent"_s}));
        menu->actions().at(0)->trigger();

        QCOMPARE(editor.opened, 1);
        QCOMPARE(editor.shownText, u"40"_s);
        QCOMPARE(dialog.Courses().front().types.front().percent, percent);
        QCOMPARE(answers.Texts(),
                 taken ? QStringList()
                       : QStringList{QStringLiteral(
                             "The score to give is a percent: enter a number from 0 to 100.")});
    }
};

QTEST_MAIN(TestGradePredictionDlg)
#include "tst_gradepredictiondlg.moc"
