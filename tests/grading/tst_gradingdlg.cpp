#include "controls/NumericEdit.h"
#include "grading/dialogs/CwTypeEditor.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/GradingDlgGradingPage.h"
#include "grading/dialogs/GradingDlgTypesPage.h"
#include "grading/dialogs/MinimumPercentEditor.h"
#include "res/strings/GradingPolicyStrings.h"
#include "store/BrindleData.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

#include <sqlite3.h>

namespace {

// Every row of a table as text, to prove that nothing was written.
QStringList Dump(const char* table)
{
    QStringList rows;
    sqlite3_stmt* stmt =
        CDataTable::GetMount()->Statement(QByteArray("SELECT * FROM ") + table + " ORDER BY id");
    while (stmt && sqlite3_step(stmt) == SQLITE_ROW) {
        QStringList columns;
        for (int i = 0; i < sqlite3_column_count(stmt); ++i)
            columns << QString::fromUtf8(
                reinterpret_cast<const char*>(sqlite3_column_text(stmt, i)));
        rows << columns.join(QLatin1Char('|'));
    }
    if (stmt)
        sqlite3_reset(stmt);
    return rows;
}

QStringList DumpPolicyTables()
{
    QStringList all;
    for (const char* table :
         {"CwType", "CwTypeOrder", "GradingPolicy", "GradingPolicyGrade", "Coursework"})
        all << QString::fromLatin1(table) << Dump(table);
    return all;
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

QStringList MenuTexts(QMenu* menu)
{
    QStringList texts;
    for (const QAction* action : menu->actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

void TypeInto(QLineEdit* edit, const QString& text)
{
    edit->clear();
    QTest::keyClicks(edit, text);
}

void FillTypePane(GradingDlg& dialog, const QString& name, const QString& weight,
                  const QString& drops)
{
    CwTypeEditor* editor = dialog.TypesPage()->Editor();
    TypeInto(editor->NameEdit(), name);
    TypeInto(editor->WeightEdit(), weight);
    TypeInto(editor->DropsEdit(), drops);
}

} // namespace

class TestGradingDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }

    void typeMenuOfferings_data();
    void typeMenuOfferings();
    void typeMenuOpensWhereAsked_data();
    void typeMenuOpensWhereAsked();
    void deletedTypeCourseworkMoves_data();
    void deletedTypeCourseworkMoves();
    void addedThenDeletedNeverStored();
    void reorderRewritesPositions();
    void okWritesEditsAndNewTypes();
    void cancelWritesNothing();
    void paneRefusesOutOfRange_data();
    void paneRefusesOutOfRange();
    void okKeepsDialogOpenOnRefusedPane();
    void startFlagOpensNewType();
    void typeNameLimitedTo25();
    void typePaneLabelColumnIs40Percent();
};

void TestGradingDlg::typeMenuOfferings_data()
{
    QTest::addColumn<int>("typeCount");
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("texts");

    const QString add = GradingPolicyStrings::NewCwType();
    const QString edit = GradingPolicyStrings::EditCwType();
    const QString del = GradingPolicyStrings::DeleteCwType();
    const QString up = GradingPolicyStrings::MoveUp();
    const QString down = GradingPolicyStrings::MoveDown();
    const QString sep = QStringLiteral("-");
    QTest::newRow("only type") << 1 << 0 << QStringList{add, edit};
    QTest::newRow("no entry") << 3 << -1 << QStringList{add};
    QTest::newRow("first of three") << 3 << 0 << QStringList{add, edit, del, sep, down};
    QTest::newRow("middle of three") << 3 << 1 << QStringList{add, edit, del, sep, up, down};
    QTest::newRow("last of three") << 3 << 2 << QStringList{add, edit, del, sep, up};
    QTest::newRow("last of two") << 2 << 1 << QStringList{add, edit, del, sep, up};
}

void TestGradingDlg::typeMenuOfferings()
{
    QFETCH(int, typeCount);
    QFETCH(int, row);
    QFETCH(QStringList, texts);

    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Biology"));
    for (int i = 0; i < typeCount; ++i)
        Records::CwType(course, QStringLiteral("Type %1").arg(i));

    GradingDlg dialog(course);
    QCOMPARE(static_cast<int>(dialog.TypeEntries().size()), typeCount);
    std::unique_ptr<QMenu> menu(dialog.BuildTypeMenu(row, nullptr));
    QCOMPARE(MenuTexts(menu.get()), texts);

    // A command that is not offered does nothing when run anyway.
    if (!texts.contains(GradingPolicyStrings::DeleteCwType())) {
        dialog.RunTypeCommand(GradingDlg::DeleteTypeCommand, row);
        QCOMPARE(static_cast<int>(dialog.TypeEntries().size()), typeCount);
    }
}

void TestGradingDlg::typeMenuOpensWhereAsked_data()
{
    QTest::addColumn<bool>("keyboard");
    QTest::addColumn<int>("row"); // -1: below the entries
    QTest::addColumn<int>("actions");

    // New, Edit, Delete, separator, Move Up / Move Down as the row allows.
    QTest::newRow("Menu key on the last") << true << 2 << 5;
    QTest::newRow("Menu key on the middle") << true << 1 << 6;
    QTest::newRow("right click on the first") << false << 0 << 5;
    QTest::newRow("right click below the entries") << false << -1 << 1;
}

void TestGradingDlg::typeMenuOpensWhereAsked()
{
    QFETCH(bool, keyboard);
    QFETCH(int, row);
    QFETCH(int, actions);

    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Biology"));
    for (const char* name : {"A", "B", "C"})
        Records::CwType(course, QString::fromLatin1(name));
    GradingDlg dialog(course);
    dialog.show();
    QTreeWidget* list = dialog.TypesPage()->List();
    if (keyboard) {
        list->setCurrentItem(list->topLevelItem(row));
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1),
                                list->mapToGlobal(QPoint(1, 1)));
        QCoreApplication::sendEvent(list, &event);
    } else {
        const QPoint at = row >= 0 ? list->visualItemRect(list->topLevelItem(row)).center()
                                   : QPoint(5, list->viewport()->height() - 5);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, list->viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(list->viewport(), &event);
    }
    auto* menu = dialog.findChild<QMenu*>(QStringLiteral("cwTypeMenu"));
    QVERIFY(menu);
    QTRY_VERIFY(menu->isVisible());
    QCOMPARE(menu->actions().size(), actions);
    if (row >= 0)
        QCOMPARE(dialog.TypesPage()->SelectedRow(), row);
    menu->close();
}

