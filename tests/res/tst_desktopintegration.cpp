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
#include <QXmlStreamReader>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// The keys of the [Desktop Entry] group.
QHash<QString, QString> ReadDesktopEntry(const QString& path)
{
    QHash<QString, QString> entry;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return entry;
    bool inGroup = false;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        if (line.startsWith(u'['))
            inGroup = line == u"[Desktop Entry]";
        else if (inGroup && line.contains(u'='))
            entry.insert(line.section(u'=', 0, 0), line.section(u'=', 1));
    }
    return entry;
}

// The text of the first element of each name, and the launchable.
QHash<QString, QString> ReadMetainfo(const QString& path)
{
    QHash<QString, QString> info;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return info;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QString name = xml.name().toString();
        if (name == u"component" || name == u"provides" || name == u"releases")
            continue; // look inside
        if (name == u"release") {
            info.insert(name, xml.attributes().value(QStringLiteral("version")).toString());
            xml.skipCurrentElement();
        } else if (name == u"description" || name == u"screenshots" || name == u"content_rating" ||
                   name == u"categories") {
            info.insert(name, u"present"_s);
            xml.skipCurrentElement();
        } else {
            const QString text = xml.readElementText(QXmlStreamReader::IncludeChildElements);
            if (!info.contains(name))
                info.insert(name, text);
        }
    }
    return info;
}

// Runs a checker; its output is the failure message.
QString Run(const QString& program, const QStringList& arguments, int* exitCode)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    if (!process.waitForFinished(120000)) {
        *exitCode = -1;
        return program + u": "_s + process.errorString();
    }
    *exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return QString::fromUtf8(process.readAll());
}

} // namespace

class TestDesktopIntegration : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void validatorsAccept_data();
    void validatorsAccept();
    void entryMatchesTheRunningProgram();
    void metainfoMatchesTheEntry();
    void iconsAreRenderedAtTheirSizes_data();
    void iconsAreRenderedAtTheirSizes();
    void manPageNamesEveryOption_data();
    void manPageNamesEveryOption();

private:
    QHash<QString, QString> m_entry;
    QHash<QString, QString> m_metainfo;
};

void TestDesktopIntegration::initTestCase()
{
    InitBrindleResources();
    ApplicationIdentity::Apply();
    m_entry = ReadDesktopEntry(QStringLiteral(BRINDLE_DESKTOP_FILE));
    m_metainfo = ReadMetainfo(QStringLiteral(BRINDLE_METAINFO));
    QVERIFY(!m_entry.isEmpty());
    QVERIFY(!m_metainfo.isEmpty());
}

void TestDesktopIntegration::validatorsAccept_data()
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

void TestDesktopIntegration::validatorsAccept()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    int exitCode = 0;
    const QString output = Run(program, arguments, &exitCode);
    QVERIFY2(exitCode == 0, qPrintable(output));
    // desktop-file-validate exits 0 on warnings too; only its hints may stay
    // (Education and Office are both main categories, as intended).
    for (const QString& line : output.split(u'\n', Qt::SkipEmptyParts))
        QVERIFY2(!line.contains(u"error:"_s) && !line.contains(u"warning:"_s), qPrintable(line));
}

void TestDesktopIntegration::entryMatchesTheRunningProgram()
{
    QCOMPARE(QFileInfo(QStringLiteral(BRINDLE_DESKTOP_FILE)).fileName(),
             ApplicationIdentity::DesktopFileName() + u".desktop"_s);
    QCOMPARE(QGuiApplication::desktopFileName(), ApplicationIdentity::DesktopFileName());
    // X11 takes the window class from the application name.
    QCOMPARE(m_entry.value(u"StartupWMClass"_s), QCoreApplication::applicationName());
    QCOMPARE(m_entry.value(u"Icon"_s), ApplicationIdentity::DesktopFileName());
    QCOMPARE(m_entry.value(u"Exec"_s).section(u' ', 0, 0), u"brindle"_s);
    QCOMPARE(m_entry.value(u"Categories"_s), u"Education;Office;"_s);
    QVERIFY(!m_entry.value(u"Keywords"_s).isEmpty());
    QVERIFY(!QApplication::windowIcon().isNull());
    // The companion shows the same icon, by the name the package installs.
    const auto companion = ReadDesktopEntry(QStringLiteral(BRINDLE_TODAY_DESKTOP_FILE));
    QCOMPARE(companion.value(u"Icon"_s), ApplicationIdentity::DesktopFileName());
    QCOMPARE(companion.value(u"Exec"_s), u"brindle-today"_s);
    // The window icon is the icon the entry installs.
    QFile installed(QStringLiteral(BRINDLE_SOURCE_DIR "/data/") +
                    ApplicationIdentity::DesktopFileName() + u".svg"_s);
    QFile resource(u":/images/brindle.svg"_s);
    QVERIFY(installed.open(QIODevice::ReadOnly) && resource.open(QIODevice::ReadOnly));
    QCOMPARE(resource.readAll(), installed.readAll());
}

