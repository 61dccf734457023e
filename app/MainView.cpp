#include "MainView.h"

#include "BrindleData.h"
#include "CourseworkListModel.h"
#include "CourseworkListView.h"
#include "GradeBarText.h"
#include "GradeBarToolTip.h"
#include "controls/MessageBox.h"
#include "grading/GradeCalculation.h"
#include "grading/PredictionStore.h"
#include "res/strings/AppStrings.h"
#include "res/strings/StoreStrings.h"
#include "res/strings/ViewStrings.h"
#include "store/Clock.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCursor>
#include <QDateEdit>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>

namespace {
CAppStateTable& State()
{
    return CAppStateTable::Instance();
}

bool CourseSelected()
{
    return State().GetCurrentCourseID() != AllCoursesID;
}
} // namespace

CMainView::CMainView(QWidget* parent)
    : QWidget(parent), m_tabs(new QTabBar(this)), m_courses(new QComboBox(this)),
      m_types(new QComboBox(this)), m_dueBy(new QDateEdit(this)),
      m_showDone(new QCheckBox(AppStrings::ShowDone(), this)), m_gradeBar(new QLabel(this)),
      m_banner(new QPushButton(this)), m_list(new CCourseworkListView(this)),
      m_model(new CCourseworkListModel(this))
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
    m_list->setModel(m_model);
    // The controls have no labels on screen; screen readers get their names.
    m_tabs->setAccessibleName(ViewStrings::TabsName());
    m_courses->setAccessibleName(ViewStrings::CourseSelectorName());
    m_types->setAccessibleName(StoreStrings::TabCwType());
    m_dueBy->setAccessibleName(StoreStrings::TabDueBy());
    m_list->setAccessibleName(ViewStrings::ListName());

    const int line = fontMetrics().height();
    m_tabs->setExpanding(false);
    m_tabs->setDrawBase(false);
    m_tabs->setUsesScrollButtons(true);
    m_courses->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_courses->setMinimumContentsLength(14);
    m_types->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_types->setMinimumContentsLength(10);
    m_dueBy->setCalendarPopup(true);
    m_dueBy->setDisplayFormat(QLocale().dateFormat(QLocale::ShortFormat));
    m_types->setVisible(false);
    m_dueBy->setVisible(false);

    QFont barFont = m_gradeBar->font();
    barFont.setBold(true);
    m_gradeBar->setFont(barFont);
    m_gradeBar->setContentsMargins(line / 3, 0, line / 3, 0);

    // The banner stands out: the selection colour across the view's width.
    m_banner->setVisible(false);
    m_banner->setFlat(true);
    m_banner->setAutoFillBackground(true);
    m_banner->setFont(barFont);
    m_banner->setMinimumHeight(line * 2);
    QPalette bannerPalette = m_banner->palette();
    bannerPalette.setColor(QPalette::Button, bannerPalette.color(QPalette::Highlight));
    bannerPalette.setColor(QPalette::Window, bannerPalette.color(QPalette::Highlight));
    bannerPalette.setColor(QPalette::ButtonText, bannerPalette.color(QPalette::HighlightedText));
    m_banner->setPalette(bannerPalette);
    m_banner->setCursor(Qt::PointingHandCursor);

    auto* filters = new QHBoxLayout;
    filters->setSpacing(line / 2);
    filters->addWidget(m_courses, 2);
    filters->addWidget(m_types, 1);
    filters->addWidget(m_dueBy, 1);
    filters->addStretch();
    filters->addWidget(m_showDone);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(line / 2, line / 3, line / 2, line / 2);
    layout->setSpacing(line / 3);
    layout->addWidget(m_tabs);
    layout->addLayout(filters);
    layout->addWidget(m_gradeBar);
    layout->addWidget(m_banner);
    layout->addWidget(m_list, 1);

    connect(m_tabs, &QTabBar::currentChanged, this, &CMainView::OnTabChosen);
    connect(m_courses, &QComboBox::currentIndexChanged, this, &CMainView::OnCourseChosen);
    connect(m_types, &QComboBox::currentIndexChanged, this, &CMainView::OnTypeChosen);
    connect(m_dueBy, &QDateEdit::dateChanged, this,
            [this](QDate date) { OnDueByChosen(BrindleDate::FromDate(date)); });
    connect(m_showDone, &QCheckBox::clicked, this, [this] { ToggleShowDone(); });
    connect(m_banner, &QPushButton::clicked, this, [this] {
        const QPoint point = m_banner->mapFromGlobal(QCursor::pos());
        OpenBannerMenu(m_banner->rect().contains(point) ? point : m_banner->rect().center());
    });
    connect(m_list, &CCourseworkListView::DeleteCourseworkRequested, this,
            &CMainView::DeleteCoursework);
    connect(m_list, &CCourseworkListView::CourseworkOpened, this, &CMainView::CourseworkOpened);
}

