// The floor of the start-up benchmark: what Qt itself takes to show an empty main window of the box's size.

#include <QApplication>
#include <QMainWindow>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    window.setWindowTitle(QStringLiteral("Bare window"));
    window.resize(900, 580);
    window.show();
    return QApplication::exec();
}
