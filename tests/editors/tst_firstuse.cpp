// What a new user meets first in the editors: Escape and Return act on the
// open entry editor before the dialog, every dialog opens with the focus in
// its first field, a typed building stays with its instructor, the building
// box has the Buildings dialog's limit, list keys and the number field's hint.
#include "EditorRecords.h"
#include "app/TodayCompanionDlg.h"
#include "controls/DialogRunner.h"
#include "controls/FirstField.h"
#include "controls/HelpViewer.h"
#include "controls/NumericEdit.h"
#include "editors/BuildingDlg.h"
#include "editors/CourseDlg.h"
#include "editors/CourseDlgBasicPage.h"
#include "editors/CourseDlgBooksPage.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "editors/InstructorDlg.h"
#include "editors/InstructorDlgBasicPage.h"
#include "editors/RoomPage.h"
#include "editors/TimeListPage.h"
#include "grading/dialogs/CwTypeEditor.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/GradingDlgTypesPage.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/InstitutionDlgScalePage.h"
#include "grading/dialogs/MinimumPercentEditor.h"
#include "outlook/dialogs/ExportFoldersDlg.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTreeWidget>
#include <QtTest>

#include <functional>
#include <memory>

using namespace EditorRecords;

namespace {

// One dialog with an in-place entry editor opened on it: how many entries it
// holds, whether the editor is still open.
struct OpenEditor
{
    std::unique_ptr<QDialog> dialog;
    std::function<int()> count;
    std::function<bool()> editorOpen;
};

quint32 CourseWithScale(const QString& name)
{
    const quint32 course = Records::Course(name);
    Records::CwType(course, QStringLiteral("Homework"), 0.0, 0, 0);
    for (quint16 g = 0; g < 4; ++g)
        Records::MinimumPercent(course, g, 90.0 - 10.0 * g);
    return course;
}

template <typename Dialog, typename Count, typename IsOpen>
OpenEditor Hold(Dialog* dialog, Count count, IsOpen isOpen)
{
    return {std::unique_ptr<QDialog>(dialog), [dialog, count] { return int(count(*dialog)); },
            [dialog, isOpen] { return bool(isOpen(*dialog)); }};
}

OpenEditor Open(const QString& kind)
{
    if (kind == QLatin1String("meeting time") || kind == QLatin1String("textbook")) {
        auto* dialog = new CourseDlg;
        dialog->SetCourse(CourseDlg::NewCourseID);
        if (kind == QLatin1String("meeting time")) {
            dialog->Pages()->setCurrentWidget(dialog->TimesPage());
            dialog->TimesPage()->NewTime();
            return Hold(dialog, [](CourseDlg& d) { return d.Times().size(); },
                        [](CourseDlg& d) { return d.TimesPage()->IsEditorOpen(); });
        }
        dialog->Pages()->setCurrentWidget(dialog->BooksPage());
        dialog->BooksPage()->NewTextbook();
        return Hold(dialog, [](CourseDlg& d) { return d.Textbooks().size(); },
                    [](CourseDlg& d) { return d.BooksPage()->IsEditorOpen(); });
    }
    if (kind == QLatin1String("office hour")) {
        Instructor(QStringLiteral("Dr. Who"));
        auto* dialog = new InstructorDlg(InstructorDlg::AllInstructors);
        dialog->Pages()->setCurrentWidget(dialog->HoursPage());
        dialog->HoursPage()->NewTime();
        return Hold(dialog, [](InstructorDlg& d) { return d.Entries().front().officeHours.size(); },
                    [](InstructorDlg& d) { return d.HoursPage()->IsEditorOpen(); });
    }
    if (kind == QLatin1String("building")) {
        auto* dialog = new BuildingDlg;
        dialog->Page()->NewBuilding();
        return Hold(dialog, [](BuildingDlg& d) { return d.Entries().size(); },
                    [](BuildingDlg& d) { return d.Page()->IsEditorOpen(); });
    }
    const quint32 course = CourseWithScale(QStringLiteral("Art"));
    if (kind == QLatin1String("cw type"))
        return Hold(new GradingDlg(course, true), [](GradingDlg& d) { return d.TypeEntries().size(); },
                    [](GradingDlg& d) { return d.EditingTypeRow() != GradingDlg::NotEditing; });
    auto* dialog = new GradingDlg(course);
    dialog->EditMinimum(0);
    // Applying the minimum changes its value, not the count.
    return Hold(dialog, [](GradingDlg& d) { return d.MinimumEntries().front().minimum; },
                [](GradingDlg& d) { return d.EditingMinimumRow() >= 0; });
}

// Types a valid value into the editor's field that has the focus.
void FillFocusedField(const QString& kind)
{
    QWidget* field = QApplication::focusWidget();
    if (kind == QLatin1String("minimum percent")) {
        auto* edit = qobject_cast<QLineEdit*>(field);
        QVERIFY(edit);
        edit->selectAll();
        QTest::keyClicks(edit, QStringLiteral("95"));
    } else if (qobject_cast<QLineEdit*>(field)) {
        QTest::keyClicks(field, QStringLiteral("Entry"));
    }
}

} // namespace

