#include "MainView.h"

#include "BrindleData.h"
#include "res/strings/AppStrings.h"
#include "res/strings/StoreStrings.h"
#include "res/strings/ViewStrings.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>

CMainView::CMainView(QWidget* parent)
    : QWidget(parent)
    , m_tabs(new QTabBar(this))
    , m_courses(new QComboBox(this))
    , m_types(new QComboBox(this))
    , m_dueBy(new QDateEdit(this))
    , m_showDone(new QCheckBox(AppStrings::ShowDone(), this))
    , m_gradeBar(new QLabel(this))
    , m_banner(new QPushButton(this))
    , m_list(new QListView(this))
{
    setObjectName(QStringLiteral("MainView"));
    m_tabs->setObjectName(QStringLiteral("viewTabs"));
    m_courses->setObjectName(QStringLiteral("courseSelector"));
    m_types->setObjectName(QStringLiteral("typeFilter"));
    m_dueBy->setObjectName(QStringLiteral("dueByPicker"));
    m_showDone->setObjectName(QStringLiteral("showDone"));
    m_gradeBar->setObjectName(QStringLiteral("gradeBar"));
    m_banner->setObjectName(QStringLiteral("banner"));
    m_list->setObjectName(QStringLiteral("courseworkList"));

    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_dueBy->setCalendarPopup(true);
    m_types->setVisible(false);
    m_dueBy->setVisible(false);
    m_banner->setVisible(false);
    m_banner->setFlat(true);

    auto* filters = new QHBoxLayout;
    filters->addWidget(m_courses, 2);
    filters->addWidget(m_types, 1);
    filters->addWidget(m_dueBy, 1);
    filters->addStretch();
    filters->addWidget(m_showDone);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addLayout(filters);
    layout->addWidget(m_gradeBar);
    layout->addWidget(m_banner);
    layout->addWidget(m_list, 1);
}

void CMainView::RebuildTabs()
{
    const QSignalBlocker blocker(m_tabs);
    while (m_tabs->count() > 0)
        m_tabs->removeTab(0);
    m_tabs->addTab(StoreStrings::TabNoFilter());
    m_tabs->setTabData(0, static_cast<uint>(CViewTabTable::NoFilter));

    const auto current = CAppStateTable::Instance().GetCurrentTabID();
    CViewTabTable table;
    if (table.Open(2)) {
        for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1)) {
            if (!table.GetIsVisible())
                continue;
            const int index = m_tabs->addTab(table.GetTabText());
            m_tabs->setTabData(index, static_cast<uint>(table.GetViewTabID()));
            if (table.GetViewTabID() == current)
                m_tabs->setCurrentIndex(index);
        }
    }
}

void CMainView::RebuildCourseSelector()
{
    const QSignalBlocker blocker(m_courses);
    m_courses->clear();
    m_courses->addItem(ViewStrings::AllCourses(), AllCoursesID);
    const std::vector<quint32> courses = GetSemesterCourses();
    if (courses.empty()) {
        m_courses->setEditable(true);
        m_courses->setEditText(ViewStrings::NoCourses());
        m_courses->setEnabled(false);
        return;
    }
    m_courses->setEditable(false);
    m_courses->setEnabled(true);
    const quint32 current = CAppStateTable::Instance().GetCurrentCourseID();
    CCourseTable table;
    if (!table.Open())
        return;
    table.SetFilter(1, CCourseTable::PropCourseName);
    for (quint32 id : courses) {
        if (!table.MoveToRecord(id))
            continue;
        m_courses->addItem(table.GetCourseName(), id);
        if (id == current)
            m_courses->setCurrentIndex(m_courses->count() - 1);
    }
}

void CMainView::RebuildTypeFilter()
{
}

void CMainView::RefreshList()
{
}

void CMainView::RefreshGradeBar()
{
}

void CMainView::LayoutView()
{
}
