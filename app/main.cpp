#include "ApplicationIdentity.h"
#include "BrindleData.h"
#include "CommandLine.h"
#include "DatabaseOpener.h"
#include "DemoDatabase.h"
#include "MainFrame.h"
#include "Startup.h"
#include "controls/ContextMenuKey.h"
#include "controls/MessageBox.h"
#include "outlook/PimLibrary.h"
#include "res/Resources.h"
#include "res/Translations.h"
#include "res/strings/AppStrings.h"
#include "res/strings/StoreStrings.h"
#include "res/strings/ViewStrings.h"
#include "store/Clock.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <optional>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    InitBrindleResources();
    ApplicationIdentity::Apply();
    // Before the command line is read, so that --help speaks the user's language.
    InstallTranslators();
    CContextMenuKey contextMenuKey;
    app.installEventFilter(&contextMenuKey);

    const CommandLine options = CommandLine::Parse(app);
    if (!options.database.isEmpty())
        SetDatabasePath(options.database);
    // The demo runs on a database of its own that goes with the program.
    std::optional<QTemporaryDir> demoFolder;
    if (options.demo) {
        demoFolder.emplace();
        SetDatabasePath(demoFolder->filePath(QStringLiteral("Brindle.db")));
    }

    // Runs without a user (a picture, a timing): an unusable database is
    // reported, never replaced.
    const bool interactive = options.screenshot.isEmpty() && !options.quitAfterShow;
    CDatabaseOpener opener(interactive);
    if (!opener.Open()) {
        if (!opener.ErrorText().isEmpty())
            std::fprintf(stderr, "%s\n", qPrintable(opener.ErrorText()));
        return 1;
    }
    if (options.demo && !BuildDemoDatabase(BrindleClock::Today())) {
        std::fprintf(stderr, "%s\n", qPrintable(ViewStrings::DemoFailed()));
        CDataTable::GetMount()->Unmount();
        return 1;
    }

    if (!CStartup().RunInstallationSteps().databaseReady) {
        const QString text =
            StoreStrings::CannotCreateTables(GetDatabasePath(), CTransaction::LastFailure());
        std::fprintf(stderr, "%s\n", qPrintable(text));
        if (interactive)
            BrindleMessageBox::Warn(nullptr, AppStrings::DatabaseSetAside(text));
        return 1;
    }
    PimLibrary::Initialize();
    QApplication::setApplicationDisplayName(AppStrings::AppTitle());

    int result = 0;
    {
        CMainFrame frame;
        frame.show();
        if (!options.screenshot.isEmpty() || options.quitAfterShow) {
            QApplication::processEvents();
            const QPixmap picture = frame.grab();
            if (!options.screenshot.isEmpty() && !picture.save(options.screenshot, "PNG")) {
                std::fprintf(stderr, "%s\n",
                             qPrintable(AppStrings::ScreenshotFailed(options.screenshot)));
                result = 1;
            }
        } else {
            if (options.coursework != 0)
                QTimer::singleShot(
                    0, &frame, [&frame, &options] { frame.OpenCoursework(options.coursework); });
            result = QApplication::exec();
        }
    }

    PimLibrary::Release();
    CDataTable::GetMount()->Unmount();
    return result;
}
