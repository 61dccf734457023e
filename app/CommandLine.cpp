#include "CommandLine.h"

#include "res/strings/AppStrings.h"

#include <QCommandLineParser>

CommandLine CommandLine::Parse(const QCoreApplication& app)
{
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption database(QStringLiteral("database"), AppStrings::OptionDatabase(),
                                      QStringLiteral("FILE"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"), AppStrings::OptionScreenshot(),
                                        QStringLiteral("FILE"));
    const QCommandLineOption quitAfterShow(QStringLiteral("quit-after-show"),
                                           AppStrings::OptionQuitAfterShow());
    const QCommandLineOption demo(QStringLiteral("demo"), AppStrings::OptionDemo());
    parser.addOptions({database, screenshot, quitAfterShow, demo});
    parser.process(app);

    CommandLine result;
    result.database = parser.value(database);
    result.screenshot = parser.value(screenshot);
    result.quitAfterShow = parser.isSet(quitAfterShow);
    result.demo = parser.isSet(demo);
    return result;
}
