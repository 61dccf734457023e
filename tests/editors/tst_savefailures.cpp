// Saves that meet a failing disk. A VFS under SQLite fails a write (disk
// full), a sync or a truncate (I/O error) at every step of each save path in
// turn, once or from then on. Every save that does not land says so, keeps its
// dialog open with what was typed, and leaves the database exactly as it was
// (also after the next start, which recovers the journal); OK again then saves.
// Fault tried (failed the grading policy rows, then reverted): the grading
// dialog's OK reporting success when its commit failed.
#include "BrindleData.h"
#include "controls/NumericEdit.h"
#include "editors/CourseDlg.h"
#include "editors/CourseRemoval.h"
#include "editors/CourseworkDlg.h"
#include "editors/EditorRecords.h"
#include "editors/TimeListPage.h"
#include "grading/GradeCalculation.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/InstitutionDlgGpaPage.h"
#include "support/DatabaseTest.h"
#include "support/FailingVfs.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
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
    if (type == QtWarningMsg && text.startsWith(u"Brindle store:"_s))
        ++g_storeWarnings;
    else
        g_previousHandler(type, context, text);
}

// One save path: a dialog filled in as a user would (none for the course
// removal, which runs `remove` instead of OK), and what a save that landed
// must have stored.
struct SavePath
{
    std::unique_ptr<QDialog> dialog;
    std::function<bool()> inputKept; // what was typed is still in the dialog
    std::function<bool()> stored;    // the file holds what was typed
    std::function<bool()> remove = {};

    bool Ok()
    {
        if (!dialog)
            return remove();
        dialog->accept();
        return dialog->result() == QDialog::Accepted;
    }
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

SavePath NewCourse(int step)
{
    auto* dialog = new CourseDlg;
    dialog->SetCourse(CourseDlg::NewCourseID);
    const QString name = u"Chemistry %1"_s.arg(step);
    auto* nameEdit = dialog->findChild<QLineEdit*>(u"courseName"_s);
    nameEdit->setText(name);
    auto* times = dialog->findChild<CTimeListPage*>(u"timesPage"_s);
    times->NewTime();
    times->EditorButtons()->button(QDialogButtonBox::Ok)->click();
    const quint32 id = dialog->CourseID();
    return {std::unique_ptr<QDialog>(dialog),
            [=] { return nameEdit->text() == name && times->List()->count() == 1; },
            [=] {
                return CCourseTable::GetCourseNameFromID(id) == name &&
                       EditorRecords::CountWhere("Time", "ForeignRecordID", id) == 1 &&
                       EditorRecords::CountWhere("CourseOrder", "CourseID", id) == 1;
            }};
}

SavePath EditCoursework(int step, quint32 course)
{
    const quint32 id = EditorRecords::Sql("SELECT id FROM Coursework WHERE CourseID = " +
                                          QByteArray::number(course))
                           .toUInt();
    const auto storedScore = [id] {
        return EditorRecords::Sql("SELECT Score FROM Coursework WHERE id = " +
                                  QByteArray::number(id))
            .toDouble();
    };
    // Never the score stored now, so that every OK writes and recomputes.
    const double score = storedScore() == double(step % 9) ? 9.0 : double(step % 9);
    auto* dialog = new CourseworkDlg;
    dialog->SetCourseworkID(id);
    dialog->OnInitDialog();
    auto* scoreEdit = dialog->findChild<QLineEdit*>(u"scoreEdit"_s);
    scoreEdit->selectAll();
    QTest::keyClicks(scoreEdit, QString::number(score));
    return {std::unique_ptr<QDialog>(dialog),
            [=] { return scoreEdit->text() == QString::number(score); },
            [=] {
                CCourseTable stored;
                return storedScore() == score && stored.Open() && stored.MoveToRecord(course) &&
                       stored.GetCurrentGrade() == score / 10.0;
            }};
}

SavePath GradingPolicy(quint32 course)
{
    const int weighting = (int(CGradingPolicyTable::GetWeightingFromCourseID(course)) + 1) % 3;
    auto* dialog = new GradingDlg(course);
    dialog->SetWeighting(weighting);
    return {
        std::unique_ptr<QDialog>(dialog), [=] { return dialog->Weighting() == weighting; },
        [=] { return int(CGradingPolicyTable::GetWeightingFromCourseID(course)) == weighting; }};
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
    return {std::unique_ptr<QDialog>(dialog),
            [=] {
                return dialog->Grades().size() == grades &&
                       dialog->GpaPage()->HoursField()->text() == hours;
            },
            [=] {
                return Records::Count("GradeScale") == int(grades) &&
                       EditorRecords::Sql("SELECT TotalPastHours FROM GPAInfo").toDouble() ==
                           hours.toDouble();
            }};
}

SavePath RemoveOneCourse(int step)
{
    const quint32 course = SeedCourse(u"Doomed %1"_s.arg(step));
    return {nullptr,
            {},
            [=] { return EditorRecords::CountWhere("Course", "id", course) == 0; },
            [=] { return RemoveCourse(course); }};
}

} // namespace

