#include "Database.h"

#include "AppStateTable.h"
#include "CeMount.h"
#include "GPAInfoTable.h"
#include "GradeScaleTable.h"
#include "PrivateFiles.h"
#include "Schema.h"
#include "Transaction.h"
#include "ViewTabTable.h"
#include "res/strings/StoreStrings.h"

#include <QCoreApplication>
#include <QDir>
#include <QSet>
#include <QStandardPaths>

#include <sqlite3.h>

namespace {

QString g_databasePath;

const char* SqlType(FieldType type)
{
    switch (type) {
    case FieldType::Double:
        // Nullable: SQLite keeps a NaN as NULL, and a grade may be NaN.
        return "REAL DEFAULT 0";
    case FieldType::String:
        return "TEXT NOT NULL DEFAULT ''";
    default:
        return "INTEGER NOT NULL DEFAULT 0";
    }
}

QSet<QByteArray> ExistingColumns(CCeMount* mount, const char* table, bool* ok)
{
    QSet<QByteArray> columns;
    *ok = false;
    sqlite3_stmt* stmt = mount->Statement("PRAGMA table_info(" + QByteArray(table) + ")");
    if (!stmt)
        return columns;
    int resultCode = SQLITE_ROW;
    while ((resultCode = sqlite3_step(stmt)) == SQLITE_ROW)
        columns.insert(reinterpret_cast<const char*>(sqlite3_column_text(stmt, 1)));
    *ok = mount->Check(resultCode, stmt) != 0;
    sqlite3_reset(stmt);
    return columns;
}

bool AddMissingColumn(CCeMount* mount, const TableDef& def, const QSet<QByteArray>& existing,
                      const QByteArray& column, const char* type, bool* added = nullptr)
{
    if (existing.contains(column))
        return true;
    if (added)
        *added = true;
    return mount->Execute("ALTER TABLE " + QByteArray(def.name) + " ADD COLUMN " + column + " " +
                          type);
}

bool CreateTable(CCeMount* mount, const TableDef& def, int fileVersion)
{
    QByteArray sql =
        "CREATE TABLE IF NOT EXISTS " + QByteArray(def.name) + " (id INTEGER PRIMARY KEY";
    for (const FieldDef& field : def.fields)
        sql += QByteArray(", ") + field.name + " " + SqlType(field.type);
    for (size_t i = 0; i < def.fields.size(); ++i)
        if (HasFoldedKey(def, static_cast<int>(i)))
            sql += ", " + FoldedKeyColumn(def.fields[i]) + " " + SqlType(FieldType::String);
    sql += ")";
    if (!mount->Execute(sql))
        return false;

    // A file from an older Brindle may lack newer properties and key columns.
    bool ok = false;
    const QSet<QByteArray> existing = ExistingColumns(mount, def.name, &ok);
    if (!ok)
        return false;
    for (const FieldDef& field : def.fields)
        if (!AddMissingColumn(mount, def, existing, field.name, SqlType(field.type)))
            return false;

    QSet<int> made;
    for (int key : def.sortOrders) {
        if (key == RecordIdKey || made.contains(key))
            continue;
        made.insert(key);
        const FieldDef& field = def.fields[key];
        QByteArray column = field.name;
        if (HasFoldedKey(def, key)) {
            // Version 1 indexed the name itself under a collation of its own,
            // which other SQLite programs cannot read: that index goes, and a
            // key column filled from the names takes its place.
            if (fileVersion < BrindleSchema::FoldedKeysVersion &&
                !mount->Execute("DROP INDEX IF EXISTS " + QByteArray(def.name) + "_by_" +
                                field.name))
                return false;
            column = FoldedKeyColumn(field);
            bool added = false;
            if (!AddMissingColumn(mount, def, existing, column, SqlType(FieldType::String), &added))
                return false;
            if ((added || fileVersion < BrindleSchema::FoldedKeysVersion) &&
                !mount->Execute("UPDATE " + QByteArray(def.name) + " SET " + column + " = " +
                                BrindleSchema::CaseFoldFunction + "(" + field.name + ")"))
                return false;
        }
        if (!mount->Execute("CREATE INDEX IF NOT EXISTS " + QByteArray(def.name) + "_by_" + column +
                            " ON " + def.name + " (" + column + ", id)"))
            return false;
    }
    return true;
}

bool CreateRecordIdSequence(CCeMount* mount)
{
    if (!mount->Execute("CREATE TABLE IF NOT EXISTS RecordIdSequence (LastId INTEGER NOT NULL)"))
        return false;
    bool ok = false;
    const qint64 rows = mount->Scalar("SELECT count(*) FROM RecordIdSequence", &ok);
    if (!ok)
        return false;
    if (rows > 0)
        return true;
    // Start past every id already in the file, so that none is handed out twice.
    QByteArray maxSql = "SELECT max(0";
    for (const TableDef* def : BrindleSchema::AllTables())
        maxSql += ", (SELECT coalesce(max(id), 0) FROM " + QByteArray(def->name) + ")";
    maxSql += ")";
    const qint64 highest = mount->Scalar(maxSql, &ok);
    return ok && mount->Execute("INSERT INTO RecordIdSequence (LastId) VALUES (" +
                                QByteArray::number(highest) + ")");
}

// ShowGPAWithHours and WeightedByCourseHours are one setting kept in two
// records; whichever is written, the other follows.
bool CreateGpaFlagTriggers(CCeMount* mount)
{
    return mount->Execute("CREATE TRIGGER IF NOT EXISTS AppStateGpaFlag AFTER UPDATE OF "
                          "ShowGPAWithHours ON AppState "
                          "BEGIN UPDATE GPAInfo SET WeightedByCourseHours = NEW.ShowGPAWithHours "
                          "WHERE WeightedByCourseHours IS NOT NEW.ShowGPAWithHours; END") &&
           mount->Execute("CREATE TRIGGER IF NOT EXISTS GpaInfoGpaFlag AFTER UPDATE OF "
                          "WeightedByCourseHours ON GPAInfo "
                          "BEGIN UPDATE AppState SET ShowGPAWithHours = NEW.WeightedByCourseHours "
                          "WHERE ShowGPAWithHours IS NOT NEW.WeightedByCourseHours; END") &&
           mount->Execute(
               "CREATE TRIGGER IF NOT EXISTS GpaInfoGpaFlagNew AFTER INSERT ON GPAInfo "
               "BEGIN UPDATE GPAInfo SET WeightedByCourseHours = "
               "coalesce((SELECT ShowGPAWithHours FROM AppState ORDER BY id LIMIT 1), 0) "
               "WHERE id = NEW.id; END");
}

// Written only when the file holds another value: a value written again,
// even an equal one, makes the commit a write, with a journal and its syncs.
bool SetHeaderValue(CCeMount* mount, const char* pragma, qint64 current, qint64 wanted)
{
    return current == wanted ||
           mount->Execute("PRAGMA " + QByteArray(pragma) + " = " + QByteArray::number(wanted));
}

bool WriteDefaultRecords(bool brandNew)
{
    CAppStateTable state;
    if (!state.Open())
        return false;
    if (state.GetRecordCount() == 0 && !(state.NewRecord(0) && state.UpdateRecord()))
        return false;
    state.Close();

    CGPAInfoTable gpa;
    if (!gpa.Open())
        return false;
    if (gpa.GetRecordCount() == 0 && !(gpa.NewRecord(0) && gpa.UpdateRecord()))
        return false;
    gpa.Close();

    CViewTabTable tabs;
    if (!tabs.Open())
        return false;
    if (tabs.GetRecordCount() == 0) {
        const struct
        {
            CViewTabTable::ViewTabIDs id;
            QString text;
        } defaults[] = {{CViewTabTable::CwTypeTab, StoreStrings::TabCwType()},
                        {CViewTabTable::PastDueTab, StoreStrings::TabPastDue()},
                        {CViewTabTable::CourseWeekTab, StoreStrings::TabCourseWeek()},
                        {CViewTabTable::DueByTab, StoreStrings::TabDueBy()}};
        qint16 order = 0;
        for (const auto& tab : defaults) {
            tabs.NewRecord(0);
            tabs.SetViewTabID(tab.id);
            tabs.SetTabText(tab.text);
            tabs.SetIsVisible(1);
            tabs.SetTabOrder(order++);
            if (!tabs.UpdateRecord())
                return false;
        }
    }
    tabs.Close();

    if (brandNew) {
        CGradeScaleTable scale;
        if (!scale.Open())
            return false;
        if (scale.GetRecordCount() == 0) {
            const struct
            {
                const char* name;
                double points;
            } grades[] = {{"A", 4.0}, {"B", 3.0}, {"C", 2.0}, {"D", 1.0}};
            quint16 grade = 0;
            for (const auto& entry : grades) {
                scale.NewRecord(0);
                scale.SetGrade(grade++);
                scale.SetGradeName(QString::fromLatin1(entry.name));
                scale.SetGradePoints(entry.points);
                if (!scale.UpdateRecord())
                    return false;
            }
        }
    }
    return true;
}

} // namespace

