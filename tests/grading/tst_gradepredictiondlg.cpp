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
            auto* field = editor.findChild<CNumericEdit*>(QStringLiteral("scoreToGiveEdit"));
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
        const quint32 course = Records::Course(QStringLiteral("Physics"));
        const quint32 homework = Records::CwType(course, QStringLiteral("Homework"), 0.0, 0, 1);
        Records::CwType(course, QStringLiteral("Exams"), 0.0, 0, 0);
        Store().SetScoreToGive(homework, 0.8567);
        // A course of an archived semester is not offered.
        Records::Course(QStringLiteral("Old Course"), Records::Semester(QStringLiteral("Fall")));

        GradePredictionDlg dialog;
        QCOMPARE(static_cast<int>(dialog.Courses().size()), 1);
        auto* list = dialog.findChild<QTreeWidget*>(QStringLiteral("typeList"));
        QCOMPARE(list->topLevelItemCount(), 2);
        QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("Exams"));
        QCOMPARE(list->topLevelItem(0)->text(1), QString());
        QCOMPARE(list->topLevelItem(1)->text(0), QStringLiteral("Homework"));
        QCOMPARE(list->topLevelItem(1)->text(1), QStringLiteral("85.67%"));
    }
    void switchingCoursesKeepsValues()
    {
        const quint32 physics = Records::Course(QStringLiteral("Physics"));
        const quint32 labs = Records::CwType(physics, QStringLiteral("Labs"));
        const quint32 chemistry = Records::Course(QStringLiteral("Chemistry"));
        const quint32 quizzes = Records::CwType(chemistry, QStringLiteral("Quizzes"));

        GradePredictionDlg dialog;
        auto* combo = dialog.findChild<QComboBox*>(QStringLiteral("courseCombo"));
        auto* list = dialog.findChild<QTreeWidget*>(QStringLiteral("typeList"));
        QCOMPARE(combo->count(), 2);
        dialog.SetPercent(0, 70.0);
        combo->setCurrentIndex(1); // as the user picks it
        QCOMPARE(dialog.SelectedCourse(), 1);
        QCOMPARE(list->topLevelItem(0)->text(0), QStringLiteral("Quizzes"));
        QCOMPARE(list->topLevelItem(0)->text(1), QString());
        dialog.SetPercent(0, 95.5);
        combo->setCurrentIndex(0);
        QCOMPARE(list->topLevelItem(0)->text(1), QStringLiteral("70.00%"));
        // Nothing reaches the store before OK.
        QVERIFY(!Store().ScoreToGive(labs).has_value());

        dialog.accept();
        QCOMPARE(Store().ScoreToGive(labs).value_or(-1.0), 0.7);
        QCOMPARE(Store().ScoreToGive(quizzes).value_or(-1.0), 0.955);
    }
    void okReplacesScoresToGiveCancelKeepsThem()
    {
        const quint32 course = Records::Course(QStringLiteral("Physics"), WorkingSemesterID, 0.5);
        Records::Policy(course, CGradingPolicyTable::WeightNone);
        const quint32 labs = Records::CwType(course, QStringLiteral("Labs"));
        const quint32 exams = Records::CwType(course, QStringLiteral("Exams"));
        Records::Coursework(course, labs, QStringLiteral("Lab 1"), 5.0, 10.0);
        Records::Coursework(course, labs, QStringLiteral("Lab 2"), -1.0, 10.0);
        // A score to give of a type the dialog does not list (an archived course).
        const quint32 oldType = Records::CwType(
            Records::Course(QStringLiteral("Old"), Records::Semester(QStringLiteral("Fall"))),
            QStringLiteral("Old Labs"));
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
        QCOMPARE(
            dialog.findChild<QTreeWidget*>(QStringLiteral("typeList"))->topLevelItem(1)->text(1),
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

        QTest::newRow("in range") << QStringLiteral("72.5") << true << 72.5;
        QTest::newRow("hundred") << QStringLiteral("100") << true << 100.0;
        QTest::newRow("above 100") << QStringLiteral("100.5") << false << 40.0;
        QTest::newRow("empty") << QString() << false << 40.0;
    }
    void editPercent()
    {
        QFETCH(QString, typed);
        QFETCH(bool, taken);
        QFETCH(double, percent);

        const quint32 course = Records::Course(QStringLiteral("Physics"));
        const quint32 labs = Records::CwType(course, QStringLiteral("Labs"));
        Store().SetScoreToGive(labs, 0.4);

        GradePredictionDlg dialog;
        MessageAnswers answers;
        ScoreEditorAnswer editor(typed);
        // Through the menu, as the user gets there.
        std::unique_ptr<QMenu> menu(dialog.MakeContextMenu(0, nullptr));
        QCOMPARE(MenuTexts(menu.get()),
                 (QStringList{QStringLiteral("Edit Percent"), QStringLiteral("Clear Percent")}));
        menu->actions().at(0)->trigger();

        QCOMPARE(editor.opened, 1);
        QCOMPARE(editor.shownText, QStringLiteral("40"));
        QCOMPARE(dialog.Courses().front().types.front().percent, percent);
        QCOMPARE(answers.Texts(),
                 taken ? QStringList()
                       : QStringList{QStringLiteral(
                             "The score to give is a percent: enter a number from 0 to 100.")});
    }
};

QTEST_MAIN(TestGradePredictionDlg)
#include "tst_gradepredictiondlg.moc"
