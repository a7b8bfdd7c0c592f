#include "cashbook/member_marks.h"

#include "cashbook/texts.h"
#include "data/file_names.h"
#include "data/records.h"

#include <QDir>
#include <QSet>

#include <array>
#include <vector>

namespace {

QString SurnameOf(const QString& name) { return name.section(QLatin1Char(','), 0, 0); }

/// The names of the special billing files, letters folded: programs write ".XLS" as well as ".xls".
/// The folder is listed once: to ask for each member's file takes a large club as long as the rest
/// of a start.
QSet<QString> SpecialBillings(const DataFiles& files)
{
    FileExists(files, SpecialBillingFileName({}, {})); // throws when the folder cannot be searched
    const QStringList names
        = QDir(files.DataDirectory).entryList({ QStringLiteral("SonderAbrechnung*") }, QDir::Files);
    QSet<QString> folded;
    for (const QString& name : names)
        folded += name.toCaseFolded();
    return folded;
}

/// The text of a booking without taking the rest of its line apart.
QStringView TextOf(QStringView line)
{
    const qsizetype begin = line.indexOf(u';') + 1;
    const qsizetype end = line.indexOf(u';', begin);
    return begin == 0 ? QStringView() : line.mid(begin, end < 0 ? -1 : end - begin);
}

struct Wanted {
    QString Surname;
    qsizetype Member;
};

/// Surnames that were not found yet, by their first letter, so that one pass over the texts looks
/// at few of them in each place.
using WantedNames = std::array<std::vector<Wanted>, 256>;

std::vector<Wanted>& BeginningWith(WantedNames& wanted, QChar letter)
{
    return wanted.at(letter.unicode() % std::tuple_size_v<WantedNames>);
}

void MarkNamesIn(QStringView text, WantedNames& wanted, QVector<bool>& marks)
{
    for (qsizetype place = 0; place < text.size(); ++place) {
        std::erase_if(BeginningWith(wanted, text[place]), [&](const Wanted& name) {
            const bool is_there = text.mid(place).startsWith(name.Surname);
            marks[name.Member] = marks[name.Member] || is_there;
            return is_there;
        });
    }
}

} // namespace

QStringList OverviewRows(const DataFiles& files, const QStringList& names, const QString& year_text)
{
    const QSet<QString> there = SpecialBillings(files);
    QStringList rows;
    for (const QString& name : names) {
        const QString file = SpecialBillingFileName(SurnameOf(name), year_text);
        rows += there.contains(FileNameOf(file).toCaseFolded()) ? name + SpecialBillingMark : name;
    }
    return rows;
}

QVector<bool> PaidMarks(const QStringList& names, const QStringList& ledger)
{
    if (ledger.isEmpty())
        return {};
    QVector<bool> marks(names.size(), false);
    WantedNames wanted;
    QVector<qsizetype> nameless; // no surname stands in every text
    for (qsizetype i = 0; i < names.size(); ++i) {
        const QString surname = SurnameOf(names[i]);
        if (surname.isEmpty())
            nameless += i;
        else
            BeginningWith(wanted, surname.front()).push_back({ surname, i });
    }
    for (const QString& line : ledger) {
        const QStringView text = TextOf(line);
        if (!text.contains(StatementWord))
            continue;
        MarkNamesIn(text, wanted, marks);
        for (const qsizetype member : nameless)
            marks[member] = true;
    }
    return marks;
}
