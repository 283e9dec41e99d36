// A window of the panel's size with nothing in it: what a start costs that the player cannot avoid. start_bench uses
// it.
#include <QApplication>
#include <QWidget>

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QWidget window;
  window.setFixedSize(607, 258);
  window.show();
  return QApplication::exec();
}
