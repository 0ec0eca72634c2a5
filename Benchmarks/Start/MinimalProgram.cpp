#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QMainWindow>

int main(int argumentCount, char **arguments) {
    const QApplication application(argumentCount, arguments);
    QMainWindow window;
    window.setCentralWidget(new QLabel(QStringLiteral("Notes")));
    window.show();
    return QApplication::exec();
}
