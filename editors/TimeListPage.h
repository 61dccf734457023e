#pragma once

#include "ClassTimeEditor.h"
#include "EntryListPage.h"

// The times page of the course editor and the office-hours page of the
// instructors editor: a list of weekly time slots edited in place. The
// entries and the ids of deleted stored entries belong to the host dialog.
class CTimeListPage : public CEntryListPage<ClassTimeEntry, CClassTimeEditor>
{
    Q_OBJECT

public:
    CTimeListPage(const QString& picture, QWidget* parent = nullptr);

    // A new slot starts as a 50-minute class at ten.
    void NewTime();

protected:
    void FillMenu(QMenu& menu, int row) override;
    void NewRow() override { NewTime(); }
    bool EditorFieldsValid() override;
};