void TestGradingDlg::deletedTypeCourseworkMoves_data()
{
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<QString>("receiver");

    // Types are created A, B, C but listed C, A, B: the coursework goes to the
    // first remaining type by record, not by display position.
    QTest::newRow("middle of the table") << QStringLiteral("B") << QStringLiteral("A");
    QTest::newRow("first of the table") << QStringLiteral("A") << QStringLiteral("B");
    QTest::newRow("first on display") << QStringLiteral("C") << QStringLiteral("A");
}

void TestGradingDlg::deletedTypeCourseworkMoves()
{
    QFETCH(QString, deleted);
    QFETCH(QString, receiver);

    TestDatabase db;
    QVERIFY(db.IsReady());
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
    QCOMPARE(Records::Count("Coursework"), 2);
}

void TestGradingDlg::addedThenDeletedNeverStored()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Biology"));
    Records::CwType(course, QStringLiteral("Homework"));

    GradingDlg dialog(course);
    dialog.NewType();
    FillTypePane(dialog, QStringLiteral("Quizzes"), QStringLiteral("2"), QStringLiteral("1"));
    QVERIFY(dialog.ApplyTypeEdit());
    QCOMPARE(static_cast<int>(dialog.TypeEntries().size()), 2);
    dialog.DeleteType(1);
    QVERIFY(dialog.DeletedTypeIds().empty());
    QVERIFY(dialog.Save());

    QCOMPARE(Records::Count("CwType"), 1);
    QCOMPARE(Records::Count("CwTypeOrder"), 1);
}

void TestGradingDlg::reorderRewritesPositions()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Biology"));
    Records::CwType(course, QStringLiteral("A"), 0.0, 0, 3);
    Records::CwType(course, QStringLiteral("B"), 0.0, 0, 7);
    Records::CwType(course, QStringLiteral("C"), 0.0, 0, 12);

    GradingDlg dialog(course);
    dialog.RunTypeCommand(GradingDlg::MoveDownCommand, 0); // B A C
    dialog.RunTypeCommand(GradingDlg::MoveUpCommand, 2);   // B C A
    QCOMPARE(dialog.TypesPage()->SelectedRow(), 1);
    QVERIFY(dialog.Save());

    QCOMPARE(StoredOrder(course),
             (QStringList{QStringLiteral("A@2"), QStringLiteral("B@0"), QStringLiteral("C@1")}));
}

