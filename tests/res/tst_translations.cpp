// Translations: every text of the string table has a finished translation in
// every language Brindle ships, with the same placeholders; the compiled
// translations are the ones in the program and are chosen by the user's
// languages; grade numbers keep their decimal point in every language.
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
    void initTestCase();
    void cleanup();
    void everyTextIsTranslated_data();
    void everyTextIsTranslated();
    void placeholdersMatch_data();
    void placeholdersMatch();
    void compiledTranslationsMatchTheirSource();
    void languagesAreTriedInTheUsersOrder_data();
    void languagesAreTriedInTheUsersOrder();
    void standardButtonsSpeakTheLanguageToo();
    void gradeNumbersKeepTheirPoint();
    void languageVariableReachesTheProgram();

private:
    static QStringList TsFiles();
    static QString LanguageOf(const QString& tsFile);
    static QList<TsMessage> Read(const QString& path);

    QList<TsMessage> m_extracted;
    QTemporaryDir m_dir;
};

QStringList TestTranslations::TsFiles()
{
    const QDir folder(QStringLiteral(BRINDLE_SOURCE_DIR "/translations"));
    QStringList files;
    for (const QString& name : folder.entryList({u"brindle_*.ts"_s}, QDir::Files))
        files.append(folder.filePath(name));
    return files;
}

QString TestTranslations::LanguageOf(const QString& tsFile)
{
    return QFileInfo(tsFile).baseName().section(u'_', 1);
}

QList<TsMessage> TestTranslations::Read(const QString& path)
{
    QList<TsMessage> messages;
    QString error;
    if (!ReadTsFile(path, &messages, &error))
        qWarning("%s: %s", qPrintable(path), qPrintable(error));
    return messages;
}

void TestTranslations::initTestCase()
{
    InitBrindleResources();
    QVERIFY(!TsFiles().isEmpty());
    // What the sources hold today, collected the way translators collect it.
    QVERIFY(m_dir.isValid());
    const QString extracted = m_dir.filePath(u"extracted.ts"_s);
    QProcess lupdate;
    lupdate.setWorkingDirectory(QStringLiteral(BRINDLE_SOURCE_DIR));
    QStringList arguments{u"-silent"_s, u"-locations"_s, u"none"_s, u"-extensions"_s, u"cpp,h"_s};
    for (const QString& folder : QStringLiteral(BRINDLE_TEXT_SOURCE_DIRS).split(u','))
        if (QFileInfo::exists(QStringLiteral(BRINDLE_SOURCE_DIR "/") + folder))
            arguments.append(folder);
    arguments << u"-ts"_s << extracted;
    lupdate.start(QStringLiteral(BRINDLE_LUPDATE), arguments);
    QVERIFY2(lupdate.waitForFinished(120000), qPrintable(lupdate.errorString()));
    QCOMPARE(lupdate.exitCode(), 0);
    m_extracted = Read(extracted);
    // Far more than a handful: an extraction that found nothing proves nothing.
    QVERIFY2(m_extracted.size() > 100, qPrintable(QString::number(m_extracted.size())));
}

void TestTranslations::cleanup()
{
    RemoveTranslators();
    QLocale::setDefault(QLocale::c());
}

void TestTranslations::everyTextIsTranslated_data()
{
    QTest::addColumn<QString>("tsFile");
    for (const QString& file : TsFiles())
        QTest::newRow(qPrintable(LanguageOf(file))) << file;
}

void TestTranslations::everyTextIsTranslated()
{
    QFETCH(QString, tsFile);
    QHash<QString, bool> finished;
    for (const TsMessage& message : Read(tsFile))
        finished.insert(message.context + u'\x1f' + message.source, message.finished);

    QStringList missing;
    for (const TsMessage& message : m_extracted)
        if (!finished.value(message.context + u'\x1f' + message.source))
            missing.append(u"  \""_s + message.source + u'"');
    QVERIFY2(
        missing.isEmpty(),
        qPrintable(u"%1 text(s) without a finished translation in %2 (run `cmake --build build "
                   "--target brindle_lupdate`, translate them, mark them finished):\n%3"_s
                       .arg(missing.size())
                       .arg(QFileInfo(tsFile).fileName(), missing.join(u'\n'))));
}

