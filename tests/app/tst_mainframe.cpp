// The main frame: its menu bar, the command-state rules and help, and the
// grade bar after each command that changes it: new coursework in prediction
// mode, predicted grades after the prediction options (grade names after
// Institution: tst_gradingdlg); the Today companion's start at log-in.
// Keyboard and screen-reader access: every dialog the menus open, and the main
// window, have an accessible name on each control that takes the focus, no
// mnemonic letter twice in one window and a Tab order that runs down it; list
// rows speak what they draw (the report card's chart: tst_gradingdlg);
// Shift+F10 opens a context menu as the Menu key does.
// Checked against: two Tools items swapped; RecomputeCourseGrade not writing
// the grade.
#include "BrindleData.h"
#include "app/CourseworkListModel.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "app/TodayAutostart.h"
#include "app/TodayCompanionDlg.h"
#include "controls/ContextMenuKey.h"
#include "controls/HelpViewer.h"
#include "controls/Mnemonics.h"
#include "controls/NumericEdit.h"
#include "editors/CourseworkDlg.h"
#include "editors/CourseworkDlgInfoPage.h"
#include "grading/dialogs/GradePredictionDlg.h"
#include "store/Clock.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

QAction* Action(CMainFrame& frame, const char* name)
{
    return frame.findChild<QAction*>(QString::fromLatin1(name));
}

void Trigger(CMainFrame& frame, const char* name)
{
    QAction* action = Action(frame, name);
    QVERIFY(action);
    frame.UpdateCommandStates();
    QVERIFY(action->isEnabled());
    action->trigger();
}

QString Describe(QWidget* widget)
{
    return u"%1 \"%2\""_s.arg(QString::fromLatin1(widget->metaObject()->className()),
                              widget->objectName());
}

// Whether Tab stops on the widget in what `window` shows now.
bool TakesFocus(QWidget* widget, QWidget* window)
{
    return (widget->focusPolicy() & Qt::TabFocus) && widget->isVisibleTo(window) &&
           widget->isEnabled() && !widget->focusProxy() && window->isAncestorOf(widget);
}

// The letters of one window, menu bar or menu: each used once.
QStringList LetterProblems(const QString& where, const QStringList& texts)
{
    QStringList problems;
    QHash<QChar, QString> letters;
    for (const QString& text : texts) {
        const QChar letter = Mnemonics::LetterOf(text);
        if (!letter.isNull() && letters.contains(letter))
            problems << where +
                            u": Alt+%1 on \"%2\" and \"%3\""_s.arg(letter, letters[letter], text);
        else if (!letter.isNull())
            letters.insert(letter, text);
    }
    return problems;
}

// The problems of what `window` shows now: controls without a name, letters
// given twice, and Tab going up (each control that Tab reaches next sits
// lower, or on the same line; Brindle's dialogs have no columns side by side).
QStringList ProblemsOf(QWidget* window)
{
    QStringList problems;
    const QString where = window->objectName();
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        // The editor inside a spin box or combo box speaks through it.
        QWidget* parent = widget->parentWidget();
        if (!TakesFocus(widget, window) || qobject_cast<QAbstractSpinBox*>(parent) ||
            qobject_cast<QComboBox*>(parent))
            continue;
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(widget);
        if (!access || access->text(QAccessible::Name).trimmed().isEmpty())
            problems << where + u": no accessible name: "_s + Describe(widget);
    }
    QStringList texts;
    for (const Mnemonics::Entry& entry : Mnemonics::Collect(window))
        if (entry.widget->isVisibleTo(window))
            texts << entry.text;
    problems += LetterProblems(where, texts);

    QWidget* previous = nullptr;
    int previousTop = 0;
    for (QWidget* widget = window->nextInFocusChain(); widget != window;
         widget = widget->nextInFocusChain()) {
        if (!TakesFocus(widget, window))
            continue;
        const QRect area(widget->mapTo(window, QPoint(0, 0)), widget->size());
        if (previous && area.bottom() < previousTop - widget->fontMetrics().height())
            problems << where + u": Tab goes up from "_s + Describe(previous) + u" to "_s +
                            Describe(widget);
        previous = widget;
        previousTop = area.top();
    }
    return problems;
}

