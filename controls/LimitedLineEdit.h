#pragma once

#include <QLineEdit>

// A text field with the object name tests and screen readers find it by and
// the length its stored property allows.
inline QLineEdit* NewLimitedLineEdit(QWidget* parent, const char* objectName, int maxLength)
{
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(objectName));
    edit->setMaxLength(maxLength);
    return edit;
}
