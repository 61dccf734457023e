#include "GradingDlg.h"

#include "CwTypeEditor.h"
#include "GradingDlgGradingPage.h"
#include "GradingDlgTypeWriter.h"
#include "GradingDlgTypesPage.h"
#include "GradingDlgWeightingPage.h"
#include "MinimumPercentEditor.h"
#include "controls/EntryEditorKeys.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "controls/NumericEdit.h"
#include "grading/GradeCalculation.h"
#include "grading/PolicyCheck.h"
#include "res/strings/GradingPolicyStrings.h"
#include "res/strings/PlannerStrings.h"
#include "store/BrindleData.h"

#include <QButtonGroup>
#include <QContextMenuEvent>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {
constexpr quint16 MaxDrops = 99;
} // namespace

GradingDlg::GradingDlg(quint32 courseId, bool startNewType, QWidget* parent)
    : QDialog(parent), m_courseId(courseId), m_pages(new QTabWidget(this)),
      m_typesPage(new GradingDlgTypesPage(m_pages)),
      m_weightingPage(new GradingDlgWeightingPage(m_pages)),
      m_gradingPage(new GradingDlgGradingPage(m_pages)), m_warningLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("GradingDlg"));
    setWindowTitle(GradingPolicyStrings::Caption());
    m_pages->setObjectName(QStringLiteral("gradingPages"));
    m_pages->addTab(m_typesPage, GradingPolicyStrings::PageCwTypes());
    m_pages->addTab(m_weightingPage, GradingPolicyStrings::PageWeighting());
    m_pages->addTab(m_gradingPage, GradingPolicyStrings::PageGrading());

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &GradingDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &GradingDlg::reject);
    auto* layout = new QVBoxLayout(this);
    m_warningLabel->setObjectName(QStringLiteral("warningLabel"));
    m_warningLabel->setWordWrap(true);
    layout->addWidget(m_pages);
    layout->addWidget(m_warningLabel);
    layout->addWidget(buttons);

    QTreeWidget* types = m_typesPage->List();
    connect(
        types, &QWidget::customContextMenuRequested, this,
        [this, types](const QPoint& position) { ShowTypeMenu(RowAt(types, position), position); });
    types->installEventFilter(this);
    connect(types, &QTreeWidget::itemActivated, this,
            [this, types](QTreeWidgetItem* item) { EditType(types->indexOfTopLevelItem(item)); });
    connect(m_typesPage->ApplyButton(), &QPushButton::clicked, this, [this] { ApplyTypeEdit(); });
    connect(m_typesPage->DiscardButton(), &QPushButton::clicked, this,
            &GradingDlg::DiscardTypeEdit);
    connect(m_weightingPage->Buttons(), &QButtonGroup::idClicked, this, [this](int id) {
        m_weighting = id;
        RefreshWarnings();
    });
    QTreeWidget* minimums = m_gradingPage->List();
    connect(minimums, &QWidget::customContextMenuRequested, this,
            [this, minimums](const QPoint& position) {
                ShowMinimumMenu(RowAt(minimums, position), position);
            });
    minimums->installEventFilter(this);
    connect(minimums, &QTreeWidget::itemActivated, this, [this, minimums](QTreeWidgetItem* item) {
        EditMinimum(minimums->indexOfTopLevelItem(item));
    });
    connect(m_gradingPage->ApplyButton(), &QPushButton::clicked, this,
            [this] { ApplyMinimumEdit(); });
    connect(m_gradingPage->DiscardButton(), &QPushButton::clicked, this,
            &GradingDlg::DiscardMinimumEdit);

    // Return and Escape in an open pane act on the pane, not on the dialog.
    new CEntryEditorKeys(
        m_typesPage->Pane(), [this] { return m_editingType != NotEditing; },
        [this] { ApplyTypeEdit(); }, [this] { DiscardTypeEdit(); });
    new CEntryEditorKeys(
        m_gradingPage->Pane(), [this] { return m_editingMinimum >= 0; },
        [this] { ApplyMinimumEdit(); }, [this] { DiscardMinimumEdit(); });

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 26, line * 30);

    Load();
    if (startNewType)
        NewType();
}

