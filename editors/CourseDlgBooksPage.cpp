#include "CourseDlgBooksPage.h"

#include "ClassTimeEditor.h"
#include "controls/MessageBox.h"
#include "controls/NumericEdit.h"
#include "res/strings/EditorStrings.h"

#include <QListWidget>
#include <QMenu>

#include <utility>

CCourseBooksPage::CCourseBooksPage(QWidget* parent)
    : CListEditPage(EditorStrings::BooksHint(), QStringLiteral(":/images/books.svg"), parent),
      m_editor(new CTextbookEditor(this))
{
    setObjectName(QStringLiteral("booksPage"));
    List()->setObjectName(QStringLiteral("textbookList"));
    SetEditor(m_editor);
}

void CCourseBooksPage::Bind(std::vector<TextbookEntry>* entries, std::vector<quint32>* removedIds)
{
    m_entries = entries;
    m_removedIds = removedIds;
    Redraw();
}

void CCourseBooksPage::Redraw()
{
    const int selected = SelectedRow();
    List()->clear();
    for (int i = 0; i < Count(); ++i)
        List()->addItem(CTextbookEditor::RowText((*m_entries)[static_cast<size_t>(i)]));
    if (selected >= 0 && selected < Count())
        SelectRow(selected);
}

void CCourseBooksPage::NewTextbook()
{
    if (!m_entries)
        return;
    TextbookEntry entry;
    entry.id = NewEntryID;
    m_editRow = -1;
    m_editor->SetEntry(entry);
    OpenEditor();
}

void CCourseBooksPage::EditTextbook(int row)
{
    if (row < 0 || row >= Count())
        return;
    SelectRow(row);
    m_editRow = row;
    m_editor->SetEntry((*m_entries)[static_cast<size_t>(row)]);
    OpenEditor();
}

void CCourseBooksPage::DeleteTextbook(int row)
{
    if (row < 0 || row >= Count())
        return;
    const auto at = m_entries->begin() + row;
    if (at->id != 0 && m_removedIds)
        m_removedIds->push_back(at->id);
    m_entries->erase(at);
    Redraw();
}

void CCourseBooksPage::MoveTextbook(int row, int step)
{
    const int other = row + step;
    if (row < 0 || row >= Count() || other < 0 || other >= Count())
        return;
    std::swap((*m_entries)[static_cast<size_t>(row)], (*m_entries)[static_cast<size_t>(other)]);
    Redraw();
    SelectRow(other);
}

bool CCourseBooksPage::ApplyEditor()
{
    if (!m_entries)
        return true;
    TextbookEntry entry = m_editor->Entry();
    if (!m_editor->CostEdit()->IsEmpty() && entry.cost < 0.0) {
        BrindleMessageBox::Warn(this, EditorStrings::CostOutOfRange());
        m_editor->CostEdit()->setFocus();
        return false;
    }
    if (entry.id == NewEntryID) {
        entry.id = 0;
        m_entries->push_back(entry);
        m_editRow = Count() - 1;
    } else if (m_editRow >= 0 && m_editRow < Count()) {
        (*m_entries)[static_cast<size_t>(m_editRow)] = entry;
    }
    Redraw();
    SelectRow(m_editRow);
    return true;
}

void CCourseBooksPage::FillMenu(QMenu& menu, int row)
{
    menu.addAction(EditorStrings::NewTextbook(), this, &CCourseBooksPage::NewTextbook);
    if (row >= 0) {
        menu.addAction(EditorStrings::EditTextbook(), this, [this, row] { EditTextbook(row); });
        menu.addAction(EditorStrings::DeleteTextbook(), this, [this, row] { DeleteTextbook(row); });
    }
    if (Count() >= 2 && row >= 0) {
        menu.addSeparator();
        if (row > 0)
            menu.addAction(EditorStrings::MoveUp(), this, [this, row] { MoveTextbook(row, -1); });
        if (row < Count() - 1)
            menu.addAction(EditorStrings::MoveDown(), this, [this, row] { MoveTextbook(row, 1); });
    }
}
