// The coursework editor: opening, the progress rule, saving with and without
// prediction mode, the course chooser, the Add menu and the main frame's
// coursework commands.
#include "BrindleData.h"
#include "app/Clock.h"
#include "app/MainFrame.h"
#include "controls/DialogRunner.h"
#include "controls/ListChooserDlg.h"
#include "controls/NumericEdit.h"
#include "editors/CourseDlg.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgDetailsPage.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "editors/EditorRecords.h"
#include "grading/GradeCalculation.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/CwTypeEditor.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/GradingDlgTypesPage.h"
#include "res/strings/CourseworkStrings.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// Types as a user does: select everything, erase, type.
void TypeInto(QLineEdit* edit, const QString& text)
{
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, text);
}

struct StoredCoursework
{
    QString name;
    quint32 type = 0;
    quint32 textbook = 0;
    double score = 0.0;
    double possible = 0.0;
    double weight = 0.0;
    quint16 completed = 0;
};

StoredCoursework Stored(quint32 id)
{
    CCourseworkTable table;
    table.Open();
    if (!table.MoveToRecord(id))
        return {};
    return {table.GetCourseworkName(), table.GetCwTypeID(), table.GetTextbookID(), table.GetScore(),
            table.GetPossible(),       table.GetWeight(),   table.GetCompleted()};
}

double StoredGrade(quint32 courseId)
{
    CCourseTable course;
    course.Open();
    return course.MoveToRecord(courseId) ? course.GetCurrentGrade() : -2.0;
}

QStringList Items(const QComboBox* list)
{
    QStringList texts;
    for (int i = 0; i < list->count(); ++i)
        texts << list->itemText(i);
    return texts;
}

// A grade no computation gives, to see whether a recompute ran.
constexpr double Untouched = 0.123;

} // namespace

class TestCourseworkDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init();
    void cleanup();

    void progressFollowsScoreAndOutOf_data();
    void progressFollowsScoreAndOutOf();
    void savedPointsAndRecompute_data();
    void savedPointsAndRecompute();
    void weightField_data();
    void weightField();
    void textbookChoice_data();
    void textbookChoice();
    void newCoursework_data();
    void newCoursework();
    void predictionModeSaveLeavesRecord();
    void refusedSave_data();
    void refusedSave();
    void detailsKeptWithinLimit();
    void addCwTypeRefillsTypes_data();
    void addCwTypeRefillsTypes();
    void addTextbookRefillsTextbooks();
    void mainFrameCommands();

private:
    // A course "Biology" with weighting None and the types Homework (listed
    // first) and Exams, and one coursework of Homework.
    quint32 MakeCoursework(double score, double possible, quint16 completed = 30,
                           double weight = 0.0, quint32 weighting = 0);

    std::unique_ptr<TestDatabase> m_db;
    quint32 m_course = 0;
    quint32 m_homework = 0;
    quint32 m_exams = 0;
};

void TestCourseworkDlg::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    BrindleClock::SetNow(QDateTime(QDate(2024, 3, 14), QTime(10, 0)));
}

void TestCourseworkDlg::cleanup()
{
    DialogRunner::SetHook({});
    CPredictionStore::Instance().SetActive(false);
    BrindleClock::SetNow(QDateTime());
    m_db.reset();
}

quint32 TestCourseworkDlg::MakeCoursework(double score, double possible, quint16 completed,
                                          double weight, quint32 weighting)
{
    m_course = Records::Course(u"Biology"_s, 0, Untouched);
    // Exams is the older record but Homework is listed first.
    m_exams = Records::CwType(m_course, u"Exams"_s, 0.0, 0, 1);
    m_homework = Records::CwType(m_course, u"Homework"_s, 0.0, 0, 0);
    Records::Policy(m_course, weighting);
    return Records::Coursework(m_course, m_homework, u"Lab 1"_s, score, possible, 45000.5,
                               completed, weight);
}