QListView* CMainView::List() const
{
    return m_list;
}

void CMainView::WriteState()
{
    State().UpdateRecord();
}

void CMainView::RebuildTabs()
{
    bool currentShown = false;
    {
        const QSignalBlocker blocker(m_tabs);
        while (m_tabs->count() > 0)
            m_tabs->removeTab(0);
        m_tabs->addTab(StoreStrings::TabNoFilter());
        m_tabs->setTabData(0, static_cast<uint>(CViewTabTable::NoFilter));

        const auto current = State().GetCurrentTabID();
        CViewTabTable table;
        if (table.Open(2)) {
            for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1)) {
                if (!table.GetIsVisible())
                    continue;
                const int index = m_tabs->addTab(table.GetTabText());
                m_tabs->setTabData(index, static_cast<uint>(table.GetViewTabID()));
                if (table.GetViewTabID() == current) {
                    m_tabs->setCurrentIndex(index);
                    currentShown = true;
                }
            }
        }
        // A table that cannot be read says nothing about the stored tab.
        currentShown = currentShown || current == CViewTabTable::NoFilter || !table.IsOpen();
    }
    // The stored tab was hidden (or went away): "No Filter" is selected, so
    // the state and the list follow it rather than the hidden tab's window.
    if (!currentShown) {
        OnTabChosen(0);
        return;
    }
    ShowFilterOfTab();
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
    const quint32 current = State().GetCurrentCourseID();
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

void CMainView::RebuildTypeFilter(TypeStart start)
{
    int stored = -1;
    {
        const QSignalBlocker blocker(m_types);
        m_types->clear();
        if (CourseSelected()) {
            CourseTypeList types;
            LoadCourseTypes(State().GetCurrentCourseID(), types);
            for (const auto& [typeId, position] : types)
                m_types->addItem(CCwTypeTable::GetCwTypeNameFromID(typeId), typeId);
        }
        // The program starts on the type it ended on; otherwise the first.
        stored = m_types->findData(State().GetViewTabCwType());
        m_types->setCurrentIndex(stored >= 0 ? stored : 0);
    }
    // A course chosen again starts on its first type, not on the type it was
    // left on ("All Courses" keeps it); a stored type that went away (its
    // course's policy changed) gives way to the first too.
    const bool startOnFirst = start == TypeStart::First && CourseSelected();
    if ((startOnFirst || (stored < 0 && m_types->count() > 0)) &&
        State().GetCurrentTabID() == CViewTabTable::CwTypeTab) {
        StartOnFirstType();
        WriteState();
    }
    ShowFilterOfTab();
}

void CMainView::StartOnFirstType()
{
    const QSignalBlocker blocker(m_types);
    m_types->setCurrentIndex(0);
    State().SetViewTabCwType(m_types->itemData(0).toUInt());
}

void CMainView::ShowFilterOfTab()
{
    switch (State().GetCurrentTabID()) {
    case CViewTabTable::NoFilter:
    case CViewTabTable::PastDueTab:
    case CViewTabTable::CourseWeekTab:
        m_types->setVisible(false);
        m_dueBy->setVisible(false);
        break;
    case CViewTabTable::CwTypeTab:
        m_types->setVisible(CourseSelected());
        m_types->raise();
        m_dueBy->setVisible(false);
        break;
    case CViewTabTable::DueByTab: {
        m_types->setVisible(false);
        const QSignalBlocker blocker(m_dueBy);
        m_dueBy->setDate(BrindleDate::ToDate(State().GetViewTabDueBy()));
        m_dueBy->setVisible(true);
        m_dueBy->raise();
        break;
    }
    default:
        // Tabs past the fourth leave the controls as they were.
        break;
    }
}

