// The dialog "Zähler gewechselt": turns the readings of both meters into the start reading of the
// shown member. Nothing is saved before "OK" of the readings.
#pragma once

struct Program;

/// Opens the dialog `MeterChange` over the window, for the member in the form.
void ShowMeterChange(Program& program);
