// The course editor: its OK step on the working copy, the fields shown and
// collected, textbooks, times and the locked pages. A failed OK is in
// tst_savefailures.
// Faults tried (each failed a test, then reverted): a deleted textbook's
// coursework kept pointing at it (textbooks, OK); the number collected from
// the section field, the web site not shown on opening (fieldsRoundTrip); a
// new building's write not checked (fields, "a new name creates one").
#include "EditorRecords.h"
#include "controls/DialogRunner.h"
#include "controls/NumericEdit.h"
#include "editors/ClassTimeEditor.h"
#include "editors/CourseDlg.h"
#include "editors/CourseDlgBooksPage.h"
#include "editors/TimeListPage.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTimeEdit>
#include <QToolButton>
#include <QtTest>

using namespace EditorRecords;
using namespace Qt::StringLiterals;

namespace {

QLineEdit* Edit(QWidget& dialog, const char* name)
{
    return dialog.findChild<QLineEdit*>(QLatin1String(name));
}

// Runs the command of a list's context menu on a row, as a user would pick it.
bool Pick(CListEditPage* page, int row, const QString& command)
{
    for (QAction* action : page->ContextMenu(row)->actions()) {
        if (action->text() == command) {
            action->trigger();
            return true;
        }
    }
    return false;
}

void EditorOk(CListEditPage* page)
{
    page->EditorButtons()->button(QDialogButtonBox::Ok)->click();
}

QStringList MenuTexts(CourseDlg& dialog, int row)
{
    QStringList texts;
    for (QAction* action : dialog.BooksPage()->ContextMenu(row)->actions())
        texts << (action->isSeparator() ? u"-"_s : action->text());
    return texts;
}

} // namespace

class TestCourseDlg : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }
    void cleanup()
    {
        DialogRunner::SetHook({});
        m_db.reset();
    }

    void cancelledNewCourseLeavesNothing_data();
    void cancelledNewCourseLeavesNothing();
    void fields_data();
    void fields();
    void newCourseTimesAndOrderRecord();
    void textbooks_data();
    void textbooks();
    void openEditorLocksTheRestAgainstMouseAndKeys();
    void fieldsRoundTrip();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void TestCourseDlg::cancelledNewCourseLeavesNothing_data()
{
    QTest::addColumn<bool>("destroyOnly");
    QTest::newRow("Cancel") << false;
    QTest::newRow("dialog ends without Cancel") << true;
}

void TestCourseDlg::cancelledNewCourseLeavesNothing()
{
    QFETCH(bool, destroyOnly);
    Records::Course(u"Botany"_s);
    const QStringList before = DumpAll();
    {
        CourseDlg dialog;
        dialog.SetCourse(CourseDlg::NewCourseID);
        QCOMPARE(dialog.windowTitle(), u"New Course"_s);
        // The new course exists while the dialog is open, with its policy and types.
        const quint32 id = dialog.CourseID();
        QCOMPARE(CountWhere("Course", "id", id), 1);
        QCOMPARE(CountWhere("GradingPolicy", "CourseID", id), 1);
        QVERIFY(CountWhere("CwType", "CourseID", id) > 0);
        Edit(dialog, "courseName")->setText(u"Chemistry"_s);
        dialog.TimesPage()->NewTime();
        EditorOk(dialog.TimesPage());
        if (!destroyOnly)
            dialog.findChild<QDialogButtonBox*>(u"buttons"_s)
                ->button(QDialogButtonBox::Cancel)
                ->click();
    }
    QCOMPARE(DumpAll(), before);
}

