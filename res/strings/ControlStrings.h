#pragma once

#include "Tr.h"

// Texts shared by several parts of the program: captions, buttons, labels and
// the forms a grade is shown in. The area headers forward to these.
namespace ControlStrings {

// A change whose transaction failed; the reason is the store's (SQLite's) own.
inline QString ChangeNotSaved(const QString& reason)
{
    return BrindleText::tr("The change could not be saved (%1). Nothing was changed.").arg(reason);
}
inline QString ConfirmDelete()
{
    return BrindleText::tr("Confirm Delete");
}
inline QString Delete()
{
    return BrindleText::tr("Delete");
}
inline QString MoveUp()
{
    return BrindleText::tr("Move Up");
}
inline QString MoveDown()
{
    return BrindleText::tr("Move Down");
}
inline QString NameLabel()
{
    return BrindleText::tr("Name: ");
}
inline QString WeightLabel()
{
    return BrindleText::tr("Weight: ");
}
inline QString WeightOutOfRange()
{
    return BrindleText::tr("The weight must be a number of 0 or more.");
}
inline QString NoCourses()
{
    return BrindleText::tr("No Courses");
}
inline QString NumbersOnly()
{
    return BrindleText::tr("Only a number can be typed here.");
}
inline QString NoScore()
{
    return BrindleText::tr("No Score");
}
inline QString Grade()
{
    return BrindleText::tr("Grade");
}
inline QString Gpa()
{
    return BrindleText::tr("GPA");
}
inline QString HelpTitle()
{
    return BrindleText::tr("Brindle Help");
}

// A number as a percent: "87.5%".
inline QString Percent(const QString& number)
{
    return BrindleText::tr("%1%").arg(number);
}
inline QString Percent(int number)
{
    return Percent(QString::number(number));
}

// A course grade with its grade name: "Grade: 87.35% B".
inline QString GradeWithName(const QString& percent, const QString& gradeName)
{
    return BrindleText::tr("Grade: %1% %2").arg(percent, gradeName);
}

} // namespace ControlStrings
