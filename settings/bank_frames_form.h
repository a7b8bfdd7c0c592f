// The frames "Bankverbindung", "Kassenwart" and "Ansprechpartner" of the tab "Einstellungen".
#pragma once

class QWidget;
struct Program;

/// The three frames, and below them the frame of backup_form.
QWidget* BuildBankFrames(Program& program, QWidget* parent);
