#include "TextbookEditor.h"

#include "controls/NumericEdit.h"
#include "res/strings/EditorStrings.h"

#include <QFormLayout>
#include <QLineEdit>
#include <QLocale>

CTextbookEditor::CTextbookEditor(QWidget* parent)
    : QWidget(parent), m_name(new QLineEdit(this)), m_author(new QLineEdit(this)),
      m_cost(new CNumericEdit(this))
{
    setObjectName(QStringLiteral("textbookEditor"));
    m_name->setObjectName(QStringLiteral("textbookName"));
    m_name->setMaxLength(NameLimit);
    m_author->setObjectName(QStringLiteral("textbookAuthor"));
    m_author->setMaxLength(AuthorLimit);
    m_cost->setObjectName(QStringLiteral("textbookCost"));

    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setLabelAlignment(Qt::AlignLeft);
    form->addRow(EditorStrings::LabelName(), m_name);
    form->addRow(EditorStrings::LabelAuthor(), m_author);
    form->addRow(EditorStrings::LabelCost(), m_cost);
}

void CTextbookEditor::SetEntry(const TextbookEntry& entry)
{
    m_entry = entry;
    m_name->setText(entry.name);
    m_author->setText(entry.author);
    // A negative cost is the no-value marker: show nothing.
    m_cost->SetValue(entry.cost < 0.0 ? CNumericEdit::EmptyValue : entry.cost);
}

TextbookEntry CTextbookEditor::Entry() const
{
    TextbookEntry entry = m_entry;
    entry.name = m_name->text();
    entry.author = m_author->text();
    entry.cost = m_cost->Value();
    return entry;
}

QString CTextbookEditor::RowText(const TextbookEntry& entry)
{
    QString text =
        entry.author.isEmpty() ? entry.name : EditorStrings::TextbookRow(entry.name, entry.author);
    // No cost given, or none worth showing.
    if (entry.cost > 0.0)
        text = EditorStrings::TextbookRowWithCost(text, QLocale().toCurrencyString(entry.cost));
    return text;
}
