// Keyboard and screen-reader access: every dialog the menus open, and the main
// window, have an accessible name on each control that takes the focus, no
// mnemonic letter twice in one window and a Tab order that runs down it; list rows and the report
// card's chart speak what they draw; Shift+F10 opens a context menu as the Menu key does.
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "app/MainView.h"
#include "controls/ContextMenuKey.h"
#include "controls/DialogRunner.h"
#include "controls/Mnemonics.h"
#include "grading/dialogs/GradeChart.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QString Describe(QWidget* widget)
{
    return u"%1 \"%2\""_s.arg(QString::fromLatin1(widget->metaObject()->className()),
                              widget->objectName());
}

// A text as it reads on screen: "&&" is an ampersand, "&x" an underlined x.
QString WithoutMnemonic(const QString& text)
{
    QString shown;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == u'&' && i + 1 < text.size())
            ++i;
        shown += text.at(i);
    }
    return shown;
}

// The problems of what `window` shows now.
QStringList ProblemsOf(QWidget* window)
{
    QStringList problems;
    const QString where = window->objectName();
    for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisibleTo(window) ||
            !widget->isEnabled() || widget->focusProxy())
            continue;
        // The editor inside a spin box or combo box speaks through it.
        QWidget* parent = widget->parentWidget();
        if (qobject_cast<QAbstractSpinBox*>(parent) || qobject_cast<QComboBox*>(parent))
            continue;
        QAccessibleInterface* access = QAccessible::queryAccessibleInterface(widget);
        if (!access || access->text(QAccessible::Name).trimmed().isEmpty())
            problems << where + u": no accessible name: "_s + Describe(widget);
    }
    QHash<QChar, QString> letters;
    for (const Mnemonics::Entry& entry : Mnemonics::Collect(window)) {
        if (!entry.widget->isVisibleTo(window))
            continue;
        const QChar letter = Mnemonics::LetterOf(entry.text);
        if (letter.isNull())
            continue;
        if (letters.contains(letter))
            problems << where + u": Alt+%1 on \"%2\" and \"%3\""_s.arg(letter, letters[letter],
                                                                       entry.text);
        else
            letters.insert(letter, entry.text);
    }
    return problems;
}

// Tab goes down the window: each control that Tab reaches next sits lower, or
// on the same line. (Columns side by side would break this rule; Brindle's
// dialogs have none.)
QStringList TabOrderProblems(QWidget* window)
{
    QStringList problems;
    QWidget* start = window;
    QWidget* previous = nullptr;
    int previousTop = 0;
    for (QWidget* widget = start->nextInFocusChain(); widget != start;
         widget = widget->nextInFocusChain()) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || !widget->isVisibleTo(window) ||
            !widget->isEnabled() || widget->focusProxy() || !window->isAncestorOf(widget))
            continue;
        const QRect area(widget->mapTo(window, QPoint(0, 0)), widget->size());
        const int tolerance = widget->fontMetrics().height();
        if (previous && area.bottom() < previousTop - tolerance)
            problems << window->objectName() + u": Tab goes up from "_s + Describe(previous) +
                            u" to "_s + Describe(widget);
        previous = widget;
        previousTop = area.top();
    }
    return problems;
}

// Every page of every tab widget in turn, then back to the first.
QStringList ProblemsOfEveryPage(QWidget* window)
{
    // Shown, so that the layout places every control.
    window->show();
    QStringList problems = ProblemsOf(window) + TabOrderProblems(window);
    for (QTabWidget* tabs : window->findChildren<QTabWidget*>()) {
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            QCoreApplication::processEvents();
            problems += ProblemsOf(window) + TabOrderProblems(window);
        }
        tabs->setCurrentIndex(0);
    }
    window->hide();
    problems.removeDuplicates();
    return problems;
}

