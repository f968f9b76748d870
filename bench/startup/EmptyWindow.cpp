#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include <cstring>

/// The least that a program of this toolkit can start with: a main window with its menu bar, tool bar and status bar,
/// all empty; with the argument "--bare" without them, so that not even a font is looked for.
int main(int argc, char** argv) {
    const bool bare = argc > 1 && std::strcmp(argv[1], "--bare") == 0;
    const QApplication application(argc, argv);
    QMainWindow window;
    if (!bare) {
        window.menuBar();
        window.addToolBar(QString());
        window.statusBar();
        window.setCentralWidget(new QWidget);
    }
    window.resize(1000, 650);
    window.show();
    return QApplication::exec();
}
