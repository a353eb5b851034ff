#include <QApplication>
#include <QLabel>

// What the toolkit itself needs for a window of the wizard's size: what the wizard's start and memory are
// held against.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QWidget window(nullptr, Qt::Window | Qt::FramelessWindowHint);
    window.setWindowTitle(QStringLiteral("Bare Window"));
    window.setPalette(QPalette(Qt::white));
    QLabel label(QStringLiteral("One label"), &window);
    window.resize(798, 593);
    window.show();
    return QApplication::exec();
}