// The letters of one menu bar or menu: each used once.
QStringList MenuProblems(const QString& where, const QList<QAction*>& actions)
{
    QStringList problems;
    QHash<QChar, QString> letters;
    for (QAction* action : actions) {
        if (action->isSeparator() || !action->isVisible())
            continue;
        const QChar letter = Mnemonics::LetterOf(action->text());
        if (!letter.isNull() && letters.contains(letter))
            problems << where + u": Alt+%1 on \"%2\" and \"%3\""_s.arg(letter, letters[letter],
                                                                       action->text());
        else if (!letter.isNull())
            letters.insert(letter, action->text());
        if (action->menu())
            problems += MenuProblems(where + u" > "_s + action->text(), action->menu()->actions());
    }
    return problems;
}

} // namespace

class TestAccessibility : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void everyDialogOfTheMenus();
    void mnemonicsAreGivenOnceEach_data();
    void mnemonicsAreGivenOnceEach();
    void courseworkRowsSpeakTheirContents();
    void chartSpeaksEachCourse();
    void shiftF10OpensTheContextMenu();

private:
    std::unique_ptr<TestDatabase> m_db;
    quint32 m_course = 0;
};

void TestAccessibility::init()
{
    m_db = std::make_unique<TestDatabase>();
    QVERIFY(m_db->IsReady());
    m_course = Records::Course(u"Statistics"_s);
    const quint32 type = Records::CwType(m_course, u"Homework"_s, 1.0);
    Records::Coursework(m_course, type, u"Problem set 1"_s, 8.0, 10.0, 46000.5, 50);
    CAppStateTable::Instance().SetCurrentCourseID(m_course);
    QVERIFY(CAppStateTable::Instance().UpdateRecord());
}

void TestAccessibility::cleanup()
{
    DialogRunner::SetHook({});
    m_db.reset();
}

void TestAccessibility::everyDialogOfTheMenus()
{
    // Confirmations are declined, so that nothing is deleted under the walk.
    MessageAnswers answers({}, QMessageBox::No);
    CMainFrame frame;
    frame.RefreshAll();
    QStringList problems = ProblemsOf(&frame);
    problems += MenuProblems(frame.objectName(), frame.menuBar()->actions());

    QStringList walked;
    DialogRunner::SetHook([&](QDialog& dialog) {
        // As DialogRunner does for a user.
        Mnemonics::Assign(&dialog);
        problems += ProblemsOfEveryPage(&dialog);
        walked << dialog.objectName();
        return int(QDialog::Rejected);
    });
    const QStringList noDialog{u"actionTogglePrediction"_s, u"actionHelp"_s, u"actionQuit"_s};
    QList<QAction*> actions;
    for (QAction* title : frame.menuBar()->actions())
        if (title->menu())
            actions += title->menu()->actions();
    for (QAction* action : actions) {
        if (action->isSeparator() || action->menu() || !action->isEnabled() ||
            noDialog.contains(action->objectName()))
            continue;
        action->trigger();
    }
    // Far more than a few: the walk reached the dialogs, the latest of the
    // Tools menu among them.
    QVERIFY2(walked.size() >= 8, qPrintable(walked.join(u", "_s)));
    for (const QString& name : {u"SemesterDlg"_s, u"DatabaseOptionsDlg"_s, u"GradePlannerDlg"_s,
                                u"ExportFoldersDlg"_s, u"TodayCompanionDlg"_s})
        QVERIFY2(walked.contains(name), qPrintable(name + u" not in "_s + walked.join(u", "_s)));
    QVERIFY2(problems.isEmpty(), qPrintable(u"\n"_s + problems.join(u'\n')));
}

void TestAccessibility::mnemonicsAreGivenOnceEach_data()
{
    QTest::addColumn<QStringList>("texts");
    QTest::addColumn<QStringList>("menus"); // an editor's menu bar, letters given
    QTest::newRow("distinct words")
        << QStringList{u"Name: "_s, u"Weight: "_s, u"Delete"_s} << QStringList{};
    QTest::newRow("same first letters")
        << QStringList{u"Move Up"_s, u"Move Down"_s, u"Minimum"_s} << QStringList{};
    QTest::newRow("one already given")
        << QStringList{u"&Delete"_s, u"Details"_s, u"Drops: "_s} << QStringList{};
    QTest::newRow("an ampersand in the text")
        << QStringList{u"R&&D"_s, u"Rooms && Times"_s} << QStringList{};
    QTest::newRow("German") << QStringList{u"Übernehmen"_s, u"Überfällig"_s, u"Öffnen"_s}
                            << QStringList{};
    QTest::newRow("beside an editor's menus")
        << QStringList{u"Edit"_s, u"Apply"_s} << QStringList{u"&Export"_s, u"&Add"_s};
}

