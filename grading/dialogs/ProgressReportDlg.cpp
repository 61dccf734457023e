#include "ProgressReportDlg.h"

#include "ProgressReportCalculation.h"

#include "BrindleData.h"
#include "controls/HelpViewer.h"
#include "controls/TreeRowPadding.h"
#include "grading/GradeCalculation.h"
#include "grading/GradePlanner.h"
#include "grading/PolicyCheck.h"
#include "res/strings/PlannerStrings.h"
#include "res/strings/ReportStrings.h"
#include "store/GradeText.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QSvgRenderer>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

QPixmap ReportImage(int height, qreal ratio)
{
    QSvgRenderer renderer(QStringLiteral(":/images/progress_report.svg"));
    const QSize logical(height, height);
    QPixmap pixmap(logical * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    renderer.render(&painter, QRectF(QPointF(0, 0), QSizeF(logical)));
    return pixmap;
}

} // namespace

ProgressReportDlg::ProgressReportDlg(quint32 courseId, QWidget* parent)
    : QDialog(parent), m_courseId(courseId), m_titleLabel(new QLabel(this)),
      m_rowList(new QTreeWidget(this)), m_completionLabel(new QLabel(this)),
      m_gradeLabel(new QLabel(ReportStrings::NoScore(), this)), m_bandLabel(new QLabel(this)),
      m_warningLabel(new QLabel(this)), m_calculation(new ProgressReportCalculation(this))
{
    setObjectName(QStringLiteral("ProgressReportDlg"));
    setWindowTitle(ReportStrings::ProgressReportTitle());
    // The report's text is set in Arial; where it is missing the platform
    // picks its nearest sans-serif face. Sizes stay the system's.
    QFont reportFont = font();
    reportFont.setFamily(QStringLiteral("Arial"));
    setFont(reportFont);

    m_titleLabel->setObjectName(QStringLiteral("courseNameLabel"));
    QFont titleFont = m_titleLabel->font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(titleFont.pointSizeF() * 1.3);
    m_titleLabel->setFont(titleFont);
    m_titleLabel->setWordWrap(true);

    m_rowList->setObjectName(QStringLiteral("typeRows"));
    m_rowList->setAccessibleName(ReportStrings::ProgressReportTitle());
    m_rowList->setColumnCount(3);
    m_rowList->setHeaderHidden(true);
    m_rowList->setRootIsDecorated(false);
    m_rowList->setUniformRowHeights(true);
    m_rowList->setAlternatingRowColors(true);
    // A report: nothing to select, rows given room to breathe.
    m_rowList->setSelectionMode(QAbstractItemView::NoSelection);
    m_rowList->setFocusPolicy(Qt::NoFocus);
    PadTreeRows(m_rowList);
    m_rowList->header()->setStretchLastSection(false);
    m_rowList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_rowList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    m_rowList->header()->setSectionResizeMode(2, QHeaderView::ResizeToContents);

    m_completionLabel->setObjectName(QStringLiteral("completionLabel"));
    m_gradeLabel->setObjectName(QStringLiteral("gradeLabel"));
    QFont gradeFont = m_gradeLabel->font();
    gradeFont.setBold(true);
    m_gradeLabel->setFont(gradeFont);

    m_bandLabel->setObjectName(QStringLiteral("bandLabel"));
    m_bandLabel->setWordWrap(true);
    m_warningLabel->setObjectName(QStringLiteral("warningLabel"));
    m_warningLabel->setWordWrap(true);
    auto* calculationHeading = new QLabel(PlannerStrings::CalculationHeading(), this);
    calculationHeading->setObjectName(QStringLiteral("calculationHeading"));
    QFont headingFont = calculationHeading->font();
    headingFont.setBold(true);
    calculationHeading->setFont(headingFont);
    // The heading names the tree below it for a screen reader too.
    m_calculation->setAccessibleName(PlannerStrings::CalculationHeading());

    const int line = fontMetrics().height();
    auto* image = new QLabel(this);
    image->setObjectName(QStringLiteral("reportImage"));
    image->setPixmap(ReportImage(line * 4, devicePixelRatioF()));

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::accept);
    QPushButton* planner =
        buttons->addButton(PlannerStrings::ReportButton(), QDialogButtonBox::ActionRole);
    planner->setObjectName(QStringLiteral("plannerButton"));
    planner->setAutoDefault(false);
    connect(planner, &QPushButton::clicked, this, &ProgressReportDlg::RequestPlanner);

    auto* totals = new QVBoxLayout;
    totals->addWidget(m_completionLabel);
    totals->addWidget(m_gradeLabel);
    totals->addWidget(m_bandLabel);
    totals->addStretch(1);
    auto* bottom = new QHBoxLayout;
    bottom->addLayout(totals, 1);
    bottom->addWidget(image, 0, Qt::AlignRight | Qt::AlignBottom);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_titleLabel);
    layout->addWidget(m_rowList, 1);
    layout->addLayout(bottom);
    layout->addWidget(m_warningLabel);
    layout->addWidget(calculationHeading);
    layout->addWidget(m_calculation, 1);
    layout->addWidget(buttons);
    InstallHelp(this);

    resize(line * 30, line * 36);
    Load();
}

