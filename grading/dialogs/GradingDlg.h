#pragma once

#include "GradingDlgEntries.h"
#include "grading/CourseFacts.h"

#include <QDialog>
#include <QHash>
#include <QList>
#include <QStringList>

#include <vector>

class GradingDlgGradingPage;
class GradingDlgTypesPage;
class GradingDlgWeightingPage;
class QLabel;
class QMenu;
class QTabWidget;
class QTreeWidget;

// "Grading Policy": one course's coursework types, weighting and minimum
// percents. Everything is edited in the working copies below and written on
// OK only, in one transaction.
class GradingDlg : public QDialog
{
    Q_OBJECT

public:
    // The type list's menu commands, numbered as they always were.
    enum TypeCommand {
        NewTypeCommand = 1034,
        EditTypeCommand = 1035,
        DeleteTypeCommand = 1036,
        MoveUpCommand = 1037,
        MoveDownCommand = 1038,
    };
    static constexpr int EditMinimumCommand = 1039;
    static constexpr int NotEditing = -2;
    static constexpr int EditingNewType = -1;

    // With startNewType the dialog opens on "New Cw Type" at once.
    GradingDlg(quint32 courseId, bool startNewType = false, QWidget* parent = nullptr);

    quint32 CourseID() const { return m_courseId; }
    const std::vector<CwTypeEntry>& TypeEntries() const { return m_types; }
    const std::vector<quint32>& DeletedTypeIds() const { return m_deletedTypeIds; }
    const std::vector<MinimumPercentEntry>& MinimumEntries() const { return m_minimums; }
    // 0 None, 1 By Type, 2 Per Item; -1 when no button is checked.
    int Weighting() const { return m_weighting; }
    void SetWeighting(int weighting);

    // The commands the type list offers on a row (-1: on no entry), in menu
    // order; 0 stands for the separator.
    QList<int> TypeMenuCommands(int row) const;
    // The menu itself; its actions carry the command number as data.
    QMenu* BuildTypeMenu(int row, QWidget* parent);
    void RunTypeCommand(int command, int row);

    void NewType();
    void EditType(int row);
    void DeleteType(int row);
    void MoveType(int row, int step);
    // The type pane's Apply: refuses an empty name, a negative weight and drops
    // outside 0..99 with a message; the pane stays open then.
    bool ApplyTypeEdit();
    void DiscardTypeEdit();
    // The row the type pane edits, EditingNewType or NotEditing.
    int EditingTypeRow() const { return m_editingType; }

    QList<int> MinimumMenuCommands(int row) const;
    void EditMinimum(int row);
    // Refuses a value outside 0..100 with a message.
    bool ApplyMinimumEdit();
    void DiscardMinimumEdit();
    int EditingMinimumRow() const { return m_editingMinimum; }

    // The OK steps: an open pane is applied first (an untouched "New Cw Type"
    // pane is dropped); then the policy, the minimum percents, the deleted
    // types and the type entries are written. False (and nothing written)
    // when a pane refuses its value or a write fails; the user is told.
    bool Save();

    // What the working copy would make the grade do unexpectedly (the
    // grading policy checks); shown under the pages, never blocking OK.
    QStringList WarningTexts() const { return m_warningTexts; }

    QTabWidget* Pages() const { return m_pages; }
    GradingDlgTypesPage* TypesPage() const { return m_typesPage; }
    GradingDlgWeightingPage* WeightingPage() const { return m_weightingPage; }
    GradingDlgGradingPage* GradingPage() const { return m_gradingPage; }

public slots:
    void accept() override;

protected:
    // The Menu key opens a list's menu on its selected entry.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Load();
    void ShowTypes(int selectedRow);
    void ShowMinimums(int selectedRow);
    // Menus at a point of the list's viewport, for a row (-1: no entry).
    void ShowTypeMenu(int row, const QPoint& position);
    void ShowMinimumMenu(int row, const QPoint& position);
    static int RowAt(const QTreeWidget* list, const QPoint& position);
    void RefreshWarnings();
    // A key pressed in one of the lists; true when it ran a command.
    bool OnListKey(QObject* list, int key);
    bool IsUntouchedNewType() const;
    // Writes the working copies in one transaction; false (all rolled back)
    // when any write fails.
    bool WriteAll(std::vector<CwTypeEntry>& written) const;

    quint32 m_courseId;
    std::vector<CwTypeEntry> m_types;
    std::vector<quint32> m_deletedTypeIds;
    std::vector<MinimumPercentEntry> m_minimums;
    int m_weighting = -1;
    int m_editingType = NotEditing;
    int m_editingMinimum = -1;
    // The stored coursework of each stored type, read once for the checks.
    QHash<quint32, std::vector<CourseworkFacts>> m_coursework;
    QStringList m_warningTexts;

    QTabWidget* m_pages;
    GradingDlgTypesPage* m_typesPage;
    GradingDlgWeightingPage* m_weightingPage;
    GradingDlgGradingPage* m_gradingPage;
    QLabel* m_warningLabel;
};
