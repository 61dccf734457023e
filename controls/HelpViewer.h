#pragma once

#include <QDialog>

class QTextBrowser;

// The built-in help viewer: Brindle.htm from the installation folder, opened
// at the topic named after a dialog ("main_contents" for the main window).
class CHelpViewer : public QDialog
{
    Q_OBJECT

public:
    explicit CHelpViewer(QWidget* parent = nullptr);

    // Shows the one viewer of the application at the topic.
    static CHelpViewer* ShowTopic(const QString& topic, QWidget* parent = nullptr);

    void OpenTopic(const QString& topic);
    QString CurrentTopic() const { return m_topic; }
    QTextBrowser* Browser() const { return m_browser; }

private:
    QTextBrowser* m_browser;
    QString m_topic;
};

// Gives a dialog its help: F1 and the Help button of a QDialogButtonBox open
// the viewer at the topic (the dialog's objectName unless given).
void InstallHelp(QWidget* dialog, const QString& topic = QString());
