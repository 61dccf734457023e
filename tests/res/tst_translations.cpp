// Translations: every text of the string table has a finished translation in
// every language Brindle ships, with the same placeholders; the compiled
// translations are the ones in the program and are chosen by the user's
// languages; grade numbers keep their decimal point in every language. And the
// desktop integration: the desktop entry and the AppStream metainfo pass their
// validators and agree with each other and with what the running program tells
// the desktop (window class, app id, icon); the icons and the man page are
// well-formed.
// Fault tried, and caught: a placeholder dropped from a German text that
// follows "Office Hours:\r\n" in the file (the reader used to stop there).
#include "TsFile.h"
#include "app/ApplicationIdentity.h"
#include "res/Resources.h"
#include "res/Translations.h"
#include "res/strings/AppStrings.h"
#include "res/strings/ViewStrings.h"
#include "store/GradeText.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QLibraryInfo>
#include <QProcess>
#include <QPushButton>
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
    return finished ? QString::fromUtf8(process.readAll())
                    : program + u": "_s + process.errorString();
}

} // namespace

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        InitBrindleResources();
        ApplicationIdentity::Apply();
        // What the sources hold today, collected the way translators collect it.
        QVERIFY(m_dir.isValid());
        const QString extracted = m_dir.filePath(u"extracted.ts"_s);
        QStringList arguments{u"-silent"_s, u"-locations"_s, u"none"_s, u"-extensions"_s,
                              u"cpp,h"_s};
        for (const QString& folder : QStringLiteral(BRINDLE_TEXT_SOURCE_DIRS).split(u','))
            if (QFileInfo::exists(QStringLiteral(BRINDLE_SOURCE_DIR "/") + folder))
                arguments.append(folder);
        QProcess lupdate;
        lupdate.setWorkingDirectory(QStringLiteral(BRINDLE_SOURCE_DIR));
        lupdate.start(QStringLiteral(BRINDLE_LUPDATE), arguments << u"-ts"_s << extracted);
        QVERIFY2(lupdate.waitForFinished(120000), qPrintable(lupdate.errorString()));
        QCOMPARE(lupdate.exitCode(), 0);
        QString error;
        QVERIFY2(ReadTsFile(extracted, &m_extracted, &error), qPrintable(error));
        // Far more than a handful: an extraction that found nothing proves nothing.
        QVERIFY2(m_extracted.size() > 100, qPrintable(QString::number(m_extracted.size())));
    }
    void cleanup()
    {
        RemoveTranslators();
        QLocale::setDefault(QLocale::c());
    }

    void everyTextIsTranslated_data()
    {
        QTest::addColumn<QString>("tsFile");
        const QDir folder(QStringLiteral(BRINDLE_SOURCE_DIR "/translations"));
        for (const QString& name : folder.entryList({u"brindle_*.ts"_s}, QDir::Files))
            QTest::newRow(qPrintable(name)) << folder.filePath(name);
        QVERIFY(!folder.isEmpty());
    }
    // Finished, with the source's placeholders, and compiled into the program.
    void everyTextIsTranslated()
    {
        QFETCH(QString, tsFile);
        QList<TsMessage> messages;
        QString error;
        QVERIFY2(ReadTsFile(tsFile, &messages, &error), qPrintable(error));
        const QString language = QFileInfo(tsFile).baseName().section(u'_', 1);
        QCOMPARE(InstallTranslators({language}), language);
        QSet<QString> finished;
        QStringList wrong;
        for (const TsMessage& message : messages) {
            if (!message.finished)
                continue;
            finished.insert(message.context + u'\x1f' + message.source);
            const QStringList want = PlaceholdersOf(message.source);
            const QStringList have = PlaceholdersOf(message.translation);
            if (want != have)
                wrong.append(u"  \"%1\" -> \"%2\": %3 instead of %4"_s.arg(
                    message.source, message.translation, have.join(u' '), want.join(u' ')));
            if (!message.numerus)
                QCOMPARE(QCoreApplication::translate(qPrintable(message.context),
                                                     qPrintable(message.source)),
                         message.translation);
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(u"Placeholders differ:\n"_s + wrong.join(u'\n')));
        QStringList missing;
        for (const TsMessage& message : m_extracted)
            if (!finished.contains(message.context + u'\x1f' + message.source))
                missing.append(u"  \""_s + message.source + u'"');
        QVERIFY2(
            missing.isEmpty(),
            qPrintable(u"%1 text(s) without a finished translation in %2 (run `cmake --build build "
                       "--target brindle_lupdate`, translate them, mark them finished):\n%3"_s
                           .arg(missing.size())
                           .arg(QFileInfo(tsFile).fileName(), missing.join(u'\n'))));
    }

    void languagesAreTriedInTheUsersOrder_data()
    {
        QTest::addColumn<QStringList>("languages");
        QTest::addColumn<QString>("installed");
        QTest::newRow("German") << QStringList{u"de-DE"_s, u"de"_s} << u"de"_s;
        QTest::newRow("Austrian German") << QStringList{u"de-AT"_s} << u"de"_s;
        QTest::newRow("unknown, then German") << QStringList{u"xx"_s, u"de"_s} << u"de"_s;
        QTest::newRow("English before German") << QStringList{u"en-GB"_s, u"de"_s} << QString();
        QTest::newRow("C locale") << QStringList{u"C"_s} << QString();
        QTest::newRow("a language we lack") << QStringList{u"fi-FI"_s} << QString();
    }
    void languagesAreTriedInTheUsersOrder()
    {
        QFETCH(QStringList, languages);
        QFETCH(QString, installed);
        QCOMPARE(InstallTranslators(languages), installed);
        const QString allCourses = ViewStrings::AllCourses();
        QVERIFY2((allCourses == u"All Courses"_s) == installed.isEmpty(), qPrintable(allCourses));
    }

    // A German user: LANGUAGE=de reaches the program's own --help, Qt's standard
    // buttons speak German too, and grade texts keep 87.35 where the locale
    // writes 87,35.
    void germanUser()
    {
        const QByteArray language = qgetenv("LANGUAGE");
        qputenv("LANGUAGE", "de");
        int exitCode = 0;
        const QString help = Run(QStringLiteral(BRINDLE_PROGRAM), {u"--help"_s}, &exitCode);
        qputenv("LANGUAGE", language);
        QCOMPARE(exitCode, 0);

        // Qt's own translations come with Qt (Debian: qt6-translations-l10n).
        const QString qtFolder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
        QVERIFY2(QFileInfo::exists(qtFolder + u"/qtbase_de.qm"_s), qPrintable(qtFolder));
        const QString cancel =
            QDialogButtonBox(QDialogButtonBox::Cancel).buttons().value(0)->text();
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(InstallTranslators({u"de"_s}), u"de"_s);
        const QString german =
            QDialogButtonBox(QDialogButtonBox::Cancel).buttons().value(0)->text();
        QVERIFY2(german != cancel, qPrintable(cancel));

        const QString option = AppStrings::OptionDemo();
        QVERIFY2(option != u"Start on a fresh demo database in a temporary folder."_s,
                 qPrintable(option));
        // --help wraps long lines.
        QVERIFY2(help.simplified().contains(option.simplified()), qPrintable(help));

        const QString number = GradeText::NumberToText(87.35);
        QCOMPARE(number, u"87.35"_s);
        const QString grade = ViewStrings::GradeValue(number, u"B+"_s);
        QVERIFY2(grade.contains(u"87.35%"_s) && grade.endsWith(u"B+"_s), qPrintable(grade));
    }

    void validatorsAccept_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("desktop entry")
            << u"desktop-file-validate"_s << QStringList{QStringLiteral(BRINDLE_DESKTOP_FILE)};
        QTest::newRow("companion's start entry")
            << u"desktop-file-validate"_s
            << QStringList{QStringLiteral(BRINDLE_TODAY_DESKTOP_FILE)};
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
        QVERIFY2(!output.contains(u"error:"_s) && !output.contains(u"warning:"_s),
                 qPrintable(output));
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
        // The companion shows the same icon, by the name the package installs.
        QCOMPARE(EntryValue(QStringLiteral(BRINDLE_TODAY_DESKTOP_FILE), u"Icon"_s), id);
        QCOMPARE(EntryValue(QStringLiteral(BRINDLE_TODAY_DESKTOP_FILE), u"Exec"_s),
                 u"brindle-today"_s);
        // The window icon is the icon the entry installs.
        QVERIFY(!QApplication::windowIcon().isNull());
        QCOMPARE(ReadText(u":/images/brindle.svg"_s),
                 ReadText(QStringLiteral(BRINDLE_SOURCE_DIR "/data/") + id + u".svg"_s));

        QCOMPARE(MetainfoValue(u"id"_s), id);
        QCOMPARE(MetainfoValue(u"launchable"_s), QFileInfo(entry).fileName());
        QCOMPARE(MetainfoValue(u"name"_s), EntryValue(entry, u"Name"_s));
        QCOMPARE(MetainfoValue(u"binary"_s), u"brindle"_s);
        const QString metainfo = ReadText(QStringLiteral(BRINDLE_METAINFO));
        QVERIFY(metainfo.contains(
            u"<release version=\"%1\""_s.arg(QCoreApplication::applicationVersion())));
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
            const QImage icon(
                u"%1/data/icons/%2x%2/%3.png"_s.arg(QStringLiteral(BRINDLE_BINARY_DIR))
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
        QTest::newRow("brindle") << QStringLiteral(BRINDLE_PROGRAM)
                                 << QStringLiteral(BRINDLE_MANPAGE);
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

private:
    QList<TsMessage> m_extracted;
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestTranslations)
#include "tst_translations.moc"
