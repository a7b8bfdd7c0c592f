#include "app/program.h"

void BuildSettingsTab(Program&, QWidget*) { }
void LoadSettings(Program&) { }
void SavePriceSettings(Program&) { }
void SaveBankSettings(Program&) { }
void RestoreSettingsFields(Program&) { }
void ShowSettingsYear(Program&) { }
void SetSettingsCalendarsToToday(Program&) { }
void OfferContactNames(Program&) { }
void SaveSalutation(Program&) { }
