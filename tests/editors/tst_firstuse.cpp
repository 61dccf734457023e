// What a new user meets first across the dialogs: Escape and Return act on
// the open entry editor before the dialog; every dialog opens with the focus
// in its first field, its menus open with Alt and a letter and its Help button
// opens its own section of the help file; the help viewer stays usable from a
// modal dialog; the grade list's keys; the number field's hint. An editor's
// other keys are in its own test.
// Fault tried (failed the grading rows' keypad Enter, then reverted): the entry
// editor keys taking the keypad's Enter as a modified key. The list pages'
// editors pass that fault: their Enter reaches OK another way.
#include "EditorRecords.h"
#include "app/TodayCompanionDlg.h"
#include "controls/DialogRunner.h"
#include "controls/HelpViewer.h"
#include "controls/ListChooserDlg.h"
#include "controls/NumericEdit.h"
#include "controls/TextDlg.h"
#include "editors/BuildingDlg.h"
#include "editors/CourseDlg.h"
#include "editors/CourseworkDlg.h"
#include "editors/InstructorDlg.h"
#include "editors/ListEditPage.h"
#include "grading/dialogs/GradingDlg.h"
#include "grading/dialogs/InstitutionDlg.h"
#include "grading/dialogs/InstitutionDlgScalePage.h"
#include "outlook/dialogs/ExportFoldersDlg.h"
#include "store/Database.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFile>
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

using namespace Qt::StringLiterals;

namespace {

// The dialog of the class named, on a store with one course (a type, a
// scale) and one instructor, so that every list has an entry to act on.
std::unique_ptr<QDialog> Make(const QString& kind)
{
    const quint32 course = Records::Course(u"Art"_s);
    Records::CwType(course, u"Homework"_s, 0.0, 0, 0);
    for (quint16 g = 0; g < 4; ++g)
        Records::MinimumPercent(course, g, 90.0 - 10.0 * g);
    EditorRecords::Instructor(u"Dr. Who"_s);
    if (kind == u"CourseDlg"_s) {
        auto dialog = std::make_unique<CourseDlg>();
        dialog->SetCourse(CourseDlg::NewCourseID);
        return dialog;
    }
    if (kind == u"CourseworkDlg"_s) {
        auto dialog = std::make_unique<CourseworkDlg>();
        dialog->SetCourseID(course);
        dialog->SetNew(true);
        dialog->OnInitDialog();
        return dialog;
    }
    if (kind == u"InstructorDlg"_s)
        return std::make_unique<InstructorDlg>(InstructorDlg::AllInstructors);
    if (kind == u"BuildingDlg"_s)
        return std::make_unique<BuildingDlg>();
    if (kind == u"GradingDlg"_s)
        return std::make_unique<GradingDlg>(course);
    if (kind == u"ExportFoldersDlg"_s)
        return std::make_unique<ExportFoldersDlg>();
    if (kind == u"TodayCompanionDlg"_s)
        return std::make_unique<TodayCompanionDlg>();
    if (kind == u"ListChooserDlg"_s)
        return std::make_unique<ListChooserDlg>(
            u"Pick"_s, std::vector<ListChooserDlg::Item>{{u"Dr. Who"_s, 1}});
    if (kind == u"TextDlg"_s)
        return std::make_unique<TextDlg>(u"Notes"_s, QString());
    return std::make_unique<InstitutionDlg>();
}

// The dialog with an in-place entry editor opened on it, as Insert on the
// named list does: how many entries it holds, whether the editor is open.
struct OpenEditor
{
    std::unique_ptr<QDialog> dialog;
    std::function<int()> count;
    std::function<bool()> editorOpen;
};

OpenEditor Open(const QString& kind, const QString& list)
{
    std::unique_ptr<QDialog> dialog = Make(kind);
    auto* grading = qobject_cast<GradingDlg*>(dialog.get());
    if (grading && list == u"types pane"_s) {
        grading->NewType();
        return {std::move(dialog), [grading] { return int(grading->TypeEntries().size()); },
                [grading] { return grading->EditingTypeRow() != GradingDlg::NotEditing; }};
    }
    if (grading) {
        grading->EditMinimum(0);
        // Applying the minimum changes its value, not the count.
        return {std::move(dialog),
                [grading] { return int(grading->MinimumEntries().front().minimum); },
                [grading] { return grading->EditingMinimumRow() >= 0; }};
    }
    CListEditPage* page = nullptr;
    for (CListEditPage* candidate : dialog->findChildren<CListEditPage*>())
        if (candidate->List()->objectName() == list)
            page = candidate;
    if (auto* tabs = dialog->findChild<QTabWidget*>(u"pages"_s))
        tabs->setCurrentWidget(page);
    QTest::keyClick(page->List(), Qt::Key_Insert);
    return {std::move(dialog), [page] { return page->List()->count(); },
            [page] { return page->IsEditorOpen(); }};
}

} // namespace

