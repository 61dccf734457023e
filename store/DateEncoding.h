#pragma once

#include <QDate>
#include <QDateTime>
#include <QTime>

// Every date Brindle stores is a double: whole days since 30 December 1899
// (proleptic Gregorian), the time of day as the fraction. This is the one
// place that converts between that encoding and Qt's types.
namespace BrindleDate {

// 1 January of year 1 and 31 December 9999: the widest window the views use.
double MinDate();
double MaxDate();

double FromDate(QDate date);
double FromDateTime(const QDateTime& dateTime);
double FromTime(QTime time);

// NaN, infinities and values outside the window give an invalid date or time.
QDate ToDate(double value);
QDateTime ToDateTime(double value);
QTime ToTime(double value);

// The whole-day part of a date value (the time of day dropped).
double WholeDays(double value);

} // namespace BrindleDate
