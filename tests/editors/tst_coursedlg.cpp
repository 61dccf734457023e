#include "EditorRecords.h"
#include "controls/DialogRunner.h"
#include "controls/NumericEdit.h"
#include "editors/ClassTimeEditor.h"
#include "editors/CourseDlg.h"
#include "editors/CourseDlgBooksPage.h"
#include "editors/TimeListPage.h"
#include "res/strings/EditorStrings.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTimeEdit>
#include <QToolButton>
#include <QtTest>

using namespace EditorRecords;

namespace {

QLineEdit* Edit(QWidget& dialog, const char* name)
{
    return dialog.findChild<QLineEdit*>(QLatin1String(name));
}

// Runs the command of a list's context menu on a row, as a user would pick it.
bool Pick(CListEditPage* page, int row, const QString& command)
{
    QMenu* menu = page->ContextMenu(row);
    for (QAction* action : menu->actions()) {
        if (action->text() == command) {
            action->trigger();
            return true;
        }
    }
    return false;
}

QStringList MenuTexts(CListEditPage* page, int row)
{
    QStringList texts;
    for (QAction* action : page->ContextMenu(row)->actions())
        texts << (action->isSeparator() ? QStringLiteral("-") : action->text());
    return texts;
}

void ClickEditorButton(CListEditPage* page, QDialogButtonBox::StandardButton which)
{
    page->EditorButtons()->button(which)->click();
}

void ClickDay(CClassTimeEditor* editor, int day)
{
    editor->DayButton(day)->click();
}

quint32 TextbookOf(quint32 courseworkId)
{
    CCourseworkTable table;
    table.Open();
    return table.MoveToRecord(courseworkId) ? table.GetTextbookID() : 0;
}

} // namespace

// The course editor, driven through its controls.
class TestCourseDlg : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { DialogRunner::SetHook({}); }

    void newCourseExistsWhileOpenAndCancelLeavesNothing_data();
    void newCourseExistsWhileOpenAndCancelLeavesNothing();
    void names_data();
    void names();
    void building_data();
    void building();
    void hours_data();
    void hours();
    void textbookDeleteThenCancelOrOk_data();
    void textbookDeleteThenCancelOrOk();
    void newCourseTimesAndOrderRecord();
    void endBeforeStartRefused();
    void dayButtonsBesideTheirLabel_data();
    void dayButtonsBesideTheirLabel();
    void fieldLimits_data();
    void fieldLimits();
    void textbookMenu_data();
    void textbookMenu();
    void movedTextbooksKeepTheirOrder();
    void openEditorDisablesTheRest();
    void startOnBooks();
    void details();
};

void TestCourseDlg::newCourseExistsWhileOpenAndCancelLeavesNothing_data()
{
    QTest::addColumn<bool>("destroyOnly");
    QTest::newRow("Cancel") << false;
    QTest::newRow("dialog ends without Cancel") << true;
}

void TestCourseDlg::newCourseExistsWhileOpenAndCancelLeavesNothing()
{
    QFETCH(bool, destroyOnly);
    TestDatabase db;
    QVERIFY(db.IsReady());
    Records::Course(QStringLiteral("Botany"));
    const QStringList before = DumpAll();
    {
        CourseDlg dialog;
        dialog.SetCourse(CourseDlg::NewCourseID);
        QCOMPARE(dialog.windowTitle(), EditorStrings::NewCourseTitle());
        const quint32 id = dialog.CourseID();
        QCOMPARE(CountWhere("Course", "id", id), 1);
        QCOMPARE(CountWhere("GradingPolicy", "CourseID", id), 1);
        QVERIFY(CountWhere("CwType", "CourseID", id) > 0);

        Edit(dialog, "courseName")->setText(QStringLiteral("Chemistry"));
        dialog.TimesPage()->NewTime();
        ClickEditorButton(dialog.TimesPage(), QDialogButtonBox::Ok);
        QCOMPARE(dialog.Times().size(), size_t(1));
        if (!destroyOnly)
            dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttons"))
                ->button(QDialogButtonBox::Cancel)
                ->click();
    }
    QCOMPARE(DumpAll(), before);
}