void TestGradingDlg::okWritesEditsAndNewTypes()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Biology"));
    const quint32 homework = Records::CwType(course, QStringLiteral("Homework"));
    Records::Policy(course, CGradingPolicyTable::WeightNone);
    Records::MinimumPercent(course, 0, 90.0);
    Records::MinimumPercent(course, 1, 80.0);

    GradingDlg dialog(course);
    dialog.EditType(0);
    FillTypePane(dialog, QStringLiteral("Problem Sets"), QStringLiteral("1.5"),
                 QStringLiteral("2"));
    QVERIFY(dialog.ApplyTypeEdit());
    dialog.NewType();
    FillTypePane(dialog, QStringLiteral("Exams"), QStringLiteral("3"), QStringLiteral("0"));
    QVERIFY(dialog.ApplyTypeEdit());
    dialog.SetWeighting(CGradingPolicyTable::WeightByType);
    dialog.EditMinimum(1);
    TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), QStringLiteral("78.5"));
    QVERIFY(dialog.ApplyMinimumEdit());
    QVERIFY(dialog.Save());

    CCwTypeTable type;
    type.Open();
    QVERIFY(type.MoveToRecord(homework));
    QCOMPARE(type.GetCwTypeName(), QStringLiteral("Problem Sets"));
    QCOMPARE(type.GetWeight(), 1.5);
    QCOMPARE(type.GetDrops(), quint16(2));
    const quint32 exams = dialog.TypeEntries().at(1).id;
    QVERIFY(exams != 0);
    QVERIFY(type.MoveToRecord(exams));
    QCOMPARE(type.GetCourseID(), course);
    QCOMPARE(type.GetWeight(), 3.0);
    QCOMPARE(StoredOrder(course),
             (QStringList{QStringLiteral("Exams@1"), QStringLiteral("Problem Sets@0")}));
    QCOMPARE(CGradingPolicyTable::GetWeightingFromCourseID(course),
             CGradingPolicyTable::WeightByType);

    CGradingPolicyGradeTable grades;
    grades.Open(0);
    const CCeDBProp key(course);
    grades.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QMap<quint16, double> minimums;
    for (int ok = grades.MoveFirst(1); ok; ok = grades.MoveNext(1))
        minimums[grades.GetGrade()] = grades.GetMinimumPercent();
    QCOMPARE(minimums, (QMap<quint16, double>{{0, 90.0}, {1, 78.5}}));
}

void TestGradingDlg::cancelWritesNothing()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
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
    FillTypePane(dialog, QStringLiteral("Quizzes"), QStringLiteral("1"), QStringLiteral("0"));
    QVERIFY(dialog.ApplyTypeEdit());
    dialog.RunTypeCommand(GradingDlg::MoveUpCommand, 1);
    dialog.SetWeighting(CGradingPolicyTable::WeightPerItem);
    dialog.EditMinimum(0);
    TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), QStringLiteral("50"));
    QVERIFY(dialog.ApplyMinimumEdit());
    dialog.reject();

    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(DumpPolicyTables(), before);
}

void TestGradingDlg::paneRefusesOutOfRange_data()
{
    QTest::addColumn<bool>("typePane");
    QTest::addColumn<QStringList>("input"); // name, weight, drops; or the percent
    QTest::addColumn<QString>("message");   // empty: accepted

    const QString percent = GradingPolicyStrings::MinimumOutOfRange();
    const QString name = GradingPolicyStrings::TypeNameEmpty();
    const QString weight = GradingPolicyStrings::TypeWeightOutOfRange();
    const QString drops = GradingPolicyStrings::TypeDropsOutOfRange();
    QTest::newRow("percent 0") << false << QStringList{QStringLiteral("0")} << QString();
    QTest::newRow("percent 100") << false << QStringList{QStringLiteral("100")} << QString();
    QTest::newRow("percent 100.01") << false << QStringList{QStringLiteral("100.01")} << percent;
    QTest::newRow("percent negative") << false << QStringList{QStringLiteral("-1")} << percent;
    QTest::newRow("percent empty") << false << QStringList{QString()} << percent;
    QTest::newRow("type ok") << true
                             << QStringList{QStringLiteral("Labs"), QStringLiteral("0"),
                                            QStringLiteral("99")}
                             << QString();
    QTest::newRow("name empty") << true
                                << QStringList{QString(), QStringLiteral("1"), QStringLiteral("0")}
                                << name;
    QTest::newRow("name blank") << true
                                << QStringList{QStringLiteral("   "), QStringLiteral("1"),
                                               QStringLiteral("0")}
                                << name;
    QTest::newRow("weight negative")
        << true << QStringList{QStringLiteral("Labs"), QStringLiteral("-0.5"), QStringLiteral("0")}
        << weight;
    QTest::newRow("weight empty") << true
                                  << QStringList{QStringLiteral("Labs"), QString(),
                                                 QStringLiteral("0")}
                                  << weight;
    QTest::newRow("drops 100") << true
                               << QStringList{QStringLiteral("Labs"), QStringLiteral("1"),
                                              QStringLiteral("100")}
                               << drops;
    QTest::newRow("drops negative")
        << true << QStringList{QStringLiteral("Labs"), QStringLiteral("1"), QStringLiteral("-1")}
        << drops;
    QTest::newRow("drops empty") << true
                                 << QStringList{QStringLiteral("Labs"), QStringLiteral("1"),
                                                QString()}
                                 << drops;
}

