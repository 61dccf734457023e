// The grading policy dialog: the type list's menu, deleting, adding and moving
// types, the edit panes' refusals, OK with an open pane or a failed write (in
// one transaction), Cancel and the policy warnings; the grade prediction
// options: scores to give per type, kept per course until OK, refused out of
// range, and never a recompute.
//
// Faults tried and caught: a failed commit ignored by Save (OK closes the
// dialog without a word: "INSERT ON CwType refused"); OK no longer discarding
// an untouched new-type pane ("untouched new pane is no type").
#include "GradingFixtures.h"
#include "controls/NumericEdit.h"
#include "editors/EditorRecords.h"
#include "grading/dialogs/CwTypeEditor.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/GradingDlgGradingPage.h"
#include "grading/dialogs/GradingDlgTypesPage.h"
#include "grading/dialogs/MinimumPercentEditor.h"
#include "store/BrindleData.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTreeWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

quint32 TypeOf(quint32 courseworkId)
{
    CCourseworkTable coursework;
    coursework.Open();
    return coursework.MoveToRecord(courseworkId) ? coursework.GetCwTypeID() : 0;
}

// A course's types by stored position, as "name@position weight/drops".
QStringList StoredTypes(quint32 courseId)
{
    const QByteArray id = QByteArray::number(courseId);
    return Records::Rows("SELECT t.CwTypeName || '@' || o.CwTypePosition || ' ' || "
                         "printf('%g', t.Weight) || '/' || t.Drops FROM CwTypeOrder o JOIN CwType "
                         "t ON t.id = o.CwTypeID WHERE o.CourseID = " +
                         id + " AND t.CourseID = " + id + " ORDER BY 1");
}

void TypeInto(QLineEdit* edit, const QString& text)
{
    edit->clear();
    QTest::keyClicks(edit, text);
}

// Name, weight and drops as "name|weight|drops"; fields left out stay as they are.
void FillTypePane(GradingDlg& dialog, const QString& fields)
{
    CwTypeEditor* editor = dialog.TypesPage()->Editor();
    QLineEdit* const edits[] = {editor->NameEdit(), editor->WeightEdit(), editor->DropsEdit()};
    const QStringList parts = fields.split(u'|');
    for (qsizetype i = 0; !fields.isEmpty() && i < parts.size(); ++i)
        TypeInto(edits[i], parts[i]);
}

// A course "Biology" with the given types, in creation order.
quint32 CourseWithTypes(const QStringList& names)
{
    const quint32 course = Records::Course(u"Biology"_s);
    for (const QString& name : names)
        Records::CwType(course, name);
    return course;
}

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

