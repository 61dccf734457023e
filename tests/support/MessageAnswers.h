#pragma once

#include <QMessageBox>
#include <QStringList>

#include <deque>

// While alive, answers every Brindle message box instead of a user: the
// queued answers in turn, then `fallback`. Records each box's text.
class MessageAnswers
{
public:
    explicit MessageAnswers(std::deque<QMessageBox::StandardButton> answers = {},
                            QMessageBox::StandardButton fallback = QMessageBox::Ok);
    ~MessageAnswers();

    const QStringList& Texts() const { return m_texts; }

private:
    std::deque<QMessageBox::StandardButton> m_answers;
    QMessageBox::StandardButton m_fallback;
    QStringList m_texts;
};