void CMainView::OnTabChosen(int index)
{
    if (index < 0)
        return;
    const auto tab = static_cast<CViewTabTable::ViewTabIDs>(m_tabs->tabData(index).toUInt());
    State().SetCurrentTabID(tab);
    if (tab == CViewTabTable::CwTypeTab)
        StartOnFirstType();
    ShowFilterOfTab();
    WriteState();
    RefreshList();
}

void CMainView::OnCourseChosen(int index)
{
    if (index < 0)
        return;
    const quint32 courseId = m_courses->itemData(index).toUInt();
    if (courseId == State().GetCurrentCourseID())
        return;
    State().SetCurrentCourseID(courseId);
    RebuildTypeFilter(TypeStart::First);
    emit CurrentCourseChanged();
    RefreshGradeBar();
    WriteState();
    RefreshList();
}

void CMainView::OnTypeChosen(int index)
{
    if (index < 0)
        return;
    const quint32 typeId = m_types->itemData(index).toUInt();
    if (typeId == State().GetViewTabCwType())
        return;
    State().SetViewTabCwType(typeId);
    WriteState();
    RefreshList();
}

void CMainView::OnDueByChosen(double picked)
{
    const double day = BrindleDate::WholeDays(picked);
    if (day == BrindleDate::WholeDays(State().GetViewTabDueBy()))
        return;
    State().SetViewTabDueBy(day);
    WriteState();
    RefreshList();
}

void CMainView::ToggleShowDone()
{
    State().SetShowDone(State().GetShowDone() ? 0 : 1);
    WriteState();
    RefreshList();
}

void CMainView::RefreshList()
{
    {
        const QSignalBlocker blocker(m_showDone);
        m_showDone->setChecked(State().GetShowDone() != 0);
    }
    m_model->SetRows(FillCourseworkRows(CourseworkFilter::FromState(BrindleClock::Now())));
    ++m_fillCount;
}

void CMainView::RefreshGradeBar()
{
    m_gradeBar->setText(GradeBarText());
    m_gradeBar->setToolTip(GradeBarToolTip());
}

void CMainView::LayoutView()
{
    const bool predicting = CPredictionStore::Instance().IsActive();
    const bool archived = State().GetCurrentSemesterID() != WorkingSemesterID;
    if (!predicting && !archived) {
        m_banner->setVisible(false);
        return;
    }
    m_banner->setText(predicting ? ViewStrings::GradePredictionMode()
                                 : ViewStrings::ArchivedSemester());
    m_banner->setVisible(true);
}

QMenu* CMainView::OpenBannerMenu(const QPoint& position)
{
    auto* menu = new QMenu(this);
    menu->setObjectName(QStringLiteral("bannerMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* exit = menu->addAction(CPredictionStore::Instance().IsActive()
                                        ? ViewStrings::ExitGradePredictionMode()
                                        : ViewStrings::ExitArchivedSemester());
    exit->setObjectName(QStringLiteral("actionExitBanner"));
    connect(exit, &QAction::triggered, this, &CMainView::BannerCommand);
    menu->popup(m_banner->mapToGlobal(position));
    return menu;
}

void CMainView::DeleteCoursework(quint32 courseworkId)
{
    if (!BrindleMessageBox::ConfirmDelete(this, ViewStrings::ConfirmDeleteCoursework()))
        return;
    {
        CTransaction transaction;
        CCourseworkTable coursework;
        // A row whose record went away is ignored.
        if (!coursework.Open() || !coursework.MoveToRecord(courseworkId))
            return;

        COutlookTable links;
        if (links.Open(1)) {
            const CCeDBProp key(courseworkId);
            links.SetSeekValue(&key, CDataTable::SeekValueEqual);
            for (int ok = links.MoveFirst(1); ok; ok = links.MoveNext(1))
                if (!links.DeleteRecord(0))
                    return;
        }

        const quint32 courseId = coursework.GetCourseID();
        if (!coursework.DeleteRecord(0))
            return;
        RecomputeCourseGrade(courseId);
        if (!transaction.Commit()) {
            BrindleMessageBox::WarnNotSaved(this);
            return;
        }
    }
    RefreshList();
    RefreshGradeBar();
}
