#include "DemoDatabase.h"

#include "BrindleData.h"
#include "grading/GradeCalculation.h"

#include <QHash>
#include <QRandomGenerator>
#include <QStringList>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

// The demo's records are a made-up student's data, not texts of the program:
// they are written into the database as a user would have typed them.
namespace {

struct TypeSample
{
    const char* name;
    double weight;
    const char* itemName;
    double possible;
};

struct TimeSample
{
    quint16 days;
    int start; // minutes after midnight
    int end;
};

struct CourseSample
{
    const char* name;
    const char* number;
    const char* department;
    const char* building;
    const char* room;
    double hours;
    bool inMajor;
    const char* instructor;
    const char* email;
    const char* phone;
    const char* office;
    TimeSample meeting;
    TimeSample lab; // days 0: none
    TimeSample officeHours;
    const char* textbook;
    const char* author;
    double cost;
    std::array<TypeSample, 4> types;
};

constexpr quint16 Mo = CTimeTable::Monday, Tu = CTimeTable::Tuesday, We = CTimeTable::Wednesday,
                  Th = CTimeTable::Thursday, Fr = CTimeTable::Friday;

// One course a row group: names, instructor, meeting/lab/office times, textbook, types.
// clang-format off
const CourseSample WorkingCourses[] = {
    {"Calculus II", "MATH 2414", "Mathematics", "Carver Hall", "210", 4.0, true,
     "Dr. Elena Marsh", "emarsh@northfield.edu", "(555) 301-4412", "318",
     {Mo | We | Fr, 9 * 60, 9 * 60 + 50}, {Tu, 15 * 60, 15 * 60 + 50},
     {Tu | Th, 13 * 60, 14 * 60 + 30},
     "Calculus: Early Transcendentals", "James Stewart", 189.95,
     {{{"Homework", 20, "Problem Set", 20}, {"Quizzes", 15, "Quiz", 10},
       {"Exams", 45, "Exam", 100}, {"Worksheets", 20, "Worksheet", 10}}}},
    {"Organic Chemistry I", "CHEM 2323", "Chemistry", "Hollis Science Center", "118", 3.0, true,
     "Prof. Raymond Okafor", "rokafor@northfield.edu", "(555) 301-5520", "242",
     {Tu | Th, 11 * 60, 12 * 60 + 20}, {We, 14 * 60, 16 * 60 + 50}, {Mo | We, 10 * 60, 11 * 60},
     "Organic Chemistry", "Paula Yurkanis Bruice", 214.50,
     {{{"Lab Reports", 25, "Lab Report", 50}, {"Quizzes", 10, "Quiz", 20},
       {"Exams", 45, "Exam", 150}, {"Problem Sets", 20, "Problem Set", 30}}}},
    {"World History since 1500", "HIST 1302", "History", "Whitmore Hall", "305", 3.0, false,
     "Dr. Hannah Lindqvist", "hlindqvist@northfield.edu", "(555) 301-2290", "411",
     {Mo | We, 13 * 60, 14 * 60 + 20}, {0, 0, 0}, {Fr, 10 * 60, 12 * 60},
     "Worlds Together, Worlds Apart", "Elizabeth Pollard", 96.00,
     {{{"Reading Responses", 20, "Reading Response", 10}, {"Essays", 40, "Essay", 100},
       {"Midterm", 20, "Map Quiz", 25}, {"Participation", 20, "Discussion Post", 5}}}},
    {"Introduction to Psychology", "PSY 1301", "Psychology", "Bennett Auditorium", "101", 3.0,
     false,
     "Prof. Marcus Bell", "mbell@northfield.edu", "(555) 301-7781", "B12",
     {Tu | Th, 9 * 60 + 30, 10 * 60 + 50}, {0, 0, 0}, {We, 13 * 60, 15 * 60},
     "Psychology", "David G. Myers", 132.75,
     {{{"Quizzes", 30, "Chapter Quiz", 20}, {"Exams", 50, "Unit Exam", 100},
       {"Participation", 20, "Research Participation", 5},
       {"Writing", 0, "Reflection Paper", 10}}}},
    {"Data Structures", "CS 2336", "Computer Science", "Engineering Hall", "2.120", 3.0, true,
     "Dr. Priya Raman", "praman@northfield.edu", "(555) 301-6604", "3.104",
     {Mo | We | Fr, 11 * 60, 11 * 60 + 50}, {0, 0, 0}, {Th, 14 * 60, 16 * 60},
     "Data Structures and Algorithm Analysis in C++", "Mark Allen Weiss", 158.20,
     {{{"Programming Projects", 40, "Project", 100}, {"Homework", 15, "Homework", 10},
       {"Exams", 45, "Exam", 100}, {"Labs", 0, "Lab", 10}}}},
};

const CourseSample ArchivedCourses[] = {
    {"English Composition", "ENGL 1301", "English", "Whitmore Hall", "120", 3.0, false,
     "Dr. Laura Chen", "lchen@northfield.edu", "(555) 301-2214", "402",
     {Tu | Th, 8 * 60, 9 * 60 + 20}, {0, 0, 0}, {Mo, 9 * 60, 11 * 60},
     "The Norton Field Guide to Writing", "Richard Bullock", 72.50,
     {{{"Essays", 60, "Essay", 100}, {"Drafts", 20, "Draft", 20},
       {"Participation", 20, "Peer Review", 10}, {"Quizzes", 0, "Grammar Quiz", 10}}}},
    {"Calculus I", "MATH 2413", "Mathematics", "Carver Hall", "204", 4.0, true,
     "Dr. Elena Marsh", "emarsh@northfield.edu", "(555) 301-4412", "318",
     {Mo | We | Fr, 10 * 60, 10 * 60 + 50}, {0, 0, 0}, {Tu | Th, 13 * 60, 14 * 60 + 30},
     "Calculus: Early Transcendentals", "James Stewart", 189.95,
     {{{"Homework", 25, "Problem Set", 20}, {"Quizzes", 15, "Quiz", 10},
       {"Exams", 60, "Exam", 100}, {"Labs", 0, "Lab", 10}}}},
    {"General Chemistry I", "CHEM 1311", "Chemistry", "Hollis Science Center", "101", 3.0, true,
     "Dr. Samuel Ortiz", "sortiz@northfield.edu", "(555) 301-5501", "230",
     {Tu | Th, 14 * 60, 15 * 60 + 20}, {Mo, 14 * 60, 16 * 60 + 50}, {Fr, 9 * 60, 11 * 60},
     "Chemistry: The Central Science", "Theodore Brown", 175.00,
     {{{"Lab Reports", 25, "Lab Report", 50}, {"Quizzes", 15, "Quiz", 20},
       {"Exams", 60, "Exam", 150}, {"Homework", 0, "Homework", 10}}}},
    {"Introduction to Sociology", "SOCI 1301", "Sociology", "Bennett Auditorium", "204", 3.0, false,
     "Prof. Amara Nwosu", "anwosu@northfield.edu", "(555) 301-3380", "118",
     {Mo | We, 15 * 60, 16 * 60 + 20}, {0, 0, 0}, {Tu, 10 * 60, 12 * 60},
     "Sociology", "John J. Macionis", 118.40,
     {{{"Exams", 50, "Exam", 100}, {"Papers", 30, "Paper", 50},
       {"Participation", 20, "Discussion Post", 5}, {"Quizzes", 0, "Quiz", 10}}}},
};
// clang-format on

// A scale with plus and minus grades, and the minimum percent of each.
const struct
{
    const char* name;
    double points;
    double minimum;
} Scale[] = {{"A", 4.0, 93},   {"A-", 3.67, 90}, {"B+", 3.33, 87}, {"B", 3.0, 83},
             {"B-", 2.67, 80}, {"C+", 2.33, 77}, {"C", 2.0, 73},   {"C-", 1.67, 70},
             {"D+", 1.33, 67}, {"D", 1.0, 63},   {"D-", 0.67, 60}, {"F", 0.0, 0}};

QString Text(const char* text)
{
    return QString::fromUtf8(text);
}

double At(const QDate& day, int minutes)
{
    return BrindleDate::FromDate(day) + minutes / (24.0 * 60.0);
}

class CDemoWriter
{
public:
    CDemoWriter(const QDate& today, const DemoSize& size)
        : m_today(today), m_size(size), m_random(20240901)
    {
    }