void GradingDlg::Load()
{
    CourseTypeList order;
    LoadCourseTypes(m_courseId, order);
    for (const auto& [typeId, position] : order) {
        CCwTypeTable type;
        if (!type.Open() || !type.MoveToRecord(typeId))
            continue;
        m_types.push_back({typeId, type.GetCwTypeName(), type.GetWeight(), type.GetDrops()});
        type.Close();
        m_coursework.insert(typeId, LoadCwTypeFacts(typeId).coursework);
    }

    const quint32 weighting = CGradingPolicyTable::GetWeightingFromCourseID(m_courseId);
    SetWeighting(weighting <= CGradingPolicyTable::WeightPerItem ? static_cast<int>(weighting)
                                                                 : -1);

    CGradingPolicyGradeTable grades;
    if (grades.Open(0)) {
        const CCeDBProp key(m_courseId);
        grades.SetSeekValue(&key, CDataTable::SeekValueEqual);
        for (int ok = grades.MoveFirst(1); ok; ok = grades.MoveNext(1))
            m_minimums.push_back({grades.GetGrade(), grades.GetMinimumPercent(),
                                  CGradeScaleTable::GetGradeNameFromGrade(grades.GetGrade())});
    }

    ShowTypes(m_types.empty() ? -1 : 0);
    ShowMinimums(m_minimums.empty() ? -1 : 0);
}

void GradingDlg::SetWeighting(int weighting)
{
    m_weighting = weighting >= 0 && weighting <= 2 ? weighting : -1;
    m_weightingPage->SetWeighting(m_weighting);
    RefreshWarnings();
}

void GradingDlg::ShowTypes(int selectedRow)
{
    m_typesPage->Fill(m_types, selectedRow);
    RefreshWarnings();
}

void GradingDlg::ShowMinimums(int selectedRow)
{
    m_gradingPage->Fill(m_minimums, selectedRow);
    RefreshWarnings();
}

void GradingDlg::RefreshWarnings()
{
    std::vector<PolicyCheckType> types;
    for (const CwTypeEntry& entry : m_types)
        types.push_back({entry.name, entry.weight, entry.drops, m_coursework.value(entry.id)});
    // On OK the coursework of a deleted type moves to the first type left.
    if (!types.empty()) {
        for (quint32 deleted : m_deletedTypeIds) {
            const auto moved = m_coursework.value(deleted);
            types.front().coursework.insert(types.front().coursework.end(), moved.cbegin(),
                                            moved.cend());
        }
    }
    std::vector<PolicyCheckMinimum> minimums;
    std::vector<MinimumPercentEntry> byGrade = m_minimums;
    std::stable_sort(byGrade.begin(), byGrade.end(),
                     [](const auto& a, const auto& b) { return a.grade < b.grade; });
    for (const MinimumPercentEntry& entry : byGrade)
        minimums.push_back({entry.gradeName, entry.minimum});

    m_warningTexts.clear();
    for (const PolicyWarning& warning : CheckGradingPolicy(
             m_weighting < 0
                 ? static_cast<quint32>(CGradingPolicyTable::GetWeightingFromCourseID(m_courseId))
                 : static_cast<quint32>(m_weighting),
             types, minimums))
        m_warningTexts << PlannerStrings::WarningItem(warning.Text());
    m_warningLabel->setText(m_warningTexts.isEmpty()
                                ? QString()
                                : PlannerStrings::WarningsHeading() + QLatin1Char('\n') +
                                      m_warningTexts.join(QLatin1Char('\n')));
    m_warningLabel->setVisible(!m_warningTexts.isEmpty());
}