void TestTranslations::placeholdersMatch_data()
{
    everyTextIsTranslated_data();
}

void TestTranslations::placeholdersMatch()
{
    QFETCH(QString, tsFile);
    QStringList wrong;
    int checked = 0;
    for (const TsMessage& message : Read(tsFile)) {
        if (!message.finished)
            continue;
        ++checked;
        const QStringList want = PlaceholdersOf(message.source);
        const QStringList have = PlaceholdersOf(message.translation);
        if (want != have)
            wrong.append(u"  \"%1\" -> \"%2\": %3 instead of %4"_s.arg(
                message.source, message.translation, have.join(u' '), want.join(u' ')));
    }
    QVERIFY(checked > 0);
    QVERIFY2(wrong.isEmpty(), qPrintable(u"Placeholders differ:\n"_s + wrong.join(u'\n')));
}

void TestTranslations::compiledTranslationsMatchTheirSource()
{
    for (const QString& file : TsFiles()) {
        const QString language = LanguageOf(file);
        QCOMPARE(InstallTranslators({language}), language);
        int compared = 0;
        for (const TsMessage& message : Read(file)) {
            if (!message.finished || message.numerus)
                continue;
            QCOMPARE(QCoreApplication::translate(qPrintable(message.context),
                                                 qPrintable(message.source)),
                     message.translation);
            ++compared;
        }
        QVERIFY(compared > 0);
    }
}

void TestTranslations::languagesAreTriedInTheUsersOrder_data()
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

void TestTranslations::languagesAreTriedInTheUsersOrder()
{
    QFETCH(QStringList, languages);
    QFETCH(QString, installed);
    QCOMPARE(InstallTranslators(languages), installed);
    const QString allCourses = ViewStrings::AllCourses();
    if (installed.isEmpty())
        QCOMPARE(allCourses, u"All Courses"_s);
    else
        QVERIFY2(allCourses != u"All Courses"_s, qPrintable(allCourses));
}

void TestTranslations::standardButtonsSpeakTheLanguageToo()
{
    // Qt's own translations come with Qt (Debian: qt6-translations-l10n).
    const QString qtFolder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    QVERIFY2(QFileInfo::exists(qtFolder + u"/qtbase_de.qm"_s), qPrintable(qtFolder));
    QDialogButtonBox english(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    const QString cancel = english.button(QDialogButtonBox::Cancel)->text();
    QCOMPARE(InstallTranslators({u"de"_s}), u"de"_s);
    QDialogButtonBox german(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QVERIFY2(german.button(QDialogButtonBox::Cancel)->text() != cancel, qPrintable(cancel));
}

void TestTranslations::gradeNumbersKeepTheirPoint()
{
    // A German user's locale writes 87,35; grade texts always write 87.35.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(InstallTranslators({u"de"_s}), u"de"_s);
    const QString number = GradeText::NumberToText(87.35);
    QCOMPARE(number, QLocale::c().toString(87.35));
    const QString grade = ViewStrings::GradeValue(number, u"B+"_s);
    QVERIFY2(grade.contains(u"87.35%"_s) && grade.endsWith(u"B+"_s), qPrintable(grade));
}

void TestTranslations::languageVariableReachesTheProgram()
{
    // LANGUAGE=de, as a user starts it: the program's own --help is German.
    QProcess brindle;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LANGUAGE"_s, u"de"_s);
    environment.insert(u"LANG"_s, u"C.UTF-8"_s);
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    brindle.setProcessEnvironment(environment);
    brindle.start(QStringLiteral(BRINDLE_PROGRAM), {u"--help"_s});
    QVERIFY(brindle.waitForFinished(60000));
    const QString help = QString::fromUtf8(brindle.readAllStandardOutput());
    QCOMPARE(InstallTranslators({u"de"_s}), u"de"_s);
    const QString germanOption = AppStrings::OptionDemo();
    QVERIFY2(germanOption != u"Start on a fresh demo database in a temporary folder."_s,
             qPrintable(germanOption));
    // --help wraps long lines.
    QVERIFY2(help.simplified().contains(germanOption.simplified()), qPrintable(help));
}

QTEST_MAIN(TestTranslations)
#include "tst_translations.moc"
