// The grading policy dialog: the type list's menu, deleting, adding and moving
// types, the edit panes' refusals, OK in one transaction and Cancel.
//
// Faults tried and caught: a failed commit ignored by Save (OK closes the
// dialog without a word: failedWriteRollsBackAndStaysOpen).
#include "controls/NumericEdit.h"
#include "grading/dialogs/CwTypeEditor.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/GradingDlgGradingPage.h"
#include "grading/dialogs/GradingDlgTypesPage.h"
#include "grading/dialogs/MinimumPercentEditor.h"
#include "store/BrindleData.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

#include <sqlite3.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// Every row of the policy tables as text, to prove that nothing was written.
QStringList DumpPolicyTables()
{
    QStringList rows;
    for (const char* table :
         {"CwType", "CwTypeOrder", "GradingPolicy", "GradingPolicyGrade", "Coursework"}) {
        rows << QString::fromLatin1(table);
        sqlite3_stmt* stmt = CDataTable::GetMount()->Statement(QByteArray("SELECT * FROM ") +
                                                               table + " ORDER BY id");
        while (stmt && sqlite3_step(stmt) == SQLITE_ROW) {
            QStringList columns;
            for (int i = 0; i < sqlite3_column_count(stmt); ++i)
                columns << QString::fromUtf8(
                    reinterpret_cast<const char*>(sqlite3_column_text(stmt, i)));
            rows << columns.join(QLatin1Char('|'));
        }
        if (stmt)
            sqlite3_reset(stmt);
    }
    return rows;
}

quint32 TypeOf(quint32 courseworkId)
{
    CCourseworkTable coursework;
    coursework.Open();
    return coursework.MoveToRecord(courseworkId) ? coursework.GetCwTypeID() : 0;
}

// Type names of a course by stored position, as "name@position".
QStringList StoredOrder(quint32 courseId)
{
    QStringList names;
    CCwTypeOrderTable order;
    order.Open(1);
    const CCeDBProp key(courseId);
    order.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = order.MoveFirst(1); ok; ok = order.MoveNext(1))
        names << u"%1@%2"_s.arg(CCwTypeTable::GetCwTypeNameFromID(order.GetCwTypeID()))
                     .arg(order.GetCwTypePosition());
    names.sort();
    return names;
}

void TypeInto(QLineEdit* edit, const QString& text)
{
    edit->clear();
    QTest::keyClicks(edit, text);
}

// Name, weight and drops as "name|weight|drops".
void FillTypePane(GradingDlg& dialog, const QString& fields)
{
    const QStringList parts = fields.split(QLatin1Char('|'));
    CwTypeEditor* editor = dialog.TypesPage()->Editor();
    TypeInto(editor->NameEdit(), parts.at(0));
    TypeInto(editor->WeightEdit(), parts.at(1));
    TypeInto(editor->DropsEdit(), parts.at(2));
}

// A course "Biology" with the given types, in creation order.
quint32 CourseWithTypes(const QStringList& names)
{
    const quint32 course = Records::Course(u"Biology"_s);
    for (const QString& name : names)
        Records::CwType(course, name);
    return course;
}

} // namespace

class TestGradingDlg : public QObject
{
    Q_OBJECT

    std::unique_ptr<TestDatabase> m_db;

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup() { m_db.reset(); }

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

