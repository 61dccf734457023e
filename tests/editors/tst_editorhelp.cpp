#include "controls/HelpViewer.h"
#include "controls/ListChooserDlg.h"
#include "controls/TextDlg.h"
#include "editors/BuildingDlg.h"
#include "editors/CourseDlg.h"
#include "editors/InstructorDlg.h"
#include "store/Database.h"
#include "support/Records.h"
#include "support/TestDatabase.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QPushButton>
#include <QtTest>

#include <memory>

// Each course-record dialog's Help button opens its own section, and the
// help file has that section.
class TestEditorHelp : public QObject
{
    Q_OBJECT

private slots:
    void helpOpensTheDialogsSection_data();
    void helpOpensTheDialogsSection();
};

void TestEditorHelp::helpOpensTheDialogsSection_data()
{
    QTest::addColumn<QString>("dialog");
    for (const char* name :
         {"CourseDlg", "InstructorDlg", "BuildingDlg", "ListChooserDlg", "TextDlg"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestEditorHelp::helpOpensTheDialogsSection()
{
    QFETCH(QString, dialog);
    TestDatabase db;
    QVERIFY(db.IsReady());
    const quint32 course = Records::Course(QStringLiteral("Botany"));

    std::unique_ptr<QDialog> shown;
    if (dialog == QLatin1String("CourseDlg")) {
        auto editor = std::make_unique<CourseDlg>();
        editor->SetCourse(course);
        shown = std::move(editor);
    } else if (dialog == QLatin1String("InstructorDlg")) {
        shown = std::make_unique<InstructorDlg>(course);
    } else if (dialog == QLatin1String("BuildingDlg")) {
        shown = std::make_unique<BuildingDlg>();
    } else if (dialog == QLatin1String("ListChooserDlg")) {
        shown = std::make_unique<ListChooserDlg>(QStringLiteral("Pick"),
                                                 std::vector<ListChooserDlg::Item>{});
    } else {
        shown = std::make_unique<TextDlg>(QStringLiteral("Notes"), QString());
    }
    QCOMPARE(shown->objectName(), dialog);

    auto* buttons = shown->findChild<QDialogButtonBox*>(QStringLiteral("buttons"));
    QVERIFY(buttons && buttons->button(QDialogButtonBox::Help));
    buttons->button(QDialogButtonBox::Help)->click();
    auto* viewer = shown->findChild<CHelpViewer*>();
    QVERIFY(viewer);
    QCOMPARE(viewer->CurrentTopic(), dialog);
    viewer->close();

    QFile help(GetInstallationPath() + QStringLiteral("/Brindle.htm"));
    QVERIFY(help.open(QIODevice::ReadOnly));
    const QString anchor = QStringLiteral("<a name=\"%1\"></a>").arg(dialog);
    QVERIFY2(QString::fromUtf8(help.readAll()).contains(anchor), qPrintable(anchor));
}

QTEST_MAIN(TestEditorHelp)
#include "tst_editorhelp.moc"
