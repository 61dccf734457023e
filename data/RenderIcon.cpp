// Build tool: renders the application's SVG icon to a square PNG of the given
// size, so that desktops without SVG support still find a sharp icon.
//   brindle_render_icon ICON.svg SIZE OUTPUT.png
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char* argv[])
{
    // Runs at build time without a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    bool sizeOk = false;
    const int size = args.size() == 4 ? args.at(2).toInt(&sizeOk) : 0;
    if (!sizeOk || size <= 0) {
        std::fprintf(stderr, "usage: brindle_render_icon ICON.svg SIZE OUTPUT.png\n");
        return 2;
    }
    QSvgRenderer renderer(args.at(1));
    if (!renderer.isValid()) {
        std::fprintf(stderr, "cannot read %s\n", qPrintable(args.at(1)));
        return 1;
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter);
    painter.end();
    if (!image.save(args.at(3), "PNG")) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(args.at(3)));
        return 1;
    }
    return 0;
}