void TestCourseworkDlg::progressFollowsScoreAndOutOf_data()
{
    QTest::addColumn<double>("storedScore");
    QTest::addColumn<double>("storedPossible");
    QTest::addColumn<QString>("score"); // null: left alone
    QTest::addColumn<QString>("outOf");
    QTest::addColumn<int>("progress");

    QTest::newRow("both typed") << -1.0 << -1.0 << u"8"_s << u"10"_s << 100;
    QTest::newRow("zero score counts") << -1.0 << -1.0 << u"0"_s << u"10"_s << 100;
    QTest::newRow("score only") << -1.0 << -1.0 << u"8"_s << QString() << 30;
    QTest::newRow("out of only") << -1.0 << -1.0 << QString() << u"10"_s << 30;
    QTest::newRow("a minus is no number") << -1.0 << -1.0 << u"-"_s << u"10"_s << 30;
    QTest::newRow("graded work opens as it was") << 8.0 << 10.0 << QString() << QString() << 30;
    QTest::newRow("graded work retyped") << 8.0 << 10.0 << u"9"_s << QString() << 100;
    QTest::newRow("score cleared") << 8.0 << 10.0 << u""_s << QString() << 30;
}

void TestCourseworkDlg::progressFollowsScoreAndOutOf()
{
    QFETCH(double, storedScore);
    QFETCH(double, storedPossible);
    QFETCH(QString, score);
    QFETCH(QString, outOf);
    QFETCH(int, progress);

    const quint32 id = MakeCoursework(storedScore, storedPossible, 30);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    CourseworkDlgInfoPage* info = dialog.InfoPage();
    if (!score.isNull())
        TypeInto(info->ScoreEdit(), score);
    if (!outOf.isNull())
        TypeInto(info->OutOfEdit(), outOf);

    QCOMPARE(info->Progress(), progress);
    QCOMPARE(info->ProgressText()->text(), u"%1%"_s.arg(progress));
    QVERIFY(dialog.OnOK());
    QCOMPARE(Stored(id).completed, quint16(progress));
}

void TestCourseworkDlg::savedPointsAndRecompute_data()
{
    QTest::addColumn<QString>("score"); // null: left alone
    QTest::addColumn<QString>("outOf");
    QTest::addColumn<double>("savedScore");
    QTest::addColumn<double>("savedPossible");
    QTest::addColumn<double>("grade");

    QTest::newRow("score cleared") << u""_s << QString() << -1.0 << 10.0 << -1.0;
    QTest::newRow("out of cleared") << QString() << u""_s << 8.0 << -1.0 << -1.0;
    QTest::newRow("out of changed") << QString() << u"20"_s << 8.0 << 20.0 << 0.4;
    QTest::newRow("score changed") << u"9.5"_s << QString() << 9.5 << 10.0 << 0.95;
    QTest::newRow("same score retyped") << u"8"_s << u"10"_s << 8.0 << 10.0 << Untouched;
    QTest::newRow("nothing changed") << QString() << QString() << 8.0 << 10.0 << Untouched;
}

void TestCourseworkDlg::savedPointsAndRecompute()
{
    QFETCH(QString, score);
    QFETCH(QString, outOf);
    QFETCH(double, savedScore);
    QFETCH(double, savedPossible);
    QFETCH(double, grade);

    const quint32 id = MakeCoursework(8.0, 10.0);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    QCOMPARE(dialog.CourseID(), m_course);
    QCOMPARE(dialog.windowTitle(), u"Edit Coursework"_s);
    QCOMPARE(dialog.InfoPage()->ScoreEdit()->text(), u"8"_s);
    if (!score.isNull())
        TypeInto(dialog.InfoPage()->ScoreEdit(), score);
    if (!outOf.isNull())
        TypeInto(dialog.InfoPage()->OutOfEdit(), outOf);
    TypeInto(dialog.InfoPage()->NameEdit(), u"Lab 1 (redo)"_s);
    QVERIFY(dialog.OnOK());

    const StoredCoursework stored = Stored(id);
    QCOMPARE(stored.name, u"Lab 1 (redo)"_s);
    QCOMPARE(stored.score, savedScore);
    QCOMPARE(stored.possible, savedPossible);
    QCOMPARE(StoredGrade(m_course), grade);
}

