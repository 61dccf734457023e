#include "AppStateTable.h"

#include "Schema.h"

CAppStateTable::CAppStateTable() : CDataTable(BrindleSchema::AppState) {}

#include "CeMount.h"
#include "DateEncoding.h"

#include <QDate>

#include <sqlite3.h>

void CAppStateTable::InitializeNewRecordPropArray()
{
    SetDefault(PropCurrentSemesterID, 0u);
    SetDefault(PropCurrentCourseID, 0xFFFFFFFFu);
    SetDefault(PropCurrentTabID, static_cast<uint>(CViewTabTable::NoFilter));
    SetDefault(PropViewTabDueBy, BrindleDate::FromDate(QDate::currentDate().addDays(7)));
    // On, so that coursework given a score (and so done) does not vanish at once.
    SetDefault(PropShowDone, 1);
    SetDefault(PropShowGPAWithHours, 0);
}

int CAppStateTable::GetShowGPAWithHours() const
{
    CCeMount* mount = GetMount();
    sqlite3_stmt* stmt = mount->Statement("SELECT ShowGPAWithHours FROM AppState WHERE id = ?1");
    if (!stmt)
        return BoolAt(PropShowGPAWithHours);
    sqlite3_bind_int64(stmt, 1, GetRecordID());
    const int resultCode = sqlite3_step(stmt);
    const int value =
        resultCode == SQLITE_ROW ? sqlite3_column_int(stmt, 0) : BoolAt(PropShowGPAWithHours);
    mount->Check(resultCode, stmt);
    sqlite3_reset(stmt);
    return value;
}

CAppStateTable& CAppStateTable::Instance()
{
    static CAppStateTable state;
    return state;
}

int CAppStateTable::OpenState()
{
    return Open() && MoveFirst(1);
}