class TestFirstUse : public QObject
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        DialogRunner::SetHook({});
        m_db.reset();
    }
    void init()
    {
        m_db = std::make_unique<TestDatabase>();
        QVERIFY(m_db->IsReady());
    }

    void keysActOnTheEntryEditorFirst_data();
    void keysActOnTheEntryEditorFirst();
    void escapeWithoutEditorCancelsTheDialog();
    void dialogsOpenInTheirFirstField_data();
    void dialogsOpenInTheirFirstField();
    void editorMenusHaveMnemonics_data();
    void editorMenusHaveMnemonics();
    void typedBuildingStaysWithItsInstructor_data();
    void typedBuildingStaysWithItsInstructor();
    void instructorBoxFollowsTheTypedName();
    void buildingBoxHasTheBuildingsLimit();
    void listKeys_data();
    void listKeys();
    void gradeListKeys_data();
    void gradeListKeys();
    void numberFieldHintsAtRefusedCharacters();
    void helpStaysUsableFromDialogs();

private:
    std::unique_ptr<TestDatabase> m_db;
};

void TestFirstUse::keysActOnTheEntryEditorFirst_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("added");

    const QStringList kinds{QStringLiteral("meeting time"), QStringLiteral("textbook"),
                            QStringLiteral("office hour"),  QStringLiteral("building"),
                            QStringLiteral("cw type"),      QStringLiteral("minimum percent")};
    for (const QString& kind : kinds) {
        // The minimum pane's count is its value: 90 before, 95 once applied.
        const int gain = kind == QLatin1String("minimum percent") ? 5 : 1;
        QTest::addRow("%s, Escape", qPrintable(kind)) << kind << int(Qt::Key_Escape) << 0 << 0;
        QTest::addRow("%s, Return", qPrintable(kind)) << kind << int(Qt::Key_Return) << 0 << gain;
        QTest::addRow("%s, keypad Enter", qPrintable(kind))
            << kind << int(Qt::Key_Enter) << int(Qt::KeypadModifier) << gain;
    }
}

void TestFirstUse::keysActOnTheEntryEditorFirst()
{
    QFETCH(QString, kind);
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(int, added);

    OpenEditor open = Open(kind);
    QDialog& dialog = *open.dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QVERIFY(open.editorOpen());
    const int before = open.count();
    FillFocusedField(kind);
    QVERIFY(QApplication::focusWidget());

    MessageAnswers answers;
    QTest::keyClick(QApplication::focusWidget(), Qt::Key(key), Qt::KeyboardModifiers(modifiers));

    QVERIFY(!open.editorOpen());
    QCOMPARE(open.count(), before + added);
    // The dialog, and what was typed in it, is still there.
    QVERIFY(dialog.isVisible());
    QCOMPARE(dialog.result(), 0);
    QCOMPARE(answers.Texts(), QStringList());
}

void TestFirstUse::escapeWithoutEditorCancelsTheDialog()
{
    BuildingDlg dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestFirstUse::dialogsOpenInTheirFirstField_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("field");

    QTest::newRow("New Course") << QStringLiteral("course") << QStringLiteral("courseName");
    QTest::newRow("Add Coursework") << QStringLiteral("coursework") << QStringLiteral("nameEdit");
    QTest::newRow("Buildings") << QStringLiteral("buildings") << QStringLiteral("buildingList");
    QTest::newRow("Institution") << QStringLiteral("institution") << QStringLiteral("scaleCombo");
    QTest::newRow("Export Folders")
        << QStringLiteral("export folders") << QStringLiteral("tasksFolderEdit");
    QTest::newRow("Today Companion")
        << QStringLiteral("today") << QStringLiteral("startAtLoginBox");
}