void TestCourseworkDlg::weightField_data()
{
    QTest::addColumn<quint32>("weighting");
    QTest::addColumn<bool>("shown");
    QTest::addColumn<QString>("weight"); // null: left alone
    QTest::addColumn<double>("savedWeight");
    QTest::addColumn<int>("recomputed"); // -1: not looked at

    QTest::newRow("None hides it") << 0u << false << QString() << 2.5 << 0;
    QTest::newRow("By Type hides it") << 1u << false << QString() << 2.5 << 0;
    QTest::newRow("Per Item shows it") << 2u << true << QString() << 2.5 << 0;
    QTest::newRow("Per Item, changed") << 2u << true << u"4"_s << 4.0 << 1;
    QTest::newRow("Per Item, emptied") << 2u << true << u""_s << -999.0 << -1;
}

void TestCourseworkDlg::weightField()
{
    QFETCH(quint32, weighting);
    QFETCH(bool, shown);
    QFETCH(QString, weight);
    QFETCH(double, savedWeight);
    QFETCH(int, recomputed);

    const quint32 id = MakeCoursework(8.0, 10.0, 100, 2.5, weighting);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    QCOMPARE(dialog.InfoPage()->WeightShown(), shown);
    QCOMPARE(dialog.InfoPage()->WeightEdit()->Value(), 2.5);
    if (!weight.isNull())
        TypeInto(dialog.InfoPage()->WeightEdit(), weight);
    QVERIFY(dialog.OnOK());

    QCOMPARE(Stored(id).weight, savedWeight);
    if (recomputed >= 0)
        QCOMPARE(StoredGrade(m_course) != Untouched, recomputed == 1);
}

void TestCourseworkDlg::textbookChoice_data()
{
    QTest::addColumn<QString>("stored"); // a textbook's name, or a raw id
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("saved");

    QTest::newRow("deleted textbook") << u"0xFFFFFFFF"_s << u"No Textbook"_s << u"0"_s;
    QTest::newRow("no textbook") << u"0"_s << u"No Textbook"_s << u"0"_s;
    QTest::newRow("a listed textbook") << u"Lab Manual"_s << u"Lab Manual"_s << u"Lab Manual"_s;
}

void TestCourseworkDlg::textbookChoice()
{
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QFETCH(QString, saved);

    const quint32 id = MakeCoursework(-1.0, -1.0);
    QHash<QString, quint32> ids{{u"0"_s, 0}, {u"0xFFFFFFFF"_s, 0xFFFFFFFF}};
    ids[u"Lab Manual"_s] = EditorRecords::Textbook(m_course, u"Lab Manual"_s, 1);
    ids[u"Reader"_s] = EditorRecords::Textbook(m_course, u"Reader"_s, 0);
    EditorRecords::Textbook(Records::Course(u"Chemistry"_s), u"Other Book"_s, 0);
    {
        CCourseworkTable table;
        table.Open();
        QVERIFY(table.MoveToRecord(id));
        table.SetTextbookID(ids.value(stored));
        QVERIFY(table.UpdateRecord());
    }

    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    QComboBox* list = dialog.InfoPage()->TextbookList();
    QCOMPARE(Items(list), QStringList({u"No Textbook"_s, u"Reader"_s, u"Lab Manual"_s}));
    QCOMPARE(list->currentText(), shown);
    QVERIFY(dialog.OnOK());
    QCOMPARE(Stored(id).textbook, ids.value(saved));
}

