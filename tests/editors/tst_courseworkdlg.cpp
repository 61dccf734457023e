// The coursework editor: opening, the progress rule, what OK writes with and
// without prediction mode, the course chooser, the Add menu and the main
// frame's coursework commands. A failed OK is in tst_savefailures.
// Faults tried (each failed a test, then reverted): OK not writing the due
// time (typedFields); points possible left out of what recomputes the grade,
// the file's -1.0 taken into the working copy as a number (edit); details
// not collected from their page (typedFields).
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "controls/DialogRunner.h"
#include "controls/ListChooserDlg.h"
#include "controls/NumericEdit.h"
#include "editors/CourseDlg.h"
#include "editors/CourseDlgBooksPage.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgDetailsPage.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "editors/EditorRecords.h"
#include "grading/GradeCalculation.h"
#include "grading/PredictionStore.h"
#include "grading/dialogs/CwTypeEditor.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/GradingDlgTypesPage.h"
#include "store/Clock.h"
#include "store/DateEncoding.h"
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
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;
using EditorRecords::Sql;

namespace {

// Types as a user does: select everything, erase, type.
void TypeInto(QLineEdit* edit, const QString& text)
{
    edit->setFocus();
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, text);
}

QByteArray Column(const QByteArray& column, quint32 id)
{
    return "SELECT " + column + " FROM Coursework WHERE id = " + QByteArray::number(id);
}

double StoredGrade(quint32 courseId)
{
    return Sql("SELECT CurrentGrade FROM Course WHERE id = " + QByteArray::number(courseId))
        .toDouble();
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
constexpr double NotLookedAt = -2.0;

} // namespace

class TestCourseworkDlg : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void init();
    void cleanup();

    void typedFields_data();
    void typedFields();
    void edit_data();
    void edit();
    void textbookChoice_data();
    void textbookChoice();
    void newCoursework_data();
    void newCoursework();
    void predictionModeSaveLeavesRecord();
    void refusedSave_data();
    void refusedSave();
    void detailsKeptWithinLimit();
    void addMenuRefillsItsList();
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

void TestCourseworkDlg::typedFields_data()
{
    QTest::addColumn<QString>("score"); // null: left alone
    QTest::addColumn<QString>("outOf");
    QTest::addColumn<int>("progress");  // stored at 30
    QTest::addColumn<QString>("saved"); // score/possible

    const QString n;
    // Progress: 100 once score and out of are both typed, else as it was.
    QTest::newRow("both typed") << u"8"_s << u"10"_s << 100 << u"8.0/10.0"_s;
    QTest::newRow("zero score counts") << u"0"_s << u"10"_s << 100 << u"0.0/10.0"_s;
    QTest::newRow("score only") << u"8"_s << n << 30 << u"8.0/-1.0"_s;
    QTest::newRow("out of only") << n << u"10"_s << 30 << u"-1.0/10.0"_s;
    QTest::newRow("a minus is no number") << u"-"_s << u"10"_s << 30 << u"-1.0/10.0"_s;
}

void TestCourseworkDlg::typedFields()
{
    QFETCH(QString, score);
    QFETCH(QString, outOf);
    QFETCH(int, progress);
    QFETCH(QString, saved);

    const quint32 id = MakeCoursework(-1.0, -1.0, 30, 2.5);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    QCOMPARE(dialog.windowTitle(), u"Edit Coursework"_s);
    CourseworkDlgInfoPage* info = dialog.InfoPage();
    if (!score.isNull())
        TypeInto(info->ScoreEdit(), score);
    if (!outOf.isNull())
        TypeInto(info->OutOfEdit(), outOf);
    TypeInto(info->NameEdit(), u"Lab 1 (redo)"_s);
    const QDateTime due(QDate(2024, 4, 2), QTime(14, 30));
    info->DueDateEdit()->setDateTime(due);
    info->TypeList()->setCurrentIndex(1);
    dialog.DetailsPage()->SetText(u"Bring goggles"_s);
    QCOMPARE(info->Progress(), progress);
    QCOMPARE(info->ProgressText()->text(), u"%1%"_s.arg(progress));
    QVERIFY(dialog.OnOK());

    QCOMPARE(Sql(Column("CourseworkName || '/' || Completed || '/' || (CwTypeID = " +
                            QByteArray::number(m_exams) + ") || '/' || Details",
                        id)),
             u"Lab 1 (redo)/%1/1/Bring goggles"_s.arg(progress));
    QCOMPARE(BrindleDate::ToDateTime(Sql(Column("DueDate", id)).toDouble()), due);
    QCOMPARE(Sql(Column("Score || '/' || Possible", id)), saved);
}

