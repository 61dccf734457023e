#include "TimeListPage.h"

#include "DateEncoding.h"
#include "controls/MessageBox.h"
#include "res/strings/EditorStrings.h"

#include <QMenu>
#include <QTime>
#include <QTimeEdit>

CTimeListPage::CTimeListPage(const QString& picture, QWidget* parent)
    : CEntryListPage(EditorStrings::TimesHint(), picture, parent)
{
    List()->setObjectName(QStringLiteral("timeList"));
    setEnabled(false);
}

void CTimeListPage::NewTime()
{
    ClassTimeEntry entry;
    entry.start = BrindleDate::FromTime(QTime(10, 0));
    entry.end = BrindleDate::FromTime(QTime(10, 50));
    StartNewEntry(entry);
}

bool CTimeListPage::EditorFieldsValid()
{
    CClassTimeEditor* editor = Editor();
    if (editor->EndEdit()->time() < editor->StartEdit()->time()) {
        BrindleMessageBox::Warn(this, EditorStrings::EndBeforeStart());
        editor->EndEdit()->setFocus();
        return false;
    }
    return true;
}

void CTimeListPage::FillMenu(QMenu& menu, int row)
{
    menu.addAction(EditorStrings::NewTime(), this, &CTimeListPage::NewTime);
    if (row < 0)
        return;
    menu.addAction(EditorStrings::EditTime(), this, [this, row] { EditEntry(row); });
    menu.addAction(EditorStrings::DeleteTime(), this, [this, row] { DeleteEntry(row); });
}