void TestCourseworkDlg::newCoursework_data()
{
    QTest::addColumn<bool>("courseGiven");
    QTest::addColumn<int>("chosenRow"); // -1: the chooser is cancelled
    QTest::addColumn<bool>("opened");

    QTest::newRow("course given") << true << -1 << true;
    QTest::newRow("second course chosen") << false << 1 << true;
    QTest::newRow("chooser cancelled") << false << -1 << false;
}

void TestCourseworkDlg::newCoursework()
{
    QFETCH(bool, courseGiven);
    QFETCH(int, chosenRow);
    QFETCH(bool, opened);

    const quint32 first = Records::Course(u"Algebra"_s);
    MakeCoursework(-1.0, -1.0);
    Records::Course(u"Archived"_s, Records::Semester(u"Fall"_s));
    const int before = Records::Count("Coursework");

    QStringList chooserRows;
    QString chooserTitle;
    DialogRunner::SetHook([&](QDialog& dialog) {
        auto* chooser = qobject_cast<ListChooserDlg*>(&dialog);
        if (!chooser)
            return int(QDialog::Rejected);
        chooserTitle = chooser->windowTitle();
        for (int i = 0; i < chooser->List()->count(); ++i)
            chooserRows << chooser->List()->item(i)->text();
        if (chosenRow < 0)
            return int(QDialog::Rejected);
        chooser->SelectRow(chosenRow);
        return int(QDialog::Accepted);
    });

    CourseworkDlg dialog;
    dialog.SetCourseID(courseGiven ? m_course : CourseworkDlg::NoCourseID);
    dialog.SetNew(true);
    QCOMPARE(dialog.OnInitDialog(), opened);
    if (!courseGiven) {
        QCOMPARE(chooserTitle, u"Add Coursework To..."_s);
        QCOMPARE(chooserRows, QStringList({u"Algebra"_s, u"Biology"_s}));
    }
    QCOMPARE(chooserRows.isEmpty(), courseGiven);
    if (!opened) {
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QCOMPARE(Records::Count("Coursework"), before);
        return;
    }
    QVERIFY(first != m_course);

    QCOMPARE(dialog.windowTitle(), u"New Coursework"_s);
    QCOMPARE(Records::Count("Coursework"), before + 1);
    const StoredCoursework made = Stored(dialog.CourseworkID());
    QCOMPARE(made.type, m_homework);
    QCOMPARE(made.score, -1.0);
    QCOMPARE(made.possible, -1.0);
    QCOMPARE(made.textbook, 0u);
    QCOMPARE(dialog.InfoPage()->DueDateEdit()->dateTime(),
             QDateTime(QDate(2024, 3, 15), QTime(23, 59)));
    QCOMPARE(dialog.InfoPage()->TypeList()->currentText(), u"Homework"_s);
    QVERIFY(dialog.InfoPage()->ScoreEdit()->IsEmpty());
    QVERIFY(dialog.InfoPage()->OutOfEdit()->IsEmpty());

    dialog.reject();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(Records::Count("Coursework"), before);
    QCOMPARE(Stored(dialog.CourseworkID()).name, QString());
}

void TestCourseworkDlg::predictionModeSaveLeavesRecord()
{
    const quint32 id = MakeCoursework(5.0, 10.0);
    RecomputeCourseGrade(m_course);
    QCOMPARE(StoredGrade(m_course), 0.5);
    CPredictionStore& prediction = CPredictionStore::Instance();
    prediction.SetActive(true);

    {
        CourseworkDlg dialog;
        dialog.SetCourseworkID(id);
        QVERIFY(dialog.OnInitDialog());
        TypeInto(dialog.InfoPage()->ScoreEdit(), u"9"_s);
        QVERIFY(dialog.OnOK());
    }
    const StoredCoursework stored = Stored(id);
    QCOMPARE(stored.score, 5.0);
    QCOMPARE(stored.possible, 10.0);
    QCOMPARE(stored.completed, quint16(100));
    QCOMPARE(StoredGrade(m_course), 0.5);
    QCOMPARE(GetCourseGrade(m_course), 0.9);
    const std::optional<EffectiveScore> override = prediction.Override(id);
    QVERIFY(override.has_value());
    QCOMPARE(override->score, 9.0);
    QCOMPARE(override->possible, 10.0);
    QCOMPARE(override->source, int(EffectiveScore::Overridden));

    // Opened again in prediction mode it shows the tried-out score.
    CourseworkDlg again;
    again.SetCourseworkID(id);
    QVERIFY(again.OnInitDialog());
    QCOMPARE(again.InfoPage()->ScoreEdit()->text(), u"9"_s);

    prediction.SetActive(false);
    QCOMPARE(GetCourseGrade(m_course), 0.5);
}

