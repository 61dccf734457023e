#include "GradePlannerDlg.h"

#include "BrindleData.h"
#include "controls/HelpViewer.h"
#include "controls/NumericEdit.h"
#include "grading/PolicyCheck.h"
#include "res/strings/PlannerStrings.h"
#include "store/GradeText.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabWidget>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>

namespace {

QLabel* WrappedLabel(const char* name, QWidget* parent)
{
    auto* label = new QLabel(parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setWordWrap(true);
    return label;
}

QString PercentText(double percent)
{
    return PlannerStrings::Percent(GradeText::NumberToText(percent));
}

} // namespace

GradePlannerDlg::GradePlannerDlg(quint32 courseId, QWidget* parent)
    : QDialog(parent), m_courseCombo(new QComboBox(this)),
      m_nowLabel(WrappedLabel("nowLabel", this)), m_bestLabel(WrappedLabel("bestLabel", this)),
      m_worstLabel(WrappedLabel("worstLabel", this)), m_pages(new QTabWidget(this)),
      m_needList(new QTreeWidget(this)), m_needLabel(WrappedLabel("needLabel", this)),
      m_assumedList(new QListWidget(this)), m_mayFallLabel(WrappedLabel("mayFallLabel", this)),
      m_warningLabel(WrappedLabel("warningLabel", this)), m_gpaEdit(new CNumericEdit(this)),
      m_gpaLabel(WrappedLabel("gpaAnswerLabel", this))
{
    setObjectName(QStringLiteral("GradePlannerDlg"));
    setWindowTitle(PlannerStrings::Title());
    const int line = fontMetrics().height();

    m_courseCombo->setObjectName(QStringLiteral("courseCombo"));
    auto* courseLabel = new QLabel(PlannerStrings::CourseLabel(), this);
    courseLabel->setBuddy(m_courseCombo);
    auto* courseRow = new QHBoxLayout;
    courseRow->addWidget(courseLabel);
    courseRow->addWidget(m_courseCombo, 1);
    QFont bold = m_nowLabel->font();
    bold.setBold(true);
    m_nowLabel->setFont(bold);

    // What do I need?
    m_needList->setObjectName(QStringLiteral("needList"));
    m_needList->setColumnCount(3);
    m_needList->setHeaderLabels({PlannerStrings::GradeColumn(), PlannerStrings::MinimumColumn(),
                                 PlannerStrings::NeedColumn()});
    m_needList->setRootIsDecorated(false);
    m_needList->setUniformRowHeights(true);
    m_needList->setAllColumnsShowFocus(true);
    m_needList->header()->setStretchLastSection(true);
    m_needList->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_needList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_needList->setMinimumHeight(line * 7);
    m_assumedList->setObjectName(QStringLiteral("assumedList"));
    // The prompts above the lists say what they hold; screen readers get them
    // as the lists' names.
    m_needList->setAccessibleName(PlannerStrings::NeedPrompt());
    m_assumedList->setAccessibleName(PlannerStrings::AssumesHeading());
    m_assumedList->setMaximumHeight(line * 5);
    auto* needPage = new QWidget(m_pages);
    auto* needLayout = new QVBoxLayout(needPage);
    auto* needPrompt = WrappedLabel("needPrompt", needPage);
    needPrompt->setText(PlannerStrings::NeedPrompt());
    auto* assumedHeading = WrappedLabel("assumedHeading", needPage);
    assumedHeading->setText(PlannerStrings::AssumesHeading());
    needLayout->addWidget(needPrompt);
    needLayout->addWidget(m_needList, 1);
    needLayout->addWidget(m_needLabel);
    needLayout->addWidget(assumedHeading);
    needLayout->addWidget(m_assumedList);
    needLayout->addWidget(m_mayFallLabel);
    m_pages->addTab(needPage, PlannerStrings::NeedHeading());

    // Target GPA.
    m_gpaEdit->setObjectName(QStringLiteral("targetGpaEdit"));
    auto* gpaPage = new QWidget(m_pages);
    auto* gpaLayout = new QVBoxLayout(gpaPage);
    auto* gpaForm = new QFormLayout;
    gpaForm->addRow(PlannerStrings::GpaLabel(), m_gpaEdit);
    gpaLayout->addLayout(gpaForm);
    gpaLayout->addWidget(m_gpaLabel);
    gpaLayout->addStretch(1);
    m_pages->addTab(gpaPage, PlannerStrings::GpaHeading());
    m_pages->setObjectName(QStringLiteral("plannerPages"));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    // Return answers in the GPA field instead of closing the planner.
    for (QAbstractButton* button : buttons->buttons()) {
        if (auto* push = qobject_cast<QPushButton*>(button)) {
            push->setAutoDefault(false);
            push->setDefault(false);
        }
    }

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(courseRow);
    layout->addWidget(m_nowLabel);
    layout->addWidget(m_worstLabel);
    layout->addWidget(m_bestLabel);
    layout->addWidget(m_pages, 1);
    layout->addWidget(m_warningLabel);
    layout->addWidget(buttons);
    InstallHelp(this);
    // Room for a full scale of grades and a few lines of answer.
    resize(QSize(line * 32, line * 44).expandedTo(sizeHint()));

    const quint32 semesterId = CAppStateTable::Instance().GetCurrentSemesterID();
    m_courseIds = GetSemesterCourses(semesterId);
    for (quint32 id : m_courseIds)
        m_courseCombo->addItem(CCourseTable::GetCourseNameFromID(id));
    if (m_courseIds.empty())
        m_courseCombo->addItem(PlannerStrings::NoCourses());
    m_courseCombo->setEnabled(!m_courseIds.empty());
    m_gpaEdit->setEnabled(!m_courseIds.empty());

    const auto start = std::find(m_courseIds.cbegin(), m_courseIds.cend(), courseId);
    SelectCourse(start == m_courseIds.cend() ? 0 : int(start - m_courseIds.cbegin()));
    SetTargetGpa(QString());

    connect(m_courseCombo, &QComboBox::currentIndexChanged, this,
            [this](int index) { SelectCourse(index); });
    connect(m_needList, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
        if (item)
            SelectGrade(m_needList->indexOfTopLevelItem(item));
    });
    connect(m_gpaEdit, &QLineEdit::textChanged, this,
            [this](const QString& text) { SetTargetGpa(text); });
    m_courseCombo->setFocus();
}

