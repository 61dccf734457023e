#pragma once

#include <QString>

#include <functional>

class QWidget;

// Runs a dialog's writes in one transaction. When a write or the commit
// fails, everything is rolled back, the user is told `failure`, and false is
// returned, so that a failed save is never taken for a saved one.
bool WriteInTransaction(QWidget* parent, const std::function<bool()>& writes,
                        const QString& failure);
