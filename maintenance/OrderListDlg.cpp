#include "OrderListDlg.h"

#include "ListSelection.h"
#include "controls/HelpViewer.h"
#include "res/strings/MaintenanceStrings.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

OrderListDlg::OrderListDlg(const QString& name, const QString& title, const QString& hint,
                           QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this)),
      m_moveUp(new QPushButton(MaintenanceStrings::MoveUp(), this)),
      m_moveDown(new QPushButton(MaintenanceStrings::MoveDown(), this))
{
    setObjectName(name);
    setWindowTitle(title);
    m_list->setObjectName(QStringLiteral("orderList"));
    // The hint above the list says what it holds.
    m_list->setAccessibleName(hint);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_moveUp->setObjectName(QStringLiteral("moveUpButton"));
    m_moveDown->setObjectName(QStringLiteral("moveDownButton"));
    // Return is always the dialog's OK, also right after a move.
    m_moveUp->setAutoDefault(false);
    m_moveDown->setAutoDefault(false);
    connect(m_moveUp, &QPushButton::clicked, this, &OrderListDlg::MoveUp);
    connect(m_moveDown, &QPushButton::clicked, this, &OrderListDlg::MoveDown);
    connect(m_list, &QListWidget::itemChanged, this,
            [this](QListWidgetItem* item) { RowChanged(*item, m_list->row(item)); });
    // From the list, Ctrl+Up and Ctrl+Down move the selected row.
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Up), this), &QShortcut::activated, this,
            &OrderListDlg::MoveUp);
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Down), this), &QShortcut::activated, this,
            &OrderListDlg::MoveDown);

    auto* label = new QLabel(hint, this);
    label->setWordWrap(true);
    auto* moves = new QVBoxLayout;
    moves->addWidget(m_moveUp);
    moves->addWidget(m_moveDown);
    moves->addStretch();
    auto* body = new QHBoxLayout;
    body->addWidget(m_list, 1);
    body->addLayout(moves);
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->setObjectName(QStringLiteral("buttons"));
    connect(buttons, &QDialogButtonBox::accepted, this, &OrderListDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addLayout(body, 1);
    layout->addWidget(buttons);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 22, line * 18);
}

int OrderListDlg::SelectedRow() const
{
    return ListSelection::SelectedRow(*m_list);
}

void OrderListDlg::SelectRow(int row)
{
    ListSelection::SelectRow(*m_list, row);
}

void OrderListDlg::Redraw(int selectedRow)
{
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        for (int row = 0; row < RowCount(); ++row) {
            auto* item = new QListWidgetItem(m_list);
            ShowRow(*item, row);
        }
    }
    SelectRow(selectedRow);
}

void OrderListDlg::MoveUp()
{
    Move(-1);
}

void OrderListDlg::MoveDown()
{
    Move(1);
}

void OrderListDlg::Move(int step)
{
    const int row = SelectedRow();
    const int target = row + step;
    if (row < 0 || target < 0 || target >= RowCount())
        return;
    SwapRows(row, target);
    Redraw(target);
    m_list->scrollToItem(m_list->item(target));
}

void OrderListDlg::accept()
{
    if (OnOK())
        QDialog::accept();
}
