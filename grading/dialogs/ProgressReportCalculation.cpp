#include "ProgressReportCalculation.h"

#include "GradingPolicyTable.h"
#include "res/strings/PlannerStrings.h"
#include "store/GradeText.h"

#include <QHeaderView>

ProgressReportCalculation::ProgressReportCalculation(QWidget* parent) : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("calculationTree"));
    setColumnCount(3);
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    header()->setStretchLastSection(true);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    header()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
}

QString ProgressReportCalculation::TypeText(const GradeBreakdown::Type& type)
{
    if (!type.considered)
        return PlannerStrings::TypeNotCounted();
    return PlannerStrings::TypeContribution(
        GradeText::NumberToText(GradeText::PercentOf(type.contribution)));
}

QStringList ProgressReportCalculation::ItemTexts(const GradeBreakdown::Item& item,
                                                 quint32 weighting)
{
    QString score;
    QString state;
    switch (item.state) {
    case GradeBreakdown::Item::NotGraded:
        state = PlannerStrings::ItemNotGraded();
        break;
    case GradeBreakdown::Item::Dropped:
        state = PlannerStrings::ItemDropped();
        break;
    case GradeBreakdown::Item::Counted:
        state =
            item.predicted ? PlannerStrings::ItemCountedPredicted() : PlannerStrings::ItemCounted();
        break;
    }
    if (item.state != GradeBreakdown::Item::NotGraded) {
        const QString points = GradeText::NumberToText(item.score);
        const QString possible = GradeText::NumberToText(item.possible);
        score = weighting == CGradingPolicyTable::WeightPerItem
                    ? PlannerStrings::ItemScoreWeighted(points, possible,
                                                        GradeText::NumberToText(item.weight))
                    : PlannerStrings::ItemScore(points, possible);
    }
    return {item.name, score, state};
}

void ProgressReportCalculation::Fill(const GradeBreakdown& breakdown)
{
    clear();
    for (const GradeBreakdown::Type& type : breakdown.types) {
        auto* typeItem = new QTreeWidgetItem(this, {type.name, QString(), TypeText(type)});
        QFont bold = typeItem->font(0);
        bold.setBold(true);
        typeItem->setFont(0, bold);
        for (const GradeBreakdown::Item& item : type.items)
            new QTreeWidgetItem(typeItem, ItemTexts(item, breakdown.weighting));
    }
    expandAll();
}