void TestFirstUse::dialogsOpenInTheirFirstField()
{
    QFETCH(QString, kind);
    QFETCH(QString, field);

    const quint32 course = CourseWithScale(QStringLiteral("Art"));
    std::unique_ptr<QDialog> dialog;
    if (kind == QLatin1String("course")) {
        auto* courseDlg = new CourseDlg;
        courseDlg->SetCourse(CourseDlg::NewCourseID);
        dialog.reset(courseDlg);
    } else if (kind == QLatin1String("coursework")) {
        auto* courseworkDlg = new CourseworkDlg;
        courseworkDlg->SetCourseID(course);
        courseworkDlg->SetNew(true);
        QVERIFY(courseworkDlg->OnInitDialog());
        dialog.reset(courseworkDlg);
    } else if (kind == QLatin1String("buildings")) {
        dialog = std::make_unique<BuildingDlg>();
    } else if (kind == QLatin1String("export folders")) {
        dialog = std::make_unique<ExportFoldersDlg>();
    } else if (kind == QLatin1String("today")) {
        dialog = std::make_unique<TodayCompanionDlg>();
    } else {
        dialog = std::make_unique<InstitutionDlg>();
    }

    QString focused;
    DialogRunner::SetHook([&focused](QDialog& shown) {
        shown.show();
        if (QTest::qWaitForWindowActive(&shown) && QApplication::focusWidget())
            focused = QApplication::focusWidget()->objectName();
        return int(QDialog::Rejected);
    });
    DialogRunner::Run(*dialog);
    QCOMPARE(focused, field);
}

void TestFirstUse::editorMenusHaveMnemonics_data()
{
    QTest::addColumn<QString>("kind");
    QTest::newRow("course editor") << QStringLiteral("course");
    QTest::newRow("coursework editor") << QStringLiteral("coursework");
    QTest::newRow("instructors editor") << QStringLiteral("instructors");
}

void TestFirstUse::editorMenusHaveMnemonics()
{
    QFETCH(QString, kind);
    std::unique_ptr<QDialog> dialog;
    if (kind == QLatin1String("course"))
        dialog = std::make_unique<CourseDlg>();
    else if (kind == QLatin1String("coursework"))
        dialog = std::make_unique<CourseworkDlg>();
    else
        dialog = std::make_unique<InstructorDlg>(InstructorDlg::AllInstructors);

    const auto* bar = dialog->findChild<QMenuBar*>();
    QVERIFY(bar);
    QVERIFY(!bar->actions().isEmpty());
    // Every menu of the bar, the export's too, opens with Alt and a letter.
    for (const QAction* menu : bar->actions()) {
        const QString title = menu->text();
        QVERIFY2(!QKeySequence::mnemonic(title).isEmpty(), qPrintable(title));
    }
}

void TestFirstUse::typedBuildingStaysWithItsInstructor_data()
{
    QTest::addColumn<QString>("step");
    QTest::newRow("chosen again") << QStringLiteral("choose");
    QTest::newRow("another deleted") << QStringLiteral("delete");
    QTest::newRow("From Previous") << QStringLiteral("previous");
}

void TestFirstUse::typedBuildingStaysWithItsInstructor()
{
    QFETCH(QString, step);
    const quint32 course = CourseWithScale(QStringLiteral("Art"));
    Link(course, Instructor(QStringLiteral("Ada")));
    Link(course, Instructor(QStringLiteral("Bob")));
    const quint32 carl = Instructor(QStringLiteral("Carl"));

    InstructorDlg dialog(course);
    QCOMPARE(dialog.ShownIndex(), 0);
    dialog.RoomPage()->BuildingBox()->setEditText(QStringLiteral("Science Hall"));
    if (step == QLatin1String("choose")) {
        dialog.SelectEntry(1);
        dialog.SelectEntry(0);
    } else if (step == QLatin1String("delete")) {
        dialog.SelectEntry(1);
        dialog.OnDeleteCurrent(); // Bob goes; Ada is shown again
    } else {
        dialog.AddPrevious(carl);
        dialog.SelectEntry(0);
    }
    QCOMPARE(dialog.ShownIndex(), 0);
    QCOMPARE(dialog.RoomPage()->BuildingText(), QStringLiteral("Science Hall"));
    QVERIFY(dialog.OnOK());

    CInstructorTable instructors;
    QVERIFY(instructors.Open());
    QVERIFY(instructors.MoveToRecord(dialog.Entries().front().id));
    const quint32 building = instructors.GetBuildingID();
    QVERIFY(building != 0);
    QCOMPARE(CBuildingTable::GetBuildingNameFromID(building), QStringLiteral("Science Hall"));
}

void TestFirstUse::instructorBoxFollowsTheTypedName()
{
    InstructorDlg dialog(InstructorDlg::AllInstructors);
    dialog.OnBrandNew();
    QLineEdit* name = dialog.BasicPage()->NameEdit();
    name->selectAll();
    QTest::keyClicks(name, QStringLiteral("Grace"));
    QComboBox* box = dialog.BasicPage()->InstructorBox();
    QCOMPARE(box->currentText(), QStringLiteral("Grace"));
}

void TestFirstUse::buildingBoxHasTheBuildingsLimit()
{
    CourseDlg course;
    course.SetCourse(CourseDlg::NewCourseID);
    InstructorDlg instructors(InstructorDlg::AllInstructors);
    instructors.OnBrandNew();
    const QString tooLong(CBuildingListPage::NameLimit + 20, QLatin1Char('x'));
    for (CRoomPage* page : {course.RoomPage(), instructors.RoomPage()}) {
        QLineEdit* edit = page->BuildingBox()->lineEdit();
        QVERIFY(edit);
        edit->clear();
        QTest::keyClicks(edit, tooLong);
        QCOMPARE(page->BuildingText().size(), qsizetype(CBuildingListPage::NameLimit));
    }
}

