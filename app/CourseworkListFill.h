#pragma once

#include "ViewTabTable.h"

#include <QDateTime>
#include <QString>

#include <utility>
#include <vector>

// One row of the main list: a course header, or one coursework with what its
// drawing needs.
struct CourseworkRow
{
    bool isHeader = false;
    QString text; // the course name of a header, else the coursework name
    double dueDate = 0.0;
    quint16 completed = 0;
    quint32 courseId = 0;
    quint32 courseworkId = 0;
    // The score as the grade calculation sees it (prediction applied).
    double score = -1.0;
    double possible = 0.0;
    int scoreSource = 0;
    bool overdue = false;
};

// What the list shows: the filters of the main view and the moment they are
// applied at.
struct CourseworkFilter
{
    CViewTabTable::ViewTabIDs tab = CViewTabTable::NoFilter;
    quint32 courseId = 0; // AllCoursesID: every course of the semester on view
    quint32 cwTypeId = 0;
    double dueBy = 0.0;
    bool showDone = false;
    QDateTime now;

    // The filters as the application state holds them.
    static CourseworkFilter FromState(const QDateTime& now);
};

// The due-date window of a tab as whole days, both ends included.
std::pair<double, double> DueWindow(CViewTabTable::ViewTabIDs tab, const QDate& today,
                                    double dueBy);

// The rows of the list: under "All Courses" each course of the semester on
// view that lists something gets a header row before its rows; each course's
// rows come by due date, equal dates in record order.
std::vector<CourseworkRow> FillCourseworkRows(const CourseworkFilter& filter);
