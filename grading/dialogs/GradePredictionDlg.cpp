#include "GradePredictionDlg.h"

#include "BrindleData.h"
#include "GradePredictionDlgScoreEditor.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "controls/TreeRowPadding.h"
#include "grading/GradeCalculation.h"
#include "grading/PredictionStore.h"
#include "res/strings/ReportStrings.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

GradePredictionDlg::GradePredictionDlg(QWidget* parent)
    : QDialog(parent), m_courseCombo(new QComboBox(this)), m_typeList(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("GradePredictionDlg"));
    setWindowTitle(ReportStrings::GradePredictionTitle());

    m_courseCombo->setObjectName(QStringLiteral("courseCombo"));
    m_typeList->setObjectName(QStringLiteral("typeList"));
    m_typeList->setAccessibleName(ReportStrings::PredictionPrompt());
    m_typeList->setColumnCount(2);
    m_typeList->setHeaderHidden(true);
    m_typeList->setRootIsDecorated(false);
    m_typeList->setUniformRowHeights(true);
    m_typeList->header()->setStretchLastSection(false);
    m_typeList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_typeList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_typeList->setContextMenuPolicy(Qt::CustomContextMenu);
    PadTreeRows(m_typeList);

    auto* prompt = new QLabel(ReportStrings::PredictionPrompt(), this);
    prompt->setObjectName(QStringLiteral("promptLabel"));
    prompt->setWordWrap(true);

    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_courseCombo);
    layout->addWidget(m_typeList, 1);
    layout->addWidget(prompt);
    layout->addWidget(buttons);
    InstallHelp(this);

    const int line = fontMetrics().height();
    resize(line * 22, line * 20);

    Load();

    connect(m_courseCombo, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0 && index < static_cast<int>(m_courses.size()))
            SelectCourse(index);
    });
    connect(m_typeList, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& position) { OnContextMenu(position); });
    connect(m_typeList, &QTreeWidget::itemActivated, this,
            [this](QTreeWidgetItem* item) { EditPercent(m_typeList->indexOfTopLevelItem(item)); });
    // F2 and Delete run the row menu's "Edit Percent" and "Clear Percent".
    const auto currentRow = [this] {
        return m_typeList->currentItem()
                   ? m_typeList->indexOfTopLevelItem(m_typeList->currentItem())
                   : -1;
    };
    auto* edit = new QShortcut(QKeySequence(Qt::Key_F2), m_typeList);
    edit->setContext(Qt::WidgetShortcut);
    connect(edit, &QShortcut::activated, this, [this, currentRow] {
        if (currentRow() >= 0)
            EditPercent(currentRow());
    });
    auto* clear = new QShortcut(QKeySequence(Qt::Key_Delete), m_typeList);
    clear->setContext(Qt::WidgetShortcut);
    connect(clear, &QShortcut::activated, this, [this, currentRow] {
        if (currentRow() >= 0)
            ClearPercent(currentRow());
    });
}

void GradePredictionDlg::Load()
{
    const CPredictionStore& store = CPredictionStore::Instance();
    m_courses.clear();
    for (quint32 courseId : GetSemesterCourses()) {
        CourseEntry course;
        course.courseId = courseId;
        course.name = CCourseTable::GetCourseNameFromID(courseId);
        CourseTypeList types;
        LoadCourseTypes(courseId, types);
        for (const auto& type : types) {
            const quint32 typeId = type.first;
            TypeEntry entry;
            entry.cwTypeId = typeId;
            entry.name = CCwTypeTable::GetCwTypeNameFromID(typeId);
            if (const auto toGive = store.ScoreToGive(typeId))
                entry.percent = *toGive * 100.0;
            course.types.push_back(entry);
        }
        m_courses.push_back(std::move(course));
    }

    const QSignalBlocker blocker(m_courseCombo);
    m_courseCombo->clear();
    for (const CourseEntry& course : m_courses)
        m_courseCombo->addItem(course.name);
    if (m_courses.empty())
        m_courseCombo->addItem(ReportStrings::NoCourses());
    m_courseCombo->setEnabled(!m_courses.empty());
    m_selected = m_courses.empty() ? -1 : 0;
    m_courseCombo->setCurrentIndex(0);
    ShowCourse();
}

