// How fast the Today companion reads its list from a large database, opened
// read-only as the companion opens it. Goal: under 10 ms.
//
// Prints: today_list: median_ms=X items=N
#include "BrindleData.h"
#include "app/DemoDatabase.h"
#include "today/DueList.h"
#include "today/ReadOnlyDatabase.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <vector>

int main(int argc, char* argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("Brindle.db"));
    SetDatabasePath(path);
    CCeMount* mount = CDataTable::GetMount();
    if (!mount->MountPath(path) || !CreateDatabase() || !CAppStateTable::Instance().OpenState())
        return 1;
    // 40 semesters, 320 courses, 20,000 coursework; the working semester holds 8 and 600.
    const DemoSize size{40, 320, 20000, 8, 600};
    const QDate today = QDate::currentDate();
    if (!BuildDemoDatabase(today, size))
        return 1;
    CAppStateTable::Instance().Close();
    mount->Unmount();

    // Each run opens the file afresh, as each refresh of the companion does.
    const QDateTime now = QDateTime::currentDateTime();
    std::vector<double> times;
    size_t items = 0;
    for (int run = 0; run < 41; ++run) {
        QElapsedTimer timer;
        timer.start();
        QString error;
        if (!ReadOnlyDatabase::Mount(path, &error))
            return 1;
        CDueList list;
        if (!list.Read(now, CDueList::DefaultDays))
            return 1;
        ReadOnlyDatabase::Unmount();
        times.push_back(timer.nsecsElapsed() / 1e6);
        items = list.Items().size();
    }
    std::sort(times.begin(), times.end());
    std::printf("today_list: median_ms=%.3f items=%zu\n", times[times.size() / 2], items);
    return 0;
}