    bool Write();

private:
    bool WriteScale();
    quint32 Building(const char* name);
    quint32 Instructor(const CourseSample& sample);
    bool Time(quint32 ownerId, const TimeSample& time);
    quint32 Course(const CourseSample& sample, quint32 semesterId, quint16 position,
                   const QString& name);
    // Coursework due between `first` and `last`; `finished`: all done and graded.
    // `withOverdue`: the last one due before today is still open.
    bool Coursework(quint32 courseId, const CourseSample& sample, int count, const QDate& first,
                    const QDate& last, bool finished, bool withOverdue);

    QDate m_today;
    DemoSize m_size;
    QRandomGenerator m_random;
    QHash<QString, quint32> m_buildings;
    QHash<QString, quint32> m_instructors;
    std::vector<quint32> m_courses;
    std::vector<quint32> m_types;
    quint32 m_textbook = 0;
};

bool CDemoWriter::WriteScale()
{
    CGradeScaleTable scale;
    if (!scale.Open())
        return false;
    for (int ok = scale.MoveFirst(1); ok; ok = scale.MoveNext(1))
        scale.DeleteRecord(0);
    quint16 grade = 0;
    for (const auto& entry : Scale) {
        scale.NewRecord(0);
        scale.SetGrade(grade++);
        scale.SetGradeName(Text(entry.name));
        scale.SetGradePoints(entry.points);
        if (!scale.UpdateRecord())
            return false;
    }

    CGPAInfoTable info;
    if (!info.Open())
        return false;
    if (!info.MoveFirst(1))
        info.NewRecord(0);
    info.SetTotalPastHours(0.0);
    info.SetTotalPastPoints(0.0);
    info.SetWeightedByCourseHours(1);
    return info.UpdateRecord() != 0;
}

quint32 CDemoWriter::Building(const char* name)
{
    const QString text = Text(name);
    if (const auto found = m_buildings.constFind(text); found != m_buildings.constEnd())
        return found.value();
    CBuildingTable building;
    if (!building.Open() || !building.NewRecord(0))
        return 0;
    building.SetBuildingName(text);
    if (!building.UpdateRecord())
        return 0;
    m_buildings.insert(text, building.GetRecordID());
    return building.GetRecordID();
}

bool CDemoWriter::Time(quint32 ownerId, const TimeSample& time)
{
    if (time.days == 0)
        return true;
    CTimeTable table;
    if (!table.Open() || !table.NewRecord(0))
        return false;
    table.SetForeignRecordID(ownerId);
    table.SetDayOfWeek(time.days);
    table.SetStartTime(time.start / (24.0 * 60.0));
    table.SetEndTime(time.end / (24.0 * 60.0));
    return table.UpdateRecord() != 0;
}

quint32 CDemoWriter::Instructor(const CourseSample& sample)
{
    const QString name = Text(sample.instructor);
    if (const auto found = m_instructors.constFind(name); found != m_instructors.constEnd())
        return found.value();
    CInstructorTable instructor;
    if (!instructor.Open() || !instructor.NewRecord(0))
        return 0;
    instructor.SetInstructorName(name);
    instructor.SetEmail(Text(sample.email));
    instructor.SetPhoneNumber(Text(sample.phone));
    instructor.SetRoomNumber(Text(sample.office));
    instructor.SetBuildingID(Building(sample.building));
    if (!instructor.UpdateRecord() || !Time(instructor.GetRecordID(), sample.officeHours))
        return 0;
    m_instructors.insert(name, instructor.GetRecordID());
    return instructor.GetRecordID();
}

quint32 CDemoWriter::Course(const CourseSample& sample, quint32 semesterId, quint16 position,
                            const QString& name)
{
    CCourseTable course;
    if (!course.Open() || !course.NewRecord(0))
        return 0;
    course.SetCourseName(name);
    const QStringList number = Text(sample.number).split(QLatin1Char(' '));
    course.SetCourseNumber(number.value(1));
    course.SetDepartment(number.value(0));
    course.SetCourseSection(
        QStringLiteral("%1").arg(1 + m_random.bounded(4), 3, 10, QLatin1Char('0')));
    course.SetRoomNumber(Text(sample.room));
    course.SetBuildingID(Building(sample.building));
    course.SetCourseHours(sample.hours);
    course.SetInMajor(sample.inMajor ? 1 : 0);
    course.SetCourseWebSite(QStringLiteral("https://learn.northfield.edu/%1")
                                .arg(Text(sample.number).remove(QLatin1Char(' ')).toLower()));
    course.SetDetails(Text(sample.department));
    course.SetCurrentGrade(-1.0);
    if (!course.UpdateRecord())
        return 0;
    const quint32 courseId = course.GetRecordID();

    CCourseOrderTable order;
    if (!order.Open() || !order.NewRecord(0))
        return 0;
    order.SetSemesterID(semesterId);
    order.SetCourseID(courseId);
    order.SetCoursePosition(position);
    if (!order.UpdateRecord())
        return 0;

    if (!Time(courseId, sample.meeting) || !Time(courseId, sample.lab))
        return 0;
    const quint32 instructorId = Instructor(sample);
    CCourseInstructorTable link;
    if (instructorId == 0 || !link.Open() || !link.NewRecord(0))
        return 0;
    link.SetCourseID(courseId);
    link.SetInstructorID(instructorId);
    if (!link.UpdateRecord())
        return 0;

    CTextbookTable book;
    if (!book.Open() || !book.NewRecord(0))
        return 0;
    book.SetCourseID(courseId);
    book.SetTextbookName(Text(sample.textbook));
    book.SetAuthor(Text(sample.author));
    book.SetCost(sample.cost);
    if (!book.UpdateRecord())
        return 0;
    m_textbook = book.GetRecordID();
    CTextbookOrderTable bookOrder;
    if (!bookOrder.Open() || !bookOrder.NewRecord(0))
        return 0;
    bookOrder.SetCourseID(courseId);
    bookOrder.SetTextbookID(m_textbook);
    bookOrder.SetTextbookPosition(0);
    if (!bookOrder.UpdateRecord())
        return 0;

    // The policy: weighted by type, the minimum percents of the scale.
    CGradingPolicyTable policy;
    if (!policy.Open() || !policy.NewRecord(0))
        return 0;
    policy.SetCourseID(courseId);
    policy.SetWeightType(CGradingPolicyTable::WeightByType);
    if (!policy.UpdateRecord())
        return 0;
    CGradingPolicyGradeTable minimum;
    if (!minimum.Open())
        return 0;
    quint16 grade = 0;
    for (const auto& entry : Scale) {
        minimum.NewRecord(0);
        minimum.SetCourseID(courseId);
        minimum.SetGrade(grade++);
        minimum.SetMinimumPercent(entry.minimum);
        if (!minimum.UpdateRecord())
            return 0;
    }

    m_types.clear();
    CCwTypeTable type;
    CCwTypeOrderTable typeOrder;
    if (!type.Open() || !typeOrder.Open())
        return 0;
    qint16 typePosition = 0;
    for (const TypeSample& typeSpec : sample.types) {
        type.NewRecord(0);
        type.SetCourseID(courseId);
        type.SetCwTypeName(Text(typeSpec.name));
        type.SetWeight(typeSpec.weight);
        type.SetDrops(0);
        if (!type.UpdateRecord())
            return 0;
        m_types.push_back(type.GetRecordID());
        typeOrder.NewRecord(0);
        typeOrder.SetCourseID(courseId);
        typeOrder.SetCwTypeID(type.GetRecordID());
        typeOrder.SetCwTypePosition(typePosition++);
        if (!typeOrder.UpdateRecord())
            return 0;
    }
    m_courses.push_back(courseId);
    return courseId;
}

bool CDemoWriter::Coursework(quint32 courseId, const CourseSample& sample, int count,
                             const QDate& first, const QDate& last, bool finished, bool withOverdue)
{
    static constexpr int DueTimes[] = {23 * 60 + 59, 9 * 60,       13 * 60 + 30,
                                       17 * 60,      23 * 60 + 59, 11 * 60};
    CCourseworkTable item;
    if (!item.Open())
        return false;
    const qint64 span = std::max<qint64>(1, first.daysTo(last));
    std::array<int, 4> numbers{};
    auto dayOf = [&](int i) { return first.addDays(count > 1 ? span * i / (count - 1) : 0); };
    for (int i = 0; i < count; ++i) {
        // Mostly the first types, the heavier ones now and then.
        const size_t typeIndex = static_cast<size_t>(i % 7 < 3   ? 0
                                                     : i % 7 < 5 ? 1
                                                     : i % 7 < 6 ? 2
                                                                 : 3);
        const TypeSample& type = sample.types[typeIndex];
        const QDate day = dayOf(i);
        const double due = At(day, DueTimes[static_cast<size_t>(i) % std::size(DueTimes)]);

        double score = -1.0;
        quint16 completed = 0;
        const bool past = day < m_today;
        if (finished || past) {
            completed = 100;
            score = type.possible * (0.68 + 0.31 * m_random.generateDouble());
            score = std::round(score * 2.0) / 2.0;
            if (withOverdue && (i + 1 == count || dayOf(i + 1) >= m_today)) {
                completed = static_cast<quint16>(m_random.bounded(3) * 25);
                score = -1.0;
            }
        } else if (day.daysTo(m_today) > -7) {
            completed = static_cast<quint16>(m_random.bounded(4) * 25);
        }

        item.NewRecord(0);
        item.SetCourseID(courseId);
        item.SetCwTypeID(m_types[typeIndex]);
        item.SetCourseworkName(
            QStringLiteral("%1 %2").arg(Text(type.itemName)).arg(++numbers[typeIndex]));
        item.SetDueDate(due);
        item.SetScore(score);
        item.SetPossible(type.possible);
        item.SetWeight(0.0);
        item.SetCompleted(completed);
        item.SetTextbookID(typeIndex == 0 ? m_textbook : 0);
        if (!item.UpdateRecord())
            return false;
    }
    return true;
}

bool CDemoWriter::Write()
{
    if (!WriteScale())
        return false;

    // The working semester began five weeks ago.
    const QDate termStart = m_today.addDays(-35);
    const int working = std::max(0, m_size.workingCourses);
    for (int c = 0; c < working; ++c) {
        const CourseSample& sample =
            WorkingCourses[static_cast<size_t>(c) % std::size(WorkingCourses)];
        const QString name = c < static_cast<int>(std::size(WorkingCourses))
                                 ? Text(sample.name)
                                 : QStringLiteral("%1 (%2)").arg(Text(sample.name)).arg(c + 1);
        const quint32 courseId = Course(sample, WorkingSemesterID, static_cast<quint16>(c), name);
        const int count =
            m_size.workingCoursework / working + (c < m_size.workingCoursework % working ? 1 : 0);
        // Due dates run over the term so far and the weeks ahead.
        if (courseId == 0 || !Coursework(courseId, sample, count, termStart.addDays(c),
                                         m_today.addDays(24 + c), false, c % 2 == 0))
            return false;
    }

    // Archived semesters, the latest first, each a term before the other.
    const int archivedSemesters = std::max(0, m_size.semesters - 1);
    const int archivedCourses = std::max(0, m_size.courses - working);
    const int archivedCoursework = std::max(0, m_size.coursework - m_size.workingCoursework);
    int courseIndex = 0;
    for (int s = 0; s < archivedSemesters; ++s) {
        const QDate end = termStart.addDays(-21 - 140 * s);
        const QDate start = end.addDays(-105);
        const bool fall = start.month() >= 7;
        CSemesterTable semester;
        if (!semester.Open() || !semester.NewRecord(0))
            return false;
        semester.SetSemesterName(QStringLiteral("%1 %2")
                                     .arg(fall ? QStringLiteral("Fall") : QStringLiteral("Spring"))
                                     .arg(start.year()));
        semester.SetEndDate(BrindleDate::FromDate(end));
        if (!semester.UpdateRecord())
            return false;
        const int courses =
            archivedCourses / archivedSemesters + (s < archivedCourses % archivedSemesters ? 1 : 0);
        for (int c = 0; c < courses; ++c, ++courseIndex) {
            const CourseSample& sample =
                ArchivedCourses[static_cast<size_t>(courseIndex) % std::size(ArchivedCourses)];
            const QString name =
                archivedSemesters == 1
                    ? Text(sample.name)
                    : QStringLiteral("%1 (%2)").arg(Text(sample.name)).arg(courseIndex + 1);
            const quint32 courseId =
                Course(sample, semester.GetRecordID(), static_cast<quint16>(c), name);
            const int count =
                archivedCoursework / std::max(1, archivedCourses) +
                (courseIndex < archivedCoursework % std::max(1, archivedCourses) ? 1 : 0);
            if (courseId == 0 || !Coursework(courseId, sample, count, start, end, true, false))
                return false;
        }
    }

    for (quint32 courseId : m_courses)
        RecomputeCourseGrade(courseId);

    CAppStateTable& state = CAppStateTable::Instance();
    state.SetCurrentSemesterID(WorkingSemesterID);
    state.SetCurrentCourseID(AllCoursesID);
    state.SetCurrentTabID(CViewTabTable::NoFilter);
    state.SetViewTabCwType(0);
    state.SetViewTabDueBy(BrindleDate::FromDate(m_today.addDays(7)));
    state.SetShowDone(1);
    return state.UpdateRecord() != 0;
}

} // namespace

int BuildDemoDatabase(const QDate& today, const DemoSize& size)
{
    CTransaction transaction;
    CDemoWriter writer(today, size);
    if (!writer.Write())
        return 0;
    return transaction.Commit();
}
