// The grade prediction options: scores to give per type, kept per course
// until OK, refused out of range, and never a recompute.
#include "controls/DialogRunner.h"
#include "controls/NumericEdit.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "store/BrindleData.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

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

// The type list as "name|percent" rows.
QStringList TypeRows(const GradePredictionDlg& dialog)
{
    QStringList rows;
    const auto* list = dialog.findChild<QTreeWidget*>(u"typeList"_s);
    for (int i = 0; list && i < list->topLevelItemCount(); ++i)
        rows << list->topLevelItem(i)->text(0) + u'|' + list->topLevelItem(i)->text(1);
    return rows;
}

} // namespace

class TestGradePredictionDlg : public DatabaseTest
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init()
    {
        DatabaseTest::init();
        Store().SetActive(true);
    }

    void workingCopyUntilOk()
    {
        const quint32 physics = Records::Course(u"Physics"_s, WorkingSemesterID, 0.5);
        Records::Policy(physics, CGradingPolicyTable::WeightNone);
        const quint32 homework = Records::CwType(physics, u"Homework"_s, 0.0, 0, 1);
        const quint32 exams = Records::CwType(physics, u"Exams"_s, 0.0, 0, 0);
        Records::Coursework(physics, homework, u"Homework 1"_s, 5.0, 10.0);
        Records::Coursework(physics, homework, u"Homework 2"_s, -1.0, 10.0);
        const quint32 quizzes = Records::CwType(Records::Course(u"Chemistry"_s), u"Quizzes"_s);
        // A score to give of a type the dialog does not list (an archived course).
        const quint32 old =
            Records::CwType(Records::Course(u"Old"_s, Records::Semester(u"Fall"_s)), u"Labs"_s);
        Store().SetScoreToGive(old, 0.5);
        Store().SetScoreToGive(homework, 0.8567);
        {
            GradePredictionDlg dialog;
            dialog.ClearPercent(1);
            dialog.reject();
        }
        QCOMPARE(Store().ScoreToGive(homework).value_or(-1.0), 0.8567);

        GradePredictionDlg dialog;
        auto* combo = dialog.findChild<QComboBox*>(u"courseCombo"_s);
        QCOMPARE(combo->count(), 2);
        QCOMPARE(TypeRows(dialog), (QStringList{u"Exams|"_s, u"Homework|85.67%"_s}));
        dialog.SetPercent(0, 70.0);
        dialog.ClearPercent(1);
        combo->setCurrentIndex(1); // as the user picks it
        QCOMPARE(dialog.SelectedCourse(), 1);
        QCOMPARE(TypeRows(dialog), QStringList{u"Quizzes|"_s});
        dialog.SetPercent(0, 95.5);
        combo->setCurrentIndex(0);
        QCOMPARE(TypeRows(dialog), (QStringList{u"Exams|70.00%"_s, u"Homework|"_s}));
        QVERIFY(!Store().ScoreToGive(exams)); // nothing reaches the store before OK

        dialog.accept();
        QCOMPARE(Store().ScoreToGive(exams).value_or(-1.0), 0.7);
        QCOMPARE(Store().ScoreToGive(quizzes).value_or(-1.0), 0.955);
        QVERIFY(!Store().ScoreToGive(homework) && !Store().ScoreToGive(old));
        // OK stores percents only: nothing is recomputed.
        QVERIFY(!Store().PredictedGrade(physics).has_value());
        QCOMPARE(GetCourseGrade(physics), 0.5);
    }

    void editPercent_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("percent"); // 40: refused

        QTest::newRow("in range") << u"72.5"_s << 72.5;
        QTest::newRow("hundred") << u"100"_s << 100.0;
        QTest::newRow("above 100") << u"100.5"_s << 40.0;
        QTest::newRow("empty") << QString() << 40.0;
    }
    void editPercent()
    {
        QFETCH(QString, typed);
        QFETCH(double, percent);

        Store().SetScoreToGive(Records::CwType(Records::Course(u"Physics"_s), u"Labs"_s), 0.4);
        GradePredictionDlg dialog;
        MessageAnswers answers;
        // The "Score to Give" editor: shows the percent, takes the typed one.
        QStringList shown;
        DialogRunner::SetHook([&](QDialog& editor) {
            auto* field = editor.findChild<CNumericEdit*>(u"scoreToGiveEdit"_s);
            if (!field)
                return int(QDialog::Rejected);
            shown << field->text();
            field->setText(typed);
            editor.accept();
            return editor.result();
        });
        // Through the menu, as the user gets there.
        std::unique_ptr<QMenu> menu(dialog.MakeContextMenu(0, nullptr));
        QStringList texts;
        for (const QAction* action : menu->actions())
            texts << action->text();
        QCOMPARE(texts, (QStringList{u"Edit Percent"_s, u"Clear Percent"_s}));
        menu->actions().at(0)->trigger();

        QCOMPARE(shown, QStringList{u"40"_s});
        QCOMPARE(dialog.Courses().front().types.front().percent, percent);
        const QString refused = u"The score to give is a percent: enter a number from 0 to 100."_s;
        QCOMPARE(answers.Texts(), percent == 40.0 ? QStringList{refused} : QStringList());
    }
};

QTEST_MAIN(TestGradePredictionDlg)
#include "tst_gradepredictiondlg.moc"
