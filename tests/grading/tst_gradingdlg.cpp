// The grading dialogs and the reports. The grading policy dialog: the type
// list's menu, deleting, adding and moving types, the edit panes' refusals, OK
// with an open pane or a failed write (in one transaction), Cancel and the
// policy warnings; the grade prediction options: scores to give per type, kept
// per course until OK, refused out of range, and never a recompute. The
// institution dialog: choosing a predefined scale (the scales file missing
// too), saving with the same or a new grade count (minimums kept or rebuilt),
// the grade limits and the past GPA; a refused or failed save changes nothing;
// the predefined grade scales file on its own: the shipped file, the program's
// own number routines, a last line ended with LF or CR LF, truncated and
// hostile input. The report dialogs as the user reads them: the progress
// report's rows and lines, a grade as every place shows it (under a comma
// locale, and a grade that is not a number as no score), the report card's GPA
// lines with the grade bar's, its rows and chart, and the grade planner dialog
// with where it is reached from (the Tools menu, the progress report), the
// grade bar's best and worst case and the GPA bar after the institution's OK.
// (The planner's answers: tst_gradecalculation.)
//
// Faults tried and caught: a failed commit ignored by Save (OK closes the
// dialog without a word: "INSERT ON CwType refused"); OK no longer discarding
// an untouched new-type pane ("untouched new pane is no type"); the
// institution's OK not writing the past points (saveWritesGpaInfo); the scales
// file's last LF / CR LF kept in the last field (numbers "final line feed",
// "final CR LF"; anyInputReturns); the report card's row testing for -1 instead
// of any score ("0/0", "infinite" show a percent); the grade bar's percent
// without its cut above 100, PercentOf for PercentOfCut ("above 100: the bar
// alone cuts").
#include "GradingFixtures.h"
#include "app/GradeBarText.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/DialogRunner.h"
#include "controls/NumericEdit.h"
#include "editors/EditorRecords.h"
#include "grading/GradeScalesFile.h"
#include "grading/dialogs/CwTypeEditor.h"
#include "grading/dialogs/GradeChart.h"
#include "grading/dialogs/GradePlannerDlg.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/GradingDlgGradingPage.h"
#include "grading/dialogs/GradingDlgTypesPage.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/InstitutionDlgGpaPage.h"
#include "grading/dialogs/MinimumPercentEditor.h"
#include "grading/dialogs/ProgressReportDlg.h"
#include "grading/dialogs/ReportCardDlg.h"
#include "store/BrindleData.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <QtTest>

#include <clocale>
#include <limits>

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

// Two predefined scales; the file is one line of comma-separated fields.
const char ScalesFile[] = "2,Pass/Fail,2,P,1.0,F,0.0,Five Grades,5,A,4.0,B,3.0,C,2.0,D,1.0,E,-0.5";

// "name=points" per stored grade, in grade order.
QStringList StoredScale()
{
    return Records::Rows("SELECT Grade || ':' || GradeName || '=' || printf('%g', GradePoints) "
                         "FROM GradeScale ORDER BY Grade");
}

// Past hours, past points and the weighted flag, as "hours|points|flag".
QStringList StoredGpaInfo()
{
    return Records::Rows("SELECT printf('%g|%g|%d', TotalPastHours, TotalPastPoints, "
                         "WeightedByCourseHours) FROM GPAInfo");
}

// Everything read, as text, so that two readings compare as a whole (a NaN
// points value prints as "nan" and equals itself).
QStringList Describe(const std::vector<GradeScale>& scales)
{
    QStringList lines;
    for (const GradeScale& scale : scales) {
        lines << scale.name;
        for (const GradeScaleEntry& grade : scale.grades)
            lines << grade.name + QLatin1Char('=') + QString::number(grade.points, 'g', 17);
    }
    return lines;
}

// One coursework of the test type: score, possible, completed percent.
struct Item
{
    double score;
    double possible;
    quint16 completed;
};

// A course with A to D at 90 / 80 / 70 / 60, weighting None.
quint32 Course(const QString& name, double grade = -1.0, bool inMajor = false, double hours = 3.0,
               quint32 semester = WorkingSemesterID)
{
    const quint32 course = Fixture::GradedCourse(name, grade, hours, inMajor, semester);
    Records::Policy(course, CGradingPolicyTable::WeightNone);
    return course;
}