        QStringList names;
        for (int i = 0; i < typeCount; ++i)
            names << u"Type %1"_s.arg(i);
        GradingDlg dialog(CourseWithTypes(names));
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
        QTest::newRow("first on display") << u"C"_s << u"A"_s;
    }
    void deletedTypeCourseworkMoves()
    {
        QFETCH(QString, deleted);
        QFETCH(QString, receiver);

        const quint32 course = Records::Course(u"Biology"_s);
        QHash<QString, quint32> types;
        types[u"A"_s] = Records::CwType(course, u"A"_s, 0.0, 0, 1);
        types[u"B"_s] = Records::CwType(course, u"B"_s, 0.0, 0, 2);
        types[u"C"_s] = Records::CwType(course, u"C"_s, 0.0, 0, 0);
        const quint32 first = Records::Coursework(course, types[deleted], u"Lab 1"_s);
        const quint32 second = Records::Coursework(course, types[deleted], u"Lab 2"_s);
        const quint32 other = Records::CwType(Records::Course(u"Chemistry"_s), u"Quiz"_s);

        GradingDlg dialog(course);
        const auto& entries = dialog.TypeEntries();
        const auto at = std::find_if(entries.cbegin(), entries.cend(),
                                     [&](const CwTypeEntry& e) { return e.name == deleted; });
        QVERIFY(at != entries.cend());
        dialog.DeleteType(static_cast<int>(at - entries.cbegin()));
        QVERIFY(dialog.Save());

        QCOMPARE(TypeOf(first), types[receiver]);
        QCOMPARE(TypeOf(second), types[receiver]);
        QCOMPARE(Records::Count("CwType"), 3);
        QCOMPARE(Records::Count("CwTypeOrder"), 3);
        QCOMPARE(CCwTypeTable::GetCwTypeNameFromID(other), u"Quiz"_s);
    }

    void addedThenDeletedNeverStored()
    {
        GradingDlg dialog(CourseWithTypes({u"Homework"_s}));
        dialog.NewType();
        FillTypePane(dialog, u"Quizzes|2|1"_s);
        QVERIFY(dialog.ApplyTypeEdit());
        QCOMPARE(int(dialog.TypeEntries().size()), 2);
        dialog.DeleteType(1);
        QVERIFY(dialog.DeletedTypeIds().empty());
        QVERIFY(dialog.Save());
        QCOMPARE(Records::Count("CwType"), 1);
        QCOMPARE(Records::Count("CwTypeOrder"), 1);
    }

    void reorderRewritesPositions()
    {
        const quint32 course = Records::Course(u"Biology"_s);
        Records::CwType(course, u"A"_s, 0.0, 0, 3);
        Records::CwType(course, u"B"_s, 0.0, 0, 7);
        Records::CwType(course, u"C"_s, 0.0, 0, 12);

        GradingDlg dialog(course);
        dialog.RunTypeCommand(GradingDlg::MoveDownCommand, 0); // B A C
        dialog.RunTypeCommand(GradingDlg::MoveUpCommand, 2);   // B C A
        QCOMPARE(dialog.TypesPage()->SelectedRow(), 1);
        QVERIFY(dialog.Save());
        QCOMPARE(StoredOrder(course), u"A@2 B@0 C@1"_s.split(QLatin1Char(' ')));
    }

    void okWritesEditsAndNewTypes()
    {
        const quint32 course = CourseWithTypes({u"Homework"_s});
        Records::Policy(course, CGradingPolicyTable::WeightNone);
        Records::MinimumPercent(course, 0, 90.0);
        Records::MinimumPercent(course, 1, 80.0);

        GradingDlg dialog(course);
        dialog.EditType(0);
        FillTypePane(dialog, u"Problem Sets|1.5|2"_s);
        QVERIFY(dialog.ApplyTypeEdit());
        dialog.NewType();
        FillTypePane(dialog, u"Exams|3|0"_s);
        QVERIFY(dialog.ApplyTypeEdit());
        dialog.SetWeighting(CGradingPolicyTable::WeightByType);
        dialog.EditMinimum(1);
        TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), u"78.5"_s);
        QVERIFY(dialog.ApplyMinimumEdit());
        QVERIFY(dialog.Save());

        CCwTypeTable type;
        type.Open();
        QVERIFY(type.MoveToRecord(dialog.TypeEntries().at(0).id));
        QCOMPARE(type.GetWeight(), 1.5);
        QCOMPARE(type.GetDrops(), quint16(2));
        QVERIFY(type.MoveToRecord(dialog.TypeEntries().at(1).id));
        QCOMPARE(type.GetCourseID(), course);
        QCOMPARE(type.GetWeight(), 3.0);
        QCOMPARE(StoredOrder(course), (QStringList{u"Exams@1"_s, u"Problem Sets@0"_s}));
        QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(course),
                 CGradingPolicyTable::WeightByType);
        CGradingPolicyGradeTable grades;
        grades.Open(0);
        QMap<quint16, double> minimums;
        for (int ok = grades.MoveFirst(1); ok; ok = grades.MoveNext(1))
            minimums[grades.GetGrade()] = grades.GetMinimumPercent();
        QCOMPARE(minimums.values(), (QList<double>{90.0, 78.5}));
    }

    void cancelWritesNothing()
    {
        const quint32 course = Records::Course(u"Biology"_s);
        const quint32 homework = Records::CwType(course, u"Homework"_s, 1.0);
        Records::CwType(course, u"Exams"_s, 2.0, 1);
        Records::Coursework(course, homework, u"Lab 1"_s, 8.0, 10.0);
        Records::Policy(course, CGradingPolicyTable::WeightByType);
        Records::MinimumPercent(course, 0, 90.0);
        const QStringList before = DumpPolicyTables();

        GradingDlg dialog(course);
        dialog.DeleteType(0);
        dialog.NewType();
        FillTypePane(dialog, u"Quizzes|1|0"_s);
        QVERIFY(dialog.ApplyTypeEdit());
        dialog.RunTypeCommand(GradingDlg::MoveUpCommand, 1);
        dialog.SetWeighting(CGradingPolicyTable::WeightPerItem);
        dialog.EditMinimum(0);
        TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), u"50"_s);
        QVERIFY(dialog.ApplyMinimumEdit());
        dialog.reject();
        QCOMPARE(DumpPolicyTables(), before);
    }

    void paneRefusesOutOfRange_data()
    {
        QTest::addColumn<bool>("typePane");
        QTest::addColumn<QString>("input");   // name|weight|drops, or the percent
        QTest::addColumn<QString>("message"); // empty: accepted

        const QString percent = u"The minimum percent must be a number from 0 to 100."_s;
        const QString name = u"Enter a name for the coursework type."_s;
        const QString weight = u"The weight must be a number of 0 or more."_s;
        const QString drops = u"Drops must be a whole number from 0 to 99."_s;
        QTest::newRow("percent 100") << false << u"100"_s << QString();
        QTest::newRow("percent 100.01") << false << u"100.01"_s << percent;
        QTest::newRow("percent negative") << false << u"-1"_s << percent;
        QTest::newRow("percent empty") << false << QString() << percent;
        QTest::newRow("type ok") << true << u"Labs|0|99"_s << QString();
        QTest::newRow("name blank") << true << u"   |1|0"_s << name;
        QTest::newRow("weight negative") << true << u"Labs|-0.5|0"_s << weight;
        QTest::newRow("weight empty") << true << u"Labs||0"_s << weight;
        QTest::newRow("drops 100") << true << u"Labs|1|100"_s << drops;
        QTest::newRow("drops empty") << true << u"Labs|1|"_s << drops;
    }
    void paneRefusesOutOfRange()
    {
        QFETCH(bool, typePane);
        QFETCH(QString, input);
        QFETCH(QString, message);

        const quint32 course = CourseWithTypes({u"Homework"_s});
        Records::MinimumPercent(course, 0, 90.0);
        GradingDlg dialog(course);
        MessageAnswers answers;
        bool applied = false;
        if (typePane) {
            dialog.NewType();
            FillTypePane(dialog, input);
            applied = dialog.ApplyTypeEdit();
        } else {
            dialog.EditMinimum(0);
            TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), input);
            applied = dialog.ApplyMinimumEdit();
        }

        QCOMPARE(applied, message.isEmpty());
        QCOMPARE(answers.Texts(), message.isEmpty() ? QStringList() : QStringList{message});
        if (typePane) {
            QCOMPARE(int(dialog.TypeEntries().size()), applied ? 2 : 1);
            QCOMPARE(dialog.EditingTypeRow(),
                     applied ? int(GradingDlg::NotEditing) : int(GradingDlg::EditingNewType));
        } else {
            QCOMPARE(dialog.MinimumEntries().at(0).minimum, applied ? input.toDouble() : 90.0);
            QCOMPARE(dialog.EditingMinimumRow(), applied ? -1 : 0);
        }
    }

    void okKeepsDialogOpenOnRefusedPane()
    {
        GradingDlg dialog(CourseWithTypes({u"Homework"_s}));
        const QStringList before = DumpPolicyTables();
        dialog.show();
        dialog.EditType(0);
        FillTypePane(dialog, u"Homework|-2|0"_s);
        MessageAnswers answers;
        dialog.accept();
        QVERIFY(dialog.isVisible());
        QCOMPARE(answers.Texts(), QStringList{u"The weight must be a number of 0 or more."_s});
        QCOMPARE(DumpPolicyTables(), before);

        // An unapplied but valid pane is taken in by OK.
        TypeInto(dialog.TypesPage()->Editor()->WeightEdit(), u"4"_s);
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.TypeEntries().at(0).weight, 4.0);
    }

    void failedWriteRollsBackAndStaysOpen()
    {
        const quint32 course = CourseWithTypes({u"Homework"_s});
        Records::Policy(course, CGradingPolicyTable::WeightNone);
        Records::MinimumPercent(course, 0, 90.0);
        const QStringList before = DumpPolicyTables();
        // The weighting and minimum are written first; the new type then fails.
        QVERIFY(
            CDataTable::GetMount()->Execute("CREATE TRIGGER RefuseTypes BEFORE INSERT ON CwType "
                                            "BEGIN SELECT RAISE(ABORT, 'refused'); END"));

        GradingDlg dialog(course);
        dialog.show();
        dialog.SetWeighting(CGradingPolicyTable::WeightByType);
        dialog.EditMinimum(0);
        TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), u"85"_s);
        QVERIFY(dialog.ApplyMinimumEdit());
        dialog.NewType();
        FillTypePane(dialog, u"Exams|1|0"_s);
        MessageAnswers answers;
        dialog.accept();

        QVERIFY(dialog.isVisible());
        QCOMPARE(answers.Texts(),
                 QStringList{QStringLiteral(
                     "The change could not be saved (refused). Nothing was changed.")});
        QCOMPARE(DumpPolicyTables(), before);
    }
};

QTEST_MAIN(TestGradingDlg)
#include "tst_gradingdlg.moc"
