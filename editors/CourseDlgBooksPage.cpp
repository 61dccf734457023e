#include "CourseDlgBooksPage.h"

#include "controls/MessageBox.h"
#include "controls/NumericEdit.h"
#include "res/strings/EditorStrings.h"

#include <QMenu>

CCourseBooksPage::CCourseBooksPage(QWidget* parent)
    : CEntryListPage(EditorStrings::BooksHint(), QStringLiteral(":/images/books.svg"), parent)
{
    setObjectName(QStringLiteral("booksPage"));
    List()->setObjectName(QStringLiteral("textbookList"));
}

bool CCourseBooksPage::EditorFieldsValid()
{
    CNumericEdit* cost = Editor()->CostEdit();
    if (!cost->IsEmpty() && cost->Value() < 0.0) {
        BrindleMessageBox::Warn(this, EditorStrings::CostOutOfRange());
        cost->setFocus();
        return false;
    }
    return true;
}

void CCourseBooksPage::FillMenu(QMenu& menu, int row)
{
    menu.addAction(EditorStrings::NewTextbook(), this, &CCourseBooksPage::NewTextbook);
    if (row < 0)
        return;
    menu.addAction(EditorStrings::EditTextbook(), this, [this, row] { EditEntry(row); });
    menu.addAction(EditorStrings::DeleteTextbook(), this, [this, row] { DeleteEntry(row); });
    if (Count() < 2)
        return;
    menu.addSeparator();
    if (row > 0)
        menu.addAction(EditorStrings::MoveUp(), this, [this, row] { MoveEntry(row, -1); });
    if (row < Count() - 1)
        menu.addAction(EditorStrings::MoveDown(), this, [this, row] { MoveEntry(row, 1); });
}
