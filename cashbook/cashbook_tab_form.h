// The tab "Kontoführung": which frame stands where.
#pragma once

class QWidget;
struct Program;

void BuildCashBookTab(Program& program, QWidget* tab);