// Every page of every tab widget in turn, shown so that the layout places
// every control.
QStringList ProblemsOfEveryPage(QWidget* window)
{
    window->show();
    QStringList problems = ProblemsOf(window);
    for (QTabWidget* tabs : window->findChildren<QTabWidget*>()) {
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            QCoreApplication::processEvents();
            problems += ProblemsOf(window);
        }
        tabs->setCurrentIndex(0);
    }
    window->hide();
    problems.removeDuplicates();
    return problems;
}

// The letters of a menu bar and of each of its menus.
QStringList MenuProblems(const QString& where, const QList<QAction*>& actions)
{
    QStringList problems;
    QStringList texts;
    for (QAction* action : actions) {
        if (action->isSeparator() || !action->isVisible())
            continue;
        texts << action->text();
        if (action->menu())
            problems += MenuProblems(where + u" > "_s + action->text(), action->menu()->actions());
    }
    return problems + LetterProblems(where, texts);
}

} // namespace

class TestMainFrame : public DatabaseTest
{
    Q_OBJECT

    quint32 m_course = 0;

private slots:
    // Biology, current, stored at 85 % and graded by points on the scale A to
    // D (90, 80, 70, 60); its one item, Lab 1, is ungraded out of 10.
    void init()
    {
        DatabaseTest::init();
        BrindleClock::SetNow(QDateTime(QDate(2024, 9, 7), QTime(10, 0)));
        m_course = Records::Course(u"Biology"_s, 0, 0.85);
        Records::Policy(m_course, CGradingPolicyTable::WeightNone);
        for (quint16 grade = 0; grade < 4; ++grade)
            Records::MinimumPercent(m_course, grade, 90.0 - 10.0 * grade);
        Records::Coursework(m_course, Records::CwType(m_course, u"Labs"_s, 0.0, 0, 0), u"Lab 1"_s,
                            -1.0, 10.0);
        CAppStateTable::Instance().SetCurrentCourseID(m_course);
        QVERIFY(CAppStateTable::Instance().UpdateRecord());
    }
    void cleanup()
    {
        DatabaseTest::cleanup();
        BrindleClock::SetNow({});
    }

    void predictionCommandStates_data()
    {
        QTest::addColumn<bool>("archived");
        QTest::addColumn<bool>("predicting");
        QTest::addColumn<QString>("toggleText");
        QTest::newRow("working semester, off") << false << false << u"Turn On"_s;
        QTest::newRow("working semester, on") << false << true << u"Turn Off"_s;
        QTest::newRow("archived semester") << true << false << u"Turn On"_s;
    }
    void predictionCommandStates()
    {
        QFETCH(bool, archived);
        QFETCH(bool, predicting);
        QFETCH(QString, toggleText);
        if (archived)
            CAppStateTable::Instance().SetCurrentSemesterID(Records::Semester(u"Fall 2025"_s));
        CPredictionStore::Instance().SetActive(predicting);
        CMainFrame frame;
        frame.UpdateCommandStates();
        QAction* toggle = Action(frame, "actionTogglePrediction");
        QVERIFY(toggle);
        QCOMPARE(toggle->text(), toggleText);
        QCOMPARE(toggle->isEnabled(), !archived);
        QVERIFY(!archived || !Action(frame, "actionPredictionOptions")->isEnabled());
        if (archived)
            return;
        // The toggle switches the mode; turning it off forgets the scores to give.
        CPredictionStore::Instance().SetScoreToGive(7, 0.8);
        toggle->trigger();
        QCOMPARE(CPredictionStore::Instance().IsActive(), !predicting);
        QCOMPARE(toggle->text(), predicting ? u"Turn On"_s : u"Turn Off"_s);
        QCOMPARE(CPredictionStore::Instance().ScoreToGive(7).has_value(), !predicting);
    }

