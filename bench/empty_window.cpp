// The least program of the toolkit that has a window: what a start costs before any work of ours.
// With an argument the window shows that text, which has the toolkit load fonts.
#include <QApplication>
#include <QLabel>
#include <QWidget>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QWidget window;
    if (argc > 1)
        new QLabel(argv[1], &window);
    window.resize(680, 472);
    window.show();
    return QApplication::exec();
}
