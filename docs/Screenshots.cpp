// Writes the pictures of docs/images: the main window and the report card on
// the demo database, in the light palette and a dark one. Run it with
// QT_SCALE_FACTOR=2 for the high-DPI pictures (scripts/screenshots.sh).
//   brindle_screenshots FOLDER SUFFIX
#include "BrindleData.h"
#include "app/ApplicationIdentity.h"
#include "app/DatabaseOpener.h"
#include "app/DemoDatabase.h"
#include "app/MainFrame.h"
#include "grading/dialogs/ReportCardDlg.h"
#include "res/Resources.h"
#include "store/Clock.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <cstdio>

namespace {

// A dark palette as dark desktop themes give it.
QPalette DarkPalette()
{
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x2b, 0x2b, 0x2b));
    dark.setColor(QPalette::WindowText, QColor(0xe8, 0xe8, 0xe8));
    dark.setColor(QPalette::Base, QColor(0x1e, 0x1e, 0x1e));
    dark.setColor(QPalette::AlternateBase, QColor(0x33, 0x33, 0x33));
    dark.setColor(QPalette::Text, QColor(0xe8, 0xe8, 0xe8));
    dark.setColor(QPalette::Button, QColor(0x35, 0x35, 0x35));
    dark.setColor(QPalette::ButtonText, QColor(0xe8, 0xe8, 0xe8));
    dark.setColor(QPalette::Highlight, QColor(0x3d, 0x7a, 0xd6));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x7a, 0xb4, 0xff));
    dark.setColor(QPalette::PlaceholderText, QColor(0xa0, 0xa0, 0xa0));
    dark.setColor(QPalette::Mid, QColor(0x60, 0x60, 0x60));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(0x80, 0x80, 0x80));
    dark.setColor(QPalette::Disabled, QPalette::WindowText, QColor(0x80, 0x80, 0x80));
    dark.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x80, 0x80, 0x80));
    return dark;
}

bool Save(QWidget& widget, const QString& path)
{
    widget.show();
    QApplication::processEvents();
    const bool saved = widget.grab().save(path, "PNG");
    widget.hide();
    if (!saved)
        std::fprintf(stderr, "cannot write %s\n", qPrintable(path));
    return saved;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    InitBrindleResources();
    ApplicationIdentity::Apply();
    const QStringList args = QCoreApplication::arguments();
    if (args.size() != 3) {
        std::fprintf(stderr, "usage: brindle_screenshots FOLDER SUFFIX\n");
        return 2;
    }
    const QString folder = args.at(1);
    const QString suffix = args.at(2);

    QTemporaryDir data;
    SetDatabasePath(data.filePath(QStringLiteral("Brindle.db")));
    CDatabaseOpener opener(false);
    if (!opener.Open() || !BuildDemoDatabase(BrindleClock::Today()))
        return 1;

    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    bool saved = true;
    for (const bool dark : {false, true}) {
        QApplication::setPalette(dark ? DarkPalette() : QApplication::style()->standardPalette());
        const QString theme = dark ? QStringLiteral("-dark") : QString();
        CMainFrame frame;
        frame.RefreshAll();
        const QString ending = theme + suffix + QStringLiteral(".png");
        saved = Save(frame, folder + QStringLiteral("/main") + ending) && saved;
        ReportCardDlg card;
        saved = Save(card, folder + QStringLiteral("/reportcard") + ending) && saved;
    }
    CDataTable::GetMount()->Unmount();
    return saved ? 0 : 1;
}
