#pragma once

#include <QDialog>

#include <optional>
#include <vector>

class QListWidget;

// The small chooser that asks for one record out of a list of names ("Add
// Coursework To...", "From Previous..."). The caller gives the title and the
// rows; a double-click or OK chooses the selected row.
class ListChooserDlg : public QDialog
{
    Q_OBJECT

public:
    struct Item
    {
        QString text;
        quint32 id = 0;
    };

    ListChooserDlg(const QString& title, const std::vector<Item>& items, QWidget* parent = nullptr);

    // The id of the selected row; nothing when no row is selected.
    std::optional<quint32> Selected() const;
    void SelectRow(int row);
    QListWidget* List() const { return m_list; }

    // Runs the chooser; the chosen id, or nothing on Cancel or an empty choice.
    static std::optional<quint32> Choose(QWidget* parent, const QString& title,
                                         const std::vector<Item>& items);

private:
    QListWidget* m_list;
};
