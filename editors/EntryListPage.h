#pragma once

#include "ClassTimeEditor.h"
#include "ListEditPage.h"

#include <QListWidget>

#include <utility>
#include <vector>

// A list page over entries that its host dialog keeps until OK (textbooks,
// meeting times, office hours), edited in place by an EntryEditor with
// SetEntry(), Entry() and a static RowText(). Deleting a stored entry notes
// its id for the host's OK; new entries get their id when they are written.
template <typename Entry, typename EntryEditor> class CEntryListPage : public CListEditPage
{
public:
    // Shows and edits these entries from now on (nullptr: none, page disabled).
    void Bind(std::vector<Entry>* entries, std::vector<quint32>* removedIds)
    {
        m_entries = entries;
        m_removedIds = removedIds;
        setEnabled(entries != nullptr);
        Redraw();
    }

    void Redraw()
    {
        const int selected = SelectedRow();
        List()->clear();
        for (int row = 0; row < Count(); ++row)
            List()->addItem(EntryEditor::RowText(At(row)));
        if (selected >= 0 && selected < Count())
            SelectRow(selected);
    }

    void EditEntry(int row)
    {
        if (row < 0 || row >= Count())
            return;
        SelectRow(row);
        m_editRow = row;
        m_editor->SetEntry(At(row));
        OpenEditor();
    }

    void DeleteEntry(int row)
    {
        if (row < 0 || row >= Count())
            return;
        const auto at = m_entries->begin() + row;
        if (at->id != 0 && m_removedIds)
            m_removedIds->push_back(at->id);
        m_entries->erase(at);
        Redraw();
    }

    void MoveEntry(int row, int step)
    {
        const int other = row + step;
        if (row < 0 || row >= Count() || other < 0 || other >= Count())
            return;
        std::swap(At(row), At(other));
        Redraw();
        SelectRow(other);
    }

    EntryEditor* Editor() const { return m_editor; }
    int Count() const { return m_entries ? static_cast<int>(m_entries->size()) : 0; }

protected:
    CEntryListPage(const QString& hint, const QString& picture, QWidget* parent)
        : CListEditPage(hint, picture, parent), m_editor(new EntryEditor(this))
    {
        SetEditor(m_editor);
    }

    // Opens the editor on a new entry with these values.
    void StartNewEntry(Entry entry)
    {
        if (!m_entries)
            return;
        entry.id = NewEntryID;
        m_editRow = -1;
        m_editor->SetEntry(entry);
        OpenEditor();
    }

    // False, after telling the user why and focusing the field, when the
    // editor's fields cannot be taken.
    virtual bool EditorFieldsValid() { return true; }

    void EditRow(int row) override { EditEntry(row); }
    void DeleteRow(int row) override { DeleteEntry(row); }
    bool ApplyEditor() override
    {
        if (!m_entries)
            return true;
        if (!EditorFieldsValid())
            return false;
        Entry entry = m_editor->Entry();
        if (entry.id == NewEntryID) {
            entry.id = 0;
            m_entries->push_back(entry);
            m_editRow = Count() - 1;
        } else if (m_editRow >= 0 && m_editRow < Count()) {
            At(m_editRow) = entry;
        }
        Redraw();
        SelectRow(m_editRow);
        return true;
    }

private:
    Entry& At(int row) { return (*m_entries)[static_cast<size_t>(row)]; }

    EntryEditor* m_editor;
    std::vector<Entry>* m_entries = nullptr;
    std::vector<quint32>* m_removedIds = nullptr;
    int m_editRow = -1;
};
