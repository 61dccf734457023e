#pragma once

#include <QWidget>

class QDialogButtonBox;
class QLabel;
class QListWidget;
class QMenu;
class QStackedWidget;

// A page of an editor that lists entries and edits one of them in place: a
// hint, the list (with its context menu on right click, press-and-hold and
// the Menu key, double-click as Edit, and the keys Insert, F2 and Delete for
// New, Edit and Delete), a picture, and an entry editor
// that takes the list's place while it is open. While the editor is open the
// host dialog disables everything else (see EditorOpenChanged).
class CListEditPage : public QWidget
{
    Q_OBJECT

public:
    CListEditPage(const QString& hint, const QString& picture, QWidget* parent = nullptr);

    QListWidget* List() const { return m_list; }
    QDialogButtonBox* EditorButtons() const { return m_editorButtons; }
    bool IsEditorOpen() const;

    // The context menu for a row (-1: none under the pointer). The caller shows
    // or triggers it; it is deleted when hidden.
    QMenu* ContextMenu(int row);

    // Ends the open editor: OK applies it unless the page refuses its fields
    // (then the editor stays open and false is returned); Cancel drops it.
    bool FinishEditor(bool accepted);

signals:
    void EditorOpenChanged(bool open);

protected:
    // Puts the entry editor on the page (once, from the subclass constructor).
    void SetEditor(QWidget* editor);
    void OpenEditor();
    int SelectedRow() const;
    void SelectRow(int row);
    bool eventFilter(QObject* watched, QEvent* event) override;

    virtual void FillMenu(QMenu& menu, int row) = 0;
    // The menu's New, Edit and Delete, also on Insert, F2 and Delete.
    virtual void NewRow() = 0;
    virtual void EditRow(int row) = 0;
    virtual void DeleteRow(int row) = 0;
    // Applies the editor's fields to the entries; false keeps the editor open.
    virtual bool ApplyEditor() = 0;

private:
    void ShowMenuAt(const QPoint& listPos);

    QLabel* m_hint;
    QStackedWidget* m_stack;
    QListWidget* m_list;
    QWidget* m_panel;
    QDialogButtonBox* m_editorButtons;
    QWidget* m_editor = nullptr;
};