void GradePredictionDlg::Save()
{
    CPredictionStore& store = CPredictionStore::Instance();
    store.ClearScoresToGive();
    for (const CourseEntry& course : m_courses) {
        for (const TypeEntry& entry : course.types) {
            if (entry.percent != NoPercent)
                store.SetScoreToGive(entry.cwTypeId, entry.percent * 0.01);
        }
    }
}

void GradePredictionDlg::accept()
{
    Save();
    QDialog::accept();
}

void GradePredictionDlg::SelectCourse(int index)
{
    if (index < 0 || index >= static_cast<int>(m_courses.size()) || index == m_selected)
        return;
    // The entries are edited in place, so the shown course's values are
    // already kept; switching only shows another course.
    m_selected = index;
    if (m_courseCombo->currentIndex() != index) {
        const QSignalBlocker blocker(m_courseCombo);
        m_courseCombo->setCurrentIndex(index);
    }
    ShowCourse();
}

void GradePredictionDlg::ShowCourse()
{
    m_typeList->clear();
    if (m_selected < 0)
        return;
    const auto& types = m_courses[static_cast<size_t>(m_selected)].types;
    for (size_t row = 0; row < types.size(); ++row) {
        auto* item = new QTreeWidgetItem(m_typeList);
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        ShowRow(static_cast<int>(row));
    }
    if (m_typeList->topLevelItemCount() > 0)
        m_typeList->setCurrentItem(m_typeList->topLevelItem(0));
}

void GradePredictionDlg::ShowRow(int row)
{
    const TypeEntry* entry = Entry(row);
    QTreeWidgetItem* item = m_typeList->topLevelItem(row);
    if (!entry || !item)
        return;
    item->setText(0, entry->name);
    item->setText(1, entry->percent == NoPercent ? QString() : PercentText(entry->percent));
}

QString GradePredictionDlg::PercentText(double percent)
{
    return ReportStrings::Percent(QString::asprintf("%.2f", percent));
}

GradePredictionDlg::TypeEntry* GradePredictionDlg::Entry(int row)
{
    if (m_selected < 0)
        return nullptr;
    auto& types = m_courses[static_cast<size_t>(m_selected)].types;
    if (row < 0 || row >= static_cast<int>(types.size()))
        return nullptr;
    return &types[static_cast<size_t>(row)];
}

bool GradePredictionDlg::EditPercent(int row)
{
    TypeEntry* entry = Entry(row);
    if (!entry)
        return false;
    GradePredictionDlgScoreEditor editor(this);
    editor.SetPercent(entry->percent);
    if (DialogRunner::Run(editor) != QDialog::Accepted || !editor.IsValid())
        return false;
    SetPercent(row, editor.Percent());
    return true;
}

void GradePredictionDlg::SetPercent(int row, double percent)
{
    if (TypeEntry* entry = Entry(row)) {
        entry->percent = percent;
        ShowRow(row);
    }
}

void GradePredictionDlg::ClearPercent(int row)
{
    SetPercent(row, NoPercent);
}

QMenu* GradePredictionDlg::MakeContextMenu(int row, QWidget* parent)
{
    const TypeEntry* entry = Entry(row);
    if (!entry)
        return nullptr;
    auto* menu = new QMenu(parent);
    menu->setObjectName(QStringLiteral("typeMenu"));
    menu->addAction(ReportStrings::EditPercent(), this, [this, row] { EditPercent(row); });
    if (entry->percent != NoPercent)
        menu->addAction(ReportStrings::ClearPercent(), this, [this, row] { ClearPercent(row); });
    return menu;
}

void GradePredictionDlg::OnContextMenu(const QPoint& position)
{
    QTreeWidgetItem* item = m_typeList->itemAt(position);
    if (!item)
        return;
    QMenu* menu = MakeContextMenu(m_typeList->indexOfTopLevelItem(item), this);
    if (!menu)
        return;
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->popup(m_typeList->viewport()->mapToGlobal(position));
}
