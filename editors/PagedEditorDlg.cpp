#include "PagedEditorDlg.h"

#include "ListEditPage.h"
#include "controls/HelpViewer.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

CPagedEditorDlg::CPagedEditorDlg(const QString& name, QWidget* parent)
    : QDialog(parent), m_menuBar(new QMenuBar(this)), m_pages(new QTabWidget(this)),
      m_buttons(new QDialogButtonBox(
          QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this))
{
    setObjectName(name);
    m_menuBar->setObjectName(QStringLiteral("menuBar"));
    m_pages->setObjectName(QStringLiteral("pages"));
    m_buttons->setObjectName(QStringLiteral("buttons"));
    connect(m_buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->setMenuBar(m_menuBar);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_buttons);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 26, line * 28);
}

void CPagedEditorDlg::AddPage(QWidget* page, const QString& title)
{
    m_pages->addTab(page, title);
    KeepButtonsLast();
}

void CPagedEditorDlg::KeepButtonsLast()
{
    // The buttons were made before the pages, so Tab would reach them first.
    QWidget* last = nullptr;
    for (QWidget* widget = nextInFocusChain(); widget != this; widget = widget->nextInFocusChain())
        if (widget->focusPolicy() != Qt::NoFocus && m_pages->isAncestorOf(widget))
            last = widget;
    for (QAbstractButton* button : m_buttons->buttons()) {
        if (last)
            QWidget::setTabOrder(last, button);
        last = button;
    }
}

void CPagedEditorDlg::AddEditorPage(CListEditPage* page, const QString& title)
{
    AddPage(page, title);
    connect(page, &CListEditPage::EditorOpenChanged, this,
            [this, page](bool open) { SetEditorOpen(page, open); });
}

void CPagedEditorDlg::SetEditorOpen(const CListEditPage* page, bool open)
{
    m_pages->tabBar()->setEnabled(!open);
    // The other pages wait too, so that Ctrl+Tab cannot reach them either.
    for (int i = 0; i < m_pages->count(); ++i) {
        if (m_pages->widget(i) != page)
            m_pages->setTabEnabled(i, !open);
    }
    m_menuBar->setEnabled(!open);
    m_buttons->setEnabled(!open);
    if (!open)
        m_buttons->button(QDialogButtonBox::Ok)->setDefault(true);
}
