// The second reference: for the first text Qt looks up the system fonts.

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
