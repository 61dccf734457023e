#pragma once

#include "IcalDocument.h"

#include <QString>

#include <memory>

// The file behind a task or an appointment of the vdir store: <id>.ics in
// the kind's folder, and its calendar.
struct VdirIcalFile
{
    QString path;
    quint32 id = 0;
    std::unique_ptr<CIcalDocument> document;

    // A new item's file, not written yet.
    static VdirIcalFile New(const QString& folder, quint32 id, icalcomponent_kind kind);
    // The stored file; its document is null when there is no such item.
    static VdirIcalFile Load(const QString& folder, quint32 id, icalcomponent_kind kind);
    // Writes the file whole. Nonzero on success.
    int Write() const;
};
