// The institution dialog: choosing a predefined scale, saving with the same
// or a new grade count (minimums kept or rebuilt), the grade limits and the
// past GPA; Cancel and a failed write change nothing.
#include "controls/DialogRunner.h"
#include "controls/NumericEdit.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/InstitutionDlgGpaPage.h"
#include "store/BrindleData.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {
// Two predefined scales; the file is one line of comma-separated fields.
const char ScalesFile[] = "2,Pass/Fail,2,P,1.0,F,0.0,Five Grades,5,A,4.0,B,3.0,C,2.0,D,1.0,E,-0.5";

// "name=points" per stored grade, in grade order.
QStringList StoredScale()
{
    QStringList grades;
    CGradeScaleTable scale;
    scale.Open(0);
    for (int ok = scale.MoveFirst(1); ok; ok = scale.MoveNext(1))
        grades << u"%1:%2=%3"_s.arg(scale.GetGrade())
                      .arg(scale.GetGradeName())
                      .arg(scale.GetGradePoints());
    return grades;
}

QStringList Entries(const std::vector<GradeScaleEntry>& grades)
{
    QStringList list;
    for (const GradeScaleEntry& grade : grades)
        list << u"%1=%2"_s.arg(grade.name).arg(grade.points);
    return list;
}

// A course's minimum percents in grade order.
QList<double> Minimums(quint32 courseId)
{
    QMap<quint16, double> byGrade;
    CGradingPolicyGradeTable table;
    table.Open(0);
    const CCeDBProp key(courseId);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        byGrade.insert(table.GetGrade(), table.GetMinimumPercent());
    return byGrade.values();
}

quint32 CourseWithMinimums(const QString& name, const QList<double>& minimums, quint32 semester = 0)
{
    const quint32 course = Records::Course(name, semester);
    for (qsizetype grade = 0; grade < minimums.size(); ++grade)
        Records::MinimumPercent(course, static_cast<quint16>(grade), minimums[grade]);
    return course;
}

struct GpaInfo
{
    double hours = -1.0;
    double points = -1.0;
    int weighted = -1;
};

GpaInfo StoredGpaInfo()
{
    GpaInfo info;
    CGPAInfoTable gpa;
    if (gpa.Open() && gpa.MoveFirst(1))
        info = {gpa.GetTotalPastHours(), gpa.GetTotalPastPoints(), gpa.GetWeightedByCourseHours()};
    return info;
}

} // namespace

class TestInstitutionDlg : public QObject
{
    Q_OBJECT

