#include "CourseworkDlgDetailsPage.h"

#include "res/strings/CourseworkStrings.h"

#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QTextCursor>
#include <QVBoxLayout>

CourseworkDlgDetailsPage::CourseworkDlgDetailsPage(QWidget* parent)
    : QWidget(parent), m_text(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("courseworkDetailsPage"));
    m_text->setObjectName(QStringLiteral("detailsEdit"));
    m_text->setAccessibleName(CourseworkStrings::PageDetails());
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_text);
    // QPlainTextEdit has no length limit of its own.
    connect(m_text, &QPlainTextEdit::textChanged, this, &CourseworkDlgDetailsPage::KeepWithinLimit);
}

void CourseworkDlgDetailsPage::SetText(const QString& text)
{
    m_text->setPlainText(text.left(DetailsLimit));
}

QString CourseworkDlgDetailsPage::Text() const
{
    return m_text->toPlainText();
}

void CourseworkDlgDetailsPage::KeepWithinLimit()
{
    const QString text = m_text->toPlainText();
    if (text.size() <= DetailsLimit)
        return;
    // Cut what went past the limit where it was typed or pasted, keeping the
    // cursor there.
    QTextCursor cursor = m_text->textCursor();
    const int excess = static_cast<int>(text.size()) - DetailsLimit;
    const int end = cursor.position();
    const QSignalBlocker blocker(m_text);
    cursor.setPosition(std::max(0, end - excess));
    cursor.setPosition(end, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    m_text->setTextCursor(cursor);
}
