#include "TimeListPage.h"

#include "DateEncoding.h"
#include "controls/MessageBox.h"
#include "res/strings/EditorStrings.h"

#include <QListWidget>
#include <QMenu>
#include <QTime>
#include <QTimeEdit>

CTimeListPage::CTimeListPage(const QString& picture, QWidget* parent)
    : CListEditPage(EditorStrings::TimesHint(), picture, parent),
      m_editor(new CClassTimeEditor(this))
{
    List()->setObjectName(QStringLiteral("timeList"));
    SetEditor(m_editor);
    setEnabled(false);
}

void CTimeListPage::Bind(std::vector<ClassTimeEntry>* entries, std::vector<quint32>* removedIds)
{
    m_entries = entries;
    m_removedIds = removedIds;
    setEnabled(entries != nullptr);
    Redraw();
}

void CTimeListPage::Redraw()
{
    const int selected = SelectedRow();
    List()->clear();
    if (!m_entries)
        return;
    for (const ClassTimeEntry& entry : *m_entries)
        List()->addItem(CClassTimeEditor::RowText(entry));
    if (selected >= 0 && selected < List()->count())
        SelectRow(selected);
}

void CTimeListPage::NewTime()
{
    if (!m_entries)
        return;
    ClassTimeEntry entry;
    entry.id = NewEntryID;
    entry.start = BrindleDate::FromTime(QTime(10, 0));
    entry.end = BrindleDate::FromTime(QTime(10, 50));
    m_editRow = -1;
    m_editor->SetEntry(entry);
    OpenEditor();
}

void CTimeListPage::EditTime(int row)
{
    if (!m_entries || row < 0 || row >= static_cast<int>(m_entries->size()))
        return;
    SelectRow(row);
    m_editRow = row;
    m_editor->SetEntry((*m_entries)[static_cast<size_t>(row)]);
    OpenEditor();
}

void CTimeListPage::DeleteTime(int row)
{
    if (!m_entries || row < 0 || row >= static_cast<int>(m_entries->size()))
        return;
    const auto at = m_entries->begin() + row;
    if (at->id != 0 && m_removedIds)
        m_removedIds->push_back(at->id);
    m_entries->erase(at);
    Redraw();
}

bool CTimeListPage::ApplyEditor()
{
    if (!m_entries)
        return true;
    ClassTimeEntry entry = m_editor->Entry();
    if (m_editor->EndEdit()->time() < m_editor->StartEdit()->time()) {
        BrindleMessageBox::Warn(this, EditorStrings::EndBeforeStart());
        m_editor->EndEdit()->setFocus();
        return false;
    }
    if (entry.id == NewEntryID) {
        entry.id = 0;
        m_entries->push_back(entry);
        m_editRow = static_cast<int>(m_entries->size()) - 1;
    } else if (m_editRow >= 0 && m_editRow < static_cast<int>(m_entries->size())) {
        (*m_entries)[static_cast<size_t>(m_editRow)] = entry;
    }
    Redraw();
    SelectRow(m_editRow);
    return true;
}

void CTimeListPage::FillMenu(QMenu& menu, int row)
{
    menu.addAction(EditorStrings::NewTime(), this, &CTimeListPage::NewTime);
    if (row < 0)
        return;
    menu.addAction(EditorStrings::EditTime(), this, [this, row] { EditTime(row); });
    menu.addAction(EditorStrings::DeleteTime(), this, [this, row] { DeleteTime(row); });
}