void TestCourseDlg::names_data()
{
    QTest::addColumn<bool>("archived");
    QTest::addColumn<bool>("editOther"); // edit the other course, else a new one
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message"); // empty: saved

    const QString duplicate = EditorStrings::DuplicateCourseName(QStringLiteral("%1"));
    QTest::newRow("empty") << false << false << QString() << EditorStrings::NoCourseName();
    QTest::newRow("blanks are a name") << false << false << QStringLiteral("  ") << QString();
    QTest::newRow("used in the working semester")
        << false << false << QStringLiteral("Botany") << duplicate.arg(QStringLiteral("Botany"));
    QTest::newRow("used in an archived semester")
        << true << false << QStringLiteral("Botany") << duplicate.arg(QStringLiteral("Botany"));
    QTest::newRow("differs only in case")
        << true << false << QStringLiteral("BOTANY") << duplicate.arg(QStringLiteral("BOTANY"));
    QTest::newRow("renaming to its own name")
        << false << true << QStringLiteral("Zoology") << QString();
    QTest::newRow("renaming to another's name")
        << true << true << QStringLiteral("botany") << duplicate.arg(QStringLiteral("botany"));
}

void TestCourseDlg::names()
{
    QFETCH(bool, archived);
    QFETCH(bool, editOther);
    QFETCH(QString, typed);
    QFETCH(QString, message);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 semester = archived ? Records::Semester(QStringLiteral("Fall")) : 0;
    Records::Course(QStringLiteral("Botany"), semester);
    const quint32 other = Records::Course(QStringLiteral("Zoology"));

    CourseDlg dialog;
    dialog.SetCourse(editOther ? other : CourseDlg::NewCourseID);
    dialog.Pages()->setCurrentIndex(3);
    Edit(dialog, "courseName")->setText(typed);
    const QStringList before = DumpAll();
    MessageAnswers answers;
    const bool saved = dialog.OnOK();

    QCOMPARE(saved, message.isEmpty());
    QCOMPARE(answers.Texts(), message.isEmpty() ? QStringList() : QStringList{message});
    if (!saved) {
        QCOMPARE(DumpAll(), before);
        QCOMPARE(dialog.Pages()->currentWidget(), dialog.Pages()->widget(0));
    } else {
        QCOMPARE(CCourseTable::GetCourseNameFromID(dialog.CourseID()), typed);
    }
}

void TestCourseDlg::building_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("expectedName"); // empty: building id 0
    QTest::addColumn<int>("buildings");        // afterwards

    QTest::newRow("existing name")
        << QStringLiteral("Science Hall") << QStringLiteral("Science Hall") << 2;
    QTest::newRow("new name creates a building")
        << QStringLiteral("Annex") << QStringLiteral("Annex") << 3;
    QTest::newRow("empty box") << QString() << QString() << 2;
}

void TestCourseDlg::building()
{
    QFETCH(QString, typed);
    QFETCH(QString, expectedName);
    QFETCH(int, buildings);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 library = Building(QStringLiteral("Library"));
    Building(QStringLiteral("Science Hall"));
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    {
        CCourseTable table;
        table.Open();
        QVERIFY(table.MoveToRecord(course));
        table.SetBuildingID(library);
        table.UpdateRecord();
    }

    CourseDlg dialog;
    dialog.SetCourse(course);
    auto* box = dialog.findChild<QComboBox*>(QStringLiteral("buildingBox"));
    QVERIFY(box);
    QCOMPARE(box->count(), 2);
    QCOMPARE(box->currentText(), QStringLiteral("Library"));
    box->setEditText(typed);
    MessageAnswers answers;
    QVERIFY(dialog.OnOK());

    CCourseTable table;
    table.Open();
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(CBuildingTable::GetBuildingNameFromID(table.GetBuildingID()), expectedName);
    if (expectedName.isEmpty())
        QCOMPARE(table.GetBuildingID(), quint32(0));
    QCOMPARE(Records::Count("Building"), buildings);
}

void TestCourseDlg::hours_data()
{
    QTest::addColumn<double>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<double>("saved"); // 1e9: refused

    QTest::newRow("no value shows empty, stays so") << -999.0 << QString() << QString() << -999.0;
    QTest::newRow("other negative shows empty") << -1.0 << QString() << QString() << -999.0;
    QTest::newRow("zero") << 0.0 << QStringLiteral("0") << QStringLiteral("4.5") << 4.5;
    QTest::newRow("whole number") << 3.0 << QStringLiteral("3") << QStringLiteral("3") << 3.0;
    QTest::newRow("negative typed refused")
        << 3.0 << QStringLiteral("3") << QStringLiteral("-2") << 1e9;
}