    void commandRefreshesTheGrade_data()
    {
        QTest::addColumn<QByteArray>("action");
        QTest::addColumn<bool>("predicting");
        QTest::addColumn<QString>("after");
        QTest::addColumn<int>("rowsAdded");
        // 5 of 10, stored or predicted: below every minimum, so no grade name.
        QTest::newRow("Add Coursework, prediction off")
            << QByteArray("actionAddCoursework") << false << u"Grade: 50%"_s << 1;
        QTest::newRow("Add Coursework, prediction on")
            << QByteArray("actionAddCoursework") << true << u"Grade: 50%"_s << 1;
        // Lab 1 counts as 9.5 of 10 in the list and in the grade alike.
        QTest::newRow("prediction options")
            << QByteArray("actionPredictionOptions") << true << u"Grade: 95% A"_s << 0;
    }
    void commandRefreshesTheGrade()
    {
        QFETCH(QByteArray, action);
        QFETCH(bool, predicting);
        QFETCH(QString, after);
        QFETCH(int, rowsAdded);
        CPredictionStore::Instance().SetActive(predicting);
        CMainFrame frame;
        QCOMPARE(frame.View()->GradeBar()->text(), u"Grade: 85% B"_s);
        const int rowsBefore = frame.View()->ListModel()->rowCount();
        int noteShown = -1; // the coursework editor's word that scores are not saved
        DialogRunner::SetHook([&noteShown](QDialog& dialog) {
            if (auto* coursework = qobject_cast<CourseworkDlg*>(&dialog)) {
                auto* note = dialog.findChild<QLabel*>(u"predictionNote"_s);
                noteShown = note && note->isVisibleTo(&dialog) && !note->text().isEmpty();
                coursework->InfoPage()->NameEdit()->setText(u"Quiz"_s);
                QTest::keyClicks(coursework->InfoPage()->ScoreEdit(), u"5"_s);
                QTest::keyClicks(coursework->InfoPage()->OutOfEdit(), u"10"_s);
            } else if (auto* options = qobject_cast<GradePredictionDlg*>(&dialog)) {
                options->SetPercent(0, 95.0);
            } else {
                return int(QDialog::Rejected);
            }
            dialog.accept();
            return dialog.result();
        });
        Trigger(frame, action.constData());
        QCOMPARE(frame.View()->GradeBar()->text(), after);
        QCOMPARE(frame.View()->ListModel()->rowCount(), rowsBefore + rowsAdded);
        if (action == "actionAddCoursework")
            QCOMPARE(noteShown, int(predicting));
        if (predicting) {
            // Nothing of a prediction reached the database.
            CCourseTable course;
            QVERIFY(course.Open() && course.MoveToRecord(m_course));
            QCOMPARE(course.GetCurrentGrade(), 0.85);
        }
    }

    void deleteKeyClearsAPercentToGive()
    {
        GradePredictionDlg dialog;
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        dialog.SetPercent(0, 80.0);
        auto* list = dialog.findChild<QTreeWidget*>();
        QVERIFY(list);
        list->setFocus();
        list->setCurrentItem(list->topLevelItem(0));
        QTest::keyClick(list, Qt::Key_Delete);
        QCOMPARE(dialog.Courses().front().types.front().percent, GradePredictionDlg::NoPercent);
    }