void TestCourseDlg::fields_data()
{
    QTest::addColumn<QByteArray>("setUp"); // SQL run before the dialog opens
    QTest::addColumn<QString>("open");     // the course opened; empty: a new one
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("shown"); // null: not looked at
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("probe");
    QTest::addColumn<QString>("stored");  // what the probe finds after a save
    QTest::addColumn<QString>("message"); // empty: saved

    const QString duplicate =
        u"A course with the name '%1' already exists.\nPlease enter a new course name."_s;
    const QByteArray archive =
        "UPDATE CourseOrder SET SemesterID = (SELECT id FROM Semester) "
        "WHERE CourseID = (SELECT id FROM Course WHERE CourseName = 'Botany')";
    const QByteArray names = "SELECT group_concat(CourseName, '|') FROM Course";
    const QString none;
    QTest::newRow("name: empty") << QByteArray() << none << u"courseName"_s << none << none << names
                                 << none << u"You must supply a course name."_s;
    QTest::newRow("name: blanks are a name") << QByteArray() << none << u"courseName"_s << none
                                             << u"  "_s << names << u"Botany|Zoology|  "_s << none;
    QTest::newRow("name: used in an archived semester")
        << archive << none << u"courseName"_s << none << u"Botany"_s << names << none
        << duplicate.arg(u"Botany"_s);
    QTest::newRow("name: differs only in case")
        << archive << none << u"courseName"_s << none << u"BOTANY"_s << names << none
        << duplicate.arg(u"BOTANY"_s);
    QTest::newRow("name: renamed to its own")
        << QByteArray() << u"Zoology"_s << u"courseName"_s << u"Zoology"_s << u"Zoology"_s << names
        << u"Botany|Zoology"_s << none;
    QTest::newRow("name: renamed to another's")
        << archive << u"Zoology"_s << u"courseName"_s << none << u"botany"_s << names << none
        << duplicate.arg(u"botany"_s);

    const QByteArray library = "UPDATE Course SET BuildingID = (SELECT id FROM Building WHERE "
                               "BuildingName = 'Library')";
    const QByteArray building = "SELECT coalesce(BuildingName, BuildingID) || '/' || (SELECT "
                                "count(*) FROM Building) FROM Course c LEFT JOIN Building b ON "
                                "b.id = c.BuildingID WHERE CourseName = 'Botany'";
    QTest::newRow("building: existing name")
        << library << u"Botany"_s << u"buildingBox"_s << u"Library"_s << u"Science Hall"_s
        << building << u"Science Hall/2"_s << none;
    QTest::newRow("building: a new name creates one")
        << library << u"Botany"_s << u"buildingBox"_s << u"Library"_s << u"Annex"_s << building
        << u"Annex/3"_s << none;
    QTest::newRow("building: empty box stores 0")
        << library << u"Botany"_s << u"buildingBox"_s << u"Library"_s << u""_s << building
        << u"0/2"_s << none;

    const QByteArray hours = "SELECT CourseHours FROM Course WHERE CourseName = 'Botany'";
    QTest::newRow("hours: no value shows empty, stays so")
        << QByteArray("UPDATE Course SET CourseHours = -999") << u"Botany"_s << u"courseHours"_s
        << u""_s << u""_s << hours << u"-999.0"_s << none;
    QTest::newRow("hours: other negative shows empty")
        << QByteArray("UPDATE Course SET CourseHours = -1") << u"Botany"_s << u"courseHours"_s
        << u""_s << u""_s << hours << u"-999.0"_s << none;
    QTest::newRow("hours: zero") << QByteArray("UPDATE Course SET CourseHours = 0") << u"Botany"_s
                                 << u"courseHours"_s << u"0"_s << u"4.5"_s << hours << u"4.5"_s
                                 << none;
    QTest::newRow("hours: negative refused")
        << QByteArray("UPDATE Course SET CourseHours = 3") << u"Botany"_s << u"courseHours"_s
        << u"3"_s << u"-2"_s << hours << none
        << u"The hours must be a number from 0 up, or left empty."_s;
}

