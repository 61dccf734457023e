#include "MessageAnswers.h"

#include "controls/MessageBox.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

MessageAnswers::MessageAnswers(std::deque<QMessageBox::StandardButton> answers,
                               QMessageBox::StandardButton fallback)
    : m_answers(std::move(answers))
    , m_fallback(fallback)
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

void OnNextModal(std::function<void(QWidget* modal)> action)
{
    auto* timer = new QTimer;
    auto* clock = new QElapsedTimer;
    clock->start();
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, clock, action] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal && clock->elapsed() < 5000)
            return;
        timer->stop();
        timer->deleteLater();
        delete clock;
        if (modal)
            action(modal);
    });
    timer->start();
}
