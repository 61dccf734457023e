#include "InstructorDlg.h"

#include "BrindleData.h"
#include "BuildingLookup.h"
#include "InstructorDlgBasicPage.h"
#include "InstructorDlgExport.h"
#include "RoomPage.h"
#include "TableWalk.h"
#include "TimeListPage.h"
#include "controls/ListChooserDlg.h"
#include "controls/MessageBox.h"
#include "controls/Mnemonic.h"
#include "res/strings/EditorStrings.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMenuBar>
#include <QTabWidget>

InstructorDlg::InstructorDlg(quint32 courseId, QWidget* parent)
    : CPagedEditorDlg(QStringLiteral("InstructorDlg"), parent), m_courseId(courseId),
      m_export(new InstructorDlgExport(this)), m_basicPage(new CInstructorBasicPage(Pages())),
      m_hoursPage(new CTimeListPage(QStringLiteral(":/images/times.svg"), Pages())),
      m_roomPage(new CRoomPage(false, QStringLiteral(":/images/room.svg"), Pages()))
{
    setWindowTitle(EditorStrings::InstructorsTitle());
    m_hoursPage->setObjectName(QStringLiteral("officeHoursPage"));
    AddPage(m_basicPage, EditorStrings::PageBasicInfo());
    AddEditorPage(m_hoursPage, EditorStrings::PageOfficeHours());
    AddPage(m_roomPage, EditorStrings::PageRoom());
    connect(m_basicPage->InstructorBox(), &QComboBox::activated, this, &InstructorDlg::SelectEntry);
    // "Current Instructors" names the shown entry as it is being typed.
    connect(m_basicPage->NameEdit(), &QLineEdit::textEdited, this, [this](const QString& name) {
        if (m_shown >= 0)
            m_basicPage->InstructorBox()->setItemText(m_shown, name);
    });
    BuildMenus();
    OnInitDialog();
}

void InstructorDlg::BuildMenus()
{
    QMenu* newMenu = MenuBar()->addMenu(WithMnemonic(EditorStrings::MenuNew()));
    newMenu->setObjectName(QStringLiteral("menuNew"));
    if (m_courseId != AllInstructors) {
        m_fromPrevious =
            newMenu->addAction(EditorStrings::FromPrevious(), this, &InstructorDlg::OnFromPrevious);
        m_fromPrevious->setObjectName(QStringLiteral("actionFromPrevious"));
    }
    m_brandNew = newMenu->addAction(EditorStrings::BrandNew(), this, &InstructorDlg::OnBrandNew);
    m_brandNew->setObjectName(QStringLiteral("actionBrandNew"));

    QMenu* deleteMenu = MenuBar()->addMenu(WithMnemonic(EditorStrings::MenuDelete()));
    deleteMenu->setObjectName(QStringLiteral("menuDelete"));
    m_deleteCurrent = deleteMenu->addAction(EditorStrings::CurrentInstructor(), this,
                                            &InstructorDlg::OnDeleteCurrent);
    m_deleteCurrent->setObjectName(QStringLiteral("actionDeleteCurrent"));

    m_exportContacts = m_export->AddMenu(MenuBar());
    connect(m_exportContacts, &QAction::toggled, this, &InstructorDlg::OnExportContacts);
}

void InstructorDlg::OnExportContacts(bool on)
{
    if (m_shown >= 0 && m_shown < static_cast<int>(m_entries.size()))
        m_entries[static_cast<size_t>(m_shown)].exportContact = on;
}

InstructorEntry InstructorDlg::LoadEntry(quint32 instructorId, bool* found)
{
    InstructorEntry entry;
    CInstructorTable instructors;
    *found = instructors.Open() && instructors.MoveToRecord(instructorId);
    if (!*found)
        return entry;
    entry.id = instructorId;
    entry.name = instructors.GetInstructorName();
    entry.phone = instructors.GetPhoneNumber();
    entry.email = instructors.GetEmail();
    entry.roomNumber = instructors.GetRoomNumber();
    if (instructors.GetBuildingID() != 0)
        entry.buildingName = CBuildingTable::GetBuildingNameFromID(instructors.GetBuildingID());

    ForEachRow<CTimeTable>(0, instructorId, [&](CTimeTable& times) {
        entry.officeHours.push_back(
            {times.GetRecordID(), times.GetDayOfWeek(), times.GetStartTime(), times.GetEndTime()});
    });
    m_export->CheckLink(entry);
    return entry;
}