QString GetInstallationPath()
{
    const QString fromEnvironment = qEnvironmentVariable("BRINDLE_INSTALL_DIR");
    if (!fromEnvironment.isEmpty())
        return QDir::cleanPath(fromEnvironment);
    return QDir::cleanPath(QCoreApplication::applicationDirPath() +
                           QStringLiteral("/../share/brindle"));
}

void SetDatabasePath(const QString& path)
{
    g_databasePath = path;
}

QString GetDatabasePath()
{
    if (!g_databasePath.isEmpty())
        return g_databasePath;
    const QString fromEnvironment = qEnvironmentVariable("BRINDLE_DATABASE");
    if (!fromEnvironment.isEmpty())
        return fromEnvironment;
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    BrindleFiles::MakePrivateFolder(folder);
    return folder + QStringLiteral("/Brindle.db");
}

int CreateDatabase()
{
    CCeMount* mount = CDataTable::GetMount();
    if (!mount->IsMounted() && !mount->MountPath(GetDatabasePath()))
        return 0;

    // Everything an upgrade changes lands in one transaction, or none of it.
    CTransaction transaction;
    bool readId = false;
    bool readVersion = false;
    const qint64 applicationId = mount->Scalar("PRAGMA application_id", &readId);
    const qint64 fileVersion = mount->Scalar("PRAGMA user_version", &readVersion);
    if (!readId || !readVersion)
        return 0;
    const bool brandNew = applicationId != BrindleSchema::ApplicationId;
    for (const TableDef* def : BrindleSchema::AllTables())
        if (!CreateTable(mount, *def, static_cast<int>(fileVersion)))
            return 0;
    if (!CreateRecordIdSequence(mount) || !CreateGpaFlagTriggers(mount) ||
        !WriteDefaultRecords(brandNew))
        return 0;
    if (!SetHeaderValue(mount, "application_id", applicationId, BrindleSchema::ApplicationId) ||
        !SetHeaderValue(mount, "user_version", fileVersion, BrindleSchema::Version))
        return 0;
    return transaction.Commit();
}
