#pragma once

#include <QDialog>

class QPushButton;
class QTextBrowser;

// The built-in help viewer: Brindle.htm from the installation folder, opened
// at the topic named after a dialog ("main_contents" for the main window),
// with Back, Forward and Contents. There is one viewer; it belongs to the
// window that last asked for help, so that a modal dialog never blocks it,
// and it opens beside that window rather than over it.
class CHelpViewer : public QDialog
{
    Q_OBJECT

public:
    explicit CHelpViewer(QWidget* parent = nullptr);

    // Shows the one viewer of the application at the topic, usable while the
    // asking window (and any modal dialog it is) stays open.
    static CHelpViewer* ShowTopic(const QString& topic, QWidget* parent = nullptr);

    void OpenTopic(const QString& topic);
    QString CurrentTopic() const { return m_topic; }
    QTextBrowser* Browser() const { return m_browser; }
    QPushButton* BackButton() const { return m_back; }
    QPushButton* ForwardButton() const { return m_forward; }
    QPushButton* ContentsButton() const { return m_contents; }

private:
    // Moves the viewer under the window that asks, and back to that window's
    // owner when a dialog that held it closes.
    void BelongTo(QWidget* owner);
    void PlaceBeside(const QWidget* owner);

    QTextBrowser* m_browser;
    QPushButton* m_back;
    QPushButton* m_forward;
    QPushButton* m_contents;
    QString m_topic;
};

// Gives a dialog its help: F1 and the Help button of a QDialogButtonBox open
// the viewer at the topic (the dialog's objectName unless given).
void InstallHelp(QWidget* dialog, const QString& topic = QString());
