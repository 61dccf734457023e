#pragma once

#include "outlook/ItemExport.h"
#include "res/strings/ExportStrings.h"

// The message for an export that failed, or an empty text: the texts are per
// kind, creating and updating apart.
inline QString ExportFailureText(ExportResult result, COutlookTable::OlItemType type)
{
    const bool created = result == ExportResult::CreateFailed;
    if (!created && result != ExportResult::UpdateFailed)
        return QString();
    switch (type) {
    case COutlookTable::olTaskItem:
        return created ? ExportStrings::TaskCreateFailed() : ExportStrings::TaskUpdateFailed();
    case COutlookTable::olAppointmentItem:
        return created ? ExportStrings::AppointmentCreateFailed()
                       : ExportStrings::AppointmentUpdateFailed();
    case COutlookTable::olContactItem:
        return created ? ExportStrings::ContactCreateFailed()
                       : ExportStrings::ContactUpdateFailed();
    }
    return QString();
}