void GradePlannerDlg::SelectCourse(int index)
{
    if (index < 0 || index >= CourseCount()) {
        m_selectedCourse = -1;
        m_planner.reset();
        ShowCourse();
        return;
    }
    if (index == m_selectedCourse && m_planner)
        return;
    m_selectedCourse = index;
    if (m_courseCombo->currentIndex() != index) {
        const QSignalBlocker blocker(m_courseCombo);
        m_courseCombo->setCurrentIndex(index);
    }
    m_planner = std::make_unique<CGradePlanner>(m_courseIds[size_t(index)]);
    ShowCourse();
}

void GradePlannerDlg::ShowCourse()
{
    m_needs.clear();
    m_assumedTexts.clear();
    m_warningTexts.clear();
    m_bestText.clear();
    m_worstText.clear();
    m_nowLabel->clear();
    if (m_planner) {
        m_needs = m_planner->Needs();
        m_bestText = PlannerStrings::BestCase(m_planner->GradeTextOf(m_planner->BestCase()));
        m_worstText = PlannerStrings::WorstCase(m_planner->GradeTextOf(m_planner->WorstCase()));
        m_nowLabel->setText(PlannerStrings::CurrentGrade(
            m_planner->GradeTextOf(GetCourseGrade(m_planner->CourseID()))));
        for (const CourseworkFacts* coursework : m_planner->AssumedCoursework()) {
            m_assumedTexts << PlannerStrings::AssumedItem(
                CCwTypeTable::GetCwTypeNameFromID(coursework->cwTypeId), coursework->name,
                GradeText::NumberToText(coursework->possible));
        }
        if (m_assumedTexts.isEmpty())
            m_assumedTexts << PlannerStrings::NothingLeft();
        for (const PolicyWarning& warning : CheckCoursePolicy(m_planner->CourseID()))
            m_warningTexts << PlannerStrings::WarningItem(warning.Text());
        if (!m_planner->ReadOk())
            m_warningTexts.prepend(PlannerStrings::WarningItem(PlannerStrings::ReadFailed()));
    }
    m_bestLabel->setText(m_bestText);
    m_worstLabel->setText(m_worstText);
    m_assumedList->clear();
    m_assumedList->addItems(m_assumedTexts);
    m_mayFallLabel->setText(PlannerStrings::MayFall());
    m_mayFallLabel->setVisible(m_planner && m_planner->MayFallAsPercentRises());
    m_warningLabel->setText(m_warningTexts.isEmpty()
                                ? QString()
                                : PlannerStrings::WarningsHeading() + QLatin1Char('\n') +
                                      m_warningTexts.join(QLatin1Char('\n')));
    m_warningLabel->setVisible(!m_warningTexts.isEmpty());

    {
        const QSignalBlocker blocker(m_needList);
        m_needList->clear();
        for (const CGradePlanner::Need& need : m_needs) {
            QString answer;
            switch (need.status) {
            case CGradePlanner::Need::Secured:
                answer = PlannerStrings::Secured();
                break;
            case CGradePlanner::Need::Reachable:
                answer = PercentText(need.percent);
                break;
            case CGradePlanner::Need::NotReachable:
                answer = PlannerStrings::NotReachable();
                break;
            }
            auto* item = new QTreeWidgetItem(m_needList,
                                             {need.gradeName, PercentText(need.minimum), answer});
            item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        }
    }
    // Start on the best grade still open to work for.
    const auto open = std::find_if(m_needs.cbegin(), m_needs.cend(), [](const auto& need) {
        return need.status == CGradePlanner::Need::Reachable;
    });
    m_selectedGrade = -1;
    SelectGrade(m_needs.empty() ? -1 : open == m_needs.cend() ? 0 : int(open - m_needs.cbegin()));
}

