#include "ListChooserDlg.h"

#include "DialogRunner.h"
#include "HelpViewer.h"

#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

ListChooserDlg::ListChooserDlg(const QString& title, const std::vector<Item>& items,
                               QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("ListChooserDlg"));
    setWindowTitle(title);

    m_list->setObjectName(QStringLiteral("chooserList"));
    m_list->setAccessibleName(title);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    for (const Item& item : items) {
        auto* row = new QListWidgetItem(item.text, m_list);
        row->setData(Qt::UserRole, item.id);
    }

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->setObjectName(QStringLiteral("buttons"));
    QPushButton* ok = buttons->button(QDialogButtonBox::Ok);
    ok->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemSelectionChanged, this,
            [this, ok] { ok->setEnabled(Selected().has_value()); });
    connect(m_list, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* item) {
        m_list->setCurrentItem(item);
        accept();
    });

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_list);
    layout->addWidget(buttons);
    if (m_list->count() > 0)
        SelectRow(0);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 18, line * 20);
}

std::optional<quint32> ListChooserDlg::Selected() const
{
    const QList<QListWidgetItem*> chosen = m_list->selectedItems();
    if (chosen.isEmpty())
        return std::nullopt;
    return chosen.first()->data(Qt::UserRole).toUInt();
}

void ListChooserDlg::SelectRow(int row)
{
    m_list->setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
}

std::optional<quint32> ListChooserDlg::Choose(QWidget* parent, const QString& title,
                                              const std::vector<Item>& items)
{
    ListChooserDlg chooser(title, items, parent);
    if (DialogRunner::Run(chooser) != QDialog::Accepted)
        return std::nullopt;
    return chooser.Selected();
}
