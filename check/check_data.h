// What several rules of the check report need: the lists of both years split into fields and
// compared, the raw files, the settings of last year. Made once for every report.
#pragma once

#include "check/bookings.h"
#include "check/check_member.h"
#include "check/check_source.h"
#include "check/finding.h"
#include "check/persons.h"
#include "data/runtime_error.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <array>
#include <optional>
#include <vector>

/// A file as it lies there.
struct RawFile {
    QString Name; ///< without a folder: "Konto2026.pz"
    bool There = false;
    QByteArray Bytes;
    std::optional<RuntimeError> Refused; ///< why it could not be read
    bool Ascii = true; ///< no byte above 127
    bool TornLines = false; ///< line ends of two kinds: several lines are read as one
};

/// A line of a ledger file.
struct LedgerFileLine {
    qsizetype number = 0; ///< 1 is the first
    QString text;
};

/// What is odd about the lines of a ledger file.
struct LedgerFileLines {
    std::vector<LedgerFileLine> Odd; ///< with another number of fields, before the first empty one
    qsizetype FirstEmpty = 0; ///< number of that line; 0: none
    qsizetype FilledBehindEmpty = 0;
};
LedgerFileLines ReadLedgerFileLines(const RawFile& file);

/// One of the two meters.
struct MeterKind {
    QString Name; ///< "Strom", "Wasser"
    QString Unit; ///< "kWh", "m³"
    MemberField Start;
    MemberField End;
    std::size_t Price; ///< PriceField
    QString TickKey; ///< in the settings file
    QString TickControl; ///< "Check1"
    float NormalYear = 0.0F; ///< more than that without a year to compare with is very much
    float Apart = 0.0F; ///< a smaller difference of two years says nothing
};
const std::array<MeterKind, 2>& MeterKinds();

/// The meter entries of one meter: members who have one, in list order.
struct MeterEntries {
    std::vector<qsizetype> Members;
    qsizetype WithEnd = 0;
};

/// Last year's section of the settings file.
struct PreviousSettings {
    std::array<QString, 7> Prices; ///< by PriceField
    std::array<QString, 2> Ticks; ///< as stored, by meter
};

struct CheckData {
    explicit CheckData(const CheckSource& source)
        : Source(source)
    {
    }

    const CheckSource& Source;
    QString Year; ///< {Jahr}
    QString LastYear; ///< {Vorjahr}
    QString FollowingYear; ///< {Folgejahr}
    std::vector<CheckMember> Members;
    std::vector<CheckMember> LastYearMembers; ///< empty when there is no such file
    bool LastYearRead = false; ///< last year's list is the one of its file
    Persons Pairs; ///< who is the same person, whose line is whose, tenants, shifted lists
    RawFile MembersFile; ///< of this year
    RawFile LastYearMembersFile;
    std::array<RawFile, 2> Ledgers; ///< by Account
    std::array<RawFile, 2> LastYearLedgers;
    std::array<LedgerFileLines, 2> LedgerLines; ///< of this year's files
    std::array<CheckBookings, 2> Bookings; ///< in memory, by Account
    RawFile ClubFile;
    RawFile PricesFile;
    RawFile BankFile;
    PreviousSettings LastYearSettings;
    std::array<MeterEntries, 2> Meters;
    bool BillingTime = false;
    bool MembersUnsafe = false; ///< a members file is not read or torn: its rules are left out
    std::array<bool, 2> LedgerUnsafe {}; ///< the same for an account
};

CheckData MakeCheckData(const CheckSource& source);

/// "Meier, Anna"; "Platz 3" for a record without a name. place counts from 0.
QString DisplayName(const CheckMember& member, qsizetype place);
QString DisplayName(const QString& surname, const QString& first_name, qsizetype place);

/// "Platz 3, Meier, Anna: text", or without the colon when there is no text.
FindingRow MemberRow(const CheckData& data, qsizetype member, int field, const QString& text = {});

/// The last-year line of the same garden, -1: none.
inline qsizetype GardenLine(const CheckData& data, qsizetype member)
{
    return data.Pairs.GardenLines[static_cast<std::size_t>(member)];
}

/// The caption of a member's field in the form, for readings "Strom Anfangsstand" and so on.
QString FieldCaption(int field);

/// The caption of a price in the form.
QString PriceCaption(std::size_t field);

/// True for an empty text and for a number that is 0.
bool IsEmptyOrZero(const QString& text);

/// True for a text that is filled and no number.
bool IsNoNumber(const QString& text);

/// "Konto" or "Handkasse".
QString AccountNameOf(std::size_t account);

/// A row of an account (0 is the first; -1: the account alone), then the control.
LinkTarget BookingTarget(std::size_t account, qsizetype row, const QString& control = {});

/// 12.5 as "12,50".
QString EuroAmount(double value);

/// Rows 2 and 7 of the drawn bill of that member, by meter; 0 where the drawing did not come so
/// far.
std::array<double, 2> Deductions(const CheckData& data, qsizetype member);
