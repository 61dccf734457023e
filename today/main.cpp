#include "BrindleData.h"
#include "DueList.h"
#include "DueListFormat.h"
#include "DueNotifier.h"
#include "ReadOnlyDatabase.h"
#include "TodayTray.h"
#include "res/Resources.h"
#include "res/Translations.h"
#include "res/strings/TodayStrings.h"

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <memory>

namespace {

// The terminal mode: prints the list and returns the exit status.
int PrintList(int days, bool json)
{
    QString error;
    if (!ReadOnlyDatabase::Mount(GetDatabasePath(), &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return 1;
    }
    CDueList list;
    const int ok = list.Read(QDateTime::currentDateTime(), days);
    ReadOnlyDatabase::Unmount();
    if (!ok) {
        std::fprintf(stderr, "%s\n", qPrintable(list.ErrorText()));
        return 1;
    }
    const QByteArray out =
        json ? DueListFormat::Json(list.Items()) : DueListFormat::Text(list.Items()).toUtf8();
    return std::fwrite(out.constData(), 1, size_t(out.size()), stdout) == size_t(out.size()) ? 0
                                                                                             : 1;
}

} // namespace

int main(int argc, char* argv[])
{
    // The terminal mode, and the help a man page points to, need no display:
    // only the tray makes a QApplication.
    std::unique_ptr<QCoreApplication> app;
    bool terminalOnly = false;
    for (int i = 1; i < argc; ++i)
        for (const char* option : {"--list", "--help", "-h", "--version", "-v"})
            terminalOnly = terminalOnly || qstrcmp(argv[i], option) == 0;
    if (terminalOnly)
        app = std::make_unique<QCoreApplication>(argc, argv);
    else
        app = std::make_unique<QApplication>(argc, argv);
    // Brindle's name, so that the default database is Brindle's own.
    QCoreApplication::setApplicationName(QStringLiteral("Brindle"));
    QCoreApplication::setApplicationVersion(QStringLiteral(BRINDLE_VERSION));
    // The translations live in the resources; both are in place before the
    // options are read, so that --help and the list speak the user's language.
    InitBrindleResources();
    InstallTranslators();

    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption list(QStringLiteral("list"), TodayStrings::OptionList());
    const QCommandLineOption days(QStringLiteral("days"), TodayStrings::OptionDays(),
                                  QStringLiteral("N"), QString::number(CDueList::DefaultDays));
    const QCommandLineOption json(QStringLiteral("json"), TodayStrings::OptionJson());
    const QCommandLineOption database(QStringLiteral("database"), TodayStrings::OptionDatabase(),
                                      QStringLiteral("FILE"));
    const QCommandLineOption notify(QStringLiteral("notify"), TodayStrings::OptionNotify(),
                                    QStringLiteral("MINUTES"), QStringLiteral("1440,60"));
    parser.addOptions({list, days, json, database, notify});
    parser.process(*app);

    bool ok = false;
    const int dayCount = parser.value(days).toInt(&ok);
    if (!ok || dayCount < 0 || dayCount > 3650) {
        std::fprintf(stderr, "%s\n", qPrintable(TodayStrings::BadDays(parser.value(days))));
        return 2;
    }
    QList<int> leads;
    for (const QString& part : parser.value(notify).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
        const int minutes = part.trimmed().toInt(&ok);
        if (!ok || minutes <= 0) {
            std::fprintf(stderr, "%s\n", qPrintable(TodayStrings::BadNotify(parser.value(notify))));
            return 2;
        }
        leads << minutes;
    }
    if (parser.isSet(database))
        SetDatabasePath(parser.value(database));
    if (parser.isSet(list))
        return PrintList(dayCount, parser.isSet(json));

    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setApplicationDisplayName(TodayStrings::Title());
    CDueNotifier notifier(QDBusConnection::sessionBus(), CDueNotifier::DefaultStateFile());
    notifier.SetLeadTimes(leads);
    // Without the memory of what was sent every notice could come twice:
    // better none than repeats.
    const bool notices = notifier.Load();
    if (!notices)
        std::fprintf(stderr, "%s\n",
                     qPrintable(TodayStrings::StateNotRead(CDueNotifier::DefaultStateFile())));
    QObject::connect(&notifier, &CDueNotifier::Failed, [](const QString& reason) {
        std::fprintf(stderr, "%s\n", qPrintable(reason));
    });
    CTodayTray tray(GetDatabasePath(), CTodaySwitch::DefaultFile(), dayCount,
                    notices ? &notifier : nullptr);
    tray.Show();
    return QCoreApplication::exec();
}