class TestGradingDlg : public DatabaseTest
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void typeMenuOfferings_data()
    {
        QTest::addColumn<int>("typeCount");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("texts");

        QTest::newRow("only type") << 1 << 0 << u"New Cw Type|Edit Cw Type"_s;
        QTest::newRow("first of three")
            << 3 << 0 << u"New Cw Type|Edit Cw Type|Delete Cw Type|-|Move Down"_s;
        QTest::newRow("middle of three")
            << 3 << 1 << u"New Cw Type|Edit Cw Type|Delete Cw Type|-|Move Up|Move Down"_s;
        QTest::newRow("last of two")
            << 2 << 1 << u"New Cw Type|Edit Cw Type|Delete Cw Type|-|Move Up"_s;
    }
    void typeMenuOfferings()
    {
        QFETCH(int, typeCount);
        QFETCH(int, row);
        QFETCH(QString, texts);

        GradingDlg dialog(CourseWithTypes(QStringList(typeCount, u"Type"_s)));
        std::unique_ptr<QMenu> menu(dialog.BuildTypeMenu(row, nullptr));
        QStringList shown;
        for (const QAction* action : menu->actions())
            shown << (action->isSeparator() ? u"-"_s : action->text());
        QCOMPARE(shown.join(QLatin1Char('|')), texts);

        // A command that is not offered does nothing when run anyway.
        dialog.RunTypeCommand(GradingDlg::DeleteTypeCommand, row);
        QCOMPARE(int(dialog.TypeEntries().size()), typeCount - int(texts.contains(u"Delete"_s)));
    }

    void deletedTypeCourseworkMoves_data()
    {
        QTest::addColumn<QString>("deleted");
        QTest::addColumn<QString>("receiver");

        // Types are created A, B, C but listed C, A, B: the coursework goes to
        // the first remaining type by record, not by display position.
        QTest::newRow("middle of the table") << u"B"_s << u"A"_s;
        QTest::newRow("first of the table") << u"A"_s << u"B"_s;
    }
    void deletedTypeCourseworkMoves()
    {
        QFETCH(QString, deleted);
        QFETCH(QString, receiver);

        const quint32 course = Records::Course(u"Biology"_s);
        QHash<QString, quint32> types;
        for (const QString& name : {u"A"_s, u"B"_s, u"C"_s})
            types[name] = Records::CwType(course, name, 0.0, 0, qint16(u"CAB"_s.indexOf(name)));
        const quint32 lab = Records::Coursework(course, types[deleted], u"Lab 1"_s);
        const quint32 other = Records::CwType(Records::Course(u"Chemistry"_s), u"Quiz"_s);

        GradingDlg dialog(course);
        dialog.DeleteType(int(u"CAB"_s.indexOf(deleted)));
        QVERIFY(dialog.Save());
        QCOMPARE(TypeOf(lab), types[receiver]);
        QCOMPARE(Records::Count("CwType"), 3);
        QCOMPARE(Records::Count("CwTypeOrder"), 3);
        QCOMPARE(CCwTypeTable::GetCwTypeNameFromID(other), u"Quiz"_s);
    }

    // The same edits, cancelled and then saved.
    void cancelWritesNothingOkWritesAll()
    {
        const quint32 course = Records::Course(u"Biology"_s);
        const quint32 homework = Records::CwType(course, u"Homework"_s, 0.0, 0, 3);
        const quint32 lab =
            Records::Coursework(course, Records::CwType(course, u"Old"_s, 1.0, 1, 7), u"Lab 1"_s);
        Records::Policy(course, CGradingPolicyTable::WeightNone);
        Records::MinimumPercent(course, 0, 90.0);
        Records::MinimumPercent(course, 1, 80.0);
        const QStringList before = EditorRecords::DumpAll();
        auto edit = [](GradingDlg& dialog) {
            dialog.EditType(0);
            FillTypePane(dialog, u"Problem Sets|1.5|2"_s);
            QVERIFY(dialog.ApplyTypeEdit());
            dialog.DeleteType(1);
            for (const QString& type : {u"Exams|3|0"_s, u"Quizzes|2|1"_s}) {
                dialog.NewType();
                FillTypePane(dialog, type);
                QVERIFY(dialog.ApplyTypeEdit());
            }
            dialog.RunTypeCommand(GradingDlg::MoveDownCommand, 0); // Exams Problem Quizzes
            dialog.RunTypeCommand(GradingDlg::MoveUpCommand, 2);   // Exams Quizzes Problem
            QCOMPARE(dialog.TypesPage()->SelectedRow(), 1);
            // A type added and deleted again is never stored.
            dialog.DeleteType(1);
            QCOMPARE(dialog.DeletedTypeIds().size(), size_t(1));
            dialog.SetWeighting(CGradingPolicyTable::WeightByType);
            dialog.EditMinimum(1);
            TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), u"78.5"_s);
            QVERIFY(dialog.ApplyMinimumEdit());
        };
        {
            GradingDlg dialog(course);
            edit(dialog);
            dialog.reject();
            QCOMPARE(EditorRecords::DumpAll(), before);
        }
        GradingDlg dialog(course);
        edit(dialog);
        QVERIFY(dialog.Save());

        QCOMPARE(StoredTypes(course), (QStringList{u"Exams@0 3/0"_s, u"Problem Sets@1 1.5/2"_s}));
        QCOMPARE(Records::Count("CwType"), 2);
        QCOMPARE(TypeOf(lab), homework);
        QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(course),
                 CGradingPolicyTable::WeightByType);
        QCOMPARE(Fixture::StoredMinimums(course), (QList<double>{90.0, 78.5}));
    }

    // OK takes in the open type or minimum pane, refuses it with a message or
    // fails to write; a refused OK leaves the dialog open and the records as
    // they were.
    void okStep_data()
    {
        QTest::addColumn<bool>("editFirst");     // else the new-type pane the dialog opens with
        QTest::addColumn<QString>("typed");      // as FillTypePane takes it
        QTest::addColumn<QByteArray>("refused"); // "<step> ON <table>" a trigger aborts
        QTest::addColumn<QString>("message");    // empty: saved and closed
        QTest::addColumn<QStringList>("types");  // as StoredTypes gives them

        const QStringList homework{u"Homework@0 0/0"_s};
        const QString name = u"Enter a name for the coursework type."_s;
        const QString weight = u"The weight must be a number of 0 or more."_s;
        const QString drops = u"Drops must be a whole number from 0 to 99."_s;
        const QByteArray none;
        QTest::newRow("untouched new pane is no type")
            << false << QString() << none << QString() << homework;
        QTest::newRow("new pane taken in") << false << u"Labs|0|99"_s << none << QString()
                                           << QStringList{u"Homework@0 0/0"_s, u"Labs@1 0/99"_s};
        QTest::newRow("edited pane taken in")
            << true << u"Essays|4"_s << none << QString() << QStringList{u"Essays@0 4/0"_s};
        QTest::newRow("weight without a name") << false << u"|5"_s << none << name << homework;
        QTest::newRow("name blank") << false << u"   |1|0"_s << none << name << homework;
        QTest::newRow("weight negative") << true << u"Essays|-0.5"_s << none << weight << homework;
        QTest::newRow("weight empty") << false << u"Labs||0"_s << none << weight << homework;
        QTest::newRow("drops 100") << false << u"Labs|1|100"_s << none << drops << homework;
        const QString percent = u"The minimum percent must be a number from 0 to 100."_s;
        QTest::newRow("minimum 100") << false << u"%100"_s << none << QString() << homework;
        QTest::newRow("minimum 100.01") << false << u"%100.01"_s << none << percent << homework;
        QTest::newRow("minimum negative") << false << u"%-1"_s << none << percent << homework;
        QTest::newRow("minimum empty") << false << u"%"_s << none << percent << homework;
        QTest::newRow("drops empty") << true << u"Homework|1|"_s << none << drops << homework;
        // A failed write rolls every write of the OK back, with the store's reason.
        const QString notSaved = u"The change could not be saved (refused). Nothing was changed."_s;
        for (const char* step : {"INSERT ON CwType", "UPDATE ON CwType", "INSERT ON CwTypeOrder",
                                 "UPDATE ON GradingPolicyGrade"})
            QTest::addRow("%s refused", step)
                << false << u"Labs"_s << QByteArray(step) << notSaved << homework;
    }
    void okStep()
    {
        QFETCH(bool, editFirst);
        QFETCH(QString, typed);
        QFETCH(QByteArray, refused);
        QFETCH(QString, message);
        QFETCH(QStringList, types);

        const quint32 course = CourseWithTypes({u"Homework"_s});
        Records::Policy(course, CGradingPolicyTable::WeightNone);
        Records::MinimumPercent(course, 0, 90.0);
        const QStringList before = EditorRecords::DumpAll();
        if (!refused.isEmpty())
            QVERIFY(Fixture::Refuse(refused));

        GradingDlg dialog(course, true);
        dialog.show();
        dialog.SetWeighting(CGradingPolicyTable::WeightByType);
        if (editFirst)
            dialog.EditType(0);
        if (typed.startsWith(u'%')) {
            dialog.EditMinimum(0);
            TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), typed.mid(1));
        } else {
            FillTypePane(dialog, typed);
        }
        if (!refused.isEmpty()) {
            // Every kind of write happens: the type, its order row, a minimum.
            QVERIFY(dialog.ApplyTypeEdit());
            dialog.EditMinimum(0);
            TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), u"95"_s);
        }
        MessageAnswers answers;
        dialog.accept();

        const bool saved = message.isEmpty();
        QCOMPARE(dialog.isVisible(), !saved);
        QCOMPARE(answers.Texts(), saved ? QStringList() : QStringList{message});
        QCOMPARE(StoredTypes(course), types);
        QCOMPARE(Records::Count("CwType"), int(types.size()));
        const bool minimum = saved && typed.startsWith(u'%');
        QCOMPARE(Fixture::StoredMinimums(course),
                 QList<double>{minimum ? typed.mid(1).toDouble() : 90.0});
        if (!saved)
            QCOMPARE(EditorRecords::DumpAll(), before);
        else
            QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(course),
                     CGradingPolicyTable::WeightByType);
    }

    void policyWarnings()
    {
        const quint32 course = Records::Course(u"Biology"_s);
        const quint32 homework = Records::CwType(course, u"Homework"_s);
        Records::Coursework(course, homework, u"Homework 1"_s, 40.0, 50.0);
        Records::Coursework(course, homework, u"Final"_s, -1.0, 50.0);
        Records::CwType(course, u"Labs"_s, 30.0);
        GradingDlg dialog(course);
        QVERIFY(dialog.WarningTexts().join(u' ').contains(u"\"Labs\" has no coursework."_s));
        const qsizetype before = dialog.WarningTexts().size();
        dialog.SetWeighting(CGradingPolicyTable::WeightByType);
        // Homework has weight 0 and is graded: weight 0, and weights add up to 0.
        QCOMPARE(dialog.WarningTexts().size(), before + 2);
        QVERIFY(!dialog.findChild<QLabel*>(u"warningLabel"_s)->isHidden());
    }

    void predictionWorkingCopyUntilOk()
    {
        Store().SetActive(true);
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

    void predictionEditPercent_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("percent"); // 40: refused

        QTest::newRow("in range") << u"72.5"_s << 72.5;
        QTest::newRow("hundred") << u"100"_s << 100.0;
        QTest::newRow("above 100") << u"100.5"_s << 40.0;
        QTest::newRow("empty") << QString() << 40.0;
    }
    void predictionEditPercent()
    {
        Store().SetActive(true);
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

QTEST_MAIN(TestGradingDlg)
#include "tst_gradingdlg.moc"