void TestCourseDlg::fields()
{
    QFETCH(QByteArray, setUp);
    QFETCH(QString, open);
    QFETCH(QString, field);
    QFETCH(QString, shown);
    QFETCH(QString, typed);
    QFETCH(QByteArray, probe);
    QFETCH(QString, stored);
    QFETCH(QString, message);
    Records::Semester(u"Fall"_s);
    Building(u"Library"_s);
    Building(u"Science Hall"_s);
    const quint32 botany = Records::Course(u"Botany"_s);
    const quint32 zoology = Records::Course(u"Zoology"_s);
    if (!setUp.isEmpty())
        Sql(setUp);

    CourseDlg dialog;
    dialog.SetCourse(open.isEmpty()        ? CourseDlg::NewCourseID
                     : open == u"Botany"_s ? botany
                                           : zoology);
    auto* box = dialog.findChild<QComboBox*>(field);
    QLineEdit* edit = box ? box->lineEdit() : Edit(dialog, qPrintable(field));
    if (!shown.isNull())
        QCOMPARE(edit->text(), shown);
    if (box)
        QCOMPARE(box->count(), 2);
    // The OK step works on the working copy, whatever the fields show.
    CourseEntry& entry = dialog.Entry();
    if (field == u"courseName"_s)
        entry.name = typed;
    else if (box)
        entry.buildingName = typed;
    else
        entry.hours = typed.isEmpty() ? CourseEntry::NoHours : typed.toDouble();
    dialog.Pages()->setCurrentIndex(3);
    const QStringList before = DumpAll();
    MessageAnswers answers;
    QCOMPARE(dialog.Save(), message.isEmpty());
    QCOMPARE(answers.Texts(), message.isEmpty() ? QStringList() : QStringList{message});
    if (message.isEmpty()) {
        QCOMPARE(Sql(probe), stored);
    } else {
        // Refused: nothing written, and the refused field is shown.
        QCOMPARE(DumpAll(), before);
        QCOMPARE(dialog.Pages()->currentIndex(), 0);
        QCOMPARE(dialog.focusWidget(), box ? static_cast<QWidget*>(box) : edit);
    }
}

void TestCourseDlg::newCourseTimesAndOrderRecord()
{
    const quint32 semester = Records::Semester(u"Fall"_s);
    Records::Course(u"Botany"_s);
    CAppStateTable::Instance().SetCurrentSemesterID(semester);
    CAppStateTable::Instance().UpdateRecord();

    CourseDlg dialog;
    dialog.SetCourse(CourseDlg::NewCourseID);
    Edit(dialog, "courseName")->setText(u"Chemistry"_s);
    CTimeListPage* times = dialog.TimesPage();
    CClassTimeEditor* editor = times->Editor();
    QVERIFY(Pick(times, -1, u"New Time"_s));
    QCOMPARE(editor->StartEdit()->time(), QTime(10, 0));
    QCOMPARE(editor->EndEdit()->time(), QTime(10, 50));
    for (int day : {1, 3, 5}) // M W F
        editor->DayButton(day)->click();
    EditorOk(times);
    QVERIFY(Pick(times, -1, u"New Time"_s));
    for (int day : {0, 6}) // Su Sa
        editor->DayButton(day)->click();
    editor->StartEdit()->setTime(QTime(13, 30));
    editor->EndEdit()->setTime(QTime(13, 29));
    MessageAnswers answers;
    EditorOk(times);
    QCOMPARE(answers.Texts(), QStringList{u"The end time is before the start time.\nPlease choose "
                                          u"an end time at or after the start time."_s});
    QVERIFY(times->IsEditorOpen());
    QCOMPARE(dialog.Times().size(), size_t(1));
    // Ending when it starts is a slot all the same.
    editor->EndEdit()->setTime(QTime(13, 30));
    EditorOk(times);
    QVERIFY(!times->IsEditorOpen());
    QCOMPARE(dialog.findChild<QListWidget*>(u"timeList"_s)->item(0)->text(),
             u"M W F  10:00 - 10:50"_s);
    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    const quint32 id = dialog.CourseID();

    const QByteArray where = " WHERE ForeignRecordID = " + QByteArray::number(id);
    // Su = 1, M = 2, ... Sa = 64.
    QCOMPARE(Sql("SELECT group_concat(DayOfWeek) FROM (SELECT DayOfWeek FROM Time" + where +
                 " ORDER BY DayOfWeek)"),
             u"42,65"_s);
    // Two rows now (the other course's and this one): the count after creation.
    QCOMPARE(Sql("SELECT SemesterID || '/' || CoursePosition FROM CourseOrder WHERE CourseID = " +
                 QByteArray::number(id)),
             u"%1/2"_s.arg(semester));
    QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), id);
}

