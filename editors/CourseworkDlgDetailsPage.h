#pragma once

#include <QWidget>

class QPlainTextEdit;

// The "Details" page: free text of at most DetailsLimit characters.
class CourseworkDlgDetailsPage : public QWidget
{
    Q_OBJECT

public:
    static constexpr int DetailsLimit = 10000;

    explicit CourseworkDlgDetailsPage(QWidget* parent = nullptr);

    void SetText(const QString& text);
    QString Text() const;

    QPlainTextEdit* Editor() const { return m_text; }

private:
    void KeepWithinLimit();

    QPlainTextEdit* m_text;
};