QList<int> GradingDlg::TypeMenuCommands(int row) const
{
    QList<int> commands{NewTypeCommand};
    const int count = static_cast<int>(m_types.size());
    if (row < 0 || row >= count)
        return commands;
    commands << EditTypeCommand;
    // The last type is never deleted, so coursework always has a type to go to.
    if (count > 1) {
        commands << DeleteTypeCommand << 0;
        if (row > 0)
            commands << MoveUpCommand;
        if (row < count - 1)
            commands << MoveDownCommand;
    }
    return commands;
}

QMenu* GradingDlg::BuildTypeMenu(int row, QWidget* parent)
{
    auto* menu = new QMenu(parent);
    menu->setObjectName(QStringLiteral("cwTypeMenu"));
    for (int command : TypeMenuCommands(row)) {
        QString text;
        switch (command) {
        case NewTypeCommand:
            text = GradingPolicyStrings::NewCwType();
            break;
        case EditTypeCommand:
            text = GradingPolicyStrings::EditCwType();
            break;
        case DeleteTypeCommand:
            text = GradingPolicyStrings::DeleteCwType();
            break;
        case MoveUpCommand:
            text = GradingPolicyStrings::MoveUp();
            break;
        case MoveDownCommand:
            text = GradingPolicyStrings::MoveDown();
            break;
        default:
            menu->addSeparator();
            continue;
        }
        QAction* action = menu->addAction(text);
        action->setData(command);
        connect(action, &QAction::triggered, this,
                [this, command, row] { RunTypeCommand(command, row); });
    }
    return menu;
}

void GradingDlg::RunTypeCommand(int command, int row)
{
    if (!TypeMenuCommands(row).contains(command))
        return;
    switch (command) {
    case NewTypeCommand:
        NewType();
        break;
    case EditTypeCommand:
        EditType(row);
        break;
    case DeleteTypeCommand:
        DeleteType(row);
        break;
    case MoveUpCommand:
        MoveType(row, -1);
        break;
    case MoveDownCommand:
        MoveType(row, 1);
        break;
    default:
        break;
    }
}

int GradingDlg::RowAt(const QTreeWidget* list, const QPoint& position)
{
    QTreeWidgetItem* item = list->itemAt(position);
    return item ? list->indexOfTopLevelItem(item) : -1;
}

bool GradingDlg::OnListKey(QObject* list, int key)
{
    // Insert, F2 and Delete run the list menu's New, Edit and Delete.
    if (list == m_typesPage->List()) {
        const int row = m_typesPage->SelectedRow();
        const int command = key == Qt::Key_Insert   ? NewTypeCommand
                            : key == Qt::Key_F2     ? EditTypeCommand
                            : key == Qt::Key_Delete ? DeleteTypeCommand
                                                    : 0;
        if (command == 0)
            return false;
        RunTypeCommand(command, row);
        return true;
    }
    if (list == m_gradingPage->List() && key == Qt::Key_F2) {
        EditMinimum(m_gradingPage->SelectedRow());
        return true;
    }
    return false;
}

bool GradingDlg::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress &&
        OnListKey(watched, static_cast<QKeyEvent*>(event)->key()))
        return true;
    if (event->type() != QEvent::ContextMenu ||
        static_cast<QContextMenuEvent*>(event)->reason() != QContextMenuEvent::Keyboard)
        return QDialog::eventFilter(watched, event);
    QTreeWidget* types = m_typesPage->List();
    QTreeWidget* minimums = m_gradingPage->List();
    if (watched != types && watched != minimums)
        return QDialog::eventFilter(watched, event);
    auto* list = static_cast<QTreeWidget*>(watched);
    const int row = list == types ? m_typesPage->SelectedRow() : m_gradingPage->SelectedRow();
    const QPoint position =
        row >= 0 ? list->visualItemRect(list->topLevelItem(row)).center() : QPoint();
    if (list == types)
        ShowTypeMenu(row, position);
    else
        ShowMinimumMenu(row, position);
    return true;
}

