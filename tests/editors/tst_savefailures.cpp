// Saves that meet a failing disk. A VFS under SQLite fails a write (disk
// full), a sync or a truncate (I/O error) at every step of each save path in
// turn, once or from then on. Every save that does not land says so, keeps its
// dialog open with what was typed, and leaves the database exactly as it was
// (also after the next start, which recovers the journal); OK again then saves.
#include "BrindleData.h"
#include "controls/NumericEdit.h"
#include "editors/ClassTimeEditor.h"
#include "editors/CourseDlg.h"
#include "editors/CourseRemoval.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "editors/EditorRecords.h"
#include "editors/TimeListPage.h"
#include "grading/GradeCalculation.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/InstitutionDlgGpaPage.h"
#include "res/strings/ControlStrings.h"
#include "support/FailingVfs.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

#include <functional>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

QtMessageHandler g_previousHandler = nullptr;
int g_storeWarnings = 0;

// The store logs every SQLite error; here they are counted, not printed.
void CountStoreWarnings(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtWarningMsg && text.startsWith(u"Brindle store:"_s)) {
        ++g_storeWarnings;
        return;
    }
    g_previousHandler(type, context, text);
}

bool IsNotSavedMessage(const QString& text)
{
    const QStringList parts = ControlStrings::ChangeNotSaved(u"\x01"_s).split(u'\x01');
    return text.startsWith(parts.first()) && text.endsWith(parts.last()) &&
           text.size() > parts.first().size() + parts.last().size();
}

void TypeInto(QLineEdit* edit, const QString& text)
{
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, text);
}

// One save path: a dialog filled in as a user would, its OK, and what a save
// that landed must have stored.
struct SavePath
{
    std::unique_ptr<QDialog> dialog; // none for the course removal
    std::function<bool()> ok;
    std::function<bool()> inputKept; // what was typed is still in the dialog
    std::function<bool()> stored;    // the file holds what was typed
};

quint32 SeedCourse(const QString& name)
{
    const quint32 course = Records::Course(name);
    CreateDefaultGradingPolicy(course);
    EditorRecords::Time(course, CTimeTable::Monday);
    CourseTypeList types;
    LoadCourseTypes(course, types);
    Records::Coursework(course, types.front().first, u"Essay"_s, 5.0, 10.0);
    RecomputeCourseGrade(course);
    return course;
}

bool Accept(QDialog& dialog)
{
    dialog.accept();
    return dialog.result() == QDialog::Accepted;
}

SavePath NewCourse(int step)
{
    auto* dialog = new CourseDlg;
    dialog->SetCourse(CourseDlg::NewCourseID);
    const QString name = u"Chemistry %1"_s.arg(step);
    dialog->findChild<QLineEdit*>(u"courseName"_s)->setText(name);
    dialog->TimesPage()->NewTime();
    dialog->TimesPage()->EditorButtons()->button(QDialogButtonBox::Ok)->click();
    const quint32 id = dialog->CourseID();
    return {std::unique_ptr<QDialog>(dialog), [dialog] { return Accept(*dialog); },
            [dialog, name] {
                return dialog->findChild<QLineEdit*>(u"courseName"_s)->text() == name &&
                       dialog->Times().size() == 1;
            },
            [id, name] {
                return CCourseTable::GetCourseNameFromID(id) == name &&
                       EditorRecords::CountWhere("Time", "ForeignRecordID", id) == 1 &&
                       EditorRecords::CountWhere("CourseOrder", "CourseID", id) == 1;
            }};
}

SavePath EditCoursework(int step, quint32 course)
{
    CCourseworkTable items;
    items.Open(1);
    const CCeDBProp key(course);
    items.SetSeekValue(&key, CDataTable::SeekValueEqual);
    items.MoveFirst(1);
    const quint32 id = items.GetRecordID();
    // Never the score stored now, so that every OK writes and recomputes.
    const double score = items.GetScore() == double(step % 9) ? 9.0 : double(step % 9);

    auto* dialog = new CourseworkDlg;
    dialog->SetCourseworkID(id);
    dialog->OnInitDialog();
    TypeInto(dialog->InfoPage()->ScoreEdit(), QString::number(score));
    return {std::unique_ptr<QDialog>(dialog), [dialog] { return Accept(*dialog); },
            [dialog, score] {
                return dialog->InfoPage()->ScoreEdit()->text() == QString::number(score);
            },
            [id, course, score] {
                CCourseworkTable item;
                item.Open();
                CCourseTable stored;
                stored.Open();
                return item.MoveToRecord(id) && item.GetScore() == score &&
                       stored.MoveToRecord(course) && stored.GetCurrentGrade() == score / 10.0;
            }};
}

SavePath GradingPolicy(quint32 course)
{
    const int weighting = (int(CGradingPolicyTable::GetWeightingFromCourseID(course)) + 1) % 3;
    auto* dialog = new GradingDlg(course);
    dialog->SetWeighting(weighting);
    return {std::unique_ptr<QDialog>(dialog), [dialog] { return Accept(*dialog); },
            [dialog, weighting] { return dialog->Weighting() == weighting; },
            [course, weighting] {
                return int(CGradingPolicyTable::GetWeightingFromCourseID(course)) == weighting;
            }};
}

