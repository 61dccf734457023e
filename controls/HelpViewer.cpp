#include "HelpViewer.h"

#include "Database.h"
#include "res/strings/AppStrings.h"

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

#include <algorithm>

namespace {
const QString ContentsTopic = QStringLiteral("main_contents");
}

CHelpViewer::CHelpViewer(QWidget* parent)
    : QDialog(parent), m_browser(new QTextBrowser(this)),
      m_back(new QPushButton(AppStrings::HelpBack(), this)),
      m_forward(new QPushButton(AppStrings::HelpForward(), this)),
      m_contents(new QPushButton(AppStrings::HelpContentsButton(), this))
{
    setObjectName(QStringLiteral("HelpViewer"));
    setWindowTitle(AppStrings::HelpTitle());
    m_browser->setObjectName(QStringLiteral("helpBrowser"));
    m_browser->setAccessibleName(AppStrings::HelpTitle());
    m_browser->setOpenExternalLinks(true);
    m_back->setObjectName(QStringLiteral("helpBack"));
    m_forward->setObjectName(QStringLiteral("helpForward"));
    m_contents->setObjectName(QStringLiteral("helpContents"));
    m_back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    m_forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
    m_back->setShortcut(QKeySequence::Back);
    m_forward->setShortcut(QKeySequence::Forward);
    m_back->setEnabled(false);
    m_forward->setEnabled(false);
    for (QPushButton* button : {m_back, m_forward, m_contents})
        button->setAutoDefault(false);
    connect(m_back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
    connect(m_forward, &QPushButton::clicked, m_browser, &QTextBrowser::forward);
    connect(m_contents, &QPushButton::clicked, this, [this] { OpenTopic(ContentsTopic); });
    connect(m_browser, &QTextBrowser::backwardAvailable, m_back, &QPushButton::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, m_forward, &QPushButton::setEnabled);

    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_back);
    buttons->addWidget(m_forward);
    buttons->addWidget(m_contents);
    buttons->addStretch();
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(m_browser, 1);
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

void CHelpViewer::BelongTo(QWidget* owner)
{
    if (parentWidget() == owner)
        return;
    // A modal dialog blocks every window except its own children.
    setParent(owner, windowFlags());
    if (auto* dialog = qobject_cast<QDialog*>(owner)) {
        // Before that dialog goes, the viewer returns to the window below it.
        QPointer<CHelpViewer> self(this);
        connect(dialog, &QDialog::finished, this, [self, dialog] {
            if (!self || self->parentWidget() != dialog)
                return;
            const bool shown = self->isVisible();
            QWidget* below = dialog->parentWidget() ? dialog->parentWidget()->window() : nullptr;
            if (!below) {
                self->close();
                return;
            }
            self->setParent(below, self->windowFlags());
            if (shown)
                self->show();
        });
    }
}

void CHelpViewer::PlaceBeside(const QWidget* owner)
{
    if (!owner)
        return;
    const QRect frame = owner->frameGeometry();
    const QScreen* screen = owner->screen();
    const QRect room = screen ? screen->availableGeometry() : QRect();
    const int gap = fontMetrics().height() / 2;
    QPoint at(frame.right() + gap, frame.top());
    if (room.isValid()) {
        if (at.x() + width() > room.right()) {
            // No room on the right: to the left, else as far right as fits.
            const int left = frame.left() - gap - width();
            at.setX(left >= room.left() ? left : std::max(room.left(), room.right() - width()));
        }
        at.setY(std::clamp(at.y(), room.top(), std::max(room.top(), room.bottom() - height())));
    }
    move(at);
}

CHelpViewer* CHelpViewer::ShowTopic(const QString& topic, QWidget* parent)
{
    static QPointer<CHelpViewer> viewer;
    QWidget* owner = parent ? parent->window() : nullptr;
    const bool placed = viewer && viewer->isVisible() && viewer->parentWidget() == owner;
    if (!viewer) {
        viewer = new CHelpViewer(owner);
        viewer->setAttribute(Qt::WA_DeleteOnClose);
    }
    viewer->BelongTo(owner);
    viewer->OpenTopic(topic);
    if (!placed)
        viewer->PlaceBeside(owner);
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