void TestAccessibility::mnemonicsAreGivenOnceEach()
{
    QFETCH(QStringList, texts);
    QFETCH(QStringList, menus);
    QDialog dialog;
    dialog.setObjectName(u"dialog"_s);
    QList<QPushButton*> buttons;
    for (const QString& text : texts)
        buttons << new QPushButton(text, &dialog);
    QSet<QChar> letters;
    auto* bar = new QMenuBar(&dialog);
    for (const QString& title : menus) {
        bar->addMenu(title);
        letters.insert(Mnemonics::LetterOf(title));
    }
    Mnemonics::Assign(&dialog);
    // The menus keep the letters they had.
    for (int i = 0; i < menus.size(); ++i)
        QCOMPARE(bar->actions().at(i)->text(), menus[i]);
    for (int i = 0; i < buttons.size(); ++i) {
        const QString text = buttons[i]->text();
        const QChar letter = Mnemonics::LetterOf(text);
        QVERIFY2(!letter.isNull(), qPrintable(text));
        QVERIFY2(!letters.contains(letter), qPrintable(text));
        letters.insert(letter);
        // The text reads as before.
        QCOMPARE(WithoutMnemonic(text), WithoutMnemonic(texts[i]));
    }
    QVERIFY(ProblemsOf(&dialog).isEmpty());
}

void TestAccessibility::courseworkRowsSpeakTheirContents()
{
    CMainFrame frame;
    frame.RefreshAll();
    auto* list = frame.findChild<QAbstractItemView*>(u"courseworkList"_s);
    QVERIFY(list);
    QModelIndex row;
    for (int i = 0; i < list->model()->rowCount(); ++i)
        if (list->model()->index(i, 0).data().toString() == u"Problem set 1"_s)
            row = list->model()->index(i, 0);
    QVERIFY(row.isValid());
    const QString spoken = row.data(Qt::AccessibleTextRole).toString();
    // Name, due date, progress and score: what the row draws.
    for (const QString& part : {u"Problem set 1"_s, u"50%"_s, u"80%"_s, u"8/10"_s})
        QVERIFY2(spoken.contains(part), qPrintable(spoken));
}

void TestAccessibility::chartSpeaksEachCourse()
{
    GradeChart chart;
    chart.SetCourses({{u"Biology"_s, 0.8735, {{u"A"_s, 90.0}, {u"B"_s, 80.0}}},
                      {u"History"_s, -1.0, {{u"A"_s, 90.0}}}});
    const QStringList lines = chart.accessibleDescription().split(u'\n');
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines[0].startsWith(u"Biology"_s) && lines[0].contains(u"87.35%"_s) &&
                 lines[0].endsWith(u" B"_s),
             qPrintable(lines[0]));
    QVERIFY2(lines[1].startsWith(u"History"_s), qPrintable(lines[1]));
}

void TestAccessibility::shiftF10OpensTheContextMenu()
{
    class MenuTarget : public QWidget
    {
    public:
        int keyboardMenus = 0;

    protected:
        void contextMenuEvent(QContextMenuEvent* event) override
        {
            if (event->reason() == QContextMenuEvent::Keyboard)
                ++keyboardMenus;
        }
    };
    CContextMenuKey filter;
    qApp->installEventFilter(&filter);
    MenuTarget target;
    target.setFocusPolicy(Qt::StrongFocus);
    target.show();
    target.activateWindow();
    target.setFocus();
    QVERIFY(QTest::qWaitForWindowActive(&target));
    QTest::keyClick(&target, Qt::Key_F10, Qt::ShiftModifier);
    QCOMPARE(target.keyboardMenus, 1);
    // F10 alone is not the menu key.
    QTest::keyClick(&target, Qt::Key_F10);
    QCOMPARE(target.keyboardMenus, 1);
    qApp->removeEventFilter(&filter);
}

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
