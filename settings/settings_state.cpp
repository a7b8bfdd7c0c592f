#include "settings/settings_state.h"

namespace {

/// True when everything that differs from what is saved was answered with "Nein" as it is.
bool IsAnswered(const SettingsState& state, const PriceSettings& shown)
{
    return shown == state.SavedPrices || shown == state.DeclinedPrices;
}

bool PriceTextDiffers(const SettingsState& state, const PriceSettings& shown)
{
    for (std::size_t i = 0; i < PriceCount; ++i) {
        const QString& text = PriceText(shown, i);
        const bool declined
            = state.DeclinedPrices.has_value() && text == PriceText(*state.DeclinedPrices, i);
        if (text != PriceText(state.SavedPrices, i) && !declined)
            return true;
    }
    return false;
}

} // namespace

void CountAsEdited(SettingsState& state, SettingsQuestion question)
{
    state.SettingsSaved = false;
    if (question == SettingsQuestion::Prices)
        state.PricesEdited = true;
}

void CountAsSaved(SettingsState& state)
{
    state.SettingsSaved = true;
    state.PricesEdited = false;
}

void CountBankAsSaved(SettingsState& state, const PriceSettings& shown)
{
    state.SettingsSaved = true;
    state.PricesEdited = state.PricesEdited && !IsAnswered(state, shown);
}

bool AsksForPrices(const SettingsState& state, const PriceSettings& shown)
{
    // The bank's "Speichern" counts everything as saved, a ticked box or a date beside it is not.
    const bool edited = state.PricesEdited && (!state.SettingsSaved || shown != state.SavedPrices);
    return edited || PriceTextDiffers(state, shown);
}

bool AsksForBank(const SettingsState& state, const BankSettings& shown)
{
    BankSettings but_for_the_salutation = shown;
    but_for_the_salutation.TreasurerSalutation = state.SavedBank.TreasurerSalutation;
    return but_for_the_salutation != state.SavedBank;
}