void TestFirstUse::listKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("entries");
    QTest::addColumn<bool>("editorOpen");

    QTest::newRow("Insert starts a new one") << int(Qt::Key_Insert) << 2 << true;
    QTest::newRow("F2 edits") << int(Qt::Key_F2) << 2 << true;
    QTest::newRow("Delete deletes") << int(Qt::Key_Delete) << 1 << false;
}

void TestFirstUse::listKeys()
{
    QFETCH(int, key);
    QFETCH(int, entries);
    QFETCH(bool, editorOpen);

    Building(QStringLiteral("Hall"));
    Building(QStringLiteral("Tower"));
    BuildingDlg dialog;
    QListWidget* list = dialog.Page()->List();
    list->setCurrentRow(1);
    QTest::keyClick(list, Qt::Key(key));
    QCOMPARE(int(dialog.Entries().size()), entries);
    QCOMPARE(dialog.Page()->IsEditorOpen(), editorOpen);
}

void TestFirstUse::gradeListKeys_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QList<int>>("requests"); // new, edit, delete
    QTest::newRow("Insert") << int(Qt::Key_Insert) << QList<int>{1, 0, 0};
    QTest::newRow("F2") << int(Qt::Key_F2) << QList<int>{0, 1, 0};
    QTest::newRow("Delete") << int(Qt::Key_Delete) << QList<int>{0, 0, 1};
}

void TestFirstUse::gradeListKeys()
{
    QFETCH(int, key);
    QFETCH(QList<int>, requests);
    InstitutionDlg dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    InstitutionDlgScalePage* page = dialog.ScalePage();
    QSignalSpy added(page, &InstitutionDlgScalePage::NewRequested);
    QSignalSpy edited(page, &InstitutionDlgScalePage::EditRequested);
    QSignalSpy deleted(page, &InstitutionDlgScalePage::DeleteRequested);
    // The sub-dialogs answer themselves: only the request matters here.
    DialogRunner::SetHook([](QDialog&) { return int(QDialog::Rejected); });
    MessageAnswers answers({QMessageBox::No});
    QTreeWidget* list = page->GradeList();
    list->setFocus();
    list->setCurrentItem(list->topLevelItem(0));
    QTest::keyClick(list, Qt::Key(key));
    QCOMPARE((QList<int>{int(added.count()), int(edited.count()), int(deleted.count())}), requests);
}

void TestFirstUse::numberFieldHintsAtRefusedCharacters()
{
    CNumericEdit edit;
    QSignalSpy hints(&edit, &CNumericEdit::HintShown);
    QTest::keyClicks(&edit, QStringLiteral("7"));
    QCOMPARE(hints.count(), 0);
    QTest::keyClicks(&edit, QStringLiteral("x"));
    QCOMPARE(hints.count(), 1);
    QVERIFY(!hints.front().front().toString().isEmpty());
    QCOMPARE(edit.text(), QStringLiteral("7"));
}

void TestFirstUse::helpStaysUsableFromDialogs()
{
    QWidget mainWindow;
    mainWindow.show();
    CHelpViewer* viewer = CHelpViewer::ShowTopic(QStringLiteral("main_contents"), &mainWindow);
    QCOMPARE(viewer->parentWidget(), &mainWindow);

    // A modal dialog asks for help later: the same viewer now belongs to it,
    // so the dialog's modality does not block it.
    QDialog dialog(&mainWindow);
    dialog.setObjectName(QStringLiteral("CourseDlg"));
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.show();
    QCOMPARE(CHelpViewer::ShowTopic(QStringLiteral("CourseDlg"), &dialog), viewer);
    QCOMPARE(viewer->parentWidget(), &dialog);
    QVERIFY(viewer->isVisible());
    QCOMPARE(viewer->CurrentTopic(), QStringLiteral("CourseDlg"));

    // Back and Contents.
    QVERIFY(viewer->BackButton()->isEnabled());
    viewer->BackButton()->click();
    QCOMPARE(viewer->Browser()->source().fragment(), QStringLiteral("main_contents"));
    viewer->ContentsButton()->click();
    QCOMPARE(viewer->CurrentTopic(), QStringLiteral("main_contents"));

    // When the dialog closes, the viewer stays, with the window below it.
    dialog.reject();
    QCOMPARE(viewer->parentWidget(), &mainWindow);
    QVERIFY(viewer->isVisible());
    viewer->close();
}

QTEST_MAIN(TestFirstUse)
#include "tst_firstuse.moc"