    QTemporaryDir m_installDir;
    std::unique_ptr<TestDatabase> m_db;

private slots:
    void initTestCase()
    {
        QLocale::setDefault(QLocale::c());
        QVERIFY(m_installDir.isValid());
        QFile file(m_installDir.filePath(u"GradeScales.txt"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(ScalesFile);
        file.close();
        qputenv("BRINDLE_INSTALL_DIR", QFile::encodeName(m_installDir.path()));
    }
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup() { m_db.reset(); }

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
        QCOMPARE(Entries(dialog.Grades()), (QStringList{u"A=4"_s, u"B=3"_s, u"C=2"_s, u"D=1"_s}));

        // Choosing as the user does copies the scale into the list.
        combo->setCurrentIndex(2);
        emit combo->activated(2);
        QCOMPARE(dialog.Grades().size(), size_t(5));
        QCOMPARE(dialog.Grades().back().points, 0.5); // "-0.5" as the file reader reads it

        dialog.ChooseScale(3);
        QVERIFY(dialog.Grades().empty());
    }
    void missingScalesFileLeavesCurrentAndCustom()
    {
        QTemporaryDir empty;
        const QByteArray saved = qgetenv("BRINDLE_INSTALL_DIR");
        qputenv("BRINDLE_INSTALL_DIR", QFile::encodeName(empty.path()));
        InstitutionDlg dialog;
        qputenv("BRINDLE_INSTALL_DIR", saved);
        QCOMPARE(dialog.ScaleNames(), (QStringList{u"Current"_s, u"Custom"_s}));
    }
    void saveWithSameCountKeepsMinimums()
    {
        const QList<double> minimums{93.0, 85.0, 71.5, 65.0};
        const quint32 course = CourseWithMinimums(u"Art"_s, minimums);

        InstitutionDlg dialog;
        dialog.DeleteGrade(3);
        QVERIFY(dialog.AddGrade({u"F"_s, 0.0}));
        dialog.DeleteGrade(0);
        QVERIFY(dialog.AddGrade({u"A+"_s, 4.3}));
        QVERIFY(dialog.Save());

        // Updated in place, grade by grade.
        QCOMPARE(StoredScale(), (QStringList{u"0:B=3"_s, u"1:C=2"_s, u"2:F=0"_s, u"3:A+=4.3"_s}));
        QCOMPARE(Minimums(course), minimums);
    }
    void saveWithNewCountRebuildsMinimums_data()
    {
        QTest::addColumn<QList<double>>("before");
        QTest::addColumn<int>("grades");
        QTest::addColumn<QList<double>>("after");

        QTest::newRow("lowest 60, four grades")
            << QList<double>{92, 84, 76, 68, 60} << 4 << QList<double>{90, 80, 70, 60};
        QTest::newRow("lowest anywhere in the table")
            << QList<double>{70, 90} << 3 << QList<double>{90, 80, 70};
        QTest::newRow("truncated, not rounded")
            << QList<double>{80, 55, 70} << 2 << QList<double>{77, 55};
        QTest::newRow("no minimums before") << QList<double>{} << 2 << QList<double>{100, 100};
    }
    void saveWithNewCountRebuildsMinimums()
    {
        QFETCH(QList<double>, before);
        QFETCH(int, grades);
        QFETCH(QList<double>, after);

        // Six stored grades, so that every row changes the count.
        for (quint16 grade : {4, 5}) {
            CGradeScaleTable scale;
            scale.Open();
            scale.NewRecord(0);
            scale.SetGrade(grade);
            scale.SetGradeName(u"E%1"_s.arg(grade));
            QVERIFY(scale.UpdateRecord());
        }
        // Every course of every semester is rebuilt, archived ones too.
        const quint32 working = CourseWithMinimums(u"Art"_s, before);
        const quint32 archived =
            CourseWithMinimums(u"Music"_s, before, Records::Semester(u"Spring"_s));

        InstitutionDlg dialog;
        dialog.ChooseScale(dialog.ScaleNames().size() - 1);
        for (int i = 0; i < grades; ++i)
            QVERIFY(dialog.AddGrade({u"G%1"_s.arg(i), double(grades - i)}));
        QVERIFY(dialog.Save());

        QStringList expected;
        for (int i = 0; i < grades; ++i)
            expected << u"%1:G%1=%2"_s.arg(i).arg(grades - i);
        QCOMPARE(StoredScale(), expected);
        QCOMPARE(Minimums(working), after);
        QCOMPARE(Minimums(archived), after);
    }
    void scaleLimits_data()
    {
        QTest::addColumn<int>("grades");
        QTest::addColumn<bool>("saved");

        QTest::newRow("empty") << 0 << false;
        QTest::newRow("twelve") << 12 << true;
    }
    void scaleLimits()
    {
        QFETCH(int, grades);
        QFETCH(bool, saved);

        const QStringList before = StoredScale();

        InstitutionDlg dialog;
        dialog.ChooseScale(dialog.ScaleNames().size() - 1);
        for (int i = 0; i < grades; ++i)
            QVERIFY(dialog.AddGrade({u"G%1"_s.arg(i), 1.0}));

        MessageAnswers answers;
        if (grades == InstitutionDlg::MaxGrades) {
            // A thirteenth grade is refused, by hand or through the sub-dialog.
            QVERIFY(!dialog.AddGrade({u"One too many"_s, 0.0}));
            int opened = 0;
            DialogRunner::SetHook([&opened](QDialog&) { return ++opened, int(QDialog::Rejected); });
            QVERIFY(!dialog.NewGrade());
            DialogRunner::SetHook({});
            QCOMPARE(opened, 0);
            QCOMPARE(
                answers.Texts(),
                QStringList(2, QStringLiteral("A grade scale holds at most 12 grades. Delete a "
                                              "grade before adding another.")));
            QCOMPARE(static_cast<int>(dialog.Grades().size()), grades);
        }

        dialog.accept();
        QCOMPARE(dialog.result(), saved ? int(QDialog::Accepted) : int(QDialog::Rejected));
        if (saved) {
            QCOMPARE(StoredScale().size(), grades);
        } else {
            QCOMPARE(answers.Texts(), QStringList{QStringLiteral(
                                          "The grade scale needs at least one grade. Add a grade "
                                          "or choose a scale from the list.")});
            QCOMPARE(StoredScale(), before);
        }
    }
    void saveWritesGpaInfo()
    {
        {
            CGPAInfoTable gpa;
            QVERIFY(gpa.Open() && gpa.MoveFirst(1));
            gpa.SetTotalPastHours(12.0);
            gpa.SetTotalPastPoints(36.0);
            QVERIFY(gpa.UpdateRecord());
        }

        InstitutionDlg dialog;
        InstitutionDlgGpaPage* page = dialog.GpaPage();
        QCOMPARE(page->HoursField()->Value(), 12.0);
        QCOMPARE(page->PointsField()->Value(), 36.0);
        QVERIFY(page->IsPastGpaShown());
        QVERIFY(!page->ShowWithHoursBox()->isChecked());

        page->ShowWithHoursBox()->setChecked(true);
        // Typed key by key: the field takes digits and the decimal point.
        page->HoursField()->clear();
        QTest::keyClicks(page->HoursField(), u"4x5.5"_s);
        QCOMPARE(page->HoursField()->text(), u"45.5"_s);
        page->PointsField()->clear(); // an empty field is no past points
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));

