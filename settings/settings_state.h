// What of the settings is saved, what was edited since, and when leaving the tab has to ask. The
// questions themselves stand in app/tab_guard.
#pragma once

#include "settings/bank_settings.h"
#include "settings/price_settings.h"

#include <optional>

struct SettingsState {
    bool SettingsSaved = true; ///< false after any edit on the tab
    bool PricesEdited = false; ///< a price, a date, the salutation or a prepayment box was edited
    PriceSettings SavedPrices; ///< as last loaded or saved; a click in a calendar leaves it
    BankSettings SavedBank; ///< the same
    std::optional<PriceSettings>
        DeclinedPrices; ///< what the fields held after the last "Nein" to the question for prices
};

/// The two questions; the salutation stands with the bank and is asked about with the prices.
enum class SettingsQuestion { Prices, Bank };

/// The user changed something that this question is about.
void CountAsEdited(SettingsState& state, SettingsQuestion question);

/// Nothing is left to ask about: saved, put back or loaded anew.
void CountAsSaved(SettingsState& state);

/// The bank's "Speichern" wrote everything but prices, dates and prepayments; what of those was
/// edited since the last answer and still differs is left to ask about.
void CountBankAsSaved(SettingsState& state, const PriceSettings& shown);

/// True when leaving the tab asks for the prices that the tab shows. Texts that were answered with
/// "Nein" and stayed in their field, because the saved text is empty, are not asked about again.
bool AsksForPrices(const SettingsState& state, const PriceSettings& shown);

/// True when a bank text or a name differs from the saved one; the salutation does not count.
bool AsksForBank(const SettingsState& state, const BankSettings& shown);
