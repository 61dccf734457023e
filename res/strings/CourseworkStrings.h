#pragma once

#include "ControlStrings.h"
#include "Tr.h"

// Texts of the coursework editor.
namespace CourseworkStrings {

inline QString NewCoursework()
{
    return BrindleText::tr("New Coursework");
}
inline QString EditCoursework()
{
    return BrindleText::tr("Edit Coursework");
}
inline QString AddCourseworkTo()
{
    return BrindleText::tr("Add Coursework To...");
}

inline QString PageInfo()
{
    return BrindleText::tr("Coursework Info");
}
inline QString PageDetails()
{
    return BrindleText::tr("Details");
}
inline QString PredictionNotSaved()
{
    return BrindleText::tr("Grade Prediction Mode: scores typed here are only tried out and are "
                           "not saved.");
}

inline QString Name()
{
    return ControlStrings::NameLabel();
}
inline QString CwType()
{
    return BrindleText::tr("Cw Type: ");
}
inline QString DueDate()
{
    return BrindleText::tr("Due Date: ");
}
inline QString Score()
{
    return BrindleText::tr("Score: ");
}
inline QString OutOf()
{
    return BrindleText::tr("Out Of");
}
inline QString Textbook()
{
    return BrindleText::tr("Textbook: ");
}
inline QString NoTextbook()
{
    return BrindleText::tr("No Textbook");
}
inline QString Weight()
{
    return ControlStrings::WeightLabel();
}
inline QString Progress()
{
    return BrindleText::tr("Progress: ");
}
inline QString ProgressPercent(int percent)
{
    return ControlStrings::Percent(percent);
}

inline QString MenuAdd()
{
    return BrindleText::tr("Add");
}
inline QString AddCwType()
{
    return BrindleText::tr("Cw Type...");
}
inline QString AddTextbook()
{
    return BrindleText::tr("Textbook...");
}

inline QString NameEmpty()
{
    return BrindleText::tr("Coursework name empty.");
}
inline QString ScoreOutOfRange()
{
    return BrindleText::tr("The score must be a number of 0 or more.");
}
inline QString OutOfOutOfRange()
{
    return BrindleText::tr("The points possible (Out Of) must be a number of 0 or more.");
}
inline QString WeightOutOfRange()
{
    return ControlStrings::WeightOutOfRange();
}

} // namespace CourseworkStrings
