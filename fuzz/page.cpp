// Bills: every text of a member's part against a second, naive reckoning, the contact persons and
// the fixed contents for form only. The input is a line each for the nine prices (electricity,
// water, flat charge, fee, lease, tax, area, last year's electricity and water), the prepayment
// flags ("11"), the two contacts; then the members' lines and, after a line "====", last year's.
#include "data/ansi_text.h"
#include "data/german_numbers.h"
#include "fuzz/fuzz.h"
#include "fuzz/scratch.h"
#include "statement/contacts.h"
#include "statement/statement_pages.h"

#include <cmath>
#include <limits>

namespace {

using namespace Qt::StringLiterals;

QString NextText(QByteArray& input) { return DecodeAnsi(CutFront(input, '\n')); }

BillSource SourceOf(QByteArray input)
{
    BillSource source;
    PriceSettings& prices = source.Prices;
    for (QString* price : { &prices.ElectricityPrice, &prices.WaterPrice, &prices.FlatEnergyCharge,
             &prices.MembershipFee, &prices.Lease, &prices.PropertyTax, &prices.AreaContribution,
             &prices.PreviousElectricityPrice, &prices.PreviousWaterPrice })
        *price = NextText(input);
    const QString flags = NextText(input);
    prices.ElectricityPrepayment = flags.startsWith(u'1') ? 1 : 0;
    prices.WaterPrepayment = flags.endsWith(u'1') ? 1 : 0;
    source.Bank.FirstContact = NextText(input);
    source.Bank.SecondContact = NextText(input);
    source.ClubName = u"Gartenfreunde"_s;
    source.YearText = source.LoadedYear = u"2016"_s;
    source.Today = QDate(2016, 11, 25);
    const qsizetype mark = input.indexOf("====\n");
    MemberLists& lists = source.Members;
    lists.PreviousYearRead = mark >= 0;
    lists.PreviousYearMissing = mark < 0;
    if (mark >= 0)
        lists.PreviousYearList = DecodeAnsi(input.mid(mark + 5)).split(u'\n', Qt::SkipEmptyParts);
    lists.RecordList
        = DecodeAnsi(mark < 0 ? input : input.left(mark)).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lists.RecordList)
        lists.NameList += NameEntry(line.split(u';'));
    return source;
}

struct NoBill { };

double Money(const QString& text)
{
    const ParsedDouble number = ParseDouble(text);
    if (!text.isEmpty() && number.outcome != NumberOutcome::Ok)
        throw NoBill();
    return text.isEmpty() ? 0.0 : number.value;
}

double InRange(double value)
{
    if (!(std::abs(value) <= std::numeric_limits<float>::max()))
        throw NoBill();
    return value;
}

double Used(const QStringList& fields, int start)
{
    const ParsedSingle first = ParseSingle(fields[start]);
    const ParsedSingle last = ParseSingle(fields[start + 1]);
    if (first.outcome != NumberOutcome::Ok || last.outcome != NumberOutcome::Ok)
        throw NoBill();
    const float used = last.value - first.value;
    return InRange(static_cast<double>(used));
}

// The texts of one meter: quantity, amount, deduction, prepayment; the sum goes to `sum`.
QStringList NaiveMeter(const QStringList& now, const QStringList& before, int start,
    const QString& price, const QString& last_price, bool prepaid, double& sum)
{
    QStringList texts = { u"0"_s };
    double amount = 0.0, ahead = 0.0, back = 0.0;
    if (!now[start].isEmpty() && !now[start + 1].isEmpty() && !price.isEmpty()) {
        const double used = RoundTo(Used(now, start), 0);
        const double cost = InRange(used * Money(price));
        amount = RoundTo(cost, 2);
        ahead = prepaid ? RoundTo(cost, 0) : 0.0;
        texts = { TextOfSingle(static_cast<float>(used)), FormatNumber(amount, u"0.00"_s) };
    }
    if (!before[start].isEmpty() && !before[start + 1].isEmpty())
        back = RoundTo(InRange(Used(before, start) * Money(last_price)), 0);
    texts += FormatNumber(back, u"-0.00"_s);
    texts += FormatNumber(ahead, u"0.00"_s);
    sum = amount - back + ahead;
    return texts;
}