// Homework 40/50 done, the final (50 points) still to come.
quint32 PlannedCourse(const QString& name)
{
    const quint32 course = Course(name);
    const quint32 type = Records::CwType(course, u"Homework"_s);
    Records::Coursework(course, type, u"Homework 1"_s, 40.0, 50.0);
    Records::Coursework(course, type, u"Final"_s, -1.0, 50.0);
    RecomputeCourseGrade(course);
    return course;
}

QString LabelText(const QWidget& dialog, const QString& name)
{
    const auto* label = dialog.findChild<QLabel*>(name);
    return label ? label->text() : u"(no %1)"_s.arg(name);
}

QStringList RowTexts(const QTreeWidgetItem* item)
{
    QStringList texts;
    for (int column = 0; item && column < item->columnCount(); ++column)
        texts << item->text(column);
    return texts;
}

} // namespace

Q_DECLARE_METATYPE(std::vector<Item>)

class TestGradingDlg : public DatabaseTest
{
    Q_OBJECT

    QTemporaryDir m_installDir;
    QByteArray m_shippedDir; // the build's installation folder

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        QVERIFY(m_installDir.isValid());
        QFile file(m_installDir.filePath(u"GradeScales.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(ScalesFile);
        file.close();
        m_shippedDir = qgetenv("BRINDLE_INSTALL_DIR");
        qputenv("BRINDLE_INSTALL_DIR", QFile::encodeName(m_installDir.path()));
    }

    void selectorOffersCurrentFileScalesAndCustom()
    {
        InstitutionDlg dialog;
        auto* combo = dialog.findChild<QComboBox*>(u"scaleCombo"_s);
        QVERIFY(combo);
        QStringList items;
        for (int i = 0; i < combo->count(); ++i)
            items << combo->itemText(i);
        QCOMPARE(items, (QStringList{u"Current"_s, u"Pass/Fail"_s, u"Five Grades"_s, u"Custom"_s}));
        QCOMPARE(combo->currentIndex(), 0);
        QCOMPARE(dialog.Grades().size(), size_t(4));

        // Choosing as the user does copies the scale into the list.
        combo->setCurrentIndex(2);
        emit combo->activated(2);
        QCOMPARE(dialog.Grades().size(), size_t(5));
        QCOMPARE(dialog.Grades().back().points, 0.5); // "-0.5" as the file reader reads it

        dialog.ChooseScale(3);
        QVERIFY(dialog.Grades().empty());

        // Without the file: the current scale and a custom one.
        QTemporaryDir empty;
        const QByteArray saved = qgetenv("BRINDLE_INSTALL_DIR");
        qputenv("BRINDLE_INSTALL_DIR", QFile::encodeName(empty.path()));
        InstitutionDlg bare;
        qputenv("BRINDLE_INSTALL_DIR", saved);
        QCOMPARE(bare.ScaleNames(), (QStringList{u"Current"_s, u"Custom"_s}));
    }
    void saveKeepsOrRebuildsMinimums_data()
    {
        QTest::addColumn<QList<double>>("before");
        QTest::addColumn<int>("grades");
        QTest::addColumn<QList<double>>("after");

        // Updated in place, grade by grade.
        QTest::newRow("same count keeps them")
            << QList<double>{93, 85, 71.5, 65} << 4 << QList<double>{93, 85, 71.5, 65};
        QTest::newRow("lowest 60, five grades")
            << QList<double>{90, 80, 70, 60} << 5 << QList<double>{92, 84, 76, 68, 60};
        QTest::newRow("lowest anywhere in the table")
            << QList<double>{70, 90} << 3 << QList<double>{90, 80, 70};
        QTest::newRow("truncated, not rounded")
            << QList<double>{80, 55, 70} << 2 << QList<double>{77, 55};
        QTest::newRow("no minimums before") << QList<double>{} << 2 << QList<double>{100, 100};
    }
    void saveKeepsOrRebuildsMinimums()
    {
        QFETCH(QList<double>, before);
        QFETCH(int, grades);
        QFETCH(QList<double>, after);

        // Every course of every semester is rebuilt, archived ones too.
        const quint32 working = Fixture::GradedCourse(u"Art"_s, -1.0, 3.0, true, 0, before);
        const quint32 archived = Fixture::GradedCourse(u"Music"_s, -1.0, 3.0, true,
                                                       Records::Semester(u"Spring"_s), before);

        InstitutionDlg dialog;
        dialog.ChooseScale(dialog.ScaleNames().size() - 1);
        for (int i = 0; i < grades; ++i)
            QVERIFY(dialog.AddGrade({u"G%1"_s.arg(i), double(grades - i)}));
        QVERIFY(dialog.Save());

        QStringList expected;
        for (int i = 0; i < grades; ++i)
            expected << u"%1:G%1=%2"_s.arg(i).arg(grades - i);
        QCOMPARE(StoredScale(), expected);
        QCOMPARE(Fixture::StoredMinimums(working), after);
        QCOMPARE(Fixture::StoredMinimums(archived), after);
    }
    void scaleLimits()
    {
        InstitutionDlg dialog;
        dialog.ChooseScale(dialog.ScaleNames().size() - 1);
        MessageAnswers answers;
        for (int i = 0; i < InstitutionDlg::MaxGrades; ++i)
            QVERIFY(dialog.AddGrade({u"G%1"_s.arg(i), 1.0}));
        // A thirteenth grade is refused, by hand or before the sub-dialog opens.
        QVERIFY(!dialog.AddGrade({u"One too many"_s, 0.0}));
        int opened = 0;
        DialogRunner::SetHook([&opened](QDialog&) { return ++opened, int(QDialog::Rejected); });
        QVERIFY(!dialog.NewGrade());
        QCOMPARE(opened, 0);
        const QString full =
            u"A grade scale holds at most 12 grades. Delete a grade before adding another."_s;
        QCOMPARE(answers.Texts(), QStringList(2, full));
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QCOMPARE(StoredScale().size(), 12);
    }
    void saveWritesGpaInfo()
    {
        QVERIFY(CDataTable::GetMount()->Execute(
            "UPDATE GPAInfo SET TotalPastHours = 12, TotalPastPoints = 36"));

        InstitutionDlg dialog;
        InstitutionDlgGpaPage* page = dialog.GpaPage();
        QCOMPARE(page->HoursField()->Value(), 12.0);
        QCOMPARE(page->PointsField()->Value(), 36.0);
        QVERIFY(page->IsPastGpaShown());
        QVERIFY(!page->ShowWithHoursBox()->isChecked());

        page->ShowWithHoursBox()->setChecked(true);
        page->HoursField()->setText(u"45.5"_s);
        page->PointsField()->clear(); // an empty field is no past points
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));