void ProgressReportDlg::Load()
{
    m_courseName = CCourseTable::GetCourseNameFromID(m_courseId);
    const auto weighting = CGradingPolicyTable::GetWeightingFromCourseID(m_courseId);
    CourseTypeList types;
    LoadCourseTypes(m_courseId, types);

    m_rows.clear();
    int totalCount = 0;
    int totalCompleted = 0;
    for (const auto& type : types) {
        const TypeSummary summary = SummarizeType(type.first, weighting);
        Row row;
        row.name =
            summary.name.isEmpty() ? CCwTypeTable::GetCwTypeNameFromID(type.first) : summary.name;
        row.courseworkCount = summary.courseworkCount;
        row.completedCount = summary.completedCount;
        if (summary.scoreTotal == -1.0 || summary.possibleTotal == 0.0) {
            row.fraction = -1.0;
        } else if (summary.possibleTotal == -1.0) {
            // Kept from the old rules; today's summaries never get here.
            row.fraction = 100.0;
            row.gradeText = ReportStrings::TopGrade();
        } else {
            row.fraction = summary.scoreTotal / summary.possibleTotal;
            row.gradeText =
                CGradeScaleTable::GetGradeNameFromGrade(GetGradeIndex(m_courseId, row.fraction));
        }
        totalCount += row.courseworkCount;
        totalCompleted += row.completedCount;
        m_rows.push_back(row);
    }

    m_completionText = totalCount == 0
                           ? ReportStrings::NoCourseworks()
                           : ReportStrings::CourseworksCompleted(totalCompleted, totalCount);

    const double grade = GetCourseGrade(m_courseId);
    if (!GradeText::HasScore(grade)) {
        m_gradeText = ReportStrings::NoScore();
    } else {
        // Unlike the grade bar, a grade above 100 % keeps its hundredths here.
        const QString name =
            CGradeScaleTable::GetGradeNameFromGrade(GetGradeIndex(m_courseId, grade));
        m_gradeText =
            ReportStrings::GradeLine(GradeText::NumberToText(GradeText::PercentOf(grade)), name)
                .trimmed();
    }

    LoadPlanning();

    m_titleLabel->setText(m_courseName);
    m_completionLabel->setText(m_completionText);
    m_gradeLabel->setText(m_gradeText);
    m_bandLabel->setText(m_bandText);
    m_bandLabel->setVisible(!m_bandText.isEmpty());
    m_warningLabel->setText(m_warningTexts.isEmpty()
                                ? QString()
                                : PlannerStrings::WarningsHeading() + QLatin1Char('\n') +
                                      m_warningTexts.join(QLatin1Char('\n')));
    m_warningLabel->setVisible(!m_warningTexts.isEmpty());
    m_calculation->Fill(m_breakdown);
    ShowRows();
}

void ProgressReportDlg::LoadPlanning()
{
    CGradePlanner planner(m_courseId);
    const double worst = planner.WorstCase();
    const double best = planner.BestCase();
    m_bandText =
        worst == -1.0 && best == -1.0
            ? QString()
            : PlannerStrings::BestWorstLine(planner.GradeTextOf(worst), planner.GradeTextOf(best));

    m_warningTexts.clear();
    for (const PolicyWarning& warning : CheckCoursePolicy(m_courseId))
        m_warningTexts << PlannerStrings::WarningItem(warning.Text());
    m_breakdown = ExplainCourseGrade(m_courseId);
}

void ProgressReportDlg::RequestPlanner()
{
    m_plannerRequested = true;
    accept();
}

void ProgressReportDlg::ShowRows()
{
    m_rowList->clear();
    for (const Row& row : m_rows) {
        auto* item = new QTreeWidgetItem(m_rowList, {row.name, CountText(row), ScoreText(row)});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
        item->setTextAlignment(2, Qt::AlignRight | Qt::AlignVCenter);
    }
}

QString ProgressReportDlg::CountText(const Row& row)
{
    return ReportStrings::CompletedOf(row.completedCount, row.courseworkCount);
}

QString ProgressReportDlg::ScoreText(const Row& row)
{
    if (!GradeText::HasScore(row.fraction))
        return ReportStrings::NoMark();
    return ReportStrings::PercentAndGrade(
               GradeText::NumberToText(GradeText::PercentOf(row.fraction)), row.gradeText)
        .trimmed();
}