void TestDesktopIntegration::metainfoMatchesTheEntry()
{
    QCOMPARE(m_metainfo.value(u"id"_s), ApplicationIdentity::DesktopFileName());
    QCOMPARE(m_metainfo.value(u"launchable"_s),
             QFileInfo(QStringLiteral(BRINDLE_DESKTOP_FILE)).fileName());
    QCOMPARE(m_metainfo.value(u"name"_s), m_entry.value(u"Name"_s));
    QCOMPARE(m_metainfo.value(u"binary"_s), m_entry.value(u"Exec"_s).section(u' ', 0, 0));
    QCOMPARE(m_metainfo.value(u"release"_s), QCoreApplication::applicationVersion());
    for (const char* part : {"summary", "description", "screenshots", "content_rating"})
        QVERIFY2(m_metainfo.contains(QString::fromLatin1(part)), part);
    // Each screenshot of the metainfo is one kept in docs/images.
    QFile metainfo(QStringLiteral(BRINDLE_METAINFO));
    QVERIFY(metainfo.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&metainfo);
    int screenshots = 0;
    while (!xml.atEnd())
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == u"image") {
            const QString url = xml.readElementText();
            const QString file =
                QStringLiteral(BRINDLE_SOURCE_DIR "/docs/images/") + url.section(u'/', -1);
            QVERIFY2(QFileInfo::exists(file), qPrintable(url));
            ++screenshots;
        }
    QVERIFY(screenshots > 0);
}

void TestDesktopIntegration::iconsAreRenderedAtTheirSizes_data()
{
    QTest::addColumn<int>("size");
    for (int size : {48, 128, 256})
        QTest::newRow(qPrintable(QString::number(size))) << size;
}

void TestDesktopIntegration::iconsAreRenderedAtTheirSizes()
{
    QFETCH(int, size);
    const QString path = u"%1/data/icons/%2x%2/%3.png"_s.arg(QStringLiteral(BRINDLE_BINARY_DIR))
                             .arg(size)
                             .arg(ApplicationIdentity::DesktopFileName());
    const QImage icon(path);
    QVERIFY2(!icon.isNull(), qPrintable(path));
    QCOMPARE(icon.size(), QSize(size, size));
    // Drawn, not blank: the corner is transparent, the middle is not.
    QCOMPARE(qAlpha(icon.pixel(0, 0)), 0);
    QVERIFY(qAlpha(icon.pixel(size / 2, size / 2)) > 0);
}

void TestDesktopIntegration::manPageNamesEveryOption_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("manPage");
    QTest::newRow("brindle") << QStringLiteral(BRINDLE_PROGRAM) << QStringLiteral(BRINDLE_MANPAGE);
    QTest::newRow("brindle-today")
        << QStringLiteral(BRINDLE_TODAY_PROGRAM) << QStringLiteral(BRINDLE_TODAY_MANPAGE);
}

void TestDesktopIntegration::manPageNamesEveryOption()
{
    QFETCH(QString, program);
    QFETCH(QString, manPage);
    int exitCode = 0;
    const QString help = Run(program, {u"--help"_s}, &exitCode);
    QCOMPARE(exitCode, 0);
    QFile page(manPage);
    QVERIFY(page.open(QIODevice::ReadOnly));
    // roff writes "-" as "\-".
    const QString text = QString::fromUtf8(page.readAll()).remove(u'\\');
    static const QRegularExpression option(u"--[a-z][a-z-]+"_s);
    int options = 0;
    for (const auto& match : option.globalMatch(help)) {
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

QTEST_MAIN(TestDesktopIntegration)
#include "tst_desktopintegration.moc"
