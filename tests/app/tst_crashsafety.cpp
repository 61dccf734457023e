// Crash safety: brindle_kill_harness saves dialog-sized changes in a loop and
// is killed with SIGKILL at random moments. After every kill Brindle's own
// open must succeed without a word, the file must pass integrity_check, and
// every save must be whole: each course with its order row, its policy, its
// types, the times and books its save wrote and the grade of its coursework.
// Checked against: RemoveCourse committing as it starts (17 partial saves),
// RecomputeCourseGrade not writing the grade.
#include "BrindleData.h"
#include "app/DatabaseOpener.h"
#include "support/MessageAnswers.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// Saves that stopped half way: rows of a course that is gone, and courses
// without exactly what one whole save of each kind leaves. The harness writes
// "times=N books=M" into a new course's details; a policy save moves every
// minimum percent and every type weight by one offset.
const char PartialSaves[] = R"(
WITH owned(kind, course, value) AS (
  SELECT 'order', CourseID, 0 FROM CourseOrder UNION ALL
  SELECT 'policy', CourseID, 0 FROM GradingPolicy UNION ALL
  SELECT 'minimum', CourseID, CAST(100.0 - (Grade + 1) * (40.0 / (SELECT count(*) FROM GradeScale))
         AS INTEGER) - MinimumPercent FROM GradingPolicyGrade UNION ALL
  SELECT 'type', CourseID, Weight FROM CwType UNION ALL
  SELECT 'typeorder', CourseID, 0 FROM CwTypeOrder UNION ALL
  SELECT 'work', CourseID, 0 FROM Coursework UNION ALL
  SELECT 'time', ForeignRecordID, 0 FROM Time UNION ALL
  SELECT 'book', CourseID, 0 FROM Textbook UNION ALL
  SELECT 'bookorder', CourseID, 0 FROM TextbookOrder),
per AS (
  SELECT course, sum(kind = 'order') AS orders, sum(kind = 'policy') AS policies,
         sum(kind = 'minimum') AS minimums, sum(kind = 'type') AS types,
         sum(kind = 'typeorder') AS typeorders, sum(kind = 'time') AS times,
         sum(kind = 'book') AS books, sum(kind = 'bookorder') AS bookorders,
         count(DISTINCT CASE WHEN kind IN ('minimum', 'type') THEN value END) AS offsets
  FROM owned GROUP BY course)
SELECT (SELECT count(*) FROM owned WHERE course NOT IN (SELECT id FROM Course)) +
  (SELECT count(*) FROM Course c LEFT JOIN per p ON p.course = c.id WHERE (
     orders = 1 AND policies = 1 AND minimums = (SELECT count(*) FROM GradeScale) AND
     types >= 1 AND typeorders = types AND bookorders = books AND offsets = 1 AND
     times = CAST(substr(Details, instr(Details, 'times=') + 6, 1) AS INTEGER) AND
     books = CAST(substr(Details, instr(Details, 'books=') + 6, 1) AS INTEGER) AND
     abs(CurrentGrade - coalesce((SELECT sum(Score) / sum(Possible) FROM Coursework
                                  WHERE Score >= 0 AND CourseID = c.id), -1.0)) < 1e-9
   ) IS NOT 1))";

// What a counting query answers; -1 when it fails.
qint64 Count(const char* sql)
{
    bool ok = false;
    const qint64 count = CDataTable::GetMount()->Scalar(sql, &ok);
    return ok ? count : -1;
}

} // namespace

class TestCrashSafety : public QObject
{
    Q_OBJECT

private slots:
    void everySaveIsWholeAfterAKill()
    {
        const QString harness = QCoreApplication::applicationDirPath() + u"/brindle_kill_harness"_s;
        QVERIFY2(QFileInfo::exists(harness), qPrintable(harness));
        QTemporaryDir dir;
        const QString path = dir.filePath(u"Brindle.db"_s);
        SetDatabasePath(path);

        constexpr int Kills = 200;
        QRandomGenerator random(20241123);
        qint64 saves = 0;
        int mayHaveNoSave = 0; // runs killed before they were seen to save
        for (int kill = 0; kill < Kills; ++kill) {
            QProcess process;
            process.start(harness, {path, QString::number(random.generate())});
            QVERIFY(process.waitForStarted());
            QByteArray output;
            // One kill in ten lands while the harness opens (and upgrades) the
            // file, four once it is ready, half after its first save landed.
            const int moment = random.bounded(10);
            const QByteArray awaited =
                moment == 0 ? QByteArray() : QByteArray(moment < 5 ? "ready" : "ready\n.");
            while (!output.contains(awaited) && process.waitForReadyRead(10000))
                output += process.readAllStandardOutput();
            QVERIFY2(output.contains(awaited), process.readAllStandardError().constData());
            mayHaveNoSave += !awaited.contains('.');
            QThread::usleep(random.bounded(0, 25000));
            process.kill();
            QVERIFY(process.waitForFinished());
            QCOMPARE(process.exitStatus(), QProcess::CrashExit);
            saves += QByteArray(output + process.readAllStandardOutput()).count('.');

            MessageAnswers answers; // any message at all is a failure
            CDatabaseOpener opener(true);
            QVERIFY2(opener.Open() && answers.Texts().isEmpty(),
                     qPrintable(opener.ErrorText() + answers.Texts().join(u'\n')));
            QCOMPARE(
                Count("SELECT count(*) FROM pragma_integrity_check WHERE integrity_check <> 'ok'"),
                qint64(0));
            QCOMPARE(Count(PartialSaves), qint64(0));
            CAppStateTable::Instance().Close();
            CDataTable::GetMount()->Unmount();
        }
        SetDatabasePath(QString());
        qInfo("kills=%d saves=%lld", Kills, saves);
        QVERIFY(saves >= Kills - mayHaveNoSave);
    }
};

QTEST_MAIN(TestCrashSafety)
#include "tst_crashsafety.moc"