void InstructorDlg::OnInitDialog()
{
    m_entries.clear();
    m_removedInstructorIds.clear();
    m_removedOfficeHourIds.clear();
    std::vector<quint32> ids;
    if (m_courseId != AllInstructors) {
        ForEachRow<CCourseInstructorTable>(1, m_courseId, [&](CCourseInstructorTable& links) {
            ids.push_back(links.GetInstructorID());
        });
    } else {
        CInstructorTable instructors;
        if (instructors.Open()) {
            for (int ok = instructors.MoveFirst(1); ok; ok = instructors.MoveNext(1))
                ids.push_back(instructors.GetRecordID());
        }
    }
    for (quint32 id : ids) {
        bool found = false;
        InstructorEntry entry = LoadEntry(id, &found);
        if (found)
            m_entries.push_back(std::move(entry));
    }
    {
        CInstructorTable instructors;
        m_storeHadInstructors = instructors.Open() && instructors.GetRecordCount() > 0;
    }

    m_roomPage->LoadBuildings();
    ShowEntry(m_entries.empty() ? -1 : 0);
}

void InstructorDlg::StoreShown()
{
    if (m_shown < 0 || m_shown >= static_cast<int>(m_entries.size()))
        return;
    InstructorEntry& entry = m_entries[static_cast<size_t>(m_shown)];
    entry.name = m_basicPage->NameEdit()->text();
    entry.phone = m_basicPage->PhoneEdit()->text();
    entry.email = m_basicPage->EmailEdit()->text();
    entry.roomNumber = m_roomPage->RoomNumberEdit()->text();
    entry.buildingName = m_roomPage->BuildingText();
}

void InstructorDlg::ShowEntry(int index)
{
    if (index >= static_cast<int>(m_entries.size()))
        index = -1;
    m_shown = index;
    const bool shown = index >= 0;
    const InstructorEntry blank;
    const InstructorEntry& entry = shown ? m_entries[static_cast<size_t>(index)] : blank;
    m_basicPage->NameEdit()->setText(entry.name);
    m_basicPage->PhoneEdit()->setText(entry.phone);
    m_basicPage->EmailEdit()->setText(entry.email);
    m_roomPage->RoomNumberEdit()->setText(entry.roomNumber);
    m_roomPage->SelectBuildingName(entry.buildingName);
    for (QWidget* field : {static_cast<QWidget*>(m_basicPage->NameEdit()),
                           static_cast<QWidget*>(m_basicPage->PhoneEdit()),
                           static_cast<QWidget*>(m_basicPage->EmailEdit()),
                           static_cast<QWidget*>(m_roomPage->RoomNumberEdit()),
                           static_cast<QWidget*>(m_roomPage->BuildingBox())})
        field->setEnabled(shown);
    // The entries' vector may have moved since the last binding.
    if (shown)
        m_hoursPage->Bind(&m_entries[static_cast<size_t>(index)].officeHours,
                          &m_removedOfficeHourIds);
    else
        m_hoursPage->Bind(nullptr, nullptr);
    RefreshInstructorBox();
    UpdateMenuStates();
}

void InstructorDlg::SelectEntry(int index)
{
    StoreShown();
    ShowEntry(index);
}

void InstructorDlg::RefreshInstructorBox()
{
    QComboBox* box = m_basicPage->InstructorBox();
    const QSignalBlocker blocker(box);
    box->clear();
    for (const InstructorEntry& entry : m_entries)
        box->addItem(entry.name, entry.id);
    box->setCurrentIndex(m_shown);
    box->setEnabled(!m_entries.empty());
}

void InstructorDlg::UpdateMenuStates()
{
    if (m_fromPrevious)
        m_fromPrevious->setEnabled(m_storeHadInstructors);
    m_deleteCurrent->setEnabled(!m_entries.empty());
    const bool shown = m_shown >= 0 && m_shown < static_cast<int>(m_entries.size());
    const QSignalBlocker blocker(m_exportContacts);
    m_exportContacts->setEnabled(shown);
    m_exportContacts->setChecked(shown && m_entries[static_cast<size_t>(m_shown)].exportContact);
}

void InstructorDlg::OnFromPrevious()
{
    std::vector<ListChooserDlg::Item> items;
    CInstructorTable instructors;
    if (instructors.Open(2)) {
        for (int ok = instructors.MoveFirst(1); ok; ok = instructors.MoveNext(1))
            items.push_back({instructors.GetInstructorName(), instructors.GetRecordID()});
    }
    instructors.Close();
    if (const auto chosen =
            ListChooserDlg::Choose(this, EditorStrings::CurrentInstructors(), items))
        AddPrevious(*chosen);
}

void InstructorDlg::AddPrevious(quint32 instructorId)
{
    StoreShown();
    for (size_t i = 0; i < m_entries.size(); ++i) {
        if (m_entries[i].id == instructorId) {
            ShowEntry(static_cast<int>(i));
            return;
        }
    }
    bool found = false;
    InstructorEntry entry = LoadEntry(instructorId, &found);
    if (!found)
        return;
    m_entries.push_back(std::move(entry));
    ShowEntry(static_cast<int>(m_entries.size()) - 1);
}

