#pragma once

#include "ListEditPage.h"
#include "TextbookEditor.h"

#include <vector>

// The "Books" page of the course editor: the course's textbooks in order,
// edited in place, moved up and down. The entries and the ids of deleted
// stored textbooks belong to the dialog.
class CCourseBooksPage : public CListEditPage
{
    Q_OBJECT

public:
    explicit CCourseBooksPage(QWidget* parent = nullptr);

    void Bind(std::vector<TextbookEntry>* entries, std::vector<quint32>* removedIds);
    void Redraw();

    void NewTextbook();
    void EditTextbook(int row);
    void DeleteTextbook(int row);
    void MoveTextbook(int row, int step);

    CTextbookEditor* Editor() const { return m_editor; }

protected:
    void FillMenu(QMenu& menu, int row) override;
    void EditRow(int row) override { EditTextbook(row); }
    void NewRow() override { NewTextbook(); }
    void DeleteRow(int row) override { DeleteTextbook(row); }
    bool ApplyEditor() override;

private:
    int Count() const { return m_entries ? static_cast<int>(m_entries->size()) : 0; }

    CTextbookEditor* m_editor;
    std::vector<TextbookEntry>* m_entries = nullptr;
    std::vector<quint32>* m_removedIds = nullptr;
    int m_editRow = -1;
};
