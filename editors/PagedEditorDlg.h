#pragma once

#include <QDialog>

class CListEditPage;
class QDialogButtonBox;
class QMenuBar;
class QTabWidget;

// The frame of the course and instructors editors: a menu bar, the pages,
// and OK, Cancel and Help. While a page's entry editor is open everything
// else waits (the tabs, the other pages, the menus, the buttons), so that
// Return and Escape reach the entry editor and nothing leaves it half done.
class CPagedEditorDlg : public QDialog
{
    Q_OBJECT

public:
    QTabWidget* Pages() const { return m_pages; }

protected:
    // The name is the dialog's object name, which is also its help section.
    CPagedEditorDlg(const QString& name, QWidget* parent);

    QMenuBar* MenuBar() const { return m_menuBar; }
    void AddPage(QWidget* page, const QString& title);
    // A page with an entry editor that holds the rest while it is open.
    void AddEditorPage(CListEditPage* page, const QString& title);

private:
    void KeepButtonsLast();
    void SetEditorOpen(const CListEditPage* page, bool open);

    QMenuBar* m_menuBar;
    QTabWidget* m_pages;
    QDialogButtonBox* m_buttons;
};
