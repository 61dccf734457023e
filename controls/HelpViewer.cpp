#include "HelpViewer.h"

#include "Database.h"
#include "res/strings/AppStrings.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QPointer>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

CHelpViewer::CHelpViewer(QWidget* parent)
    : QDialog(parent)
    , m_browser(new QTextBrowser(this))
{
    setObjectName(QStringLiteral("HelpViewer"));
    setWindowTitle(AppStrings::HelpTitle());
    m_browser->setObjectName(QStringLiteral("helpBrowser"));
    m_browser->setOpenExternalLinks(true);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_browser);
    const int line = fontMetrics().height();
    resize(line * 36, line * 32);
}

void CHelpViewer::OpenTopic(const QString& topic)
{
    m_topic = topic;
    const QString path = GetInstallationPath() + QStringLiteral("/Brindle.htm");
    if (!QFileInfo::exists(path)) {
        m_browser->setPlainText(AppStrings::HelpMissing(path));
        return;
    }
    QUrl url = QUrl::fromLocalFile(path);
    url.setFragment(topic);
    m_browser->setSource(url);
}

CHelpViewer* CHelpViewer::ShowTopic(const QString& topic, QWidget* parent)
{
    static QPointer<CHelpViewer> viewer;
    if (!viewer) {
        viewer = new CHelpViewer(parent);
        viewer->setAttribute(Qt::WA_DeleteOnClose);
    }
    viewer->OpenTopic(topic);
    viewer->show();
    viewer->raise();
    return viewer;
}

void InstallHelp(QWidget* dialog, const QString& topic)
{
    auto open = [dialog, topic] {
        CHelpViewer::ShowTopic(topic.isEmpty() ? dialog->objectName() : topic, dialog);
    };
    auto* shortcut = new QShortcut(QKeySequence::HelpContents, dialog);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(shortcut, &QShortcut::activated, dialog, open);
    for (auto* box : dialog->findChildren<QDialogButtonBox*>())
        QObject::connect(box, &QDialogButtonBox::helpRequested, dialog, open);
}
