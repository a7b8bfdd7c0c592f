// The window "Ablesung": the end readings of all members typed one below the other.
#pragma once

#include "data/records.h"

#include <QString>

#include <array>

class QLabel;
class QTableWidget;
class QWidget;
struct Program;

/// Which meters the table shows; Ctrl+Tab goes round.
enum class ShownMeters { Both, Electricity, Water };

struct ReadingsForm {
    QWidget* ReadingsWindow = nullptr; ///< "ReadingsWindow"; hidden while it is closed
    QTableWidget* ReadingsTable = nullptr; ///< "ReadingsTable"
    std::array<QLabel*, 2> Sums {}; ///< "ReadingsSum(0)" electricity, (1) water
    ShownMeters Shown = ShownMeters::Both;
    bool RunOpen = false; ///< readings are in the file and the bills do not know them yet
};

/// MoreReadings: opens the window, or brings it to the front, at the first reading that is missing.
void ShowReadings(Program& program);

/// The lines below the table: how many are read, and what they come to.
void ShowReadingsSums(Program& program);

/// Does for the member at that position what typing the end reading and "OK" do, without reading
/// the year anew: that follows once, when the run of cells ends. Asks first when a member in the
/// form would lose what is typed, and brings the tab "Stammdaten" to the front, whose guard may ask
/// too; nothing is stored when one of them is declined.
void StoreTypedReading(Program& program, int position, MemberField field, const QString& text);
