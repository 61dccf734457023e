#include "VdirTask.h"

namespace {

// The completion Brindle wrote last, kept in the item itself: a task ticked
// off in another client stays done until Brindle's own progress changes.
const char* const CompletionMark = "X-BRINDLE-COMPLETE";

icalproperty* FindMark(icalcomponent* item)
{
    for (icalproperty* property = icalcomponent_get_first_property(item, ICAL_X_PROPERTY); property;
         property = icalcomponent_get_next_property(item, ICAL_X_PROPERTY)) {
        if (qstrcmp(icalproperty_get_x_name(property), CompletionMark) == 0)
            return property;
    }
    return nullptr;
}

} // namespace

CVdirTask::CVdirTask(VdirIcalFile file) : m_file(std::move(file)) {}

std::unique_ptr<CVdirTask> CVdirTask::Create(const QString& folder, quint32 id)
{
    return std::unique_ptr<CVdirTask>(
        new CVdirTask(VdirIcalFile::New(folder, id, ICAL_VTODO_COMPONENT)));
}

std::unique_ptr<CVdirTask> CVdirTask::Load(const QString& folder, quint32 id)
{
    VdirIcalFile file = VdirIcalFile::Load(folder, id, ICAL_VTODO_COMPONENT);
    if (!file.document)
        return nullptr;
    return std::unique_ptr<CVdirTask>(new CVdirTask(std::move(file)));
}

void CVdirTask::put_Subject(const QString& text)
{
    m_file.document->SetText(ICAL_SUMMARY_PROPERTY, text);
}

void CVdirTask::put_Body(const QString& text)
{
    m_file.document->SetText(ICAL_DESCRIPTION_PROPERTY, text);
}

void CVdirTask::put_Categories(const QString& text)
{
    m_file.document->SetText(ICAL_CATEGORIES_PROPERTY, text);
}

void CVdirTask::put_DueDate(double date)
{
    m_file.document->SetTime(ICAL_DUE_PROPERTY, CIcalDocument::FloatingTime(date));
}

void CVdirTask::put_Complete(bool complete)
{
    icalcomponent* item = m_file.document->Item();
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
        m_file.document->Remove(ICAL_STATUS_PROPERTY);
        icalcomponent_add_property(item, icalproperty_new_status(ICAL_STATUS_COMPLETED));
        m_file.document->SetInteger(ICAL_PERCENTCOMPLETE_PROPERTY, 100);
        m_file.document->SetTime(ICAL_COMPLETED_PROPERTY, CIcalDocument::UtcNow());
    } else {
        m_file.document->Remove(ICAL_STATUS_PROPERTY);
        icalcomponent_add_property(item, icalproperty_new_status(ICAL_STATUS_NEEDSACTION));
        m_file.document->Remove(ICAL_PERCENTCOMPLETE_PROPERTY);
        m_file.document->Remove(ICAL_COMPLETED_PROPERTY);
    }
}

int CVdirTask::Save()
{
    return m_file.Write();
}