void TestCourseDlg::textbooks_data()
{
    QTest::addColumn<bool>("ok");
    QTest::newRow("Cancel") << false;
    QTest::newRow("OK") << true;
}

void TestCourseDlg::textbooks()
{
    QFETCH(bool, ok);
    const quint32 course = Records::Course(u"Botany"_s);
    // Stored out of order: positions decide, not record order.
    Textbook(course, u"Cedar"_s, 2);
    const quint32 aspen = Textbook(course, u"Aspen"_s, 0);
    Textbook(course, u"Birch"_s, 1);
    const quint32 fauna = Textbook(course, u"Fauna"_s, 3);
    const quint32 type = Records::CwType(course, u"Reading"_s);
    const quint32 usesFauna = Records::Coursework(course, type, u"Chapter 1"_s);
    Records::Coursework(course, type, u"Chapter 2"_s);
    Sql("UPDATE Coursework SET TextbookID = CASE id WHEN " + QByteArray::number(usesFauna) +
        " THEN " + QByteArray::number(fauna) + " ELSE " + QByteArray::number(aspen) + " END");
    const QStringList before = DumpAll();
    {
        CourseDlg dialog;
        dialog.SetCourse(course);
        auto* list = dialog.findChild<QListWidget*>(u"textbookList"_s);
        QCOMPARE(list->item(0)->text(), u"Aspen"_s);
        const QStringList ned{u"New Textbook"_s, u"Edit Textbook"_s, u"Delete Textbook"_s};
        QCOMPARE(MenuTexts(dialog, 0), ned + u"-|Move Down"_s.split(u'|'));
        QCOMPARE(MenuTexts(dialog, 1), ned + u"-|Move Up|Move Down"_s.split(u'|'));
        QCOMPARE(MenuTexts(dialog, 3), ned + u"-|Move Up"_s.split(u'|'));
        QCOMPARE(MenuTexts(dialog, -1), QStringList{u"New Textbook"_s});
        QVERIFY(Pick(dialog.BooksPage(), 3, u"Delete Textbook"_s));
        QVERIFY(Pick(dialog.BooksPage(), 0, u"Move Down"_s));
        QCOMPARE(list->currentRow(), 1);
        QVERIFY(Pick(dialog.BooksPage(), 2, u"Move Up"_s));
        QCOMPARE(list->currentRow(), 1);
        // A new book goes to the end.
        dialog.BooksPage()->NewTextbook();
        QTest::keyClicks(Edit(dialog, "textbookName"), u"Dogwood"_s);
        QTest::keyClicks(Edit(dialog, "textbookAuthor"), u"Ray"_s);
        QTest::keyClicks(Edit(dialog, "textbookCost"), u"12.5"_s);
        EditorOk(dialog.BooksPage());
        if (ok)
            dialog.accept();
        else
            dialog.reject();
    }
    if (!ok) {
        QCOMPARE(DumpAll(), before);
        return;
    }
    QCOMPARE(CountWhere("Textbook", "id", fauna), 0);
    // Its coursework points at a deleted book; the other keeps its own.
    QCOMPARE(
        Sql("SELECT group_concat(TextbookID) FROM (SELECT TextbookID FROM Coursework ORDER BY id)"),
        u"%1,%2"_s.arg(0xFFFFFFFFu).arg(aspen));
    // The order row stays; opening skips it.
    QCOMPARE(CountWhere("TextbookOrder", "TextbookID", fauna), 1);
    CourseDlg again;
    again.SetCourse(course);
    QStringList names;
    for (const TextbookEntry& entry : again.Textbooks())
        names << entry.name;
    QCOMPARE(names, (QStringList{u"Birch"_s, u"Cedar"_s, u"Aspen"_s, u"Dogwood"_s}));
    QCOMPARE(again.Textbooks()[3].author, u"Ray"_s);
    QCOMPARE(again.Textbooks()[3].cost, 12.5);
}

