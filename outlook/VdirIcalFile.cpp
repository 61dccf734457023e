#include "VdirIcalFile.h"

#include "VdirStore.h"

namespace {
QString PathOf(const QString& folder, quint32 id)
{
    return folder + QLatin1Char('/') + QString::number(id) + QStringLiteral(".ics");
}
} // namespace

VdirIcalFile VdirIcalFile::New(const QString& folder, quint32 id, icalcomponent_kind kind)
{
    return {PathOf(folder, id), id, CIcalDocument::New(kind)};
}

VdirIcalFile VdirIcalFile::Load(const QString& folder, quint32 id, icalcomponent_kind kind)
{
    const QString path = PathOf(folder, id);
    return {path, id, CIcalDocument::Load(path, kind)};
}

int VdirIcalFile::Write() const
{
    return CVdirStore::WriteAtomically(path, document->ToBytes());
}
