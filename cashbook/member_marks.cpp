#include "cashbook/member_marks.h"

#include "cashbook/texts.h"
#include "data/file_names.h"
#include "data/records.h"

#include <QDir>
#include <QSet>

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

/// The texts of all statement payments in one. No surname and no text contains ";", so a surname
/// found in it stands within one of the texts.
QString StatementTexts(const QStringList& ledger)
{
    QString texts;
    for (const QString& line : ledger) {
        const QString text = FieldOrEmpty(SplitRecord(line), BookingText);
        if (text.contains(StatementWord))
            texts += text + QLatin1Char(';');
    }
    return texts;
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
    const QString texts = StatementTexts(ledger);
    QVector<bool> marks;
    for (const QString& name : names)
        marks += !texts.isEmpty() && texts.contains(SurnameOf(name));
    return marks;
}
