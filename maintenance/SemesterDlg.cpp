#include "SemesterDlg.h"

#include "ArchiveSemesterDlg.h"
#include "BrindleData.h"
#include "EditSemesterDlg.h"
#include "ListSelection.h"
#include "WriteInTransaction.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "controls/RowMenu.h"
#include "grading/PredictionStore.h"
#include "res/strings/MaintenanceStrings.h"
#include "store/Clock.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

namespace {
CAppStateTable& State()
{
    return CAppStateTable::Instance();
}
} // namespace

SemesterDlg::SemesterDlg(QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this)),
      m_archiveButton(new QPushButton(MaintenanceStrings::ArchiveSemester(), this)),
      m_viewButton(new QPushButton(MaintenanceStrings::ViewOldSemester(), this))
{
    setObjectName(QStringLiteral("SemesterDlg"));
    setWindowTitle(MaintenanceStrings::SemesterTitle());
    m_list->setObjectName(QStringLiteral("semesterList"));
    m_list->setAccessibleName(MaintenanceStrings::SemesterTitle());
    m_archiveButton->setObjectName(QStringLiteral("archiveSemesterButton"));
    m_viewButton->setObjectName(QStringLiteral("viewOldSemesterButton"));
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    // Return in the list is the dialog's OK, not the buttons beside it.
    m_archiveButton->setAutoDefault(false);
    m_viewButton->setAutoDefault(false);

    new CRowMenu(m_list, [this](int row) { return RowMenu(row); });
    connect(m_list, &QListWidget::itemSelectionChanged, this, &SemesterDlg::UpdateButtons);
    connect(m_list, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { EditSemester(m_list->row(item)); });
    // Desktop keys for the row menu's commands.
    connect(new QShortcut(QKeySequence(Qt::Key_F2), m_list, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, [this] { EditSemester(SelectedRow()); });
    connect(new QShortcut(QKeySequence::Delete, m_list, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, this, [this] { DeleteSemester(SelectedRow()); });
    connect(m_archiveButton, &QPushButton::clicked, this, &SemesterDlg::ArchiveSemester);
    connect(m_viewButton, &QPushButton::clicked, this, &SemesterDlg::ViewOldSemester);

    auto* label = new QLabel(MaintenanceStrings::SemesterNameLabel(), this);
    auto* commands = new QHBoxLayout;
    commands->addWidget(m_archiveButton);
    commands->addWidget(m_viewButton);
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->setObjectName(QStringLiteral("buttons"));
    connect(buttons, &QDialogButtonBox::accepted, this, &SemesterDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &SemesterDlg::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(label);
    layout->addWidget(m_list, 1);
    layout->addLayout(commands);
    layout->addWidget(buttons);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 22, line * 20);

    OnInitDialog();
}

void SemesterDlg::OnInitDialog()
{
    m_rows.clear();
    m_deletedIds.clear();
    m_archivePending = false;
    m_archiveCourseIds.clear();
    m_semesterOnOpen = State().GetCurrentSemesterID();
    CSemesterTable semesters;
    if (semesters.Open()) {
        for (int ok = semesters.MoveFirst(1); ok; ok = semesters.MoveNext(1))
            m_rows.push_back({semesters.GetRecordID(), semesters.GetSemesterName()});
    }
    Redraw(m_rows.empty() ? -1 : 0);
}

void SemesterDlg::Redraw(int selectedRow)
{
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        for (const SemesterRow& row : m_rows) {
            auto* item = new QListWidgetItem(row.name, m_list);
            // The archive still to be written stands out until OK.
            if (row.id == 0) {
                QFont font = item->font();
                font.setItalic(true);
                item->setFont(font);
            }
        }
    }
    SelectRow(selectedRow);
    UpdateButtons();
}

int SemesterDlg::SelectedRow() const
{
    return ListSelection::SelectedRow(*m_list);
}

void SemesterDlg::SelectRow(int row)
{
    ListSelection::SelectRow(*m_list, row);
}

void SemesterDlg::UpdateButtons()
{
    m_archiveButton->setEnabled(!m_archivePending);
    const int row = SelectedRow();
    m_viewButton->setEnabled(row >= 0 && m_rows[static_cast<size_t>(row)].id != 0);
}

quint32 SemesterDlg::ChosenCourseID() const
{
    return AllCoursesID;
}

QMenu* SemesterDlg::RowMenu(int row)
{
    if (row < 0 || row >= static_cast<int>(m_rows.size()))
        return nullptr;
    SelectRow(row);
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("semesterMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* edit = menu->addAction(MaintenanceStrings::EditSemester(), this,
                                    [this, row] { EditSemester(row); });
    edit->setObjectName(QStringLiteral("actionEditSemester"));
    QAction* remove = menu->addAction(MaintenanceStrings::DeleteSemester(), this,
                                      [this, row] { DeleteSemester(row); });
    remove->setObjectName(QStringLiteral("actionDeleteSemester"));
    return menu;
}

void SemesterDlg::ArchiveSemester()
{
    if (m_archivePending)
        return;
    if (BrindleMessageBox::Show(this, MaintenanceStrings::ConfirmArchive(), QMessageBox::Question,
                                QMessageBox::Yes | QMessageBox::No) != QMessageBox::Yes)
        return;
    ArchiveSemesterDlg archive(this);
    if (DialogRunner::Run(archive) != QDialog::Accepted)
        return;
    PrepareArchive(archive.CheckedCourseIDs(), archive.SemesterName());
}

void SemesterDlg::PrepareArchive(const std::vector<quint32>& courseIds, const QString& name)
{
    m_archivePending = true;
    m_archiveCourseIds = courseIds;
    if (courseIds.empty()) {
        UpdateButtons();
        return;
    }
    m_rows.push_back({0, name});
    Redraw(static_cast<int>(m_rows.size()) - 1);
}

void SemesterDlg::EditSemester(int row)
{
    if (row < 0 || row >= static_cast<int>(m_rows.size()))
        return;
    EditSemesterDlg editor(m_rows[static_cast<size_t>(row)].name, this);
    if (DialogRunner::Run(editor) != QDialog::Accepted)
        return;
    RenameSemester(row, editor.Name());
}

void SemesterDlg::RenameSemester(int row, const QString& name)
{
    if (row < 0 || row >= static_cast<int>(m_rows.size()))
        return;
    m_rows[static_cast<size_t>(row)].name = name;
    Redraw(row);
}

void SemesterDlg::DeleteSemester(int row)
{
    if (row < 0 || row >= static_cast<int>(m_rows.size()))
        return;
    const quint32 id = m_rows[static_cast<size_t>(row)].id;
    if (id == 0) {
        // The archive not yet written is dropped, and another may be made.
        m_archivePending = false;
        m_archiveCourseIds.clear();
    } else {
        m_deletedIds.push_back(id);
    }
    m_rows.erase(m_rows.begin() + row);
    Redraw(std::min(row, static_cast<int>(m_rows.size()) - 1));
}

void SemesterDlg::LeavePrediction()
{
    CPredictionStore::Instance().SetActive(false);
}

void SemesterDlg::ViewOldSemester()
{
    const int row = SelectedRow();
    if (row < 0 || m_rows[static_cast<size_t>(row)].id == 0)
        return;
    State().SetCurrentSemesterID(m_rows[static_cast<size_t>(row)].id);
    if (m_archivePending) {
        const auto answer = BrindleMessageBox::Show(
            this, MaintenanceStrings::ArchiveBeforeExit(), QMessageBox::Question,
            QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        if (answer == QMessageBox::Cancel)
            return;
        if (answer == QMessageBox::Yes) {
            LeavePrediction();
            accept();
            return;
        }
    }
    LeavePrediction();
    QDialog::accept();
}

bool SemesterDlg::WriteChanges()
{
    CSemesterTable semesters;
    CCourseOrderTable orders;
    if (!semesters.Open() || !orders.Open(1))
        return false;
    // A course's order record, found by the course; false when it is absent.
    auto seekCourse = [&orders](quint32 courseId) {
        const CCeDBProp key(courseId);
        orders.SetSeekValue(&key, CDataTable::SeekValueEqual);
        return orders.MoveFirst(1) != 0;
    };

    // Deleted semesters give their courses back to the working semester.
    for (quint32 id : m_deletedIds) {
        if (!semesters.MoveToRecord(id))
            continue;
        for (quint32 courseId : GetSemesterCourses(id)) {
            if (!seekCourse(courseId))
                continue;
            orders.SetSemesterID(WorkingSemesterID);
            if (!orders.UpdateRecord())
                return false;
        }
        if (!semesters.DeleteRecord(0))
            return false;
    }

    for (const SemesterRow& row : m_rows) {
        if (row.id != 0 || !m_archivePending) {
            if (!semesters.MoveToRecord(row.id))
                continue;
            semesters.SetSemesterName(row.name);
            if (!semesters.UpdateRecord())
                return false;
            continue;
        }
        if (!semesters.NewRecord(0))
            return false;
        semesters.SetSemesterName(row.name);
        semesters.SetEndDate(BrindleDate::FromDateTime(BrindleClock::Now()));
        if (!semesters.UpdateRecord())
            return false;
        const quint32 archiveId = semesters.GetRecordID();
        for (quint32 courseId : m_archiveCourseIds) {
            if (!seekCourse(courseId))
                continue;
            orders.SetSemesterID(archiveId);
            if (!orders.UpdateRecord())
                return false;
        }
    }
    return true;
}

bool SemesterDlg::OnOK()
{
    if (!WriteInTransaction(
            this, [this] { return WriteChanges(); }, MaintenanceStrings::SemestersNotSaved()))
        return false;
    // A semester on view that was just deleted cannot be shown any more.
    const quint32 onView = State().GetCurrentSemesterID();
    if (std::find(m_deletedIds.begin(), m_deletedIds.end(), onView) != m_deletedIds.end())
        State().SetCurrentSemesterID(WorkingSemesterID);
    return true;
}

void SemesterDlg::accept()
{
    if (OnOK())
        QDialog::accept();
}

void SemesterDlg::reject()
{
    // "View Old Semester" may have set the semester on view before the user
    // changed their mind; Cancel leaves the view as it was.
    State().SetCurrentSemesterID(m_semesterOnOpen);
    QDialog::reject();
}
