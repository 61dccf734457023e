#include "controls/DialogRunner.h"
#include "controls/ListChooserDlg.h"
#include "controls/TextDlg.h"

#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest>

// The list chooser and the text dialog, driven through their own controls.
class TestListChooserDlg : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { DialogRunner::SetHook({}); }

    void choose_data();
    void choose();
    void emptyListChoosesNothing();
    void textDialogReturnsEditedTextOrNothing();
};

void TestListChooserDlg::choose_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("doubleClick");
    QTest::addColumn<bool>("cancel");
    QTest::addColumn<qint64>("expected"); // -1: nothing chosen

    QTest::newRow("first row preselected, OK") << -1 << false << false << qint64(70);
    QTest::newRow("last row, OK") << 2 << false << false << qint64(90);
    QTest::newRow("double-click chooses") << 1 << true << false << qint64(80);
    QTest::newRow("cancel") << 1 << false << true << qint64(-1);
}

void TestListChooserDlg::choose()
{
    QFETCH(int, row);
    QFETCH(bool, doubleClick);
    QFETCH(bool, cancel);
    QFETCH(qint64, expected);

    QString title;
    DialogRunner::SetHook([&](QDialog& dialog) {
        title = dialog.windowTitle();
        auto* list = dialog.findChild<QListWidget*>(QStringLiteral("chooserList"));
        if (!list)
            return int(QDialog::Rejected);
        if (row >= 0)
            list->setCurrentRow(row);
        if (doubleClick) {
            QListWidgetItem* item = list->item(row);
            const QRect rect = list->visualItemRect(item);
            dialog.show();
            if (!QTest::qWaitForWindowExposed(&dialog))
                return int(QDialog::Rejected);
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, rect.center());
            QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, rect.center());
            return dialog.result();
        }
        return int(cancel ? QDialog::Rejected : QDialog::Accepted);
    });

    const auto chosen = ListChooserDlg::Choose(nullptr, QStringLiteral("Pick"),
                                               {{QStringLiteral("Seventy"), 70},
                                                {QStringLiteral("Eighty"), 80},
                                                {QStringLiteral("Ninety"), 90}});
    QCOMPARE(title, QStringLiteral("Pick"));
    QCOMPARE(chosen.has_value(), expected >= 0);
    if (chosen)
        QCOMPARE(qint64(*chosen), expected);
}

void TestListChooserDlg::emptyListChoosesNothing()
{
    ListChooserDlg chooser(QStringLiteral("Pick"), {});
    auto* ok = chooser.findChild<QPushButton*>();
    QVERIFY(ok);
    QVERIFY(!chooser.Selected().has_value());
    DialogRunner::SetHook([](QDialog&) { return int(QDialog::Accepted); });
    QVERIFY(!ListChooserDlg::Choose(nullptr, QStringLiteral("Pick"), {}).has_value());
}

void TestListChooserDlg::textDialogReturnsEditedTextOrNothing()
{
    bool accept = true;
    DialogRunner::SetHook([&](QDialog& dialog) {
        auto* edit = dialog.findChild<QPlainTextEdit*>(QStringLiteral("textEdit"));
        if (!edit || edit->toPlainText() != QStringLiteral("old"))
            return int(QDialog::Rejected);
        edit->setPlainText(QStringLiteral("line one\nline two"));
        return int(accept ? QDialog::Accepted : QDialog::Rejected);
    });
    const auto edited = TextDlg::Edit(nullptr, QStringLiteral("Details"), QStringLiteral("old"));
    QCOMPARE(edited.value_or(QString()), QStringLiteral("line one\nline two"));

    accept = false;
    QVERIFY(!TextDlg::Edit(nullptr, QStringLiteral("Details"), QStringLiteral("old")).has_value());
}

QTEST_MAIN(TestListChooserDlg)
#include "tst_listchooserdlg.moc"
