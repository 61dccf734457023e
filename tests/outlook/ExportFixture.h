#pragma once

// Base of an export test: its init() and cleanup() give each function its own
// database, export folders and settings file, with the export library
// initialised, as Brindle has them at run time; and the editors' export steps
// in one call each. Not a QObject of its own (no moc for a header outside the
// targets), so a test declares the init() and cleanup() slots calling these.
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "editors/EditorRecords.h"
#include "editors/InstructorDlg.h"
#include "outlook/PimFolders.h"
#include "outlook/PimLibrary.h"
#include "store/SettingsFile.h"
#include "support/DatabaseFiles.h"
#include "support/DatabaseTest.h"

#include <QAction>
#include <QDir>
#include <QLineEdit>
#include <QTemporaryDir>

#include <optional>

class ExportTest : public DatabaseTest
{
protected:
    void init()
    {
        DatabaseTest::init();
        QVERIFY(m_pim.emplace().isValid());
        qputenv("BRINDLE_PIM_DIR", m_pim->path().toUtf8());
        SetSettingsPath(m_pim->filePath(QStringLiteral("Brindle.ini")));
        PimLibrary::Initialize();
    }
    void cleanup()
    {
        PimLibrary::Release();
        SetSettingsPath(QString());
        qunsetenv("BRINDLE_PIM_DIR");
        DatabaseTest::cleanup();
        m_pim.reset();
    }

public:
    // Opens the coursework's editor, sets the two kinds (and a new name or
    // progress, unless empty or negative) and presses OK.
    static bool Export(quint32 courseworkId, bool tasks, bool calendar,
                       const QString& name = QString(), int progress = -1)
    {
        CourseworkDlg dialog;
        dialog.SetCourseworkID(courseworkId);
        if (!dialog.OnInitDialog())
            return false;
        for (auto [kind, on] :
             {std::pair{"actionExportTasks", tasks}, {"actionExportCalendar", calendar}})
            if (Action(dialog, kind)->isChecked() != on)
                Action(dialog, kind)->trigger();
        if (!name.isEmpty())
            dialog.InfoPage()->NameEdit()->setText(name);
        if (progress >= 0)
            dialog.InfoPage()->SetProgress(progress);
        return dialog.OnOK();
    }
    // Opens the course's instructors editor, checks "Contacts" and presses OK.
    static bool ExportContacts(quint32 courseId)
    {
        InstructorDlg dialog(courseId);
        if (!Action(dialog, "actionExportContacts")->isChecked())
            Action(dialog, "actionExportContacts")->trigger();
        return dialog.OnOK();
    }
    static QAction* Action(QWidget& dialog, const char* name)
    {
        return dialog.findChild<QAction*>(QString::fromLatin1(name));
    }

    // The item files of a folder (.ics and .vcf), without the vdir metadata.
    static QStringList Items(const QString& folder)
    {
        return QDir(folder).entryList({QStringLiteral("*.ics"), QStringLiteral("*.vcf")},
                                      QDir::Files, QDir::Name);
    }
    static QByteArray Read(const QString& path) { return DatabaseFiles::Read(path); }
    // The item ids the links of a record point at, of one kind, comma-separated.
    static QString Links(quint32 brindleId, quint32 type)
    {
        return EditorRecords::Sql(
            "SELECT group_concat(OutlookItemID) FROM OutlookLink WHERE BrindleItemID = " +
            QByteArray::number(brindleId) + " AND ItemType = " + QByteArray::number(type));
    }

protected:
    std::optional<QTemporaryDir> m_pim;
};
