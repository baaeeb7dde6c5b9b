// The second reference: the first text makes the toolkit look up the system's fonts.

#include <QApplication>
#include <QDialog>
#include <QLabel>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QDialog dialog;
    QLabel word(QStringLiteral("Sign in"), &dialog);
    dialog.resize(400, 220);
    return dialog.exec();
}
