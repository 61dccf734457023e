#include "DatabaseOpener.h"

#include "BrindleData.h"
#include "controls/MessageBox.h"
#include "res/strings/AppStrings.h"
#include "res/strings/StoreStrings.h"

#include <QDateTime>
#include <QFile>

bool CDatabaseOpener::Open()
{
    const QString path = GetDatabasePath();
    CCeMount* mount = CDataTable::GetMount();
    if (!mount->MountPath(path)) {
        m_error = mount->GetLastError();
        if (!m_interactive ||
            BrindleMessageBox::Show(nullptr, AppStrings::DatabaseUnusable(m_error),
                                    QMessageBox::Warning, QMessageBox::Yes | QMessageBox::No) !=
                QMessageBox::Yes)
            return false;

        m_setAside = path + QStringLiteral(".unusable-") +
                     QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-hhmmss"));
        if (!QFile::rename(path, m_setAside)) {
            m_error = AppStrings::DatabaseCannotMoveAside(path);
            m_setAside.clear();
            BrindleMessageBox::Warn(nullptr, m_error);
            return false;
        }
        if (!mount->MountPath(path)) {
            m_error = mount->GetLastError();
            return false;
        }
    }
    if (!CreateDatabase()) {
        m_error = StoreStrings::CannotCreateTables(path);
        mount->Unmount();
        return false;
    }
    m_error.clear();
    return CAppStateTable::Instance().OpenState() != 0;
}
