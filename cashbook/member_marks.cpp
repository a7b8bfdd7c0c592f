#include "cashbook/member_marks.h"

#include "cashbook/texts.h"
#include "data/file_names.h"
#include "data/records.h"

#include <QDir>
#include <QSet>

#include <map>
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

/// A letter that goes on from the letters before it, in a tree of surnames.
struct Letter {
    QVector<qsizetype> Members; ///< whose surname ends here
    std::map<QChar, std::size_t> Next;
};

/// The surnames as a tree, letter by letter from its root, number 0: names that begin alike are
/// looked for together, so that a text costs the same however many members there are.
using NameTree = std::vector<Letter>;

NameTree TreeOf(const QStringList& names)
{
    NameTree tree(1);
    for (qsizetype i = 0; i < names.size(); ++i) {
        std::size_t letter = 0;
        for (const QChar sign : SurnameOf(names[i])) {
            const auto [next, is_new] = tree[letter].Next.try_emplace(sign, tree.size());
            letter = next->second;
            if (is_new)
                tree.emplace_back();
        }
        tree[letter].Members += i;
    }
    return tree;
}

/// Marks the members whose surname begins at that place of the text.
void MarkNamesAt(QStringView text, qsizetype place, const NameTree& tree, QVector<bool>& marks)
{
    for (std::size_t letter = 0;; ++place) {
        for (const qsizetype member : tree[letter].Members)
            marks[member] = true;
        const auto& next = tree[letter].Next;
        const auto found = place < text.size() ? next.find(text[place]) : next.end();
        if (found == next.end())
            return;
        letter = found->second;
    }
}

} // namespace

QStringList OverviewRows(const DataFiles& files, const QStringList& names, const QString& year_text)
{
    const QSet<QString> there = SpecialBillings(files);
    if (there.isEmpty())
        return names;
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
    const NameTree tree = TreeOf(names);
    for (const QString& line : ledger) {
        const QStringView text = TextOf(line);
        if (!text.contains(StatementWord))
            continue;
        for (qsizetype place = 0; place < text.size(); ++place)
            MarkNamesAt(text, place, tree, marks);
    }
    return marks;
}
