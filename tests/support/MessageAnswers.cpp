#include "MessageAnswers.h"

#include "controls/MessageBox.h"

MessageAnswers::MessageAnswers(std::deque<QMessageBox::StandardButton> answers,
                               QMessageBox::StandardButton fallback)
    : m_answers(std::move(answers)), m_fallback(fallback)
{
    BrindleMessageBox::SetAnswerer([this](const QString& text) {
        m_texts.append(text);
        if (m_answers.empty())
            return m_fallback;
        const auto answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    });
}

MessageAnswers::~MessageAnswers()
{
    BrindleMessageBox::SetAnswerer({});
}