class TestFirstUse : public DatabaseTest
{
    Q_OBJECT

private slots:
    void keysActOnTheEntryEditorFirst_data()
    {
        QTest::addColumn<QString>("where"); // the dialog and its list
        QTest::addColumn<int>("key");
        for (const QString& where : {u"CourseDlg/timeList"_s, u"CourseDlg/textbookList"_s,
                                     u"InstructorDlg/timeList"_s, u"BuildingDlg/buildingList"_s,
                                     u"GradingDlg/types pane"_s, u"GradingDlg/minimum pane"_s})
            for (int key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter})
                QTest::addRow("%s, %s", qPrintable(where), qPrintable(QKeySequence(key).toString()))
                    << where << key;
    }
    void keysActOnTheEntryEditorFirst()
    {
        QFETCH(QString, where);
        QFETCH(int, key);
        const QString kind = where.section(u'/', 0, 0);
        const QString list = where.section(u'/', 1);
        // Enter is the keypad's. The minimum pane's count is its value: 90
        // before, 95 once applied.
        const auto modifiers = key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier;
        const int added = key == Qt::Key_Escape ? 0 : list == u"minimum pane"_s ? 5 : 1;
        OpenEditor open = Open(kind, list);
        QDialog& dialog = *open.dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QVERIFY(open.editorOpen());
        const int before = open.count();
        // A valid value in the editor's field that has the focus.
        auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        if (list == u"minimum pane"_s) {
            QVERIFY(field);
            field->selectAll();
            QTest::keyClicks(field, u"95"_s);
        } else if (field) {
            QTest::keyClicks(field, u"Entry"_s);
        }
        QVERIFY(QApplication::focusWidget());

        MessageAnswers answers;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key(key),
                        Qt::KeyboardModifiers(modifiers));
        QVERIFY(!open.editorOpen());
        QCOMPARE(open.count(), before + added);
        // The dialog, and what was typed in it, is still there.
        QVERIFY(dialog.isVisible());
        QCOMPARE(dialog.result(), 0);
        QCOMPARE(answers.Texts(), QStringList());
    }

    void dialogsOpenForTheKeyboard_data()
    {
        QTest::addColumn<QString>("kind"); // also its section of the help file
        QTest::addColumn<QString>("field");
        for (const QString& row :
             {u"CourseDlg/courseName"_s, u"CourseworkDlg/nameEdit"_s,
              u"InstructorDlg/currentInstructors"_s, u"BuildingDlg/buildingList"_s,
              u"InstitutionDlg/scaleCombo"_s, u"ExportFoldersDlg/tasksFolderEdit"_s,
              u"TodayCompanionDlg/startAtLoginBox"_s, u"ListChooserDlg/chooserList"_s,
              u"TextDlg/textEdit"_s})
            QTest::newRow(qPrintable(row)) << row.section(u'/', 0, 0) << row.section(u'/', 1);
    }
    void dialogsOpenForTheKeyboard()
    {
        QFETCH(QString, kind);
        QFETCH(QString, field);
        std::unique_ptr<QDialog> dialog = Make(kind);
        QString focused;
        DialogRunner::SetHook([&focused](QDialog& shown) {
            shown.show();
            if (QTest::qWaitForWindowActive(&shown) && QApplication::focusWidget())
                focused = QApplication::focusWidget()->objectName();
            return int(QDialog::Rejected);
        });
        DialogRunner::Run(*dialog);
        QCOMPARE(focused, field);
        // Every menu of an editor's bar, the export's too, opens with Alt and a letter.
        if (const auto* bar = dialog->findChild<QMenuBar*>()) {
            QVERIFY(!bar->actions().isEmpty());
            for (const QAction* menu : bar->actions())
                QVERIFY2(!QKeySequence::mnemonic(menu->text()).isEmpty(), qPrintable(menu->text()));
        }

        QCOMPARE(dialog->objectName(), kind);
        QPushButton* helpButton = nullptr;
        for (auto* box : dialog->findChildren<QDialogButtonBox*>())
            if (box->button(QDialogButtonBox::Help))
                helpButton = box->button(QDialogButtonBox::Help);
        QVERIFY(helpButton);
        helpButton->click();
        auto* viewer = dialog->findChild<CHelpViewer*>();
        QVERIFY(viewer);
        QCOMPARE(viewer->CurrentTopic(), kind);
        viewer->close();
        QFile file(GetInstallationPath() + u"/Brindle.htm"_s);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString anchor = u"<a name=\"%1\"></a>"_s.arg(kind);
        QVERIFY2(QString::fromUtf8(file.readAll()).contains(anchor), qPrintable(anchor));
    }

    void helpStaysUsableFromDialogs()
    {
        QWidget mainWindow;
        mainWindow.show();
        CHelpViewer* viewer = CHelpViewer::ShowTopic(u"main_contents"_s, &mainWindow);
        QCOMPARE(viewer->parentWidget(), &mainWindow);

        // A modal dialog asks for help later: the same viewer now belongs to it,
        // so the dialog's modality does not block it.
        QDialog dialog(&mainWindow);
        dialog.setWindowModality(Qt::ApplicationModal);
        dialog.show();
        QCOMPARE(CHelpViewer::ShowTopic(u"CourseDlg"_s, &dialog), viewer);
        QCOMPARE(viewer->parentWidget(), &dialog);
        QVERIFY(viewer->isVisible());
        QCOMPARE(viewer->CurrentTopic(), u"CourseDlg"_s);
        // Back and Contents.
        QVERIFY(viewer->BackButton()->isEnabled());
        viewer->BackButton()->click();
        QCOMPARE(viewer->Browser()->source().fragment(), u"main_contents"_s);
        viewer->ContentsButton()->click();
        QCOMPARE(viewer->CurrentTopic(), u"main_contents"_s);

        // When the dialog closes, the viewer stays, with the window below it.
        dialog.reject();
        QCOMPARE(viewer->parentWidget(), &mainWindow);
        QVERIFY(viewer->isVisible());
        viewer->close();
    }

    void gradeListKeys()
    {
        InstitutionDlg dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        InstitutionDlgScalePage* page = dialog.ScalePage();
        QSignalSpy added(page, &InstitutionDlgScalePage::NewRequested);
        QSignalSpy edited(page, &InstitutionDlgScalePage::EditRequested);
        QSignalSpy deleted(page, &InstitutionDlgScalePage::DeleteRequested);
        // The sub-dialogs and the question answer themselves: only the request matters.
        DialogRunner::SetHook([](QDialog&) { return int(QDialog::Rejected); });
        MessageAnswers answers({}, QMessageBox::No);
        QTreeWidget* list = page->GradeList();
        list->setFocus();
        list->setCurrentItem(list->topLevelItem(0));
        const auto requests = [&] {
            return QList<qsizetype>{added.count(), edited.count(), deleted.count()};
        };
        QTest::keyClick(list, Qt::Key_Insert);
        QCOMPARE(requests(), (QList<qsizetype>{1, 0, 0}));
        QTest::keyClick(list, Qt::Key_F2);
        QCOMPARE(requests(), (QList<qsizetype>{1, 1, 0}));
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(requests(), (QList<qsizetype>{1, 1, 1}));
    }

    void numberFieldHintsAtRefusedCharacters()
    {
        CNumericEdit edit;
        QSignalSpy hints(&edit, &CNumericEdit::HintShown);
        QTest::keyClicks(&edit, u"7"_s);
        QCOMPARE(hints.count(), 0);
        QTest::keyClicks(&edit, u"x"_s);
        QCOMPARE(hints.count(), 1);
        QVERIFY(!hints.front().front().toString().isEmpty());
        QCOMPARE(edit.text(), u"7"_s);
    }
};

QTEST_MAIN(TestFirstUse)
#include "tst_firstuse.moc"