void TestGradingDlg::paneRefusesOutOfRange()
{
    QFETCH(bool, typePane);
    QFETCH(QStringList, input);
    QFETCH(QString, message);

    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Biology"));
    Records::CwType(course, QStringLiteral("Homework"));
    Records::MinimumPercent(course, 0, 90.0);

    GradingDlg dialog(course);
    MessageAnswers answers;
    bool applied = false;
    if (typePane) {
        dialog.NewType();
        FillTypePane(dialog, input.at(0), input.at(1), input.at(2));
        applied = dialog.ApplyTypeEdit();
    } else {
        dialog.EditMinimum(0);
        TypeInto(dialog.GradingPage()->Editor()->PercentEdit(), input.at(0));
        applied = dialog.ApplyMinimumEdit();
    }

    QCOMPARE(applied, message.isEmpty());
    QCOMPARE(answers.Texts(), message.isEmpty() ? QStringList() : QStringList{message});
    if (typePane) {
        QCOMPARE(static_cast<int>(dialog.TypeEntries().size()), applied ? 2 : 1);
        QCOMPARE(dialog.EditingTypeRow(),
                 applied ? int(GradingDlg::NotEditing) : int(GradingDlg::EditingNewType));
    } else {
        QCOMPARE(dialog.MinimumEntries().at(0).minimum, applied ? input.at(0).toDouble() : 90.0);
        QCOMPARE(dialog.EditingMinimumRow(), applied ? -1 : 0);
    }
}

void TestGradingDlg::okKeepsDialogOpenOnRefusedPane()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Biology"));
    Records::CwType(course, QStringLiteral("Homework"));
    const QStringList before = DumpPolicyTables();

    GradingDlg dialog(course);
    dialog.show();
    dialog.EditType(0);
    FillTypePane(dialog, QStringLiteral("Homework"), QStringLiteral("-2"), QStringLiteral("0"));
    MessageAnswers answers;
    dialog.accept();

    QVERIFY(dialog.isVisible());
    QCOMPARE(answers.Texts(), QStringList{GradingPolicyStrings::TypeWeightOutOfRange()});
    QCOMPARE(DumpPolicyTables(), before);

    // An unapplied but valid pane is taken in by OK.
    TypeInto(dialog.TypesPage()->Editor()->WeightEdit(), QStringLiteral("4"));
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.TypeEntries().at(0).weight, 4.0);
}

void TestGradingDlg::startFlagOpensNewType()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Biology"));
    Records::CwType(course, QStringLiteral("Homework"));

    GradingDlg plain(course);
    QCOMPARE(plain.EditingTypeRow(), int(GradingDlg::NotEditing));
    QVERIFY(!plain.TypesPage()->PaneOpen());

    GradingDlg dialog(course, true);
    QCOMPARE(dialog.EditingTypeRow(), int(GradingDlg::EditingNewType));
    QVERIFY(dialog.TypesPage()->PaneOpen());
    QCOMPARE(dialog.Pages()->currentWidget(), dialog.TypesPage());
    QCOMPARE(dialog.TypesPage()->Editor()->NameEdit()->text(), QString());
    QCOMPARE(dialog.TypesPage()->Editor()->WeightEdit()->Value(), 0.0);
    QCOMPARE(dialog.TypesPage()->Editor()->DropsEdit()->Value(), 0.0);
}

void TestGradingDlg::typeNameLimitedTo25()
{
    CwTypeEditor editor;
    QTest::keyClicks(editor.NameEdit(), QStringLiteral("Laboratory Reports And More Besides"));
    QCOMPARE(editor.NameEdit()->text(), QStringLiteral("Laboratory Reports And Mo"));
}

void TestGradingDlg::typePaneLabelColumnIs40Percent()
{
    CwTypeEditor editor;
    editor.resize(500, editor.sizeHint().height());
    editor.show();
    const auto labels = editor.findChildren<QLabel*>();
    QCOMPARE(labels.size(), 3);
    for (const QLabel* label : labels) {
        QCOMPARE(label->x(), 0);
        QCOMPARE(label->width(), 200);
    }
    QCOMPARE(editor.NameEdit()->x(), 200);
    QVERIFY(editor.NameEdit()->geometry().right() < 500);
    QVERIFY(editor.WeightEdit()->y() > editor.NameEdit()->geometry().bottom());
    QVERIFY(editor.DropsEdit()->y() > editor.WeightEdit()->geometry().bottom());
}

QTEST_MAIN(TestGradingDlg)
#include "tst_gradingdlg.moc"
