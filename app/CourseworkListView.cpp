#include "CourseworkListView.h"

#include "controls/CourseworkDelegate.h"
#include "controls/MessageBox.h"
#include "grading/PredictionStore.h"
#include "res/strings/ViewStrings.h"

#include <QContextMenuEvent>
#include <QGestureEvent>
#include <QMenu>
#include <QTapAndHoldGesture>

CCourseworkListView::CCourseworkListView(QWidget* parent) : QListView(parent)
{
    setItemDelegate(new CCourseworkDelegate(this));
    setSelectionMode(QAbstractItemView::SingleSelection);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Rows are drawn to the view's width: relayout when it changes.
    setResizeMode(QListView::Adjust);
    viewport()->grabGesture(Qt::TapAndHoldGesture);
}

quint32 CCourseworkListView::CourseworkAt(const QPoint& position) const
{
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || index.data(CCourseworkDelegate::HeaderRole).toBool())
        return 0;
    return index.data(CCourseworkDelegate::CourseworkIdRole).toUInt();
}

QMenu* CCourseworkListView::OpenContextMenu(const QPoint& position)
{
    const quint32 courseworkId = CourseworkAt(position);
    if (courseworkId == 0)
        return nullptr;
    setCurrentIndex(indexAt(position));
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("courseworkMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* remove = menu->addAction(ViewStrings::DeleteCoursework());
    remove->setObjectName(QStringLiteral("actionDeleteCoursework"));
    connect(remove, &QAction::triggered, this,
            [this, courseworkId] { emit DeleteCourseworkRequested(courseworkId); });
    menu->popup(viewport()->mapToGlobal(position));
    return menu;
}

int CCourseworkListView::PredictionZoneWidth() const
{
    return CCourseworkDelegate::ScoreColumnWidth(fontMetrics());
}

void CCourseworkListView::contextMenuEvent(QContextMenuEvent* event)
{
    // A mouse's menu comes through the viewport, in its coordinates; the Menu
    // key's goes to the current row.
    QPoint position = event->pos();
    if (event->reason() == QContextMenuEvent::Keyboard)
        position = visualRect(currentIndex()).center();
    if (OpenContextMenu(position))
        event->accept();
    else
        event->ignore();
}

bool CCourseworkListView::ExplainPredictedScore(const QPoint& position)
{
    if (!CPredictionStore::Instance().IsActive())
        return false;
    if (position.x() < viewport()->width() - PredictionZoneWidth())
        return false;
    const QModelIndex index = indexAt(position);
    if (!index.isValid() || index.data(CCourseworkDelegate::HeaderRole).toBool())
        return false;
    if (index.data(CCourseworkDelegate::ScoreSourceRole).toInt() == 0)
        return false;
    // Set before the box opens: the hold timer runs on while it is up.
    m_pressAnswered = true;
    BrindleMessageBox::Inform(this, ViewStrings::UnofficialScore());
    return true;
}

void CCourseworkListView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        m_pressAnswered = false;
        ExplainPredictedScore(event->position().toPoint());
    }
    QListView::mousePressEvent(event);
}

QMenu* CCourseworkListView::OnPressAndHold(const QPoint& position)
{
    // The message box swallowed the release, so the press looks held.
    if (m_pressAnswered) {
        m_pressAnswered = false;
        return nullptr;
    }
    return OpenContextMenu(position);
}

void CCourseworkListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    QListView::mouseDoubleClickEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    if (const quint32 courseworkId = CourseworkAt(event->position().toPoint()))
        emit CourseworkOpened(courseworkId);
}

void CCourseworkListView::keyPressEvent(QKeyEvent* event)
{
    // Delete asks just as the row's "Delete Coursework" does.
    if (event->key() == Qt::Key_Delete) {
        const QModelIndex index = currentIndex();
        if (index.isValid() && !index.data(CCourseworkDelegate::HeaderRole).toBool()) {
            emit DeleteCourseworkRequested(
                index.data(CCourseworkDelegate::CourseworkIdRole).toUInt());
            event->accept();
            return;
        }
    }
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        const QModelIndex index = currentIndex();
        if (index.isValid() && !index.data(CCourseworkDelegate::HeaderRole).toBool()) {
            emit CourseworkOpened(index.data(CCourseworkDelegate::CourseworkIdRole).toUInt());
            event->accept();
            return;
        }
    }
    QListView::keyPressEvent(event);
}

bool CCourseworkListView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Gesture) {
        auto* gestures = static_cast<QGestureEvent*>(event);
        if (auto* hold =
                static_cast<QTapAndHoldGesture*>(gestures->gesture(Qt::TapAndHoldGesture))) {
            if (hold->state() == Qt::GestureFinished)
                OnPressAndHold(viewport()->mapFromGlobal(hold->position().toPoint()));
            gestures->accept(hold);
            return true;
        }
    }
    return QListView::viewportEvent(event);
}