void TestCourseworkDlg::refusedSave_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("score");
    QTest::addColumn<QString>("outOf");
    QTest::addColumn<QString>("weight");
    QTest::addColumn<QString>("message");

    QTest::newRow("empty name") << u""_s << u"8"_s << u"10"_s << u"1"_s
                                << CourseworkStrings::NameEmpty();
    QTest::newRow("negative score")
        << u"Lab"_s << u"-1"_s << u"10"_s << u"1"_s << CourseworkStrings::ScoreOutOfRange();
    QTest::newRow("negative out of")
        << u"Lab"_s << u"8"_s << u"-10"_s << u"1"_s << CourseworkStrings::OutOfOutOfRange();
    QTest::newRow("negative weight")
        << u"Lab"_s << u"8"_s << u"10"_s << u"-1"_s << CourseworkStrings::WeightOutOfRange();
}

void TestCourseworkDlg::refusedSave()
{
    QFETCH(QString, name);
    QFETCH(QString, score);
    QFETCH(QString, outOf);
    QFETCH(QString, weight);
    QFETCH(QString, message);

    const quint32 id = MakeCoursework(-1.0, -1.0, 0, 1.0, 2);
    const QStringList before = EditorRecords::DumpAll();
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    dialog.show();
    CourseworkDlgInfoPage* info = dialog.InfoPage();
    TypeInto(info->NameEdit(), name);
    TypeInto(info->ScoreEdit(), score);
    TypeInto(info->OutOfEdit(), outOf);
    TypeInto(info->WeightEdit(), weight);

    MessageAnswers answers;
    dialog.accept();
    QCOMPARE(answers.Texts(), QStringList{message});
    QVERIFY(dialog.isVisible());
    QCOMPARE(EditorRecords::DumpAll(), before);
}

void TestCourseworkDlg::detailsKeptWithinLimit()
{
    CourseworkDlgDetailsPage page;
    page.SetText(QString(10005, u'a'));
    QCOMPARE(page.Text().size(), 10000);
    QPlainTextEdit* editor = page.Editor();
    editor->moveCursor(QTextCursor::Start);
    QTest::keyClicks(editor, u"xyz"_s);
    QCOMPARE(page.Text().size(), 10000);
    QCOMPARE(page.Text().left(1), u"a"_s);
}

void TestCourseworkDlg::addCwTypeRefillsTypes_data()
{
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QStringList>("types");

    QTest::newRow("accepted") << true << QStringList({u"Homework"_s, u"Exams"_s, u"Quizzes"_s});
    QTest::newRow("cancelled") << false << QStringList({u"Homework"_s, u"Exams"_s});
}

void TestCourseworkDlg::addCwTypeRefillsTypes()
{
    QFETCH(bool, accepted);
    QFETCH(QStringList, types);

    const quint32 id = MakeCoursework(-1.0, -1.0);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    dialog.InfoPage()->TypeList()->setCurrentIndex(1);

    bool startedNew = false;
    DialogRunner::SetHook([&](QDialog& opened) {
        auto* grading = qobject_cast<GradingDlg*>(&opened);
        if (!grading)
            return int(QDialog::Rejected);
        startedNew = grading->EditingTypeRow() == GradingDlg::EditingNewType;
        TypeInto(grading->TypesPage()->Editor()->NameEdit(), u"Quizzes"_s);
        if (!accepted)
            return int(QDialog::Rejected);
        grading->accept();
        return grading->result();
    });
    QVERIFY(dialog.AddCwTypeAction()->isEnabled());
    dialog.AddCwTypeAction()->trigger();

    QVERIFY(startedNew);
    QCOMPARE(Items(dialog.InfoPage()->TypeList()), types);
    QCOMPARE(dialog.InfoPage()->TypeList()->currentText(), u"Exams"_s);
}

