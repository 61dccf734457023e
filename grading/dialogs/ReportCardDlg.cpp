#include "ReportCardDlg.h"

#include "BrindleData.h"
#include "GradeChart.h"
#include "controls/HelpViewer.h"
#include "controls/TreeRowPadding.h"
#include "grading/GpaCalculation.h"
#include "grading/GradeCalculation.h"
#include "res/strings/ReportStrings.h"
#include "store/GradeText.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace {

// A course's minimum percent per grade number; a gap counts as 0.
std::vector<double> MinimumPercents(quint32 courseId)
{
    std::vector<double> minimums;
    CGradingPolicyGradeTable table;
    if (!table.Open(0))
        return minimums;
    const CCeDBProp key(courseId);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1)) {
        const size_t grade = table.GetGrade();
        if (minimums.size() <= grade)
            minimums.resize(grade + 1, 0.0);
        minimums[grade] = table.GetMinimumPercent();
    }
    return minimums;
}

} // namespace

ReportCardDlg::ReportCardDlg(QWidget* parent)
    : QDialog(parent), m_gpaLabel(new QLabel(this)), m_majorGpaLabel(new QLabel(this)),
      m_cumulativeGpaLabel(new QLabel(this)), m_courseList(new QTreeWidget(this)),
      m_chart(new GradeChart(this))
{
    setObjectName(QStringLiteral("ReportCardDlg"));
    setWindowTitle(ReportStrings::ReportCardTitle());

    m_gpaLabel->setObjectName(QStringLiteral("gpaLabel"));
    m_majorGpaLabel->setObjectName(QStringLiteral("majorGpaLabel"));
    m_cumulativeGpaLabel->setObjectName(QStringLiteral("cumulativeGpaLabel"));
    // The GPA lines stand out a little above the rest, as on a printed card,
    // in Arial (or the platform's nearest sans-serif face).
    QFont gpaFont = font();
    gpaFont.setFamily(QStringLiteral("Arial"));
    gpaFont.setPointSizeF(gpaFont.pointSizeF() * 1.25);
    for (QLabel* label : {m_gpaLabel, m_majorGpaLabel, m_cumulativeGpaLabel})
        label->setFont(gpaFont);

    auto* caption = new QLabel(ReportStrings::AllCourseGrades(), this);
    caption->setObjectName(QStringLiteral("courseCaption"));

    m_courseList->setObjectName(QStringLiteral("courseList"));
    m_courseList->setAccessibleName(ReportStrings::AllCourseGrades());
    m_courseList->setColumnCount(2);
    m_courseList->setHeaderHidden(true);
    m_courseList->setRootIsDecorated(false);
    m_courseList->setUniformRowHeights(true);
    m_courseList->setAlternatingRowColors(true);
    // A report: nothing to select, rows given room to breathe.
    m_courseList->setSelectionMode(QAbstractItemView::NoSelection);
    m_courseList->setFocusPolicy(Qt::NoFocus);
    PadTreeRows(m_courseList);
    m_courseList->setFrameShape(QFrame::Box);
    m_courseList->header()->setStretchLastSection(false);
    m_courseList->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    m_courseList->header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);

    auto* chartCaption = new QLabel(ReportStrings::ChartCaption(), this);
    chartCaption->setObjectName(QStringLiteral("chartCaption"));
    m_chart->setAccessibleName(ReportStrings::ChartCaption());

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::Help, this);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::accept);

    const int line = fontMetrics().height();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_gpaLabel);
    layout->addWidget(m_majorGpaLabel);
    layout->addWidget(m_cumulativeGpaLabel);
    layout->addSpacing(line / 2);
    layout->addWidget(caption);
    layout->addWidget(m_courseList, 1);
    layout->addSpacing(line / 2);
    layout->addWidget(chartCaption);
    layout->addWidget(m_chart);
    layout->addWidget(buttons);
    InstallHelp(this);

    Load();
    // Wide enough for the chart to show every course name whole.
    resize(std::max(line * 28, sizeHint().width()), std::max(line * 30, sizeHint().height()));
}

void ReportCardDlg::Load()
{
    const bool weighted = CAppStateTable::Instance().GetShowGPAWithHours() != 0;
    m_gpaText = GpaLineText(ReportStrings::GpaLabel(), GetSemesterGPA(weighted, false));
    m_majorGpaText = GpaLineText(ReportStrings::MajorGpaLabel(), GetSemesterGPA(weighted, true));
    m_cumulativeGpaText =
        GpaLineText(ReportStrings::CumulativeGpaLabel(), GetCumulativeGPA(weighted));

    m_rows.clear();
    CCourseTable course;
    course.Open();
    for (quint32 courseId : GetSemesterCourses()) {
        if (!course.MoveToRecord(courseId))
            continue;
        Row row;
        row.courseId = courseId;
        row.name = course.GetCourseName();
        row.fraction = GetCourseGrade(courseId);
        row.grade = GetGradeIndex(courseId, row.fraction);
        row.gradeName = CGradeScaleTable::GetGradeNameFromGrade(row.grade);
        m_rows.push_back(row);
    }

    m_gpaLabel->setText(m_gpaText);
    m_majorGpaLabel->setText(m_majorGpaText);
    m_cumulativeGpaLabel->setText(m_cumulativeGpaText);
    ShowRows();
    ShowChart();
}

QString ReportCardDlg::GpaLineText(const QString& label, double gpa)
{
    return gpa == -1.0 ? ReportStrings::GpaLineEmpty(label) : ReportStrings::GpaLine(label, gpa);
}

QString ReportCardDlg::ScoreText(const Row& row)
{
    if (!GradeText::HasScore(row.fraction))
        return {};
    return ReportStrings::PercentAndGrade(
               GradeText::NumberToText(GradeText::PercentOf(row.fraction)), row.gradeName)
        .trimmed();
}

void ReportCardDlg::ShowRows()
{
    m_courseList->clear();
    for (const Row& row : m_rows) {
        auto* item = new QTreeWidgetItem(m_courseList, {row.name, ScoreText(row)});
        item->setTextAlignment(1, Qt::AlignRight | Qt::AlignVCenter);
    }
}

void ReportCardDlg::ShowChart()
{
    std::vector<GradeChart::Course> courses;
    for (const Row& row : m_rows) {
        GradeChart::Course course;
        course.name = row.name;
        course.fraction = GradeText::HasScore(row.fraction) ? row.fraction : -1.0;
        const std::vector<double> minimums = MinimumPercents(row.courseId);
        for (size_t grade = 0; grade < minimums.size(); ++grade) {
            course.bands.push_back(
                {CGradeScaleTable::GetGradeNameFromGrade(static_cast<quint16>(grade)),
                 minimums[grade]});
        }
        courses.push_back(std::move(course));
    }
    m_chart->SetCourses(std::move(courses));
}
