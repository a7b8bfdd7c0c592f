// The buttons below the booking that is typed: "OK", "Löschen" and "Speichern".
#pragma once

class QHBoxLayout;
class QWidget;
struct Program;

QHBoxLayout* BuildLedgerButtons(Program& program, QWidget* frame);