void TestCourseworkDlg::addTextbookRefillsTextbooks()
{
    const quint32 id = MakeCoursework(-1.0, -1.0);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());

    QString opened;
    DialogRunner::SetHook([&](QDialog& course) {
        opened = course.objectName();
        // Stands for the user adding a book on the course's Books page.
        EditorRecords::Textbook(m_course, u"Field Guide"_s, 0);
        return int(QDialog::Accepted);
    });
    QVERIFY(dialog.AddTextbookAction()->isEnabled());
    dialog.AddTextbookAction()->trigger();

    QCOMPARE(opened, u"CourseDlg"_s);
    QCOMPARE(Items(dialog.InfoPage()->TextbookList()),
             QStringList({u"No Textbook"_s, u"Field Guide"_s}));
    QCOMPARE(dialog.InfoPage()->TextbookList()->currentText(), u"No Textbook"_s);
}

void TestCourseworkDlg::mainFrameCommands()
{
    const quint32 id = MakeCoursework(-1.0, 10.0);
    CAppStateTable& state = CAppStateTable::Instance();
    state.SetCurrentCourseID(m_course);
    state.UpdateRecord();
    CMainFrame frame;

    // Add Coursework... for the current course.
    QString addedTitle;
    DialogRunner::SetHook([&](QDialog& opened) {
        auto* editor = qobject_cast<CourseworkDlg*>(&opened);
        if (!editor)
            return int(QDialog::Rejected);
        addedTitle = editor->windowTitle();
        TypeInto(editor->InfoPage()->NameEdit(), u"Lab 2"_s);
        editor->accept();
        return editor->result();
    });
    QAction* add = frame.findChild<QAction*>(u"actionAddCoursework"_s);
    QVERIFY(add && add->isEnabled());
    add->trigger();
    QCOMPARE(addedTitle, u"New Coursework"_s);
    QCOMPARE(Records::Count("Coursework"), 2);

    // Opening a coursework of the list edits it.
    DialogRunner::SetHook([&](QDialog& opened) {
        auto* editor = qobject_cast<CourseworkDlg*>(&opened);
        if (!editor || editor->CourseworkID() != id)
            return int(QDialog::Rejected);
        TypeInto(editor->InfoPage()->ScoreEdit(), u"7"_s);
        editor->accept();
        return editor->result();
    });
    frame.OpenCoursework(id);
    QCOMPARE(Stored(id).score, 7.0);
    QCOMPARE(StoredGrade(m_course), 0.7);

    // Edit Grading Policy... recomputes the grade after OK.
    {
        CCourseTable course;
        course.Open();
        QVERIFY(course.MoveToRecord(m_course));
        course.SetCurrentGrade(Untouched);
        QVERIFY(course.UpdateRecord());
    }
    DialogRunner::SetHook([&](QDialog& opened) {
        auto* grading = qobject_cast<GradingDlg*>(&opened);
        if (!grading || grading->CourseID() != m_course)
            return int(QDialog::Rejected);
        grading->accept();
        return grading->result();
    });
    QAction* policy = frame.findChild<QAction*>(u"actionEditGradingPolicy"_s);
    QVERIFY(policy && policy->isEnabled());
    policy->trigger();
    QCOMPARE(StoredGrade(m_course), 0.7);
}

QTEST_MAIN(TestCourseworkDlg)
#include "tst_courseworkdlg.moc"
