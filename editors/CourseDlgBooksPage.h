#pragma once

#include "EntryListPage.h"
#include "TextbookEditor.h"

// The "Books" page of the course editor: the course's textbooks in order,
// edited in place, moved up and down. The entries and the ids of deleted
// stored textbooks belong to the dialog.
class CCourseBooksPage : public CEntryListPage<TextbookEntry, CTextbookEditor>
{
    Q_OBJECT

public:
    explicit CCourseBooksPage(QWidget* parent = nullptr);

    void NewTextbook() { StartNewEntry(TextbookEntry{}); }

protected:
    void FillMenu(QMenu& menu, int row) override;
    void NewRow() override { NewTextbook(); }
    bool EditorFieldsValid() override;
};