void InstructorDlg::OnBrandNew()
{
    StoreShown();
    InstructorEntry entry;
    entry.name = EditorStrings::EnterName();
    m_entries.push_back(std::move(entry));
    ShowEntry(static_cast<int>(m_entries.size()) - 1);
    Pages()->setCurrentWidget(m_basicPage);
    m_basicPage->NameEdit()->setFocus();
    m_basicPage->NameEdit()->selectAll();
}

void InstructorDlg::OnDeleteCurrent()
{
    if (m_shown < 0 || m_shown >= static_cast<int>(m_entries.size()))
        return;
    const quint32 id = m_entries[static_cast<size_t>(m_shown)].id;
    if (id != 0 && m_courseId == AllInstructors) {
        bool linked = false;
        ForEachRow<CCourseInstructorTable>(0, id, [&](CCourseInstructorTable&) { linked = true; });
        const QString question =
            linked ? EditorStrings::InstructorInUse() : EditorStrings::ConfirmDeleteInstructor();
        if (!BrindleMessageBox::ConfirmDelete(this, question))
            return;
    }
    if (id != 0)
        m_removedInstructorIds.push_back(id);
    m_entries.erase(m_entries.begin() + m_shown);
    ShowEntry(m_entries.empty() ? -1 : 0);
}

void InstructorDlg::DeleteRemovedInstructor(quint32 instructorId)
{
    if (m_courseId != AllInstructors) {
        // Only this course lets go of the instructor.
        ForEachRow<CCourseInstructorTable>(0, instructorId, [&](CCourseInstructorTable& links) {
            if (links.GetCourseID() == m_courseId)
                links.DeleteRecord(0);
        });
        return;
    }
    {
        CInstructorTable instructors;
        if (instructors.Open() && instructors.MoveToRecord(instructorId))
            instructors.DeleteRecord(0);
    }
    ForEachRow<CCourseInstructorTable>(
        0, instructorId, [](CCourseInstructorTable& links) { links.DeleteRecord(0); });
    ForEachRow<CTimeTable>(0, instructorId, [](CTimeTable& times) { times.DeleteRecord(0); });
    // The contact itself stays in the address book; only the link goes.
    ForEachRow<COutlookTable>(1, instructorId, [](COutlookTable& links) { links.DeleteRecord(0); });
}

void InstructorDlg::SaveEntry(InstructorEntry& entry, QStringList& failures)
{
    CInstructorTable instructors;
    if (!instructors.Open())
        return;
    if (entry.id == 0 || !instructors.MoveToRecord(entry.id))
        instructors.NewRecord(0);

    instructors.SetBuildingID(GetOrAddBuildingID(entry.buildingName));
    instructors.SetEmail(entry.email);
    instructors.SetPhoneNumber(entry.phone);
    instructors.SetInstructorName(entry.name);
    instructors.SetRoomNumber(entry.roomNumber);
    instructors.UpdateRecord();
    const quint32 instructorId = instructors.GetRecordID();

    if (const QString failure = m_export->Export(instructorId, entry); !failure.isEmpty())
        failures << failure;

    CTimeTable times;
    if (times.Open()) {
        for (const ClassTimeEntry& hours : entry.officeHours) {
            if (hours.id == 0 || !times.MoveToRecord(hours.id))
                times.NewRecord(0);
            times.SetDayOfWeek(hours.days);
            times.SetEndTime(hours.end);
            times.SetStartTime(hours.start);
            times.SetForeignRecordID(instructorId);
            times.UpdateRecord();
        }
    }

    if (m_courseId != AllInstructors) {
        bool linked = false;
        ForEachRow<CCourseInstructorTable>(0, instructorId, [&](CCourseInstructorTable& links) {
            linked = linked || links.GetCourseID() == m_courseId;
        });
        if (!linked) {
            CCourseInstructorTable links;
            links.Open();
            links.NewRecord(0);
            links.SetCourseID(m_courseId);
            links.SetInstructorID(instructorId);
            links.UpdateRecord();
        }
    }
}

bool InstructorDlg::OnOK()
{
    if (m_hoursPage->IsEditorOpen() && !m_hoursPage->FinishEditor(true))
        return false;
    StoreShown();

    CTransaction transaction;
    for (quint32 id : m_removedInstructorIds)
        DeleteRemovedInstructor(id);
    {
        CTimeTable times;
        if (times.Open()) {
            for (quint32 id : m_removedOfficeHourIds) {
                if (times.MoveToRecord(id))
                    times.DeleteRecord(0);
            }
        }
    }
    QStringList failures;
    for (InstructorEntry& entry : m_entries)
        SaveEntry(entry, failures);
    if (!transaction.Commit()) {
        BrindleMessageBox::WarnNotSaved(this);
        return false;
    }
    // Reported once the instructors are safely saved; they do not undo it.
    for (const QString& failure : failures)
        BrindleMessageBox::Warn(this, failure);
    return true;
}

void InstructorDlg::accept()
{
    if (OnOK())
        QDialog::accept();
}
