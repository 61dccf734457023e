#include "TextDlg.h"

#include "DialogRunner.h"
#include "HelpViewer.h"

#include <QDialogButtonBox>
#include <QPlainTextEdit>
#include <QVBoxLayout>

TextDlg::TextDlg(const QString& title, const QString& text, QWidget* parent)
    : QDialog(parent), m_edit(new QPlainTextEdit(this))
{
    setObjectName(QStringLiteral("TextDlg"));
    setWindowTitle(title);

    m_edit->setObjectName(QStringLiteral("textEdit"));
    m_edit->setAccessibleName(title);
    m_edit->setPlainText(text);
    // Tab moves on to the buttons, as in every other field of Brindle.
    m_edit->setTabChangesFocus(true);

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->setObjectName(QStringLiteral("buttons"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_edit);
    layout->addWidget(buttons);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 24, line * 18);
}

QString TextDlg::Text() const
{
    return m_edit->toPlainText();
}

std::optional<QString> TextDlg::Edit(QWidget* parent, const QString& title, const QString& text)
{
    TextDlg dialog(title, text, parent);
    if (DialogRunner::Run(dialog) != QDialog::Accepted)
        return std::nullopt;
    return dialog.Text();
}