    // "Start the Today companion at log-in": the entry copied into the user's
    // autostart folder and removed again, and a missing entry refused.
    void startAtLogin()
    {
        QTemporaryDir config;
        qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
        QFile installed(TodayAutostart::InstalledEntry());
        QVERIFY2(installed.open(QIODevice::ReadOnly), qPrintable(installed.fileName()));
        const QByteArray entry = installed.readAll();

        TodayCompanionDlg on;
        QVERIFY(!on.StartAtLogin());
        on.findChild<QCheckBox*>(u"startAtLoginBox"_s)->click();
        QVERIFY(on.OnOK());
        QFile copy(TodayAutostart::UserEntry());
        QVERIFY(copy.open(QIODevice::ReadOnly));
        QCOMPARE(copy.readAll(), entry);
        QVERIFY(copy.fileName().startsWith(config.path()));

        TodayCompanionDlg off;
        QVERIFY(off.StartAtLogin());
        off.SetStartAtLogin(false);
        QVERIFY(off.OnOK());
        QVERIFY(!QFile::exists(TodayAutostart::UserEntry()));

        // An installation without the entry: refused, with its name.
        QTemporaryDir emptyInstall;
        const QByteArray saved = qgetenv("BRINDLE_INSTALL_DIR");
        qputenv("BRINDLE_INSTALL_DIR", emptyInstall.path().toUtf8());
        MessageAnswers answers;
        TodayCompanionDlg dialog;
        dialog.SetStartAtLogin(true);
        const bool ok = dialog.OnOK();
        qputenv("BRINDLE_INSTALL_DIR", saved);
        QVERIFY(!ok);
        QCOMPARE(answers.Texts().size(), 1);
        QVERIFY(answers.Texts().front().contains(u"brindle-today.desktop"_s));
        QVERIFY(!QFile::exists(TodayAutostart::UserEntry()));
    }

    void everyDialogOfTheMenus()
    {
        // Confirmations are declined, so that nothing is deleted under the walk.
        MessageAnswers answers({}, QMessageBox::No);
        Records::Coursework(m_course, Records::CwType(m_course, u"Homework"_s, 1.0),
                            u"Problem set 1"_s, 8.0, 10.0, 46000.5, 50);
        CMainFrame frame;
        frame.RefreshAll();
        QStringList problems = ProblemsOf(&frame);
        problems += MenuProblems(frame.objectName(), frame.menuBar()->actions());

        QStringList walked;
        DialogRunner::SetHook([&](QDialog& dialog) {
            Mnemonics::Assign(&dialog); // as DialogRunner does for a user
            problems += ProblemsOfEveryPage(&dialog);
            walked << dialog.objectName();
            return int(QDialog::Rejected);
        });
        // The menu texts and their order as the user sees them, a course being
        // current (tst_coursecommands has the Course menu without one).
        QStringList texts;
        const QStringList noDialog{u"actionTogglePrediction"_s, u"actionHelp"_s, u"actionQuit"_s};
        for (QAction* title : frame.menuBar()->actions()) {
            texts << title->text() + u":"_s;
            for (QAction* action : title->menu()->actions()) {
                texts << (action->isSeparator() ? u"-"_s : action->text());
                if (!action->isSeparator() && !action->menu() && action->isEnabled() &&
                    !noDialog.contains(action->objectName()))
                    action->trigger();
            }
        }
        QCOMPARE(texts.join(u", "_s),
                 u"&Course:, New Course..., Sort Courses..., Delete Course..., Progress Report..., "
                 u"-, Add Coursework..., Edit Course..., Edit Instructors..., "
                 u"Edit Grading Policy..., &Tools:, About Brindle..., Database..., -, Semester..., "
                 u"Tab Order..., Buildings..., All Instructors..., Institution..., Report Card..., "
                 u"-, Grade Planner..., Today Companion..., -, Export Folders..., &Prediction:, "
                 u"Options..., Turn On"_s);
        // Far more than a few: the walk reached the dialogs, the latest of the
        // Tools menu among them.
        QVERIFY2(walked.size() >= 8, qPrintable(walked.join(u", "_s)));
        for (const QString& name : {u"SemesterDlg"_s, u"DatabaseOptionsDlg"_s, u"GradePlannerDlg"_s,
                                    u"ExportFoldersDlg"_s, u"TodayCompanionDlg"_s})
            QVERIFY2(walked.contains(name),
                     qPrintable(name + u" not in "_s + walked.join(u", "_s)));
        QVERIFY2(problems.isEmpty(), qPrintable(u"\n"_s + problems.join(u'\n')));

        // A list row speaks what it draws: name, due date, progress and score.
        auto* list = frame.findChild<QAbstractItemView*>(u"courseworkList"_s);
        const QModelIndexList rows = list->model()->match(
            list->model()->index(0, 0), Qt::DisplayRole, u"Problem set 1"_s, 1, Qt::MatchExactly);
        QCOMPARE(rows.size(), 1);
        const QString spoken = rows[0].data(Qt::AccessibleTextRole).toString();
        for (const QString& part : {u"Problem set 1"_s, u"50%"_s, u"80%"_s, u"8/10"_s})
            QVERIFY2(spoken.contains(part), qPrintable(spoken));
        // Help opens on the main window's contents.
        Trigger(frame, "actionHelp");
        auto* viewer = frame.findChild<CHelpViewer*>();
        QVERIFY(viewer);
        QCOMPARE(viewer->CurrentTopic(), u"main_contents"_s);
        QVERIFY(viewer->Browser()->toPlainText().contains(u"The main window"_s));
        QCOMPARE(viewer->Browser()->source().fragment(), u"main_contents"_s);
    }