        const GpaInfo info = StoredGpaInfo();
        QCOMPARE(info.hours, 45.5);
        QCOMPARE(info.points, 0.0);
        QCOMPARE(info.weighted, 1);
        QCOMPARE(CAppStateTable::Instance().GetShowGPAWithHours(), 1);
        // The long-lived state object does not write its old flag back.
        QVERIFY(CAppStateTable::Instance().UpdateRecord());
        QCOMPARE(StoredGpaInfo().weighted, 1);
        QVERIFY(m_db->Reopen());
        QCOMPARE(CAppStateTable::Instance().GetShowGPAWithHours(), 1);
    }
    void negativePastValuesRefused()
    {
        InstitutionDlg dialog;
        dialog.GpaPage()->PointsField()->setText(u"-4"_s);
        dialog.ChooseScale(1); // a scale change that must not land either
        MessageAnswers answers;
        QVERIFY(!dialog.Save());
        QCOMPARE(answers.Texts(), QStringList{u"Past hours and past points cannot be negative."_s});
        QCOMPARE(StoredScale().size(), 4);
        QCOMPARE(StoredGpaInfo().points, 0.0);
    }
    void failedWriteChangesNothing()
    {
        const quint32 course = CourseWithMinimums(u"Art"_s, {90, 80, 70, 60});
        const QStringList before = StoredScale();
        // The minimum-percent rebuild fails half way, after the scale was rewritten.
        QVERIFY(CDataTable::GetMount()->Execute(
            "CREATE TRIGGER RefuseMinimums BEFORE INSERT ON GradingPolicyGrade "
            "BEGIN SELECT RAISE(ABORT, 'refused'); END"));

        InstitutionDlg dialog;
        dialog.ChooseScale(1); // two grades instead of four
        dialog.GpaPage()->HoursField()->setText(u"10"_s);
        MessageAnswers answers;
        dialog.accept();

        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        // SQLite's reason is the trigger's own message.
        QCOMPARE(answers.Texts(),
                 QStringList{QStringLiteral(
                     "The change could not be saved (refused). Nothing was changed.")});
        QCOMPARE(StoredScale(), before);
        QCOMPARE(Minimums(course), (QList<double>{90, 80, 70, 60}));
        QCOMPARE(StoredGpaInfo().hours, 0.0);
    }
};

QTEST_MAIN(TestInstitutionDlg)
#include "tst_institutiondlg.moc"
