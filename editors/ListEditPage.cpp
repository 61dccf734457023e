#include "ListEditPage.h"

#include "controls/EntryEditorKeys.h"

#include <QDialogButtonBox>
#include <QGestureEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QStackedWidget>
#include <QTapAndHoldGesture>
#include <QVBoxLayout>

CListEditPage::CListEditPage(const QString& hint, const QString& picture, QWidget* parent)
    : QWidget(parent), m_hint(new QLabel(hint, this)), m_stack(new QStackedWidget(this)),
      m_list(new QListWidget(m_stack)), m_panel(new QWidget(m_stack)),
      m_editorButtons(
          new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, m_panel))
{
    m_hint->setWordWrap(true);
    m_hint->setVisible(!hint.isEmpty());
    m_list->setObjectName(QStringLiteral("entryList"));
    // The hint above the list says what it holds.
    m_list->setAccessibleName(hint);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->viewport()->grabGesture(Qt::TapAndHoldGesture);
    m_list->viewport()->installEventFilter(this);
    m_list->installEventFilter(this);
    connect(m_list, &QWidget::customContextMenuRequested, this, &CListEditPage::ShowMenuAt);
    connect(m_list, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { EditRow(m_list->row(item)); });

    m_editorButtons->setObjectName(QStringLiteral("editorButtons"));
    connect(m_editorButtons, &QDialogButtonBox::accepted, this, [this] { FinishEditor(true); });
    connect(m_editorButtons, &QDialogButtonBox::rejected, this, [this] { FinishEditor(false); });
    // Return and Escape act on the open editor before they reach the dialog.
    new CEntryEditorKeys(
        m_panel, [this] { return IsEditorOpen(); }, [this] { FinishEditor(true); },
        [this] { FinishEditor(false); });
    auto* panelLayout = new QVBoxLayout(m_panel);
    panelLayout->setContentsMargins(0, 0, 0, 0);
    panelLayout->addWidget(m_editorButtons);
    panelLayout->addStretch();

    m_stack->addWidget(m_list);
    m_stack->addWidget(m_panel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_hint);
    layout->addWidget(m_stack, 1);
    if (!picture.isEmpty()) {
        const int side = fontMetrics().height() * 4;
        auto* image = new QLabel(this);
        image->setObjectName(QStringLiteral("pagePicture"));
        image->setPixmap(QIcon(picture).pixmap(side, side));
        layout->addWidget(image, 0, Qt::AlignHCenter);
    }
}

void CListEditPage::SetEditor(QWidget* editor)
{
    m_editor = editor;
    editor->setParent(m_panel);
    static_cast<QVBoxLayout*>(m_panel->layout())->insertWidget(0, editor);
}

bool CListEditPage::IsEditorOpen() const
{
    return m_stack->currentWidget() == m_panel;
}

void CListEditPage::OpenEditor()
{
    m_stack->setCurrentWidget(m_panel);
    m_hint->setEnabled(false);
    m_editorButtons->button(QDialogButtonBox::Ok)->setDefault(true);
    // Typing goes straight into the editor's first field, not its OK button.
    if (m_editor) {
        for (QWidget* w = m_editor->nextInFocusChain(); w && w != m_editor;
             w = w->nextInFocusChain()) {
            if (m_editor->isAncestorOf(w) && (w->focusPolicy() & Qt::TabFocus)) {
                w->setFocus();
                break;
            }
        }
    }
    emit EditorOpenChanged(true);
}

bool CListEditPage::FinishEditor(bool accepted)
{
    if (!IsEditorOpen())
        return false;
    if (accepted && !ApplyEditor())
        return false;
    m_editorButtons->button(QDialogButtonBox::Ok)->setDefault(false);
    m_stack->setCurrentWidget(m_list);
    m_hint->setEnabled(true);
    m_list->setFocus();
    emit EditorOpenChanged(false);
    return true;
}

int CListEditPage::SelectedRow() const
{
    return m_list->currentRow();
}

void CListEditPage::SelectRow(int row)
{
    m_list->setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
}

QMenu* CListEditPage::ContextMenu(int row)
{
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("entryMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (row >= 0)
        SelectRow(row);
    FillMenu(*menu, row);
    return menu;
}

void CListEditPage::ShowMenuAt(const QPoint& listPos)
{
    if (IsEditorOpen())
        return;
    // The Menu key asks at the current item, the pointer at the row under it.
    const int row = m_list->indexAt(listPos).row();
    ContextMenu(row)->popup(m_list->viewport()->mapToGlobal(listPos));
}

bool CListEditPage::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_list && event->type() == QEvent::KeyPress && !IsEditorOpen()) {
        const int row = SelectedRow();
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Insert:
            NewRow();
            return true;
        case Qt::Key_F2:
            if (row >= 0)
                EditRow(row);
            return true;
        case Qt::Key_Delete:
            if (row >= 0)
                DeleteRow(row);
            return true;
        default:
            break;
        }
    }
    // Press-and-hold on a touch screen opens the same menu as a right click.
    // The type is asked first: the list may be half destroyed when other events arrive.
    if (event->type() == QEvent::Gesture && watched == m_list->viewport()) {
        auto* gestures = static_cast<QGestureEvent*>(event);
        if (auto* hold =
                static_cast<QTapAndHoldGesture*>(gestures->gesture(Qt::TapAndHoldGesture))) {
            if (hold->state() == Qt::GestureFinished)
                ShowMenuAt(m_list->viewport()->mapFromGlobal(hold->position().toPoint()));
            gestures->accept(hold);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
