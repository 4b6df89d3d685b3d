// The least that a Qt program does to show a window.

#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window;
    window.resize(800, 600);
    window.show();
    QCoreApplication::processEvents();
}
