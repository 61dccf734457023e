#pragma once

#include <QCoreApplication>
#include <QString>

// The translation context of every user-visible text of Brindle. Texts are
// written as BrindleText::tr("..."), which lupdate collects.
class BrindleText
{
    Q_DECLARE_TR_FUNCTIONS(BrindleText)
};
