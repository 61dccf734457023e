// Keyboard and screen-reader access: every dialog the menus open, and the main
// window, have an accessible name on each control that takes the focus, no
// mnemonic letter twice in one window and a Tab order that runs down it; list
// rows speak what they draw (the report card's chart: tst_reports); Shift+F10
// opens a context menu as the Menu key does.
#include "BrindleData.h"
#include "app/MainFrame.h"
#include "controls/ContextMenuKey.h"
#include "controls/Mnemonics.h"
#include "support/DatabaseTest.h"
#include "support/MessageAnswers.h"
#include "support/Records.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

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

class TestAccessibility : public DatabaseTest
{
    Q_OBJECT

private slots:
    void init()
    {
        DatabaseTest::init();
        const quint32 course = Records::Course(u"Statistics"_s);
        const quint32 type = Records::CwType(course, u"Homework"_s, 1.0);
        Records::Coursework(course, type, u"Problem set 1"_s, 8.0, 10.0, 46000.5, 50);
        CAppStateTable::Instance().SetCurrentCourseID(course);
        QVERIFY(CAppStateTable::Instance().UpdateRecord());
    }

    void everyDialogOfTheMenus()
    {
        // Confirmations are declined, so that nothing is deleted under the walk.
        MessageAnswers answers({}, QMessageBox::No);
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
        const QStringList noDialog{u"actionTogglePrediction"_s, u"actionHelp"_s, u"actionQuit"_s};
        for (QAction* title : frame.menuBar()->actions())
            for (QAction* action : title->menu()->actions())
                if (!action->isSeparator() && !action->menu() && action->isEnabled() &&
                    !noDialog.contains(action->objectName()))
                    action->trigger();
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

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
