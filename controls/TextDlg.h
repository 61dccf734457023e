#pragma once

#include <QDialog>

#include <optional>

class QPlainTextEdit;

// One multi-line text field under a title given by the caller ("Course
// Details"); OK hands back the edited text.
class TextDlg : public QDialog
{
    Q_OBJECT

public:
    TextDlg(const QString& title, const QString& text, QWidget* parent = nullptr);

    QString Text() const;
    QPlainTextEdit* Editor() const { return m_edit; }

    // Runs the dialog; the edited text, or nothing on Cancel.
    static std::optional<QString> Edit(QWidget* parent, const QString& title, const QString& text);

private:
    QPlainTextEdit* m_edit;
};
