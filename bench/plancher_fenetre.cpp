#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

/// plancher_fenetre [MOT]: the least that a program with a window costs: an empty one, where the program shows its own. With
/// one menu of that name when it is given: the first word shown loads a font.
int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    QMainWindow fenetre;
    fenetre.setGeometry(200, 200, 400, 400);
    if (argc > 1)
        fenetre.menuBar()->addMenu(QString::fromLocal8Bit(argv[1]));
    fenetre.show();
    return QApplication::exec();
}
