#pragma once

#include "outlook/POutlookApp.h"

#include <QObject>
#include <QString>

#include <memory>

class QAction;
class QMenuBar;
struct InstructorEntry;

// The instructors editor's "Export" > "Contacts" and the connection to the
// store it uses, opened with the editor and closed with it.
class InstructorDlgExport : public QObject
{
    Q_OBJECT

public:
    explicit InstructorDlgExport(QObject* parent);
    ~InstructorDlgExport() override;

    // The checkable "Contacts" item, under a new "Export" menu.
    QAction* AddMenu(QMenuBar* bar);

    // Opening: the first link of the instructor, whatever its kind, marks the
    // entry exported while the store still has the contact; a link whose
    // contact is gone is deleted. Without a connection the link is taken as
    // it is.
    void CheckLink(InstructorEntry& entry);
    // OK, once the instructor is stored (inside the OK transaction): export
    // the contact, or drop the link of an entry no longer exported. Returns
    // the failure to show once the save is committed, or an empty text.
    QString Export(quint32 instructorId, InstructorEntry& entry);

    IPOutlookApp* Connection() const { return m_app.get(); }

private:
    std::unique_ptr<IPOutlookApp> m_app;
};
