#include <QApplication>
#include <QMainWindow>

/// The least that a program with a window costs: an empty one, where the program shows its own.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow fenetre;
    fenetre.setGeometry(200, 200, 400, 400);
    fenetre.show();
    return QApplication::exec();
}