void GradePlannerDlg::SelectGrade(int row)
{
    m_selectedGrade = row >= 0 && row < static_cast<int>(m_needs.size()) ? row : -1;
    if (m_selectedGrade >= 0 && m_needList->currentItem() != m_needList->topLevelItem(row)) {
        const QSignalBlocker blocker(m_needList);
        m_needList->setCurrentItem(m_needList->topLevelItem(row));
    }
    ShowGrade();
}

void GradePlannerDlg::ShowGrade()
{
    m_needText.clear();
    if (m_selectedGrade >= 0) {
        const CGradePlanner::Need& need = m_needs[size_t(m_selectedGrade)];
        const QString minimum = GradeText::NumberToText(need.minimum);
        switch (need.status) {
        case CGradePlanner::Need::Secured:
            m_needText = PlannerStrings::NeedSecured(need.gradeName, minimum);
            break;
        case CGradePlanner::Need::Reachable:
            m_needText = PlannerStrings::NeedReachable(
                need.gradeName, minimum, GradeText::NumberToText(need.percent),
                static_cast<int>(m_planner->AssumedCoursework().size()));
            break;
        case CGradePlanner::Need::NotReachable:
            m_needText = PlannerStrings::NeedNotReachable(
                need.gradeName, minimum, m_planner->GradeTextOf(m_planner->BestCase()));
            break;
        }
    }
    m_needLabel->setText(m_needText);
}

void GradePlannerDlg::SetTargetGpa(const QString& text)
{
    if (m_gpaEdit->text() != text) {
        const QSignalBlocker blocker(m_gpaEdit);
        m_gpaEdit->setText(text);
    }
    AnswerGpa();
}

void GradePlannerDlg::AnswerGpa()
{
    if (m_courseIds.empty()) {
        m_gpaText = PlannerStrings::GpaNoCourses();
    } else if (m_gpaEdit->IsEmpty()) {
        m_gpaText = PlannerStrings::GpaPrompt();
    } else if (const double target = m_gpaEdit->Value(); target < 0.0) {
        m_gpaText = PlannerStrings::GpaInvalid();
    } else {
        if (!m_gpaPlanner)
            m_gpaPlanner = std::make_unique<CGpaPlanner>(
                CAppStateTable::Instance().GetCurrentSemesterID(),
                CAppStateTable::Instance().GetShowGPAWithHours() != 0);
        const CGpaPlanner::Answer answer = m_gpaPlanner->For(target);
        const QString gpa = PlannerStrings::GpaValue(answer.gpa);
        QStringList lines;
        switch (answer.status) {
        case CGpaPlanner::Answer::NoCourses:
            lines << PlannerStrings::GpaNoCourses();
            break;
        case CGpaPlanner::Answer::Secured:
            lines << PlannerStrings::GpaSecured(gpa);
            break;
        case CGpaPlanner::Answer::Reachable:
            lines << PlannerStrings::GpaReachable(GradeText::NumberToText(answer.percent), gpa);
            for (const CGpaPlanner::CourseGrade& course : answer.courses) {
                lines << PlannerStrings::CourseGrade(
                    course.courseName,
                    course.fraction == -1.0
                        ? PlannerStrings::NoScore()
                        : PlannerStrings::PercentWithGrade(
                              GradeText::NumberToText(GradeText::PercentOf(course.fraction)),
                              course.gradeName));
            }
            break;
        case CGpaPlanner::Answer::NotReachable:
            lines << (answer.gpa == -1.0 ? PlannerStrings::GpaNone()
                                         : PlannerStrings::GpaNotReachable(gpa));
            break;
        }
        m_gpaText = lines.join(QLatin1Char('\n'));
    }
    m_gpaLabel->setText(m_gpaText);
}
