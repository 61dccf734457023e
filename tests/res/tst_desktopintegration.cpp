// Desktop integration: the desktop entry and the AppStream metainfo pass their
// validators and agree with each other and with what the running program tells
// the desktop (window class, app id, icon); the icons and the man page are
// well-formed.
#include "app/ApplicationIdentity.h"
#include "res/Resources.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QString ReadText(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// The value of a key of the desktop entry (its only group).
QString EntryValue(const QString& path, const QString& key)
{
    const QRegularExpression line(u"^%1=(.*)$"_s.arg(key), QRegularExpression::MultilineOption);
    return line.match(ReadText(path)).captured(1);
}

// The text of the first element of this name in the metainfo.
QString MetainfoValue(const QString& element)
{
    const QRegularExpression xml(u"<%1(?: [^>]*)?>([^<]*)</%1>"_s.arg(element));
    return xml.match(ReadText(QStringLiteral(BRINDLE_METAINFO))).captured(1);
}

// Runs a checker; its output is the failure message.
QString Run(const QString& program, const QStringList& arguments, int* exitCode)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    const bool finished = process.waitForFinished(120000);
    *exitCode = finished && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return finished ? QString::fromUtf8(process.readAll()) : program + u": "_s + process.errorString();
}

} // namespace

class TestDesktopIntegration : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        InitBrindleResources();
        ApplicationIdentity::Apply();
    }

    void validatorsAccept_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("desktop entry")
            << u"desktop-file-validate"_s << QStringList{QStringLiteral(BRINDLE_DESKTOP_FILE)};
        QTest::newRow("companion's start entry")
            << u"desktop-file-validate"_s << QStringList{QStringLiteral(BRINDLE_TODAY_DESKTOP_FILE)};
        QTest::newRow("metainfo") << u"appstreamcli"_s
                                  << QStringList{u"validate"_s, u"--no-net"_s, u"--explain"_s,
                                                 QStringLiteral(BRINDLE_METAINFO)};
    }
    void validatorsAccept()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, arguments);
        int exitCode = 0;
        const QString output = Run(program, arguments, &exitCode);
        QVERIFY2(exitCode == 0, qPrintable(output));
        // desktop-file-validate exits 0 on warnings too; only its hints may stay
        // (Education and Office are both main categories, as intended).
        QVERIFY2(!output.contains(u"error:"_s) && !output.contains(u"warning:"_s), qPrintable(output));
    }

    // The entries, the metainfo and the running program name one application.
    void identityAgrees()
    {
        const QString id = ApplicationIdentity::DesktopFileName();
        const QString entry = QStringLiteral(BRINDLE_DESKTOP_FILE);
        QCOMPARE(QFileInfo(entry).fileName(), id + u".desktop"_s);
        QCOMPARE(QGuiApplication::desktopFileName(), id);
        // X11 takes the window class from the application name.
        QCOMPARE(EntryValue(entry, u"StartupWMClass"_s), QCoreApplication::applicationName());
        QCOMPARE(EntryValue(entry, u"Icon"_s), id);
        QCOMPARE(EntryValue(entry, u"Exec"_s).section(u' ', 0, 0), u"brindle"_s);
        QCOMPARE(EntryValue(entry, u"Categories"_s), u"Education;Office;"_s);
        QVERIFY(!EntryValue(entry, u"Keywords"_s).isEmpty());
        // The companion shows the same icon, by the name the package installs.
        QCOMPARE(EntryValue(QStringLiteral(BRINDLE_TODAY_DESKTOP_FILE), u"Icon"_s), id);
        QCOMPARE(EntryValue(QStringLiteral(BRINDLE_TODAY_DESKTOP_FILE), u"Exec"_s), u"brindle-today"_s);
        // The window icon is the icon the entry installs.
        QVERIFY(!QApplication::windowIcon().isNull());
        QCOMPARE(ReadText(u":/images/brindle.svg"_s),
                 ReadText(QStringLiteral(BRINDLE_SOURCE_DIR "/data/") + id + u".svg"_s));

        QCOMPARE(MetainfoValue(u"id"_s), id);
        QCOMPARE(MetainfoValue(u"launchable"_s), QFileInfo(entry).fileName());
        QCOMPARE(MetainfoValue(u"name"_s), EntryValue(entry, u"Name"_s));
        QCOMPARE(MetainfoValue(u"binary"_s), u"brindle"_s);
        QVERIFY(!MetainfoValue(u"summary"_s).isEmpty());
        const QString metainfo = ReadText(QStringLiteral(BRINDLE_METAINFO));
        QVERIFY(metainfo.contains(u"<release version=\"%1\""_s.arg(QCoreApplication::applicationVersion())));
        for (const char* part : {"<description>", "<content_rating"})
            QVERIFY2(metainfo.contains(QLatin1StringView(part)), part);
        // Each screenshot of the metainfo is one kept in docs/images.
        int screenshots = 0;
        for (const auto& image :
             QRegularExpression(u"<image>[^<]*/([^/<]+)</image>"_s).globalMatch(metainfo)) {
            QVERIFY2(QFileInfo::exists(QStringLiteral(BRINDLE_SOURCE_DIR "/docs/images/") +
                                       image.captured(1)),
                     qPrintable(image.captured(0)));
            ++screenshots;
        }
        QVERIFY(screenshots > 0);
    }

    void iconsAreRenderedAtTheirSizes()
    {
        for (int size : {48, 128, 256}) {
            const QImage icon(u"%1/data/icons/%2x%2/%3.png"_s.arg(QStringLiteral(BRINDLE_BINARY_DIR))
                                  .arg(size)
                                  .arg(ApplicationIdentity::DesktopFileName()));
            QCOMPARE(icon.size(), QSize(size, size));
            // Drawn, not blank: the corner is transparent, the middle is not.
            QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
            QVERIFY(qAlpha(icon.pixel(size / 2, size / 2)) > 0);
        }
    }

    void manPageNamesEveryOption_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QString>("manPage");
        QTest::newRow("brindle") << QStringLiteral(BRINDLE_PROGRAM) << QStringLiteral(BRINDLE_MANPAGE);
        QTest::newRow("brindle-today")
            << QStringLiteral(BRINDLE_TODAY_PROGRAM) << QStringLiteral(BRINDLE_TODAY_MANPAGE);
    }
    void manPageNamesEveryOption()
    {
        QFETCH(QString, program);
        QFETCH(QString, manPage);
        int exitCode = 0;
        const QString help = Run(program, {u"--help"_s}, &exitCode);
        QCOMPARE(exitCode, 0);
        // roff writes "-" as "\-".
        const QString text = ReadText(manPage).remove(u'\\');
        int options = 0;
        for (const auto& match : QRegularExpression(u"--[a-z][a-z-]+"_s).globalMatch(help)) {
            QVERIFY2(text.contains(match.captured(0)), qPrintable(match.captured(0)));
            ++options;
        }
        QVERIFY(options >= 4);
        // groff's own warnings about the page.
        const QString warnings = Run(u"sh"_s,
                                     {u"-c"_s,
                                      u"LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings "
                                      "-E UTF-8 -l -Tutf8 -Z \"$0\" 2>&1 >/dev/null"_s,
                                      manPage},
                                     &exitCode);
        QVERIFY2(exitCode == 0 && warnings.trimmed().isEmpty(), qPrintable(warnings));
    }
};

QTEST_MAIN(TestDesktopIntegration)
#include "tst_desktopintegration.moc"