void GradingDlg::ShowTypeMenu(int row, const QPoint& position)
{
    QTreeWidget* list = m_typesPage->List();
    if (row >= 0)
        list->setCurrentItem(list->topLevelItem(row));
    QMenu* menu = BuildTypeMenu(row, this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(list->viewport()->mapToGlobal(position));
}

void GradingDlg::NewType()
{
    m_editingType = EditingNewType;
    m_pages->setCurrentWidget(m_typesPage);
    m_typesPage->ShowPane(GradingPolicyStrings::NewCwType());
    m_typesPage->Editor()->Load(CwTypeEntry());
}

void GradingDlg::EditType(int row)
{
    if (row < 0 || row >= static_cast<int>(m_types.size()))
        return;
    m_editingType = row;
    ShowTypes(row);
    m_pages->setCurrentWidget(m_typesPage);
    m_typesPage->ShowPane(GradingPolicyStrings::EditCwType());
    m_typesPage->Editor()->Load(m_types[static_cast<size_t>(row)]);
}

void GradingDlg::DeleteType(int row)
{
    if (!TypeMenuCommands(row).contains(DeleteTypeCommand))
        return;
    const auto at = m_types.begin() + row;
    // Only a stored type needs deleting on OK; a new one just goes.
    if (at->id != 0)
        m_deletedTypeIds.push_back(at->id);
    m_types.erase(at);
    if (m_editingType == row)
        DiscardTypeEdit();
    else if (m_editingType > row)
        --m_editingType;
    ShowTypes(std::min(row, static_cast<int>(m_types.size()) - 1));
}

void GradingDlg::MoveType(int row, int step)
{
    const int other = row + step;
    if (!TypeMenuCommands(row).contains(step < 0 ? MoveUpCommand : MoveDownCommand))
        return;
    std::swap(m_types[static_cast<size_t>(row)], m_types[static_cast<size_t>(other)]);
    if (m_editingType == row)
        m_editingType = other;
    else if (m_editingType == other)
        m_editingType = row;
    ShowTypes(other);
}

bool GradingDlg::ApplyTypeEdit()
{
    if (m_editingType == NotEditing)
        return true;
    const CwTypeEditor* editor = m_typesPage->Editor();
    QString problem;
    const double weight = editor->WeightValue();
    const double drops = editor->DropsValue();
    if (editor->NameText().trimmed().isEmpty())
        problem = GradingPolicyStrings::TypeNameEmpty();
    else if (weight == CNumericEdit::EmptyValue || weight < 0.0)
        problem = GradingPolicyStrings::TypeWeightOutOfRange();
    else if (drops == CNumericEdit::EmptyValue || drops < 0.0 || drops > MaxDrops)
        problem = GradingPolicyStrings::TypeDropsOutOfRange();
    if (!problem.isEmpty()) {
        m_pages->setCurrentWidget(m_typesPage);
        BrindleMessageBox::Warn(this, problem);
        return false;
    }

    int row = m_editingType;
    if (row == EditingNewType) {
        m_types.push_back(CwTypeEntry());
        row = static_cast<int>(m_types.size()) - 1;
    }
    editor->Read(m_types[static_cast<size_t>(row)]);
    m_editingType = NotEditing;
    m_typesPage->ShowPane(QString());
    ShowTypes(row);
    return true;
}

void GradingDlg::DiscardTypeEdit()
{
    m_editingType = NotEditing;
    m_typesPage->ShowPane(QString());
}

QList<int> GradingDlg::MinimumMenuCommands(int row) const
{
    if (row < 0 || row >= static_cast<int>(m_minimums.size()))
        return {};
    return {EditMinimumCommand};
}

void GradingDlg::ShowMinimumMenu(int row, const QPoint& position)
{
    if (MinimumMenuCommands(row).isEmpty())
        return;
    QTreeWidget* list = m_gradingPage->List();
    list->setCurrentItem(list->topLevelItem(row));
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("minimumPercentMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* edit = menu->addAction(GradingPolicyStrings::EditMinimumPercent());
    edit->setData(EditMinimumCommand);
    connect(edit, &QAction::triggered, this, [this, row] { EditMinimum(row); });
    menu->popup(list->viewport()->mapToGlobal(position));
}

void GradingDlg::EditMinimum(int row)
{
    if (MinimumMenuCommands(row).isEmpty())
        return;
    m_editingMinimum = row;
    ShowMinimums(row);
    m_pages->setCurrentWidget(m_gradingPage);
    m_gradingPage->ShowPane(true);
    m_gradingPage->Editor()->Load(m_minimums[static_cast<size_t>(row)]);
}

bool GradingDlg::ApplyMinimumEdit()
{
    if (m_editingMinimum < 0)
        return true;
    const double value = m_gradingPage->Editor()->Value();
    if (value == CNumericEdit::EmptyValue || value < 0.0 || value > 100.0) {
        m_pages->setCurrentWidget(m_gradingPage);
        BrindleMessageBox::Warn(this, GradingPolicyStrings::MinimumOutOfRange());
        return false;
    }
    const int row = m_editingMinimum;
    m_minimums[static_cast<size_t>(row)].minimum = value;
    DiscardMinimumEdit();
    ShowMinimums(row);
    return true;
}

void GradingDlg::DiscardMinimumEdit()
{
    m_editingMinimum = -1;
    m_gradingPage->ShowPane(false);
}

void GradingDlg::accept()
{
    if (Save())
        QDialog::accept();
}

bool GradingDlg::IsUntouchedNewType() const
{
    if (m_editingType != EditingNewType)
        return false;
    const CwTypeEditor* editor = m_typesPage->Editor();
    const auto asLoaded = [](double value) {
        return value == 0.0 || value == CNumericEdit::EmptyValue;
    };
    return editor->NameText().trimmed().isEmpty() && asLoaded(editor->WeightValue()) &&
           asLoaded(editor->DropsValue());
}

bool GradingDlg::Save()
{
    // A "New Cw Type" pane opened and left as it came is no new type.
    if (IsUntouchedNewType())
        DiscardTypeEdit();
    if (!ApplyTypeEdit() || !ApplyMinimumEdit())
        return false;

    std::vector<CwTypeEntry> written = m_types;
    if (!WriteAll(written)) {
        // Nothing of this OK was kept; the dialog stays open with every edit.
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }
    // Stored now: a second OK must not store them again.
    m_types = std::move(written);
    m_deletedTypeIds.clear();
    return true;
}

bool GradingDlg::WriteAll(std::vector<CwTypeEntry>& written) const
{
    // Leaving early rolls every write of this OK back.
    CTransaction transaction;
    const CCeDBProp courseKey(m_courseId);

    CGradingPolicyTable policy;
    if (!policy.Open(0))
        return false;
    policy.SetSeekValue(&courseKey, CDataTable::SeekValueEqual);
    if (policy.MoveFirst(1)) {
        if (m_weighting >= 0)
            policy.SetWeightType(static_cast<CGradingPolicyTable::Weighting>(m_weighting));
        if (!policy.UpdateRecord())
            return false;
    }

    CGradingPolicyGradeTable grades;
    if (!grades.Open(0))
        return false;
    grades.SetSeekValue(&courseKey, CDataTable::SeekValueEqual);
    for (int ok = grades.MoveFirst(1); ok; ok = grades.MoveNext(1)) {
        const quint16 grade = grades.GetGrade();
        const auto entry =
            std::find_if(m_minimums.cbegin(), m_minimums.cend(),
                         [grade](const MinimumPercentEntry& e) { return e.grade == grade; });
        if (entry == m_minimums.cend())
            continue;
        grades.SetMinimumPercent(entry->minimum);
        if (!grades.UpdateRecord())
            return false;
    }

    if (!GradingDlgTypeWriter(m_courseId).Write(m_deletedTypeIds, written))
        return false;
    return transaction.Commit() != 0;
}