SavePath Institution(int step)
{
    auto* dialog = new InstitutionDlg;
    if (dialog->Grades().size() < 6)
        dialog->AddGrade({u"F%1"_s.arg(step), 0.0});
    else
        dialog->DeleteGrade(int(dialog->Grades().size()) - 1);
    const size_t grades = dialog->Grades().size();
    const QString hours = QString::number(step + 1);
    dialog->GpaPage()->HoursField()->setText(hours);
    return {std::unique_ptr<QDialog>(dialog), [dialog] { return Accept(*dialog); },
            [dialog, grades, hours] {
                return dialog->Grades().size() == grades &&
                       dialog->GpaPage()->HoursField()->text() == hours;
            },
            [grades, hours] {
                CGPAInfoTable info;
                info.Open();
                return Records::Count("GradeScale") == int(grades) && info.MoveFirst(1) &&
                       info.GetTotalPastHours() == hours.toDouble();
            }};
}

SavePath RemoveOneCourse(int step)
{
    const quint32 course = SeedCourse(u"Doomed %1"_s.arg(step));
    return {nullptr, [course] { return RemoveCourse(course); }, [] { return true; },
            [course] { return EditorRecords::CountWhere("Course", "id", course) == 0; }};
}

} // namespace

class TestSaveFailures : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void failureAtEveryStep_data();
    void failureAtEveryStep();
};

void TestSaveFailures::initTestCase()
{
    FailingVfs::Install();
    g_previousHandler = qInstallMessageHandler(CountStoreWarnings);
}

void TestSaveFailures::cleanupTestCase()
{
    qInstallMessageHandler(g_previousHandler);
}

void TestSaveFailures::failureAtEveryStep_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("operation"); // a FailingVfs::Operation
    QTest::addColumn<int>("mode");      // a FailingVfs::Mode
    const struct
    {
        const char* name;
        FailingVfs::Operation operation;
    } operations[] = {{"disk full", FailingVfs::Operation::Write},
                      {"sync fails", FailingVfs::Operation::Sync},
                      {"truncate fails", FailingVfs::Operation::Truncate}};
    for (const char* path :
         {"new course", "coursework", "grading policy", "institution", "course removal"}) {
        for (const auto& operation : operations) {
            QTest::addRow("%s, %s once", path, operation.name)
                << QString::fromLatin1(path) << int(operation.operation)
                << int(FailingVfs::Mode::Once);
            QTest::addRow("%s, %s from then on", path, operation.name)
                << QString::fromLatin1(path) << int(operation.operation)
                << int(FailingVfs::Mode::FromThenOn);
        }
    }
}

void TestSaveFailures::failureAtEveryStep()
{
    QFETCH(QString, path);
    QFETCH(int, operation);
    QFETCH(int, mode);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = SeedCourse(u"Biology"_s);
    MessageAnswers answers;
    g_storeWarnings = 0;

    int refused = 0;
    for (int step = 0;; ++step) {
        QVERIFY2(step < 400, "the save never got past the failing step");
        SavePath save = path == u"new course"_s       ? NewCourse(step)
                        : path == u"coursework"_s     ? EditCoursework(step, course)
                        : path == u"grading policy"_s ? GradingPolicy(course)
                        : path == u"institution"_s    ? Institution(step)
                                                      : RemoveOneCourse(step);
        const QStringList before = EditorRecords::DumpAll();
        const qsizetype boxes = answers.Texts().size();

        FailingVfs::Arm(FailingVfs::Operation(operation), step, FailingVfs::Mode(mode));
        const bool saved = save.ok();
        FailingVfs::Disarm();
        const bool triggered = FailingVfs::Triggered();

        if (saved) {
            // A fault the store got past (an id reservation outside the
            // save, say) is no failure; the save must then be whole.
            QVERIFY(save.stored());
            QCOMPARE(answers.Texts().size(), boxes);
            if (!triggered)
                break;
            continue;
        }
        QVERIFY2(triggered, "a save failed without a fault");
        ++refused;
        if (save.dialog) {
            QCOMPARE(answers.Texts().size(), boxes + 1);
            QVERIFY2(IsNotSavedMessage(answers.Texts().last()), qPrintable(answers.Texts().last()));
            QVERIFY(save.dialog->result() != QDialog::Accepted);
            QVERIFY(save.inputKept());
        }
        QCOMPARE(EditorRecords::DumpAll(), before);
        // The next start finds the file as it was, whatever the journal held.
        QVERIFY(db.Reopen());
        QCOMPARE(EditorRecords::DumpAll(), before);
        // OK once more, the disk well again: what was typed is saved.
        QVERIFY(save.ok());
        QVERIFY(save.stored());
    }
    if (refused > 0)
        QVERIFY(g_storeWarnings >= refused);
    qInfo("%s: %d failing steps refused cleanly", qPrintable(path), refused);
}

QTEST_MAIN(TestSaveFailures)
#include "tst_savefailures.moc"