class TestSaveFailures : public DatabaseTest
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        FailingVfs::Install();
        g_previousHandler = qInstallMessageHandler(CountStoreWarnings);
    }
    void cleanupTestCase() { qInstallMessageHandler(g_previousHandler); }

    void failureAtEveryStep_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<FailingVfs::Operation>("operation");
        QTest::addColumn<FailingVfs::Mode>("mode");
        const std::pair<const char*, FailingVfs::Operation> operations[] = {
            {"disk full", FailingVfs::Operation::Write},
            {"sync fails", FailingVfs::Operation::Sync},
            {"truncate fails", FailingVfs::Operation::Truncate}};
        for (const char* path :
             {"new course", "coursework", "grading policy", "institution", "course removal"}) {
            for (const auto& [name, operation] : operations) {
                QTest::addRow("%s, %s once", path, name)
                    << QString::fromLatin1(path) << operation << FailingVfs::Mode::Once;
                QTest::addRow("%s, %s from then on", path, name)
                    << QString::fromLatin1(path) << operation << FailingVfs::Mode::FromThenOn;
            }
        }
    }
    void failureAtEveryStep()
    {
        QFETCH(QString, path);
        QFETCH(FailingVfs::Operation, operation);
        QFETCH(FailingVfs::Mode, mode);
        const quint32 course = SeedCourse(u"Biology"_s);
        const QRegularExpression notSaved(
            u"^The change could not be saved \\(.+\\)\\. Nothing was changed\\.$"_s);
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

            FailingVfs::Arm(operation, step, mode);
            const bool saved = save.Ok();
            FailingVfs::Disarm();
            if (saved) {
                // A fault the store got past (an id reservation outside the
                // save, say) is no failure; the save must then be whole.
                QVERIFY(save.stored());
                QCOMPARE(answers.Texts().size(), boxes);
                if (!FailingVfs::Triggered())
                    break;
                continue;
            }
            QVERIFY2(FailingVfs::Triggered(), "a save failed without a fault");
            ++refused;
            if (save.dialog) {
                QCOMPARE(answers.Texts().size(), boxes + 1);
                QVERIFY2(notSaved.match(answers.Texts().last()).hasMatch(),
                         qPrintable(answers.Texts().last()));
                QVERIFY(save.dialog->result() != QDialog::Accepted);
                QVERIFY(save.inputKept());
            }
            QCOMPARE(EditorRecords::DumpAll(), before);
            // The next start finds the file as it was, whatever the journal held.
            QVERIFY(m_db->Reopen());
            QCOMPARE(EditorRecords::DumpAll(), before);
            // OK once more, the disk well again: what was typed is saved.
            QVERIFY(save.Ok());
            QVERIFY(save.stored());
        }
        QVERIFY(g_storeWarnings >= refused);
        qInfo("%s: %d failing steps refused cleanly", qPrintable(path), refused);
    }
};

QTEST_MAIN(TestSaveFailures)
#include "tst_savefailures.moc"