// All texts of a member's part, in drawing order; the total goes to `total`.
QStringList NaiveBill(const BillSource& source, qsizetype member, float& total)
{
    const PriceSettings& prices = source.Prices;
    QStringList now = source.Members.RecordList[member].split(u';');
    QStringList before(16);
    if (source.Members.PreviousYearRead) {
        if (member >= source.Members.PreviousYearList.size())
            throw NoBill();
        before = source.Members.PreviousYearList[member].split(u';');
    }
    if (now.size() < 16 || before.size() < 16)
        throw NoBill();
    const QString surname = now[0].endsWith(u'2') ? now[0].chopped(1) : now[0];
    QStringList texts = { now[1] + u' ' + surname, now[2], now[3] };
    double sums[7] = {};

    texts += NaiveMeter(now, before, 12, prices.ElectricityPrice, prices.PreviousElectricityPrice,
        prices.ElectricityPrepayment == 1, sums[0]);
    const double flat = InRange(RoundTo(Money(prices.FlatEnergyCharge), 2));
    sums[0] = InRange(sums[0] + flat);
    texts += { FormatNumber(flat, u"0.00"_s), FormatNumber(sums[0], u"0.00"_s) };
    texts += NaiveMeter(now, before, 14, prices.WaterPrice, prices.PreviousWaterPrice,
        prices.WaterPrepayment == 1, sums[1]);
    texts += FormatNumber(InRange(sums[1]), u"0.00"_s);
    sums[2] = InRange(RoundTo(Money(prices.MembershipFee), 2));
    texts += FormatNumber(sums[2], u"0.00"_s);
    const QString plot_prices[] = { prices.Lease, prices.PropertyTax, prices.AreaContribution };
    for (int i = 0; i < 3; ++i) {
        sums[3 + i] = RoundTo(InRange(Money(now[6]) * Money(plot_prices[i])), 2);
        texts += { now[6], FormatNumber(sums[3 + i], u"0.00"_s) };
    }
    for (int field = 8; field < 12; ++field) {
        const double premium = InRange(RoundTo(Money(now[field]), 2));
        texts += FormatNumber(premium, u"0.00"_s);
        sums[6] += premium;
    }
    texts += FormatNumber(InRange(sums[6]), u"0.00"_s);
    total = 0.0F;
    for (const double sum : sums)
        total = static_cast<float>(InRange(static_cast<double>(total) + sum));
    texts += FormatNumber(total, u"0.00  €"_s);
    return texts;
}

QStringList TextsOf(const PageItems& page)
{
    QStringList texts;
    for (const PageItem& item : page) {
        const auto* text = std::get_if<PageText>(&item);
        Require(text != nullptr, "a member's part is text alone");
        texts += text->text;
    }
    return texts;
}

void CheckContact(const QString& setting, const BillSource& source)
{
    try {
        const ContactPerson person = FindContact(setting, source);
        for (const QString& line :
            { person.name, person.street, person.town, person.second_town, person.telephone })
            Require(line.size() == (person.found ? 20 : 0), "twenty characters", line);
        const QString town = ClosingTown(person);
        Require(!town.startsWith(u' ') && !town.endsWith(u' '), "no blanks around the town", town);
    } catch (const RuntimeError& error) {
        Require(error.kind == ErrorKind::SubscriptOutOfRange, "only a short record", setting);
    }
}

/// A line for every item; a member behind the one at whom the drawing stopped has none.
void CheckMemberPart(
    const StatementState& statement, qsizetype page, qsizetype drawn, bool by_contact)
{
    const PageItems items = ContentsOfPage(statement, page).member;
    Require(DescribePage(items).size() == static_cast<qsizetype>(items.size()), "a line an item");
    Require(items.empty() || (page <= drawn && !by_contact), "nothing behind the stop");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray input = InputBytes(data, size);
    const BillSource source = SourceOf(input);
    const QString detail = DecodeAnsi(input);
    CheckContact(source.Bank.FirstContact, source);
    CheckContact(source.Bank.SecondContact, source);

    StatementState statement;
    bool failed = false;
    try {
        DrawAllPages(statement, source);
    } catch (const RuntimeError& error) {
        failed = true;
        Require(
            error.kind != ErrorKind::File && !error.where.remedy.isEmpty(), "with remedy", detail);
    }
    const qsizetype drawn = statement.StatementTotals.size();
    const qsizetype members = source.Members.RecordList.size();
    Require(PageCount(statement) == members, "a page each");
    Require(failed ? drawn < members : drawn == members, "a total each", detail);
    for (qsizetype member = 0; member < drawn; ++member) {
        float total = 0.0F;
        QStringList expected;
        try {
            expected = NaiveBill(source, member, total);
        } catch (const NoBill&) {
            Require(false, "a bill that cannot be reckoned is an error", detail);
        }
        const QStringList texts = TextsOf(ContentsOfPage(statement, member).member);
        Require(texts == expected, "the same texts",
            texts.join(u" | "_s) + u'\n' + expected.join(u" | "_s));
        Require(statement.StatementTotals[member] == TextOfSingle(total), "the same total", detail);
    }
    const bool by_contact = statement.FixedPages < members;
    if (failed && !by_contact) {
        try {
            float total = 0.0F;
            NaiveBill(source, drawn, total);
            Require(false, "an error only where a bill cannot be reckoned", detail);
        } catch (const NoBill&) {
        }
    }
    for (qsizetype page = 0; page < members; ++page)
        CheckMemberPart(statement, page, drawn, by_contact);
    return 0;
}