void TestCourseDlg::hours()
{
    QFETCH(double, stored);
    QFETCH(QString, shown);
    QFETCH(QString, typed);
    QFETCH(double, saved);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    {
        CCourseTable table;
        table.Open();
        QVERIFY(table.MoveToRecord(course));
        table.SetCourseHours(stored);
        table.UpdateRecord();
    }
    CourseDlg dialog;
    dialog.SetCourse(course);
    auto* hours = dialog.findChild<CNumericEdit*>(QStringLiteral("courseHours"));
    QCOMPARE(hours->text(), shown);
    hours->setText(typed);
    MessageAnswers answers;
    const bool ok = dialog.OnOK();
    QCOMPARE(ok, saved != 1e9);
    if (!ok) {
        QCOMPARE(answers.Texts(), QStringList{EditorStrings::HoursOutOfRange()});
        return;
    }
    CCourseTable table;
    table.Open();
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(table.GetCourseHours(), saved);
}

void TestCourseDlg::textbookDeleteThenCancelOrOk_data()
{
    QTest::addColumn<bool>("ok");
    QTest::newRow("Cancel") << false;
    QTest::newRow("OK") << true;
}

void TestCourseDlg::textbookDeleteThenCancelOrOk()
{
    QFETCH(bool, ok);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    const quint32 type = Records::CwType(course, QStringLiteral("Reading"));
    const quint32 keep = Textbook(course, QStringLiteral("Flora"), 0);
    const quint32 drop = Textbook(course, QStringLiteral("Fauna"), 1);
    const quint32 usesDrop = Records::Coursework(course, type, QStringLiteral("Chapter 1"));
    const quint32 usesKeep = Records::Coursework(course, type, QStringLiteral("Chapter 2"));
    {
        CCourseworkTable table;
        table.Open();
        table.MoveToRecord(usesDrop);
        table.SetTextbookID(drop);
        table.UpdateRecord();
        table.MoveToRecord(usesKeep);
        table.SetTextbookID(keep);
        table.UpdateRecord();
    }
    const QStringList before = DumpAll();

    {
        CourseDlg dialog;
        dialog.SetCourse(course);
        auto* list = dialog.findChild<QListWidget*>(QStringLiteral("textbookList"));
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->item(1)->text(), QStringLiteral("Fauna"));
        QVERIFY(Pick(dialog.BooksPage(), 1, EditorStrings::DeleteTextbook()));
        QCOMPARE(list->count(), 1);
        if (ok)
            dialog.accept();
        else
            dialog.reject();
    }

    if (!ok) {
        QCOMPARE(DumpAll(), before);
        return;
    }
    QCOMPARE(CountWhere("Textbook", "id", drop), 0);
    QCOMPARE(CountWhere("Textbook", "id", keep), 1);
    QCOMPARE(TextbookOf(usesDrop), quint32(0xFFFFFFFF));
    QCOMPARE(TextbookOf(usesKeep), keep);
    // The order row stays; opening skips it.
    QCOMPARE(CountWhere("TextbookOrder", "TextbookID", drop), 1);
    CourseDlg again;
    again.SetCourse(course);
    QCOMPARE(again.Textbooks().size(), size_t(1));
    QCOMPARE(again.Textbooks()[0].name, QStringLiteral("Flora"));
}