void TestCourseworkDlg::edit_data()
{
    QTest::addColumn<double>("storedScore"); // -1: none
    QTest::addColumn<double>("storedPossible");
    QTest::addColumn<quint32>("weighting"); // 2: per item, the weight field shows
    QTest::addColumn<double>("score");      // NaN: left alone; None: emptied
    QTest::addColumn<double>("possible");
    QTest::addColumn<double>("weight");
    QTest::addColumn<QString>("saved"); // score/possible/weight
    QTest::addColumn<double>("grade");  // Untouched: no recompute

    const double n = qQNaN();
    const double none = CourseworkEntry::None;
    QTest::newRow("graded work opens as it was")
        << 8.0 << 10.0 << 0u << n << n << n << u"8.0/10.0/2.5"_s << Untouched;
    QTest::newRow("no score opens empty")
        << -1.0 << -1.0 << 0u << n << n << n << u"-1.0/-1.0/2.5"_s << Untouched;
    QTest::newRow("graded work changed")
        << 8.0 << 10.0 << 0u << 9.0 << n << n << u"9.0/10.0/2.5"_s << 0.9;
    QTest::newRow("score cleared")
        << 8.0 << 10.0 << 0u << none << n << n << u"-1.0/10.0/2.5"_s << -1.0;
    QTest::newRow("out of cleared")
        << 8.0 << 10.0 << 0u << n << none << n << u"8.0/-1.0/2.5"_s << -1.0;
    QTest::newRow("out of changed")
        << 8.0 << 10.0 << 0u << n << 20.0 << n << u"8.0/20.0/2.5"_s << 0.4;
    QTest::newRow("same score given")
        << 8.0 << 10.0 << 0u << 8.0 << 10.0 << n << u"8.0/10.0/2.5"_s << Untouched;
    QTest::newRow("weight, per item, unchanged")
        << 8.0 << 10.0 << 2u << n << n << n << u"8.0/10.0/2.5"_s << Untouched;
    QTest::newRow("weight, per item, changed")
        << 8.0 << 10.0 << 2u << n << n << 4.0 << u"8.0/10.0/4.0"_s << 0.8;
    QTest::newRow("weight, per item, emptied")
        << 8.0 << 10.0 << 2u << n << n << none << u"8.0/10.0/-999.0"_s << NotLookedAt;
}

// What the OK step writes from the working copy, and when the grade follows.
void TestCourseworkDlg::edit()
{
    QFETCH(double, storedScore);
    QFETCH(double, storedPossible);
    QFETCH(quint32, weighting);
    QFETCH(double, score);
    QFETCH(double, possible);
    QFETCH(double, weight);
    QFETCH(QString, saved);
    QFETCH(double, grade);

    const quint32 id = MakeCoursework(storedScore, storedPossible, 30, 2.5, weighting);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    CourseworkDlgInfoPage* info = dialog.InfoPage();
    QCOMPARE(info->WeightShown(), weighting == 2);
    // Loaded and shown: the file's "none" is an empty field.
    CourseworkEntry& entry = dialog.Entry();
    QCOMPARE(entry.score, storedScore < 0 ? CourseworkEntry::None : storedScore);
    QCOMPARE(info->ScoreEdit()->Value(), entry.score);
    QCOMPARE(info->OutOfEdit()->Value(), entry.possible);
    QCOMPARE(info->WeightEdit()->Value(), 2.5);
    if (!qIsNaN(score))
        entry.score = score;
    if (!qIsNaN(possible))
        entry.possible = possible;
    if (!qIsNaN(weight))
        entry.weight = weight;
    QVERIFY(dialog.Save());
    QCOMPARE(Sql(Column("Score || '/' || Possible || '/' || Weight", id)), saved);
    if (grade != NotLookedAt)
        QCOMPARE(StoredGrade(m_course), grade);
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
    Sql("UPDATE Coursework SET TextbookID = " + QByteArray::number(ids.value(stored)));

    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    QComboBox* list = dialog.InfoPage()->TextbookList();
    QCOMPARE(Items(list), QStringList({u"No Textbook"_s, u"Reader"_s, u"Lab Manual"_s}));
    QCOMPARE(list->currentText(), shown);
    QVERIFY(dialog.OnOK());
    QCOMPARE(Sql(Column("TextbookID", id)).toUInt(), ids.value(saved));
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
    QCOMPARE(Sql(Column("CwTypeID || '/' || Score || '/' || Possible || '/' || TextbookID",
                        dialog.CourseworkID())),
             u"%1/-1.0/-1.0/0"_s.arg(m_homework));
    QCOMPARE(dialog.InfoPage()->DueDateEdit()->dateTime(),
             QDateTime(QDate(2024, 3, 15), QTime(23, 59)));
    QCOMPARE(dialog.InfoPage()->TypeList()->currentText(), u"Homework"_s);
    QVERIFY(dialog.InfoPage()->ScoreEdit()->IsEmpty());
    QVERIFY(dialog.InfoPage()->OutOfEdit()->IsEmpty());

    dialog.reject();
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
    QCOMPARE(Records::Count("Coursework"), before);
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
    QCOMPARE(Sql(Column("Score || '/' || Possible || '/' || Completed", id)), u"5.0/10.0/100"_s);
    QCOMPARE(StoredGrade(m_course), 0.5);
    QCOMPARE(GetCourseGrade(m_course), 0.9);
    QCOMPARE(prediction.Override(id).value_or(EffectiveScore{}).score, 9.0);

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
    QTest::addColumn<double>("score");
    QTest::addColumn<double>("possible");
    QTest::addColumn<double>("weight");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("field"); // the field shown to fix it

    QTest::newRow("empty name") << u""_s << 8.0 << 10.0 << 1.0 << u"Coursework name empty."_s
                                << u"nameEdit"_s;
    QTest::newRow("negative score")
        << u"Lab"_s << -1.0 << 10.0 << 1.0 << u"The score must be a number of 0 or more."_s
        << u"scoreEdit"_s;
    QTest::newRow("negative out of")
        << u"Lab"_s << 8.0 << -10.0 << 1.0
        << u"The points possible (Out Of) must be a number of 0 or more."_s << u"outOfEdit"_s;
    QTest::newRow("negative weight")
        << u"Lab"_s << 8.0 << 10.0 << -1.0 << u"The weight must be a number of 0 or more."_s
        << u"weightEdit"_s;
}

