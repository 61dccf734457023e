// Crash safety: brindle_kill_harness saves dialog-sized changes in a loop and
// is killed with SIGKILL at random moments. After every kill Brindle's own
// open must succeed without a word, the file must pass integrity_check, and
// every save must be whole: each course with its order row, its policy, its
// types, the times and books its save wrote and the grade of its coursework.
#include "BrindleData.h"
#include "app/DatabaseOpener.h"
#include "support/MessageAnswers.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QThread>
#include <QtTest>

#include <sqlite3.h>

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

qint64 Count(const QByteArray& sql)
{
    return CDataTable::GetMount()->Scalar(sql);
}

QString IntegrityCheck()
{
    sqlite3_stmt* stmt = CDataTable::GetMount()->Statement("PRAGMA integrity_check");
    QString result;
    if (stmt && sqlite3_step(stmt) == SQLITE_ROW)
        result = QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 0)));
    if (stmt)
        sqlite3_reset(stmt);
    return result;
}

// The rows of a course that is gone: each is a removal that stopped half way.
qint64 Orphans()
{
    const struct
    {
        const char* table;
        const char* column;
    } owned[] = {{"CourseOrder", "CourseID"},        {"GradingPolicy", "CourseID"},
                 {"GradingPolicyGrade", "CourseID"}, {"CwType", "CourseID"},
                 {"CwTypeOrder", "CourseID"},        {"Coursework", "CourseID"},
                 {"Time", "ForeignRecordID"},        {"Textbook", "CourseID"},
                 {"TextbookOrder", "CourseID"}};
    qint64 orphans = 0;
    for (const auto& rows : owned)
        orphans += Count(QByteArray("SELECT count(*) FROM ") + rows.table + " WHERE " +
                         rows.column + " NOT IN (SELECT id FROM Course)");
    return orphans;
}

// Whether the course holds exactly what one whole save of each kind leaves.
bool CourseIsWhole(quint32 id, const QString& details, double grade)
{
    const QByteArray course = QByteArray::number(id);
    auto count = [&](const char* table, const char* column = "CourseID") {
        return Count(QByteArray("SELECT count(*) FROM ") + table + " WHERE " + column + " = " +
                     course);
    };
    static const QRegularExpression counts(u"times=(\\d) books=(\\d)"_s);
    const QRegularExpressionMatch match = counts.match(details);
    const qint64 types = count("CwType");
    if (!match.hasMatch() || count("CourseOrder") != 1 || count("GradingPolicy") != 1 ||
        types < 1 || count("CwTypeOrder") != types ||
        count("GradingPolicyGrade") != Count("SELECT count(*) FROM GradeScale") ||
        count("Time", "ForeignRecordID") != match.captured(1).toInt() ||
        count("Textbook") != match.captured(2).toInt() ||
        count("TextbookOrder") != match.captured(2).toInt())
        return false;

    // The grade stored is the grade of the coursework stored.
    const double scored = CDataTable::GetMount()->Scalar(
        "SELECT count(*) FROM Coursework WHERE Score >= 0 AND CourseID = " + course);
    double expected = -1.0;
    if (scored > 0) {
        sqlite3_stmt* stmt = CDataTable::GetMount()->Statement(
            "SELECT sum(Score) / sum(Possible) FROM Coursework WHERE Score >= 0 AND CourseID = " +
            course);
        if (!stmt || sqlite3_step(stmt) != SQLITE_ROW)
            return false;
        expected = sqlite3_column_double(stmt, 0);
        sqlite3_reset(stmt);
    }
    if (std::abs(grade - expected) > 1e-9)
        return false;

    // A policy save moves every minimum and every type weight by one offset.
    const double gradeCount = Count("SELECT count(*) FROM GradeScale");
    sqlite3_stmt* stmt = CDataTable::GetMount()->Statement(
        "SELECT Grade, MinimumPercent FROM GradingPolicyGrade WHERE CourseID = " + course);
    QSet<double> offsets;
    while (stmt && sqlite3_step(stmt) == SQLITE_ROW)
        offsets << std::trunc(100.0 - (sqlite3_column_int(stmt, 0) + 1) * (40.0 / gradeCount)) -
                       sqlite3_column_double(stmt, 1);
    if (stmt)
        sqlite3_reset(stmt);
    stmt =
        CDataTable::GetMount()->Statement("SELECT Weight FROM CwType WHERE CourseID = " + course);
    while (stmt && sqlite3_step(stmt) == SQLITE_ROW)
        offsets << sqlite3_column_double(stmt, 0);
    if (stmt)
        sqlite3_reset(stmt);
    return offsets.size() == 1;
}

qint64 PartialSaves()
{
    qint64 partial = Orphans();
    CCourseTable courses;
    courses.Open();
    for (int ok = courses.MoveFirst(1); ok; ok = courses.MoveNext(1))
        if (!CourseIsWhole(courses.GetRecordID(), courses.GetDetails(), courses.GetCurrentGrade()))
            ++partial;
    return partial;
}

} // namespace

class TestCrashSafety : public QObject
{
    Q_OBJECT

private slots:
    void everySaveIsWholeAfterAKill();
};

void TestCrashSafety::everySaveIsWholeAfterAKill()
{
    const QString harness = QCoreApplication::applicationDirPath() + u"/brindle_kill_harness"_s;
    QVERIFY2(QFileInfo::exists(harness), qPrintable(harness));
    QTemporaryDir dir;
    const QString path = dir.filePath(u"Brindle.db"_s);
    SetDatabasePath(path);

    constexpr int Kills = 200;
    QRandomGenerator random(20241123);
    int reopened = 0;
    int integrityOk = 0;
    qint64 partialSaves = 0;
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
        if (!awaited.contains('.'))
            ++mayHaveNoSave;
        QThread::usleep(random.bounded(0, 25000));
        process.kill();
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        output += process.readAllStandardOutput();
        saves += output.count('.');

        MessageAnswers answers; // any message at all is a failure
        CDatabaseOpener opener(true);
        if (opener.Open() && answers.Texts().isEmpty())
            ++reopened;
        else
            QFAIL(qPrintable(opener.ErrorText() + answers.Texts().join(u'\n')));
        if (IntegrityCheck() == u"ok"_s)
            ++integrityOk;
        partialSaves += PartialSaves();
        CAppStateTable::Instance().Close();
        CDataTable::GetMount()->Unmount();
    }
    SetDatabasePath(QString());
    qInfo("kills=%d reopened=%d integrity_ok=%d partial_saves=%lld saves=%lld", Kills, reopened,
          integrityOk, partialSaves, saves);
    QCOMPARE(reopened, Kills);
    QCOMPARE(integrityOk, Kills);
    QCOMPARE(partialSaves, qint64(0));
    QVERIFY(saves >= Kills - mayHaveNoSave);
}

QTEST_MAIN(TestCrashSafety)
#include "tst_crashsafety.moc"