void TestCourseDlg::newCourseTimesAndOrderRecord()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 semester = Records::Semester(QStringLiteral("Fall"));
    Records::Course(QStringLiteral("Botany"));
    CAppStateTable::Instance().SetCurrentSemesterID(semester);
    CAppStateTable::Instance().UpdateRecord();

    CourseDlg dialog;
    dialog.SetCourse(CourseDlg::NewCourseID);
    Edit(dialog, "courseName")->setText(QStringLiteral("Chemistry"));
    CTimeListPage* times = dialog.TimesPage();
    CClassTimeEditor* editor = times->Editor();

    QVERIFY(Pick(times, -1, EditorStrings::NewTime()));
    QCOMPARE(editor->StartEdit()->time(), QTime(10, 0));
    QCOMPARE(editor->EndEdit()->time(), QTime(10, 50));
    ClickDay(editor, 1); // M
    ClickDay(editor, 3); // W
    ClickDay(editor, 5); // F
    QVERIFY(editor->DayButton(1)->isChecked());
    ClickEditorButton(times, QDialogButtonBox::Ok);

    QVERIFY(Pick(times, -1, EditorStrings::NewTime()));
    ClickDay(editor, 0); // Su
    ClickDay(editor, 6); // Sa
    editor->StartEdit()->setTime(QTime(13, 30));
    editor->EndEdit()->setTime(QTime(15, 0));
    ClickEditorButton(times, QDialogButtonBox::Ok);

    QCOMPARE(dialog.Times().size(), size_t(2));
    QCOMPARE(dialog.Times()[0].id, quint32(0));
    QCOMPARE(dialog.Times()[1].id, quint32(0));
    auto* list = dialog.findChild<QListWidget*>(QStringLiteral("timeList"));
    QCOMPARE(list->item(0)->text(), QStringLiteral("M W F  10:00 - 10:50"));

    dialog.accept();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    const quint32 id = dialog.CourseID();

    CTimeTable table;
    table.Open(0);
    const CCeDBProp key(id);
    table.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QList<quint16> days;
    for (int ok = table.MoveFirst(1); ok; ok = table.MoveNext(1))
        days << table.GetDayOfWeek();
    std::sort(days.begin(), days.end());
    QCOMPARE(days, (QList<quint16>{2 + 8 + 32, 1 + 64}));

    CCourseOrderTable order;
    order.Open(1);
    order.SetSeekValue(&key, CDataTable::SeekValueEqual);
    QVERIFY(order.MoveFirst(1));
    QCOMPARE(order.GetSemesterID(), semester);
    // Two rows now (the other course's and this one): the count after creation.
    QCOMPARE(order.GetCoursePosition(), quint16(2));
    QCOMPARE(CAppStateTable::Instance().GetCurrentCourseID(), id);
}

void TestCourseDlg::dayButtonsBesideTheirLabel_data()
{
    QTest::addColumn<int>("day");
    QTest::addColumn<QString>("caption");
    QTest::newRow("Sunday") << 0 << EditorStrings::DaySunday();
    QTest::newRow("Monday") << 1 << EditorStrings::DayMonday();
    QTest::newRow("Saturday") << 6 << EditorStrings::DaySaturday();
}

void TestCourseDlg::dayButtonsBesideTheirLabel()
{
    QFETCH(int, day);
    QFETCH(QString, caption);
    CClassTimeEditor editor;
    editor.show();
    QVERIFY(QTest::qWaitForWindowExposed(&editor));
    QLabel* label = nullptr;
    for (QLabel* candidate : editor.findChildren<QLabel*>()) {
        if (candidate->text() == EditorStrings::LabelDays())
            label = candidate;
    }
    QVERIFY(label);
    QToolButton* button = editor.DayButton(day);
    QCOMPARE(button->text(), caption);
    // One row: the label in front, the buttons after it from Sunday on.
    const QRect labelRect = label->geometry();
    const QRect buttonRect = button->geometry();
    QVERIFY(buttonRect.left() >= labelRect.right());
    QVERIFY(buttonRect.top() <= labelRect.center().y());
    QVERIFY(buttonRect.bottom() >= labelRect.center().y());
    QCOMPARE(buttonRect.width(), buttonRect.height());
    if (day > 0)
        QCOMPARE(buttonRect.left(), editor.DayButton(day - 1)->geometry().right() + 1);
}

void TestCourseDlg::endBeforeStartRefused()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    CourseDlg dialog;
    dialog.SetCourse(Records::Course(QStringLiteral("Botany")));
    CTimeListPage* times = dialog.TimesPage();
    times->NewTime();
    times->Editor()->EndEdit()->setTime(QTime(9, 59));
    MessageAnswers answers;
    ClickEditorButton(times, QDialogButtonBox::Ok);
    QCOMPARE(answers.Texts(), QStringList{EditorStrings::EndBeforeStart()});
    QVERIFY(times->IsEditorOpen());
    QVERIFY(dialog.Times().empty());

    // Ending when it starts is a slot all the same.
    times->Editor()->EndEdit()->setTime(QTime(10, 0));
    ClickEditorButton(times, QDialogButtonBox::Ok);
    QVERIFY(!times->IsEditorOpen());
    QCOMPARE(dialog.Times().size(), size_t(1));
}

