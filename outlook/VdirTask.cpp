#include "VdirTask.h"

#include "VdirStore.h"

namespace {

// The completion Brindle wrote last, kept in the item itself: a task ticked
// off in another client stays done until Brindle's own progress changes.
const char* const CompletionMark = "X-BRINDLE-COMPLETE";

QString PathOf(const QString& folder, quint32 id)
{
    return folder + QLatin1Char('/') + QString::number(id) + QStringLiteral(".ics");
}

icalproperty* FindMark(icalcomponent* item)
{
    for (icalproperty* property = icalcomponent_get_first_property(item, ICAL_X_PROPERTY);
         property; property = icalcomponent_get_next_property(item, ICAL_X_PROPERTY)) {
        if (qstrcmp(icalproperty_get_x_name(property), CompletionMark) == 0)
            return property;
    }
    return nullptr;
}

} // namespace

CVdirTask::CVdirTask(QString path, quint32 id, std::unique_ptr<CIcalDocument> document)
    : m_path(std::move(path)), m_id(id), m_document(std::move(document))
{
}

std::unique_ptr<CVdirTask> CVdirTask::Create(const QString& folder, quint32 id)
{
    return std::unique_ptr<CVdirTask>(
        new CVdirTask(PathOf(folder, id), id, CIcalDocument::New(ICAL_VTODO_COMPONENT)));
}

std::unique_ptr<CVdirTask> CVdirTask::Load(const QString& folder, quint32 id)
{
    const QString path = PathOf(folder, id);
    auto document = CIcalDocument::Load(path, ICAL_VTODO_COMPONENT);
    if (!document)
        return nullptr;
    return std::unique_ptr<CVdirTask>(new CVdirTask(path, id, std::move(document)));
}

void CVdirTask::put_Subject(const QString& text)
{
    m_document->SetText(ICAL_SUMMARY_PROPERTY, text);
}

void CVdirTask::put_Body(const QString& text)
{
    m_document->SetText(ICAL_DESCRIPTION_PROPERTY, text);
}

void CVdirTask::put_Categories(const QString& text)
{
    m_document->SetText(ICAL_CATEGORIES_PROPERTY, text);
}

void CVdirTask::put_DueDate(double date)
{
    m_document->SetTime(ICAL_DUE_PROPERTY, CIcalDocument::FloatingTime(date));
}

void CVdirTask::put_Complete(bool complete)
{
    icalcomponent* item = m_document->Item();
    icalproperty* mark = FindMark(item);
    const char* value = complete ? "1" : "0";
    if (mark && qstrcmp(icalproperty_get_x(mark), value) == 0)
        return;
    if (!mark) {
        mark = icalproperty_new_x(value);
        icalproperty_set_x_name(mark, CompletionMark);
        icalcomponent_add_property(item, mark);
    } else {
        icalproperty_set_x(mark, value);
    }

    if (complete) {
        m_document->Remove(ICAL_STATUS_PROPERTY);
        icalcomponent_add_property(item, icalproperty_new_status(ICAL_STATUS_COMPLETED));
        m_document->SetInteger(ICAL_PERCENTCOMPLETE_PROPERTY, 100);
        m_document->SetTime(ICAL_COMPLETED_PROPERTY, CIcalDocument::UtcNow());
    } else {
        m_document->Remove(ICAL_STATUS_PROPERTY);
        icalcomponent_add_property(item, icalproperty_new_status(ICAL_STATUS_NEEDSACTION));
        m_document->Remove(ICAL_PERCENTCOMPLETE_PROPERTY);
        m_document->Remove(ICAL_COMPLETED_PROPERTY);
    }
}

int CVdirTask::Save()
{
    return CVdirStore::WriteAtomically(m_path, m_document->ToBytes());
}
