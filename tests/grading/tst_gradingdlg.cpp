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
        names << QStringLiteral("%1@%2")
                     .arg(CCwTypeTable::GetCwTypeNameFromID(order.GetCwTypeID()))
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
    const quint32 course = Records::Course(QStringLiteral("Biology"));
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

        QTest::newRow("only type") << 1 << 0 << QStringLiteral("New Cw Type|Edit Cw Type");
        QTest::newRow("first of three")
            << 3 << 0 << QStringLiteral("New Cw Type|Edit Cw Type|Delete Cw Type|-|Move Down");
        QTest::newRow("middle of three")
            << 3 << 1
            << QStringLiteral("New Cw Type|Edit Cw Type|Delete Cw Type|-|Move Up|Move Down");
        QTest::newRow("last of two")
            << 2 << 1 << QStringLiteral("New Cw Type|Edit Cw Type|Delete Cw Type|-|Move Up");
    }
    void typeMenuOfferings()
    {
        QFETCH(int, typeCount);
        QFETCH(int, row);
        QFETCH(QString, texts);

        QStringList names;
        for (int i = 0; i < typeCount; ++i)
            names << QStringLiteral("Type %1").arg(i);
        GradingDlg dialog(CourseWithTypes(names));
        std::unique_ptr<QMenu> menu(dialog.BuildTypeMenu(row, nullptr));
        QStringList shown;
        for (const QAction* action : menu->actions())
            shown << (action->isSeparator() ? QStringLiteral("-") : action->text());
        QCOMPARE(shown.join(QLatin1Char('|')), texts);

        // A command that is not offered does nothing when run anyway.
        dialog.RunTypeCommand(GradingDlg::DeleteTypeCommand, row);
        QCOMPARE(int(dialog.TypeEntries().size()),
                 typeCount - int(texts.contains(QStringLiteral("Delete"))));
    }

    void deletedTypeCourseworkMoves_data()
    {
        QTest::addColumn<QString>("deleted");
        QTest::addColumn<QString>("receiver");

        // Types are created A, B, C but listed C, A, B: the coursework goes to
        // the first remaining type by record, not by display position.
        QTest::newRow("middle of the table") << QStringLiteral("B") << QStringLiteral("A");
        QTest::newRow("first of the table") << QStringLiteral("A") << QStringLiteral("B");
        QTest::newRow("first on display") << QStringLiteral("C") << QStringLiteral("A");
    }
    void deletedTypeCourseworkMoves()
    {
        QFETCH(QString, deleted);
        QFETCH(QString, receiver);

        const quint32 course = Records::Course(QStringLiteral("Biology"));
        QHash<QString, quint32> types;
        types[QStringLiteral("A")] = Records::CwType(course, QStringLiteral("A"), 0.0, 0, 1);
        types[QStringLiteral("B")] = Records::CwType(course, QStringLiteral("B"), 0.0, 0, 2);
        types[QStringLiteral("C")] = Records::CwType(course, QStringLiteral("C"), 0.0, 0, 0);
        const quint32 first = Records::Coursework(course, types[deleted], QStringLiteral("Lab 1"));
        const quint32 second = Records::Coursework(course, types[deleted], QStringLiteral("Lab 2"));
        const quint32 other =
            Records::CwType(Records::Course(QStringLiteral("Chemistry")), QStringLiteral("Quiz"));

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
        QCOMPARE(CCwTypeTable::GetCwTypeNameFromID(other), QStringLiteral("Quiz"));
    }

    void addedThenDeletedNeverStored()
    {
        GradingDlg dialog(CourseWithTypes({QStringLiteral("Homework")}));
        dialog.NewType();
        FillTypePane(dialog, QStringLiteral("Quizzes|2|1"));
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
        const quint32 course = Records::Course(QStringLiteral("Biology"));
        Records::CwType(course, QStringLiteral("A"), 0.0, 0, 3);
        Records::CwType(course, QStringLiteral("B"), 0.0, 0, 7);
        Records::CwType(course, QStringLiteral("C"), 0.0, 0, 12);

        GradingDlg dialog(course);
        dialog.RunTypeCommand(GradingDlg::MoveDownCommand, 0); // B A C
        dialog.RunTypeCommand(GradingDlg::MoveUpCommand, 2);   // B C A
        QCOMPARE(dialog.TypesPage()->SelectedRow(), 1);
        QVERIFY(dialog.Save());
        QCOMPARE(StoredOrder(course), QStringLiteral("A@2 B@0 C@1").split(QLatin1Char(' ')));
    }

    void okWritesEditsAndNewTypes()
    {
        const quint32 course = CourseWithTypes({QStringLiteral("Homework")});
        Records::Policy(course, CGradingPolicyTable::WeightNone);
        Records::MinimumPercent(course, 0, 90.0);
        Records::MinimumPercent(course, 1, 80.0);

        GradingDlg dialog(course);
        dialog.EditType(0);
        FillTypePane(dialog, QStringLiteral("Problem Sets|1.5|2"));
        QVERIFY(dialog.ApplyTypeEdit());
        dialog.NewType();
        FillTypePane(dialog, QStringLiteral("Exams|3|0"));
        QVERIFY(dialog.ApplyTypeEdit());
        dialog.SetWeighting(CGradingPolicyTable::WeightByType);
        dialog.EditMinimum(1);
        TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), QStringLiteral("78.5"));
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
        QCOMPARE(StoredOrder(course),
                 (QStringList{QStringLiteral("Exams@1"), QStringLiteral("Problem Sets@0")}));
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
        const quint32 course = Records::Course(QStringLiteral("Biology"));
        const quint32 homework = Records::CwType(course, QStringLiteral("Homework"), 1.0);
        Records::CwType(course, QStringLiteral("Exams"), 2.0, 1);
        Records::Coursework(course, homework, QStringLiteral("Lab 1"), 8.0, 10.0);
        Records::Policy(course, CGradingPolicyTable::WeightByType);
        Records::MinimumPercent(course, 0, 90.0);
        const QStringList before = DumpPolicyTables();

        GradingDlg dialog(course);
        dialog.DeleteType(0);
        dialog.NewType();
        FillTypePane(dialog, QStringLiteral("Quizzes|1|0"));
        QVERIFY(dialog.ApplyTypeEdit());
        dialog.RunTypeCommand(GradingDlg::MoveUpCommand, 1);
        dialog.SetWeighting(CGradingPolicyTable::WeightPerItem);
        dialog.EditMinimum(0);
        TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), QStringLiteral("50"));
        QVERIFY(dialog.ApplyMinimumEdit());
        dialog.reject();
        QCOMPARE(DumpPolicyTables(), before);
    }

    void paneRefusesOutOfRange_data()
    {
        QTest::addColumn<bool>("typePane");
        QTest::addColumn<QString>("input");   // name|weight|drops, or the percent
        QTest::addColumn<QString>("message"); // empty: accepted

        const QString percent =
            QStringLiteral("The minimum percent must be a number from 0 to 100.");
        const QString name = QStringLiteral("Enter a name for the coursework type.");
        const QString weight = QStringLiteral("The weight must be a number of 0 or more.");
        const QString drops = QStringLiteral("Drops must be a whole number from 0 to 99.");
        QTest::newRow("percent 100") << false << QStringLiteral("100") << QString();
        QTest::newRow("percent 100.01") << false << QStringLiteral("100.01") << percent;
        QTest::newRow("percent negative") << false << QStringLiteral("-1") << percent;
        QTest::newRow("percent empty") << false << QString() << percent;
        QTest::newRow("type ok") << true << QStringLiteral("Labs|0|99") << QString();
        QTest::newRow("name blank") << true << QStringLiteral("   |1|0") << name;
        QTest::newRow("weight negative") << true << QStringLiteral("Labs|-0.5|0") << weight;
        QTest::newRow("weight empty") << true << QStringLiteral("Labs||0") << weight;
        QTest::newRow("drops 100") << true << QStringLiteral("Labs|1|100") << drops;
        QTest::newRow("drops empty") << true << QStringLiteral("Labs|1|") << drops;
    }
    void paneRefusesOutOfRange()
    {
        QFETCH(bool, typePane);
        QFETCH(QString, input);
        QFETCH(QString, message);

        const quint32 course = CourseWithTypes({QStringLiteral("Homework")});
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
        GradingDlg dialog(CourseWithTypes({QStringLiteral("Homework")}));
        const QStringList before = DumpPolicyTables();
        dialog.show();
        dialog.EditType(0);
        FillTypePane(dialog, QStringLiteral("Homework|-2|0"));
        MessageAnswers answers;
        dialog.accept();
        QVERIFY(dialog.isVisible());
        QCOMPARE(answers.Texts(),
                 QStringList{QStringLiteral("The weight must be a number of 0 or more.")});
        QCOMPARE(DumpPolicyTables(), before);

        // An unapplied but valid pane is taken in by OK.
        TypeInto(dialog.TypesPage()->Editor()->WeightEdit(), QStringLiteral("4"));
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(dialog.TypeEntries().at(0).weight, 4.0);
    }

    void failedWriteRollsBackAndStaysOpen()
    {
        const quint32 course = CourseWithTypes({QStringLiteral("Homework")});
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
        TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), QStringLiteral("85"));
        QVERIFY(dialog.ApplyMinimumEdit());
        dialog.NewType();
        FillTypePane(dialog, QStringLiteral("Exams|1|0"));
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
