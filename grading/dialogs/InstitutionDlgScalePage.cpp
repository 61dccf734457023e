#include "InstitutionDlgScalePage.h"

#include "res/strings/ReportStrings.h"
#include "store/GradeText.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

InstitutionDlgScalePage::InstitutionDlgScalePage(QWidget* parent)
    : QWidget(parent), m_scaleCombo(new QComboBox(this)), m_gradeList(new QTreeWidget(this)),
      m_newButton(new QPushButton(ReportStrings::NewGrade(), this)),
      m_editButton(new QPushButton(ReportStrings::EditGrade(), this)),
      m_deleteButton(new QPushButton(ReportStrings::DeleteGrade(), this))
{
    setObjectName(QStringLiteral("gradeScalePage"));
    m_scaleCombo->setObjectName(QStringLiteral("scaleCombo"));
    m_scaleCombo->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    m_gradeList->setObjectName(QStringLiteral("gradeList"));
    m_gradeList->setAccessibleName(ReportStrings::GradeScalePage());
    m_newButton->setObjectName(QStringLiteral("newGradeButton"));
    m_editButton->setObjectName(QStringLiteral("editGradeButton"));
    m_deleteButton->setObjectName(QStringLiteral("deleteGradeButton"));

    auto* prompt = new QLabel(ReportStrings::GradeScalePrompt(), this);
    prompt->setWordWrap(true);

    m_gradeList->setColumnCount(2);
    m_gradeList->setHeaderLabels({ReportStrings::GradeColumn(), ReportStrings::PointsColumn()});
    m_gradeList->setRootIsDecorated(false);
    m_gradeList->setUniformRowHeights(true);
    m_gradeList->setAlternatingRowColors(true);
    m_gradeList->header()->setStretchLastSection(false);
    m_gradeList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_gradeList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_gradeList->headerItem()->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);

    auto* selector = new QFormLayout;
    selector->addRow(ReportStrings::GradeScalesLabel(), m_scaleCombo);

    auto* buttons = new QVBoxLayout;
    buttons->addWidget(m_newButton);
    buttons->addWidget(m_editButton);
    buttons->addWidget(m_deleteButton);
    buttons->addStretch(1);

    auto* listRow = new QHBoxLayout;
    listRow->addWidget(m_gradeList, 1);
    listRow->addLayout(buttons);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(prompt);
    layout->addLayout(selector);
    layout->addLayout(listRow, 1);

    connect(m_scaleCombo, &QComboBox::activated, this, &InstitutionDlgScalePage::ScaleChosen);
    connect(m_newButton, &QPushButton::clicked, this, &InstitutionDlgScalePage::NewRequested);
    connect(m_editButton, &QPushButton::clicked, this,
            [this] { emit EditRequested(SelectedRow()); });
    connect(m_deleteButton, &QPushButton::clicked, this,
            [this] { emit DeleteRequested(SelectedRow()); });
    connect(m_gradeList, &QTreeWidget::itemActivated, this,
            [this] { emit EditRequested(SelectedRow()); });
    connect(m_gradeList, &QTreeWidget::itemSelectionChanged, this, [this] { UpdateButtons(); });
    // The keys of every list with New, Edit and Delete.
    const auto onKey = [this](Qt::Key key, auto action) {
        auto* shortcut = new QShortcut(QKeySequence(key), m_gradeList);
        shortcut->setContext(Qt::WidgetShortcut);
        connect(shortcut, &QShortcut::activated, this, action);
    };
    onKey(Qt::Key_Insert, [this] { emit NewRequested(); });
    onKey(Qt::Key_F2, [this] { emit EditRequested(SelectedRow()); });
    onKey(Qt::Key_Delete, [this] { emit DeleteRequested(SelectedRow()); });
    UpdateButtons();
}

void InstitutionDlgScalePage::SetScaleNames(const QStringList& names, int selected)
{
    const QSignalBlocker blocker(m_scaleCombo);
    m_scaleCombo->clear();
    m_scaleCombo->addItems(names);
    m_scaleCombo->setCurrentIndex(selected);
    // Every scale name readable in full, whichever is chosen.
    m_scaleCombo->setMinimumWidth(m_scaleCombo->sizeHint().width());
}

void InstitutionDlgScalePage::ShowGrades(const std::vector<GradeScaleEntry>& grades,
                                         int selectedRow)
{
    m_gradeList->clear();
    for (const GradeScaleEntry& grade : grades) {
        auto* item =
            new QTreeWidgetItem(m_gradeList, {grade.name, GradeText::NumberToText(grade.points)});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
    if (QTreeWidgetItem* item = m_gradeList->topLevelItem(selectedRow))
        m_gradeList->setCurrentItem(item);
    UpdateButtons();
}

int InstitutionDlgScalePage::SelectedRow() const
{
    const auto selected = m_gradeList->selectedItems();
    return selected.isEmpty() ? -1 : m_gradeList->indexOfTopLevelItem(selected.first());
}

void InstitutionDlgScalePage::UpdateButtons()
{
    const bool selected = SelectedRow() >= 0;
    m_editButton->setEnabled(selected);
    m_deleteButton->setEnabled(selected);
}
