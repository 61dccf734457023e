#pragma once

#include "ClassTimeEditor.h"
#include "ListEditPage.h"

#include <vector>

// The times page of the course editor and the office-hours page of the
// instructors editor: a list of weekly time slots edited in place. The
// entries and the ids of deleted stored entries belong to the host dialog.
class CTimeListPage : public CListEditPage
{
    Q_OBJECT

public:
    CTimeListPage(const QString& picture, QWidget* parent = nullptr);

    // Shows and edits these entries from now on (nullptr: none, page disabled).
    void Bind(std::vector<ClassTimeEntry>* entries, std::vector<quint32>* removedIds);
    void Redraw();

    void NewTime();
    void EditTime(int row);
    void DeleteTime(int row);

    CClassTimeEditor* Editor() const { return m_editor; }

protected:
    void FillMenu(QMenu& menu, int row) override;
    void EditRow(int row) override { EditTime(row); }
    void NewRow() override { NewTime(); }
    void DeleteRow(int row) override { DeleteTime(row); }
    bool ApplyEditor() override;

private:
    CClassTimeEditor* m_editor;
    std::vector<ClassTimeEntry>* m_entries = nullptr;
    std::vector<quint32>* m_removedIds = nullptr;
    int m_editRow = -1;
};