    void mnemonicsAreGivenOnceEach_data()
    {
        QTest::addColumn<QString>("joined");    // the texts, split at '|'
        QTest::addColumn<QStringList>("menus"); // an editor's menu bar, letters given
        QTest::newRow("same first letters") << u"Move Up|Move Down|Minimum"_s << QStringList{};
        QTest::newRow("one already given") << u"&Delete|Details|Drops: "_s << QStringList{};
        QTest::newRow("an ampersand in the text") << u"R&&D|Rooms && Times"_s << QStringList{};
        QTest::newRow("German") << u"Übernehmen|Überfällig|Öffnen"_s << QStringList{};
        QTest::newRow("beside an editor's menus")
            << u"Edit|Apply"_s << QStringList{u"&Export"_s, u"&Add"_s};
    }
    void mnemonicsAreGivenOnceEach()
    {
        QFETCH(QString, joined);
        QFETCH(QStringList, menus);
        const QStringList texts = joined.split(u'|');
        QDialog dialog;
        dialog.setObjectName(u"dialog"_s);
        QList<QPushButton*> buttons;
        for (const QString& text : texts)
            buttons << new QPushButton(text, &dialog);
        auto* bar = new QMenuBar(&dialog);
        for (const QString& title : menus)
            bar->addMenu(title);
        Mnemonics::Assign(&dialog);
        QStringList given;
        for (QAction* title : bar->actions())
            given << title->text(); // the menus keep the letters they had
        QCOMPARE(given, menus);
        for (int i = 0; i < buttons.size(); ++i) {
            const QString text = buttons[i]->text();
            QVERIFY2(!Mnemonics::LetterOf(text).isNull(), qPrintable(text));
            // The text reads as before: only one '&' added.
            QCOMPARE(QString(text).remove(u'&'), QString(texts[i]).remove(u'&'));
            QCOMPARE(text.count(u'&'), texts[i].count(u'&') + (texts[i].startsWith(u'&') ? 0 : 1));
            given << text;
        }
        QCOMPARE(LetterProblems(u"dialog"_s, given), QStringList());
    }

    void shiftF10OpensTheContextMenu()
    {
        CContextMenuKey filter;
        qApp->installEventFilter(&filter);
        QWidget target;
        target.setContextMenuPolicy(Qt::CustomContextMenu);
        target.setFocusPolicy(Qt::StrongFocus);
        QSignalSpy menus(&target, &QWidget::customContextMenuRequested);
        target.show();
        target.activateWindow();
        target.setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&target));
        QTest::keyClick(&target, Qt::Key_F10, Qt::ShiftModifier);
        QTest::keyClick(&target, Qt::Key_F10); // F10 alone is not the menu key
        QCOMPARE(menus.count(), 1);
        qApp->removeEventFilter(&filter);
    }
};

QTEST_MAIN(TestMainFrame)
#include "tst_mainframe.moc"
