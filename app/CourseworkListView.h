#pragma once

#include <QListView>

class QMenu;

// The list of the main view. On a coursework row: double-click or Enter opens
// it, the context menu (right click, press-and-hold, the Menu key) offers
// "Delete Coursework", and in prediction mode a click on a predicted score
// says where that score comes from before going on as usual.
class CCourseworkListView : public QListView
{
    Q_OBJECT

public:
    explicit CCourseworkListView(QWidget* parent = nullptr);

    // The coursework of the row at a viewport position; 0 on a header row or
    // outside the rows.
    quint32 CourseworkAt(const QPoint& position) const;

    // Pops up the row's menu at a viewport position; nullptr when the
    // position is not on a coursework row.
    QMenu* OpenContextMenu(const QPoint& position);

    // The rightmost part of a row where a click explains a predicted score.
    int PredictionZoneWidth() const;

    // A press held at a viewport position (the touch screen's right click):
    // the row's menu, unless that press already showed the predicted-score
    // message, whose box took the release. Returns the menu or nullptr.
    QMenu* OnPressAndHold(const QPoint& position);

signals:
    void CourseworkOpened(quint32 courseworkId);
    void DeleteCourseworkRequested(quint32 courseworkId);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool viewportEvent(QEvent* event) override;

private:
    // True when it showed the message.
    bool ExplainPredictedScore(const QPoint& position);

    bool m_pressAnswered = false;
};