void TestCourseDlg::openEditorLocksTheRestAgainstMouseAndKeys()
{
    const quint32 course = Records::Course(u"Botany"_s);
    Textbook(course, u"Flora"_s, 0);
    CourseDlg dialog;
    dialog.SetCourse(course);
    auto* buttons = dialog.findChild<QDialogButtonBox*>(u"buttons"_s);
    auto* menuBar = dialog.findChild<QMenuBar*>(u"menuBar"_s);
    auto* list = dialog.findChild<QListWidget*>(u"textbookList"_s);
    QLineEdit* name = Edit(dialog, "textbookName");
    const auto unlocked = [&] {
        return buttons->isEnabled() && menuBar->isEnabled() &&
               dialog.Pages()->tabBar()->isEnabled() && Edit(dialog, "courseName")->isEnabled();
    };
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QVERIFY(unlocked());
    dialog.Pages()->setCurrentWidget(dialog.BooksPage());
    const QPoint row = list->visualItemRect(list->item(0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row);
    QVERIFY(dialog.BooksPage()->IsEditorOpen());
    QCOMPARE(name->text(), u"Flora"_s);
    QCOMPARE(dialog.focusWidget(), name);
    QVERIFY(!buttons->isEnabled());
    QVERIFY(!menuBar->isEnabled());
    QVERIFY(!dialog.Pages()->tabBar()->isEnabled());
    QVERIFY(!Edit(dialog, "courseName")->isEnabled());
    // Nor can the keyboard leave the page for another one.
    QTest::keyClick(name, Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyClick(name, Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(dialog.Pages()->currentWidget(), dialog.BooksPage());

    name->setText(u"Flora II"_s);
    dialog.BooksPage()->EditorButtons()->button(QDialogButtonBox::Cancel)->click();
    QVERIFY(unlocked());
    QCOMPARE(dialog.Textbooks()[0].name, u"Flora"_s);
}

void TestCourseDlg::fieldsRoundTrip()
{
    Building(u"Library"_s);
    const quint32 course = Records::Course(u"Botany"_s);
    QString title;
    DialogRunner::SetHook([&](QDialog& text) {
        title = text.windowTitle();
        text.findChild<QPlainTextEdit*>()->setPlainText(u"Lab on Fridays"_s);
        return int(QDialog::Accepted);
    });
    const QByteArray row =
        "SELECT CourseName || '|' || CourseNumber || '|' || CourseSection || '|' || Department || "
        "'|' || CourseHours || '|' || InMajor || '|' || RoomNumber || '|' || CourseWebSite || '|' "
        "|| (SELECT BuildingName FROM Building b WHERE b.id = BuildingID) || '|' || Details FROM "
        "Course";
    const QString typed = u"Botany II|BIO 101|B|Biology|3.5|1|204|example.org|Library|"_s;
    {
        CourseDlg dialog;
        dialog.SetCourse(course);
        const char* names[] = {"courseName",  "courseNumber", "courseSection", "courseDept",
                               "courseHours", nullptr,        "roomNumber",    "webSite"};
        const QStringList values = typed.split(u'|');
        for (int i = 0; i < 8; ++i)
            if (names[i])
                Edit(dialog, names[i])->setText(values[i]);
        dialog.findChild<QCheckBox*>(u"inMajor"_s)->setChecked(true);
        dialog.findChild<QComboBox*>(u"buildingBox"_s)->setCurrentText(u"Library"_s);
        dialog.findChild<QAction*>(u"actionDetails"_s)->trigger();
        QCOMPARE(title, u"Course Details"_s);
        // Details are written with the other fields, on OK only.
        QCOMPARE(Sql("SELECT Details FROM Course"), QString());
        QVERIFY(dialog.OnOK());
        QCOMPARE(dialog.Entry().number, u"BIO 101"_s);
    }
    QCOMPARE(Sql(row), typed + u"Lab on Fridays"_s);
    // Opened again, the fields show what was stored.
    CourseDlg again;
    again.SetCourse(course);
    QCOMPARE(again.Entry().details, u"Lab on Fridays"_s);
    QVERIFY(again.OnOK());
    QCOMPARE(Sql(row), typed + u"Lab on Fridays"_s);
}

QTEST_MAIN(TestCourseDlg)
#include "tst_coursedlg.moc"
