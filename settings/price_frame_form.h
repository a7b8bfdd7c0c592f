// The frame "Kosten" of the tab "Einstellungen".
#pragma once

class QBoxLayout;
class QGroupBox;
class QWidget;
struct SettingsForm;

struct PriceFrame {
    QGroupBox* frame = nullptr;
    QBoxLayout* columns = nullptr; ///< prices and dates, side by side or one below the other
};

PriceFrame BuildPriceFrame(SettingsForm& form, QWidget* parent);
