#include "app/program.h"

QWidget* BuildBackupFrame(Program&, QWidget* parent) { return new QWidget(parent); }
