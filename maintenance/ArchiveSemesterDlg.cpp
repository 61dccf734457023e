#include "ArchiveSemesterDlg.h"

#include "BrindleData.h"
#include "controls/HelpViewer.h"
#include "controls/MessageBox.h"
#include "res/strings/MaintenanceStrings.h"
#include "store/Clock.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QVBoxLayout>

ArchiveSemesterDlg::ArchiveSemesterDlg(QWidget* parent)
    : QDialog(parent), m_list(new QListWidget(this)), m_nameBox(new QComboBox(this))
{
    setObjectName(QStringLiteral("ArchiveSemesterDlg"));
    setWindowTitle(MaintenanceStrings::ArchiveSemester());
    m_list->setObjectName(QStringLiteral("archiveCourseList"));
    m_nameBox->setObjectName(QStringLiteral("semesterNameBox"));
    m_nameBox->setEditable(true);
    m_nameBox->setInsertPolicy(QComboBox::NoInsert);
    connect(m_list, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
        const int row = m_list->row(item);
        if (row >= 0 && row < static_cast<int>(m_courses.size()))
            m_courses[static_cast<size_t>(row)].checked = item->checkState() == Qt::Checked;
    });

    auto* hint = new QLabel(MaintenanceStrings::CheckCoursesToArchive(), this);
    auto* name = new QFormLayout;
    name->addRow(MaintenanceStrings::SemesterNameLabel(), m_nameBox);
    auto* buttons = new QDialogButtonBox(
        QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help, this);
    buttons->setObjectName(QStringLiteral("buttons"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ArchiveSemesterDlg::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(hint);
    layout->addWidget(m_list, 1);
    layout->addLayout(name);
    layout->addWidget(buttons);

    InstallHelp(this);
    const int line = fontMetrics().height();
    resize(line * 20, line * 20);

    OnInitDialog(BrindleClock::Today());
}

QStringList ArchiveSemesterDlg::NameSuggestions(int year)
{
    // The last one repeats last year on purpose: it is the order students
    // were offered from the start.
    return {MaintenanceStrings::Fall(year - 1), MaintenanceStrings::Spring(year),
            MaintenanceStrings::Fall(year), MaintenanceStrings::Spring(year - 1)};
}

int ArchiveSemesterDlg::PreselectedSuggestion(int month)
{
    return month >= 3 && month <= 9 ? 1 : 0;
}

void ArchiveSemesterDlg::OnInitDialog(const QDate& today)
{
    m_courses.clear();
    CCourseTable table;
    if (table.Open()) {
        table.SetFilter(1, CCourseTable::PropCourseName);
        for (quint32 id : GetSemesterCourses(WorkingSemesterID))
            if (table.MoveToRecord(id))
                m_courses.push_back({id, table.GetCourseName(), true});
    }
    {
        const QSignalBlocker blocker(m_list);
        m_list->clear();
        for (const CourseRow& course : m_courses) {
            auto* item = new QListWidgetItem(course.name, m_list);
            item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
            item->setCheckState(course.checked ? Qt::Checked : Qt::Unchecked);
        }
        if (m_list->count() > 0)
            m_list->setCurrentRow(0);
    }

    m_nameBox->clear();
    m_nameBox->addItems(NameSuggestions(today.year()));
    m_nameBox->setCurrentIndex(PreselectedSuggestion(today.month()));
}

void ArchiveSemesterDlg::SetChecked(int row, bool checked)
{
    if (QListWidgetItem* item = m_list->item(row))
        item->setCheckState(checked ? Qt::Checked : Qt::Unchecked);
}

std::vector<quint32> ArchiveSemesterDlg::CheckedCourseIDs() const
{
    std::vector<quint32> ids;
    for (const CourseRow& course : m_courses)
        if (course.checked)
            ids.push_back(course.id);
    return ids;
}

bool ArchiveSemesterDlg::OnOK()
{
    const QString name = m_nameBox->currentText().trimmed();
    if (name.isEmpty()) {
        BrindleMessageBox::Warn(this, MaintenanceStrings::SemesterNameRequired());
        m_nameBox->setFocus();
        m_nameBox->lineEdit()->selectAll();
        return false;
    }
    m_name = name;
    return true;
}

void ArchiveSemesterDlg::accept()
{
    if (OnOK())
        QDialog::accept();
}
