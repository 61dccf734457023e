// The floor of a start-up: a bare Qt main window shown, drawn once, and gone.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char* argv[])
{
    QApplication app(argc, argv);
    QMainWindow window;
    const int line = window.fontMetrics().height();
    window.resize(line * 46, line * 38);
    window.show();
    QApplication::processEvents();
    const QPixmap picture = window.grab();
    return picture.isNull() ? 1 : 0;
}