void TestCourseworkDlg::refusedSave()
{
    QFETCH(QString, name);
    QFETCH(double, score);
    QFETCH(double, possible);
    QFETCH(double, weight);
    QFETCH(QString, message);
    QFETCH(QString, field);

    const quint32 id = MakeCoursework(-1.0, -1.0, 0, 1.0, 2);
    const QStringList before = EditorRecords::DumpAll();
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    dialog.show();
    dialog.Pages()->setCurrentIndex(1);
    CourseworkEntry& entry = dialog.Entry();
    entry.name = name;
    entry.score = score;
    entry.possible = possible;
    entry.weight = weight;

    MessageAnswers answers;
    QVERIFY(!dialog.Save());
    QCOMPARE(answers.Texts(), QStringList{message});
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.Pages()->currentIndex(), 0);
    QCOMPARE(dialog.focusWidget()->objectName(), field);
    QCOMPARE(EditorRecords::DumpAll(), before);
    // A typed minus is refused the same way through OK.
    if (score < 0) {
        TypeInto(dialog.InfoPage()->ScoreEdit(), u"-1"_s);
        dialog.accept();
        QCOMPARE(answers.Texts().size(), 2);
        QVERIFY(dialog.isVisible());
    }
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

void TestCourseworkDlg::addMenuRefillsItsList()
{
    const quint32 id = MakeCoursework(-1.0, -1.0);
    CourseworkDlg dialog;
    dialog.SetCourseworkID(id);
    QVERIFY(dialog.OnInitDialog());
    QComboBox* types = dialog.InfoPage()->TypeList();
    types->setCurrentIndex(1);

    // Add Type... opens the grading policy on a new type; Cancel adds nothing.
    bool startedNew = false;
    bool accepted = false;
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
    for (bool accept : {false, true}) {
        accepted = accept;
        QVERIFY(dialog.AddCwTypeAction()->isEnabled());
        dialog.AddCwTypeAction()->trigger();
        QVERIFY(startedNew);
        QCOMPARE(Items(types), QStringList({u"Homework"_s, u"Exams"_s}) +
                                   (accept ? QStringList{u"Quizzes"_s} : QStringList()));
        QCOMPARE(types->currentText(), u"Exams"_s);
    }

    // Add Textbook... opens the course on its Books page, a new book begun.
    QString opened;
    bool onBooks = false;
    DialogRunner::SetHook([&](QDialog& course) {
        opened = course.objectName();
        if (auto* editor = qobject_cast<CourseDlg*>(&course))
            onBooks = editor->Pages()->currentWidget() == editor->BooksPage() &&
                      editor->BooksPage()->IsEditorOpen();
        // Stands for the user adding a book there.
        EditorRecords::Textbook(m_course, u"Field Guide"_s, 0);
        return int(QDialog::Accepted);
    });
    QVERIFY(dialog.AddTextbookAction()->isEnabled());
    dialog.AddTextbookAction()->trigger();
    QCOMPARE(opened, u"CourseDlg"_s);
    QVERIFY(onBooks);
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
    QCOMPARE(Sql(Column("Score", id)), u"7.0"_s);
    QCOMPARE(StoredGrade(m_course), 0.7);
}

QTEST_MAIN(TestCourseworkDlg)
#include "tst_courseworkdlg.moc"
