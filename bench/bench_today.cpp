// How fast the Today companion reads its list from a large database, opened
// read-only as the companion opens it. Goal: under 10 ms.
//
// Prints: today_list: median_ms=X items=N
#include "BenchSupport.h"
#include "today/DueList.h"
#include "today/ReadOnlyDatabase.h"

int main(int argc, char* argv[])
{
    const BenchSupport::GeneratedApp generated(argc, argv);
    if (!generated.Ok())
        return 1;
    const QString path = generated.Path();
    CAppStateTable::Instance().Close();
    CDataTable::GetMount()->Unmount();

    // Each run opens the file afresh, as each refresh of the companion does.
    const QDateTime now = QDateTime::currentDateTime();
    bool ok = true;
    size_t items = 0;
    const double median = BenchSupport::MedianMs(41, [&] {
        QString error;
        CDueList list;
        ok = ReadOnlyDatabase::Mount(path, &error) && list.Read(now, CDueList::DefaultDays) && ok;
        ReadOnlyDatabase::Unmount();
        items = list.Items().size();
    });
    std::printf("today_list: median_ms=%.3f items=%zu\n", median, items);
    return ok ? 0 : 1;
}
