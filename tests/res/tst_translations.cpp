// Translations: every text of the string table has a finished translation in
// every language Brindle ships, with the same placeholders; the compiled
// translations are the ones in the program and are chosen by the user's
// languages; grade numbers keep their decimal point in every language.
// Fault tried, and caught: a placeholder dropped from a German text that
// follows "Office Hours:\r\n" in the file (the reader used to stop there).
#include "TsFile.h"
#include "res/Resources.h"
#include "res/Translations.h"
#include "res/strings/AppStrings.h"
#include "res/strings/ViewStrings.h"
#include "store/GradeText.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QLibraryInfo>
#include <QProcess>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;

class TestTranslations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        InitBrindleResources();
        // What the sources hold today, collected the way translators collect it.
        QVERIFY(m_dir.isValid());
        const QString extracted = m_dir.filePath(u"extracted.ts"_s);
        QStringList arguments{u"-silent"_s, u"-locations"_s, u"none"_s, u"-extensions"_s, u"cpp,h"_s};
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
                QCOMPARE(QCoreApplication::translate(qPrintable(message.context), qPrintable(message.source)),
                         message.translation);
        }
        QVERIFY2(wrong.isEmpty(), qPrintable(u"Placeholders differ:\n"_s + wrong.join(u'\n')));
        QStringList missing;
        for (const TsMessage& message : m_extracted)
            if (!finished.contains(message.context + u'\x1f' + message.source))
                missing.append(u"  \""_s + message.source + u'"');
        QVERIFY2(missing.isEmpty(),
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
        QProcess brindle;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"LANGUAGE"_s, u"de"_s);
        environment.insert(u"LANG"_s, u"C.UTF-8"_s);
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        brindle.setProcessEnvironment(environment);
        brindle.start(QStringLiteral(BRINDLE_PROGRAM), {u"--help"_s});
        QVERIFY(brindle.waitForFinished(60000));
        const QString help = QString::fromUtf8(brindle.readAllStandardOutput());

        // Qt's own translations come with Qt (Debian: qt6-translations-l10n).
        const QString qtFolder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
        QVERIFY2(QFileInfo::exists(qtFolder + u"/qtbase_de.qm"_s), qPrintable(qtFolder));
        const QString cancel = QDialogButtonBox(QDialogButtonBox::Cancel).buttons().value(0)->text();
        QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
        QCOMPARE(InstallTranslators({u"de"_s}), u"de"_s);
        const QString german = QDialogButtonBox(QDialogButtonBox::Cancel).buttons().value(0)->text();
        QVERIFY2(german != cancel, qPrintable(cancel));

        const QString option = AppStrings::OptionDemo();
        QVERIFY2(option != u"Start on a fresh demo database in a temporary folder."_s, qPrintable(option));
        // --help wraps long lines.
        QVERIFY2(help.simplified().contains(option.simplified()), qPrintable(help));

        const QString number = GradeText::NumberToText(87.35);
        QCOMPARE(number, u"87.35"_s);
        const QString grade = ViewStrings::GradeValue(number, u"B+"_s);
        QVERIFY2(grade.contains(u"87.35%"_s) && grade.endsWith(u"B+"_s), qPrintable(grade));
    }

private:
    QList<TsMessage> m_extracted;
    QTemporaryDir m_dir;
};

QTEST_MAIN(TestTranslations)
#include "tst_translations.moc"
