#pragma once

#include "ControlStrings.h"
#include "Tr.h"

// Texts of the grading policy dialog and its coursework type and minimum
// percent panes.
namespace GradingPolicyStrings {

inline QString Caption()
{
    return BrindleText::tr("Grading Policy");
}

inline QString PageCwTypes()
{
    return BrindleText::tr("Cw Types");
}
inline QString PageWeighting()
{
    return BrindleText::tr("Weighting");
}
inline QString PageGrading()
{
    return BrindleText::tr("Grading");
}

// Kept word for word as the program has always said it.
inline QString TypesHint()
{
    return BrindleText::tr("Tap and hold in the list below to add and coursework types.");
}
inline QString TypeColumn()
{
    return BrindleText::tr("Cw Type");
}
inline QString WeightColumn()
{
    return BrindleText::tr("Weight");
}
inline QString DropsColumn()
{
    return BrindleText::tr("Drops");
}

inline QString NewCwType()
{
    return BrindleText::tr("New Cw Type");
}
inline QString EditCwType()
{
    return BrindleText::tr("Edit Cw Type");
}
inline QString DeleteCwType()
{
    return BrindleText::tr("Delete Cw Type");
}
inline QString MoveUp()
{
    return ControlStrings::MoveUp();
}
inline QString MoveDown()
{
    return ControlStrings::MoveDown();
}

inline QString TypeName()
{
    return ControlStrings::NameLabel();
}
inline QString TypeWeight()
{
    return ControlStrings::WeightLabel();
}
inline QString TypeDrops()
{
    return BrindleText::tr("Drops: ");
}

inline QString WeightingHeading()
{
    return BrindleText::tr("Weighting used in Grade Calculation");
}
inline QString WeightingNone()
{
    return BrindleText::tr("None");
}
inline QString WeightingByType()
{
    return BrindleText::tr("By Type");
}
inline QString WeightingPerItem()
{
    return BrindleText::tr("Per Item");
}

inline QString MinimumHeading()
{
    return BrindleText::tr("Minimum Percent for Grade");
}
inline QString MinimumPrompt()
{
    return BrindleText::tr("Enter the minimum score required to receive the grade");
}
inline QString GradeColumn()
{
    return ControlStrings::Grade();
}
inline QString MinimumColumn()
{
    return BrindleText::tr("Minimum");
}
inline QString EditMinimumPercent()
{
    return BrindleText::tr("Edit Minimum Percent");
}
inline QString MinimumPercentText(const QString& number)
{
    return ControlStrings::Percent(number);
}
inline QString MinimumGrade(const QString& gradeName)
{
    return BrindleText::tr("Grade %1").arg(gradeName);
}

// The panes' own buttons, apart from the dialog's OK and Cancel.
inline QString PaneApply()
{
    return BrindleText::tr("Apply");
}
inline QString PaneDiscard()
{
    return BrindleText::tr("Discard");
}

inline QString MinimumOutOfRange()
{
    return BrindleText::tr("The minimum percent must be a number from 0 to 100.");
}
inline QString TypeNameEmpty()
{
    return BrindleText::tr("Enter a name for the coursework type.");
}
inline QString TypeWeightOutOfRange()
{
    return ControlStrings::WeightOutOfRange();
}
inline QString TypeDropsOutOfRange()
{
    return BrindleText::tr("Drops must be a whole number from 0 to 99.");
}

} // namespace GradingPolicyStrings
