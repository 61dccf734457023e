// The institution dialog: choosing a predefined scale, saving with the same
// or a new grade count (minimums kept or rebuilt), the grade limits and the
// past GPA; a refused or failed save changes nothing.
//
// Fault tried and caught: OK not writing the past points (saveWritesGpaInfo).
#include "GradingFixtures.h"
#include "controls/DialogRunner.h"
#include "controls/NumericEdit.h"
#include "editors/EditorRecords.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/InstitutionDlgGpaPage.h"
#include "store/BrindleData.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {
// Two predefined scales; the file is one line of comma-separated fields.
const char ScalesFile[] = "2,Pass/Fail,2,P,1.0,F,0.0,Five Grades,5,A,4.0,B,3.0,C,2.0,D,1.0,E,-0.5";

// "name=points" per stored grade, in grade order.
QStringList StoredScale()
{
    return Records::Rows("SELECT Grade || ':' || GradeName || '=' || printf('%g', GradePoints) "
                         "FROM GradeScale ORDER BY Grade");
}

quint32 CourseWithMinimums(const QString& name, const QList<double>& minimums, quint32 semester = 0)
{
    return Fixture::GradedCourse(name, -1.0, 3.0, true, semester, minimums);
}

// Past hours, past points and the weighted flag, as "hours|points|flag".
QStringList StoredGpaInfo()
{
    return Records::Rows("SELECT printf('%g|%g|%d', TotalPastHours, TotalPastPoints, "
                         "WeightedByCourseHours) FROM GPAInfo");
}

} // namespace

class TestInstitutionDlg : public DatabaseTest
{
    Q_OBJECT

    QTemporaryDir m_installDir;

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

        // Every course of every semester is rebuilt, archived
        // ones too.
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

        CourseWithMinimums(u"Art"_s, {90, 80, 70, 60});
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
};

QTEST_MAIN(TestInstitutionDlg)
#include "tst_institutiondlg.moc"