        QCOMPARE(StoredGpaInfo(), QStringList{u"45.5|0|1"_s});
        QCOMPARE(CAppStateTable::Instance().GetShowGPAWithHours(), 1);
        // The long-lived state object does not write its old flag back.
        QVERIFY(CAppStateTable::Instance().UpdateRecord());
        QCOMPARE(StoredGpaInfo(), QStringList{u"45.5|0|1"_s});
        QVERIFY(m_db->Reopen());
        QCOMPARE(CAppStateTable::Instance().GetShowGPAWithHours(), 1);
    }
    void refusedSaveChangesNothing_data()
    {
        QTest::addColumn<int>("scale"); // 1: two grades instead of four, 3: none
        QTest::addColumn<QString>("points");
        QTest::addColumn<QByteArray>("refused"); // a step a trigger aborts
        QTest::addColumn<QString>("message");

        QTest::newRow("no grades") << 3 << u"5"_s << QByteArray()
                                   << u"The grade scale needs at least one grade. Add a grade or "
                                      "choose a scale from the list."_s;
        QTest::newRow("negative past points")
            << 1 << u"-4"_s << QByteArray() << u"Past hours and past points cannot be negative."_s;
        // The minimum-percent rebuild fails half way, after the scale was
        // rewritten; SQLite's reason is the trigger's own message.
        QTest::newRow("failed write")
            << 1 << u"5"_s << QByteArray("INSERT ON GradingPolicyGrade")
            << u"The change could not be saved (refused). Nothing was changed."_s;
    }
    void refusedSaveChangesNothing()
    {
        QFETCH(int, scale);
        QFETCH(QString, points);
        QFETCH(QByteArray, refused);
        QFETCH(QString, message);

        Course(u"Art"_s);
        const QStringList before = EditorRecords::DumpAll();
        if (!refused.isEmpty())
            QVERIFY(Fixture::Refuse(refused));
        InstitutionDlg dialog;
        dialog.ChooseScale(scale);
        dialog.GpaPage()->HoursField()->setText(u"10"_s);
        dialog.GpaPage()->PointsField()->setText(points);
        MessageAnswers answers;
        dialog.accept();

        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(answers.Texts(), QStringList{message});
        QCOMPARE(EditorRecords::DumpAll(), before);
    }

    void shippedFileHoldsTheCommonScales()
    {
        qputenv("BRINDLE_INSTALL_DIR", m_shippedDir);
        const auto shipped = LoadPredefinedGradeScales();
        qputenv("BRINDLE_INSTALL_DIR", QFile::encodeName(m_installDir.path()));
        QStringList read;
        for (const GradeScale& scale : shipped) {
            QStringList grades;
            for (const GradeScaleEntry& e : scale.grades)
                grades << e.name + QLatin1Char(' ') + QString::number(e.points);
            read << grades.join(QLatin1Char(','));
        }
        const QString below = u"A 4,A- 3.7,B+ 3.3,B 3,B- 2.7,C+ 2.3,C 2,C- 1.7,D+ 1.3,D 1,D- 0.7"_s;
        QCOMPARE(read,
                 (QStringList{u"A 4,B 3,C 2,D 1"_s, u"A+ 4,"_s + below, u"A+ 4.3,"_s + below}));
    }
    void numbers_data()
    {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<double>("points");

        QTest::newRow("3.05: B 5, L 2") << QByteArray("3.05") << 3.05;
        QTest::newRow("-0.5 reads 0.5") << QByteArray("-0.5") << 0.5;
        QTest::newRow("only the first dot splits")
            << QByteArray("1.2.") << 1.18; // B = 2 x 10 + ('.' - '0')
        QTest::newRow("a letter adds its code minus 48") << QByteArray("x") << 72.0;
        QTest::newRow("a line break is a character too") << QByteArray("\n3") << -377.0;
        QTest::newRow("a lone minus") << QByteArray("-") << 0.0;
        QTest::newRow("leading zeros of a long field") << QByteArray(400, '0') + "7" << 7.0;
        // The end of the file's last line, as editors write it, is not part of it.
        QTest::newRow("final line feed") << QByteArray("0.7\n") << 0.7;
        QTest::newRow("final CR LF") << QByteArray("0.7\r\n") << 0.7;
        QTest::newRow("final blank lines") << QByteArray("0.7\n\r\n\n") << 0.7;
    }
    void numbers()
    {
        QFETCH(QByteArray, field);
        QFETCH(double, points);
        const auto scales = ParseGradeScales("1,S,1,A," + field);
        QVERIFY(scales.size() == 1 && scales[0].grades.size() == 1);
        QCOMPARE(scales[0].grades[0].points, points);
    }
    void fieldsKeepLineBreaksAndWidenSigned()
    {
        const auto scales = ParseGradeScales("1,\r\nMy\xE9 scale,2,A,4.0,B\n,3.0");
        QCOMPARE(scales.size(), size_t(1));
        QCOMPARE(scales[0].name, u"\r\nMy"_s + QChar(0xFFE9) + u" scale"_s);
        QCOMPARE(scales[0].grades.size(), size_t(2));
        QCOMPARE(scales[0].grades[1].name, u"B\n"_s);
        QCOMPARE(scales[0].grades[1].points, 3.0);
    }
    void structure_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QList<int>>("gradeCounts"); // one entry per scale read

        QTest::newRow("empty") << QByteArray() << QList<int>{};
        QTest::newRow("negative count") << QByteArray("-2,S,1,A,4") << QList<int>{};
        QTest::newRow("two scales") << QByteArray("2,S,1,A,4,T,2,A,4,B,3") << QList<int>{1, 2};
        QTest::newRow("fields beyond the count are ignored")
            << QByteArray("1,S,1,A,4,T,1,A,4") << QList<int>{1};
        QTest::newRow("truncated inside a grade") << QByteArray("2,S,2,A,4.0,B") << QList<int>{1};
        QTest::newRow("truncated after a name") << QByteArray("1,S") << QList<int>{};
        QTest::newRow("huge counts, few fields")
            << QByteArray("99999999999999999999,S,88888888888,A,4") << QList<int>{1};
        QTest::newRow("count of digits beyond any double")
            << QByteArray(400, '9') + ",S,1,A,4" << QList<int>{1};
        // Its points NaN, but one grade still.
        QTest::newRow("decimals beyond any double")
            << "1,S,1,A,1." + QByteArray(400, '5') << QList<int>{1};
    }
    void structure()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QList<int>, gradeCounts);
        QList<int> read;
        for (const GradeScale& scale : ParseGradeScales(bytes))
            read << int(scale.grades.size());
        QCOMPARE(read, gradeCounts);
    }
    void anyInputReturns()
    {
        // Fixed seed: a failure is reproducible. Inputs are biased towards the
        // characters that matter to the parser so that they get deep into it.
        QRandomGenerator random(20240611);
        static const char alphabet[] = ",,,,0123456789-.\r\n";
        for (int round = 0; round < 1000; ++round) {
            QByteArray bytes;
            const int length = random.bounded(0, round < 980 ? 120 : 20000);
            const bool anyByte = random.bounded(4) == 0;
            for (int i = 0; i < length; ++i)
                bytes += anyByte ? static_cast<char>(random.bounded(256))
                                 : alphabet[random.bounded(int(sizeof alphabet - 1))];
            const auto scales = ParseGradeScales(bytes);
            // A last line ended as editors end it reads the same.
            QCOMPARE(Describe(ParseGradeScales(bytes + "\r\n")), Describe(scales));
            size_t grades = 0;
            for (const GradeScale& scale : scales)
                grades += scale.grades.size();
            // Every scale takes two fields and every grade two, after the count.
            QVERIFY(2 * (scales.size() + grades) < size_t(bytes.count(',') + 1));
        }
        // One field of a million digits, and of a million minus signs.
        QVERIFY(ParseGradeScales(QByteArray(1000000, '9')).empty());
        QVERIFY(ParseGradeScales(QByteArray(1000000, '-')).empty());
    }

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

    void typeRow_data()
    {
        QTest::addColumn<quint16>("drops");
        QTest::addColumn<std::vector<Item>>("items");
        QTest::addColumn<QString>("shown"); // the row's counts and score, the completion line

        QTest::newRow("no coursework")
            << quint16(0) << std::vector<Item>{} << u"0 of 0 completed|-|No Courseworks"_s;
        QTest::newRow("ungraded only, still counted")
            << quint16(0) << std::vector<Item>{{-1.0, 10.0, 100}, {-1.0, 20.0, 0}}
            << u"1 of 2 completed|-|1 of 2 courseworks completed"_s;
        QTest::newRow("graded and ungraded")
            << quint16(0) << std::vector<Item>{{8.0, 10.0, 100}, {5.0, 10.0, 100}, {-1.0, 10.0, 0}}
            << u"2 of 3 completed|65% D|2 of 3 courseworks completed"_s;
        QTest::newRow("lowest dropped")
            << quint16(1) << std::vector<Item>{{8.0, 10.0, 100}, {5.0, 10.0, 100}}
            << u"2 of 2 completed|80% B|2 of 2 courseworks completed"_s;
        QTest::newRow("done past 100 counts as completed")
            << quint16(0) << std::vector<Item>{{87.654, 100.0, 120}}
            << u"1 of 1 completed|87.66% B|1 of 1 courseworks completed"_s;
    }
    void typeRow()
    {
        QFETCH(quint16, drops);
        QFETCH(std::vector<Item>, items);
        QFETCH(QString, shown);

        const quint32 course = Course(u"Geology"_s);
        const quint32 type = Records::CwType(course, u"Labs"_s, 0.0, drops);
        for (const Item& item : items)
            Records::Coursework(course, type, u"Lab"_s, item.score, item.possible, 0.0,
                                item.completed);

        ProgressReportDlg dialog(course);
        auto* rows = dialog.findChild<QTreeWidget*>(u"typeRows"_s);
        QVERIFY(rows && rows->topLevelItemCount() == 1);
        QCOMPARE(RowTexts(rows->topLevelItem(0)) << LabelText(dialog, u"completionLabel"_s),
                 QString(u"Labs|"_s + shown).split(u'|'));
    }
    void typesInTypeOrderWithTotals()
    {
        const quint32 course = Course(u"Geology"_s);
        const quint32 labs = Records::CwType(course, u"Labs"_s, 0.0, 0, 2);
        const quint32 exams = Records::CwType(course, u"Exams"_s, 0.0, 0, 0);
        const quint32 quizzes = Records::CwType(course, u"Quizzes"_s, 0.0, 0, 1);
        Records::Coursework(course, labs, u"Lab 1"_s, 9.0, 10.0, 0.0, 100);
        Records::Coursework(course, labs, u"Lab 2"_s, -1.0, 10.0, 0.0, 40);
        Records::Coursework(course, exams, u"Midterm"_s, 71.0, 100.0, 0.0, 100);
        Records::Coursework(course, quizzes, u"Quiz 1"_s, -1.0, 5.0, 0.0, 0);
        // Another course's coursework stays out of this report.
        const quint32 other = Course(u"History"_s);
        Records::Coursework(other, Records::CwType(other, u"Labs"_s), u"Lab"_s, 1.0, 1.0, 0.0, 100);

        ProgressReportDlg dialog(course);
        QStringList rows;
        for (const auto& row : dialog.Rows())
            rows << row.name + u'|' + ProgressReportDlg::ScoreText(row);
        QCOMPARE(rows, (QStringList{u"Exams|71% C"_s, u"Quizzes|-"_s, u"Labs|90% A"_s}));
        QCOMPARE(dialog.CompletionText(), u"2 of 4 courseworks completed"_s);
    }

    void gradeEverywhere_data()
    {
        QTest::addColumn<double>("stored");
        QTest::addColumn<double>("predicted"); // -1: prediction mode off
        // The progress report's line, the grade bar, the report card's row and GPA.
        QTest::addColumn<QString>("texts");

        const QString none = u"No Score|Grade: --||GPA:"_s;
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("no score") << -1.0 << -1.0 << none;
        // Kept as computed, but no score to show or to count.
        QTest::newRow("0/0") << nan << -1.0 << none;
        QTest::newRow("negative 0/0") << -nan << -1.0 << none;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << -1.0 << none;
        QTest::newRow("rounded up")
            << 0.87654 << -1.0 << u"Grade: 87.66% B|Grade: 87.66% B|87.66% B|GPA: 3.000"_s;
        QTest::newRow("shown as 90, graded on the unrounded value")
            << 0.899999 << -1.0 << u"Grade: 90% B|Grade: 90% B|90% B|GPA: 3.000"_s;
        QTest::newRow("above 100: the bar alone cuts")
            << 1.125 << -1.0 << u"Grade: 112.5% A|Grade: 112% A|112.5% A|GPA: 4.000"_s;
        QTest::newRow("zero is a score") << 0.0 << -1.0 << u"Grade: 0%|Grade: 0%|0%|GPA: 0.000"_s;
        QTest::newRow("predicted")
            << 0.72 << 0.95 << u"Grade: 95% A|Grade: 95% A|95% A|GPA: 4.000"_s;
    }
    void gradeEverywhere()
    {
        QFETCH(double, stored);
        QFETCH(double, predicted);
        QFETCH(QString, texts);

        // The texts read the stored grade; they do not recompute it.
        const quint32 course = Course(u"Geology"_s, stored);
        Records::CwType(course, u"Homework"_s);
        CAppStateTable::Instance().SetCurrentCourseID(course);
        if (predicted >= 0.0) {
            CPredictionStore::Instance().SetActive(true);
            CPredictionStore::Instance().SetPredictedGrade(course, predicted);
        }
        // German numbers (a decimal comma) in Qt and, where installed, in C.
        std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        const auto restore = qScopeGuard([] {
            std::setlocale(LC_NUMERIC, "C");
            QLocale::setDefault(QLocale::c());
        });

        ProgressReportDlg report(course);
        ReportCardDlg card;
        QVERIFY(card.Rows().size() == 1);
        QCOMPARE((QStringList{LabelText(report, u"gradeLabel"_s), GradeBarText(),
                              ReportCardDlg::ScoreText(card.Rows().front()),
                              LabelText(card, u"gpaLabel"_s)}),
                 texts.split(u'|'));
    }

    // The report card's lines and the grade bar over all courses.
    void gpaLines()
    {
        auto shown = [] {
            ReportCardDlg dialog;
            return QStringList{LabelText(dialog, u"gpaLabel"_s),
                               LabelText(dialog, u"majorGpaLabel"_s),
                               LabelText(dialog, u"cumulativeGpaLabel"_s), GradeBarText()};
        };
        Course(u"Ungraded"_s, -1.0, true);
        QCOMPARE(shown(), (QStringList{u"GPA:"_s, u"Maj GPA:"_s, u"Cum. GPA:"_s, u"GPA:"_s}));

        Course(u"Algebra"_s, 0.95, true, 4.0);
        Course(u"Drawing"_s, 0.75, false, 2.0);
        QCOMPARE(shown(), (QStringList{u"GPA: 3.000"_s, u"Maj GPA: 4.000"_s, u"Cum. GPA: 3.000"_s,
                                       u"GPA: 3.00"_s}));
        CAppStateTable::Instance().SetShowGPAWithHours(true);
        CAppStateTable::Instance().UpdateRecord();
        // An archived D for 3 hours counts cumulatively only: (16 + 4 + 3) / 9.
        Course(u"Old"_s, 0.65, false, 3.0, Records::Semester(u"Fall"_s));
        QCOMPARE(shown(), (QStringList{u"GPA: 3.333"_s, u"Maj GPA: 4.000"_s, u"Cum. GPA: 2.556"_s,
                                       u"GPA: 3.33"_s}));
    }
    void rowsAndChartFollowCourseOrder()
    {
        Course(u"Zoology"_s, 0.91);
        const quint32 algebra = Records::Course(u"Algebra"_s, WorkingSemesterID, 0.5);
        Records::MinimumPercent(algebra, 0, 85.0);
        Records::MinimumPercent(algebra, 2, 45.0); // grade 1 missing: counts as 0
        Course(u"Chemistry"_s, -1.0);
        Course(u"Archived"_s, 0.9, false, 3.0, Records::Semester(u"Fall"_s));
        // The predicted grade stands in for the stored one in prediction mode.
        CPredictionStore::Instance().SetActive(true);
        CPredictionStore::Instance().SetPredictedGrade(algebra, 0.48);

        ReportCardDlg dialog;
        QStringList rows;
        for (const auto& row : dialog.Rows())
            rows << row.name + u'|' + ReportCardDlg::ScoreText(row);
        QCOMPARE(rows, (QStringList{u"Zoology|91% A"_s, u"Algebra|48% B"_s, u"Chemistry|"_s}));

        const auto& chart = dialog.Chart()->Courses();
        QCOMPARE(static_cast<int>(chart.size()), 3);
        QCOMPARE(chart[1].fraction, 0.48);
        QStringList bands;
        for (const auto& band : chart[1].bands)
            bands << u"%1@%2"_s.arg(band.gradeName).arg(band.minimum);
        QCOMPARE(bands, (QStringList{u"A@85"_s, u"B@0"_s, u"C@45"_s}));
        QCOMPARE(chart[2].fraction, -1.0);
        // A screen reader hears each course as the chart draws it.
        const QStringList spoken = dialog.Chart()->accessibleDescription().split(u'\n');
        QVERIFY2(spoken.size() == 3 && spoken[1].startsWith(u"Algebra"_s) &&
                     spoken[1].contains(u"48%"_s) && spoken[1].endsWith(u" B"_s),
                 qPrintable(spoken.join(u'\n')));
        // One scale for every row, from the ten below the lowest minimum above 0
        // (45); a band starting at 0 would squeeze the others.
        QCOMPARE(dialog.Chart()->ScaleLow(), 40.0);
        QCOMPARE(dialog.Chart()->ScaleHigh(), 100.0);
    }
    void chartStaysBounded_data()
    {
        QTest::addColumn<double>("fraction");
        QTest::newRow("950000 %") << 9500.0;    // 95 of 0.0001 points
        QTest::newRow("beyond 1e15 %") << 1e14; // a step of 20 no longer moves
        QTest::newRow("largest double") << std::numeric_limits<double>::max();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    }
    void chartStaysBounded()
    {
        QFETCH(double, fraction);
        GradeChart chart;
        chart.SetCourses(
            {{u"Physics"_s, fraction, {{u"A"_s, 90.0}}}, {u"Art"_s, 0.75, {{u"A"_s, 60.0}}}});
        QVERIFY(chart.ScaleHigh() <= GradeChart::MaxScale);
        QVERIFY(chart.ScaleLow() < chart.ScaleHigh());
        const std::vector<double> ticks = chart.Ticks();
        QVERIFY(ticks.size() >= 2 && ticks.size() <= size_t(GradeChart::MaxTicks) + 1);
        QVERIFY(ticks.front() >= chart.ScaleLow() && ticks.back() <= chart.ScaleHigh());
        chart.resize(chart.sizeHint());
        QVERIFY(!chart.grab().isNull()); // drawing ends
    }
    void plannerAndReportAnswerForTheCourse()
    {
        PlannedCourse(u"Chemistry"_s);
        const quint32 course = PlannedCourse(u"Physics"_s);
        GradePlannerDlg dialog(course);
        QCOMPARE(dialog.CourseCount(), 2);
        QCOMPARE(dialog.SelectedCourse(), 1);
        QCOMPARE(int(dialog.Needs().size()), 4);
        // (40 + 50 p) / 100 reaches 80 % at p = 80 %.
        dialog.SelectGrade(1);
        QVERIFY(dialog.NeedText().startsWith(u"For "_s + dialog.Needs()[1].gradeName));
        QVERIFY(dialog.NeedText().contains(u"80%"_s));
        QCOMPARE(dialog.findChild<QTreeWidget*>(u"needList"_s)->topLevelItem(1)->text(2), u"80%"_s);
        QCOMPARE(dialog.AssumedTexts(), QStringList({u"Homework: Final (out of 50)"_s}));
        QVERIFY(dialog.BestCaseText().contains(u"90%"_s) &&
                dialog.WorstCaseText().contains(u"40%"_s));
        QVERIFY(dialog.WarningTexts().isEmpty());

        dialog.SetTargetGpa(QString());
        QCOMPARE(dialog.GpaAnswerText(), u"Type the semester GPA you aim for."_s);
        dialog.SetTargetGpa(u"99"_s);
        QVERIFY(dialog.GpaAnswerText().startsWith(u"Not reachable"_s));
        dialog.SetTargetGpa(u"0"_s);
        QVERIFY(dialog.GpaAnswerText().startsWith(u"Already secured"_s));

        // The progress report shows the same band and the calculation.
        ProgressReportDlg report(course);
        QVERIFY(report.BandText().contains(u"40%"_s) && report.BandText().contains(u"90%"_s));
        QVERIFY(report.WarningTexts().isEmpty());
        const auto* tree = report.findChild<QTreeWidget*>(u"calculationTree"_s);
        QVERIFY(tree && tree->topLevelItemCount() == 1);
        QCOMPARE(RowTexts(tree->topLevelItem(0)->child(0)).value(1), u"40 / 50"_s);
        QCOMPARE(RowTexts(tree->topLevelItem(0)->child(1)).value(2), u"not graded yet"_s);
    }
    // The planner from the Tools menu and the progress report, the grade bar's
    // best and worst case, and the GPA bar after the institution's OK.
    void mainFrameReachesAndRefreshes()
    {
        const quint32 course = PlannedCourse(u"Physics"_s);
        CAppStateTable::Instance().SetCurrentCourseID(course);
        QVERIFY(CAppStateTable::Instance().UpdateRecord());
        CMainFrame frame;
        auto* action = frame.findChild<QAction*>(u"actionGradePlanner"_s);
        QVERIFY(action);
        frame.UpdateCommandStates();
        QVERIFY(action->isEnabled());

        QStringList opened;
        DialogRunner::SetHook([&](QDialog& dialog) {
            opened << dialog.objectName();
            if (auto* planner = qobject_cast<GradePlannerDlg*>(&dialog))
                opened << planner->Needs().front().gradeName; // on the current course
            if (auto* report = qobject_cast<ProgressReportDlg*>(&dialog)) {
                report->findChild<QPushButton*>(u"plannerButton"_s)->click();
                return report->result();
            }
            return int(QDialog::Rejected);
        });
        action->trigger();
        frame.findChild<QAction*>(u"actionProgressReport"_s)->trigger();
        QCOMPARE(opened, (QStringList{u"GradePlannerDlg"_s, u"A"_s, u"ProgressReportDlg"_s,
                                      u"GradePlannerDlg"_s, u"A"_s}));

        // The grade bar's tooltip gives the best and worst case of the course only.
        QLabel* bar = frame.View()->GradeBar();
        QVERIFY(bar->toolTip().contains(u"40%"_s) && bar->toolTip().contains(u"90%"_s));
        CAppStateTable::Instance().SetCurrentCourseID(AllCoursesID);
        frame.RefreshGradeBar();
        QVERIFY(bar->toolTip().isEmpty());
        QCOMPARE(bar->text(), u"GPA: 3.00"_s); // 40 of 50 so far: a B

        DialogRunner::SetHook([](QDialog& shown) {
            auto* institution = qobject_cast<InstitutionDlg*>(&shown);
            if (!institution)
                return int(QDialog::Rejected);
            // A moves to the end: grade 1, the course's, is now C.
            institution->DeleteGrade(0);
            institution->AddGrade({u"A"_s, 4.0});
            institution->accept();
            return institution->result();
        });
        frame.findChild<QAction*>(u"actionInstitution"_s)->trigger();
        QCOMPARE(bar->text(), u"GPA: 2.00"_s);
    }
};

QTEST_MAIN(TestGradingDlg)
#include "tst_gradingdlg.moc"
