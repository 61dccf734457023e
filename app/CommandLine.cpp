#include "CommandLine.h"

#include "res/strings/AppStrings.h"
#include "res/strings/TodayStrings.h"

#include <QCommandLineParser>

CommandLine CommandLine::Parse(const QCoreApplication& app)
{
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption database(QStringLiteral("database"), AppStrings::OptionDatabase(),
                                      QStringLiteral("FILE"));
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        AppStrings::OptionScreenshot(), QStringLiteral("FILE"));
    const QCommandLineOption quitAfterShow(QStringLiteral("quit-after-show"),
                                           AppStrings::OptionQuitAfterShow());
    const QCommandLineOption demo(QStringLiteral("demo"), AppStrings::OptionDemo());
    const QCommandLineOption coursework(QStringLiteral("coursework"),
                                        TodayStrings::OptionCoursework(), QStringLiteral("ID"));
    parser.addOptions({database, screenshot, quitAfterShow, demo, coursework});
    parser.process(app);

    CommandLine result;
    result.database = parser.value(database);
    result.screenshot = parser.value(screenshot);
    result.quitAfterShow = parser.isSet(quitAfterShow);
    result.demo = parser.isSet(demo);
    // An id that is not a number opens nothing, like an id of no record.
    result.coursework = parser.value(coursework).toUInt();
    return result;
}
