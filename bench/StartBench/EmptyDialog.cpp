// The reference for the start time: a Qt program with one empty dialog.

#include <QApplication>
#include <QDialog>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QDialog dialog;
    dialog.resize(400, 220);
    return dialog.exec();
}