void TestCourseDlg::fieldLimits_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<int>("limit");
    QTest::newRow("textbook name") << QStringLiteral("textbookName") << 25;
    QTest::newRow("textbook author") << QStringLiteral("textbookAuthor") << 50;
    QTest::newRow("course name") << QStringLiteral("courseName") << 50;
    QTest::newRow("number") << QStringLiteral("courseNumber") << 25;
    QTest::newRow("section") << QStringLiteral("courseSection") << 25;
    QTest::newRow("dept") << QStringLiteral("courseDept") << 25;
    QTest::newRow("room number") << QStringLiteral("roomNumber") << 20;
    QTest::newRow("web site") << QStringLiteral("webSite") << 100;
}

void TestCourseDlg::fieldLimits()
{
    QFETCH(QString, field);
    QFETCH(int, limit);
    TestDatabase db;
    QVERIFY(db.IsReady());
    CourseDlg dialog;
    dialog.SetCourse(Records::Course(QStringLiteral("Botany")));
    // The textbook fields take typing while their editor is open; the
    // course's own fields while it is closed.
    if (field.startsWith(QStringLiteral("textbook")))
        dialog.BooksPage()->NewTextbook();
    auto* edit = dialog.findChild<QLineEdit*>(field);
    QVERIFY(edit);
    edit->clear();
    QTest::keyClicks(edit, QString(limit + 1, QLatin1Char('x')));
    QCOMPARE(edit->text().size(), limit);
}

void TestCourseDlg::textbookMenu_data()
{
    QTest::addColumn<int>("books");
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("expected");
    const QString n = EditorStrings::NewTextbook();
    const QString e = EditorStrings::EditTextbook();
    const QString d = EditorStrings::DeleteTextbook();
    const QString up = EditorStrings::MoveUp();
    const QString down = EditorStrings::MoveDown();
    const QString sep = QStringLiteral("-");
    QTest::newRow("empty list") << 0 << -1 << QStringList{n};
    QTest::newRow("one book") << 1 << 0 << QStringList{n, e, d};
    QTest::newRow("below the rows") << 3 << -1 << QStringList{n};
    QTest::newRow("first of three") << 3 << 0 << QStringList{n, e, d, sep, down};
    QTest::newRow("middle of three") << 3 << 1 << QStringList{n, e, d, sep, up, down};
    QTest::newRow("last of three") << 3 << 2 << QStringList{n, e, d, sep, up};
}

void TestCourseDlg::textbookMenu()
{
    QFETCH(int, books);
    QFETCH(int, row);
    QFETCH(QStringList, expected);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    for (int i = 0; i < books; ++i)
        Textbook(course, QStringLiteral("Book %1").arg(i), static_cast<quint16>(i));
    CourseDlg dialog;
    dialog.SetCourse(course);
    QCOMPARE(MenuTexts(dialog.BooksPage(), row), expected);
}

void TestCourseDlg::movedTextbooksKeepTheirOrder()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    // Stored out of order: positions decide, not record order.
    Textbook(course, QStringLiteral("Cedar"), 2);
    Textbook(course, QStringLiteral("Aspen"), 0);
    Textbook(course, QStringLiteral("Birch"), 1);
    {
        CourseDlg dialog;
        dialog.SetCourse(course);
        auto* list = dialog.findChild<QListWidget*>(QStringLiteral("textbookList"));
        QCOMPARE(list->item(0)->text(), QStringLiteral("Aspen"));
        QVERIFY(Pick(dialog.BooksPage(), 0, EditorStrings::MoveDown()));
        QCOMPARE(list->currentRow(), 1);
        QVERIFY(Pick(dialog.BooksPage(), 2, EditorStrings::MoveUp()));
        QCOMPARE(list->currentRow(), 1);
        // A new book goes to the end; double-click edits in place.
        dialog.BooksPage()->NewTextbook();
        QTest::keyClicks(Edit(dialog, "textbookName"), QStringLiteral("Dogwood"));
        QTest::keyClicks(Edit(dialog, "textbookAuthor"), QStringLiteral("Ray"));
        QTest::keyClicks(Edit(dialog, "textbookCost"), QStringLiteral("12.5"));
        ClickEditorButton(dialog.BooksPage(), QDialogButtonBox::Ok);
        QVERIFY(dialog.OnOK());
    }
    CourseDlg again;
    again.SetCourse(course);
    QStringList names;
    for (const TextbookEntry& entry : again.Textbooks())
        names << entry.name;
    QCOMPARE(names, (QStringList{QStringLiteral("Birch"), QStringLiteral("Cedar"),
                                 QStringLiteral("Aspen"), QStringLiteral("Dogwood")}));
    QCOMPARE(again.Textbooks()[3].author, QStringLiteral("Ray"));
    QCOMPARE(again.Textbooks()[3].cost, 12.5);
}

void TestCourseDlg::openEditorDisablesTheRest()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    Textbook(course, QStringLiteral("Flora"), 0);
    CourseDlg dialog;
    dialog.SetCourse(course);
    auto* buttons = dialog.findChild<QDialogButtonBox*>(QStringLiteral("buttons"));
    auto* menuBar = dialog.findChild<QMenuBar*>(QStringLiteral("menuBar"));
    auto* list = dialog.findChild<QListWidget*>(QStringLiteral("textbookList"));
    const auto enabled = [&] {
        return buttons->isEnabled() && menuBar->isEnabled() &&
               dialog.Pages()->tabBar()->isEnabled();
    };
    QVERIFY(enabled());

    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    dialog.Pages()->setCurrentWidget(dialog.BooksPage());
    const QRect row = list->visualItemRect(list->item(0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, row.center());
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, row.center());
    QVERIFY(dialog.BooksPage()->IsEditorOpen());
    QCOMPARE(Edit(dialog, "textbookName")->text(), QStringLiteral("Flora"));
    QCOMPARE(dialog.focusWidget(), Edit(dialog, "textbookName"));
    QVERIFY(!buttons->isEnabled());
    QVERIFY(!menuBar->isEnabled());
    QVERIFY(!dialog.Pages()->tabBar()->isEnabled());
    // Nor can the keyboard leave the page for another one.
    QTest::keyClick(Edit(dialog, "textbookName"), Qt::Key_Tab, Qt::ControlModifier);
    QTest::keyClick(Edit(dialog, "textbookName"), Qt::Key_Backtab,
                    Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(dialog.Pages()->currentWidget(), dialog.BooksPage());
    QVERIFY(!Edit(dialog, "courseName")->isEnabled());

    Edit(dialog, "textbookName")->setText(QStringLiteral("Flora II"));
    ClickEditorButton(dialog.BooksPage(), QDialogButtonBox::Cancel);
    QVERIFY(enabled());
    QVERIFY(Edit(dialog, "courseName")->isEnabled());
    QCOMPARE(dialog.Textbooks()[0].name, QStringLiteral("Flora"));
}

void TestCourseDlg::startOnBooks()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    for (bool before : {true, false}) {
        CourseDlg dialog;
        if (before)
            dialog.SetStartOnBooks(true);
        dialog.SetCourse(course);
        if (!before)
            dialog.SetStartOnBooks(true);
        QCOMPARE(dialog.Pages()->currentWidget(), static_cast<QWidget*>(dialog.BooksPage()));
        QVERIFY(dialog.BooksPage()->IsEditorOpen());
        QVERIFY(Edit(dialog, "textbookName")->text().isEmpty());
    }
}

void TestCourseDlg::details()
{
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));
    CourseDlg dialog;
    dialog.SetCourse(course);

    QString title;
    bool accept = false;
    DialogRunner::SetHook([&](QDialog& text) {
        title = text.windowTitle();
        text.findChild<QPlainTextEdit*>()->setPlainText(QStringLiteral("Lab on Fridays"));
        return int(accept ? QDialog::Accepted : QDialog::Rejected);
    });
    auto* details = dialog.findChild<QAction*>(QStringLiteral("actionDetails"));
    details->trigger();
    QCOMPARE(title, EditorStrings::CourseDetailsTitle());
    QCOMPARE(dialog.Details(), QString());
    accept = true;
    details->trigger();
    QCOMPARE(dialog.Details(), QStringLiteral("Lab on Fridays"));
    // Written with the other fields on OK only.
    CCourseTable table;
    table.Open();
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(table.GetDetails(), QString());
    QVERIFY(dialog.OnOK());
    QVERIFY(table.MoveToRecord(course));
    QCOMPARE(table.GetDetails(), QStringLiteral("Lab on Fridays"));
}

QTEST_MAIN(TestCourseDlg)
#include "tst_coursedlg.moc"
