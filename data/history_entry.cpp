#include "data/history_entry.h"

#include <QCryptographicHash>
#include <QRegularExpression>

namespace {

constexpr int key_length = 16;
constexpr int number_length = 12; // so that names sort as numbers do
const QString time_format = QStringLiteral("yyyyMMdd-HHmmss");
const QString deed_letters = QStringLiteral("sfrtd"); // in the order of Deed

QString Digits(qint64 number)
{
    return QStringLiteral("%1").arg(number, number_length, 10, QLatin1Char('0'));
}

} // namespace

QString HistoryKeyOf(const QString& target)
{
    const QByteArray hash
        = QCryptographicHash::hash(target.toUtf8(), QCryptographicHash::Sha256).toHex();
    return QString::fromLatin1(hash.left(key_length));
}

QString HistoryNameOf(const HistoryEntry& entry)
{
    const HistoryMark& mark = entry.Mark;
    const QStringList parts { Digits(mark.Number), Digits(mark.Action),
        mark.Time.toString(time_format), deed_letters.mid(static_cast<int>(mark.How), 1), entry.Key,
        QString::number(entry.Size) };
    return parts.join(QLatin1Char('-'));
}

std::optional<HistoryEntry> HistoryEntryOf(const QString& name)
{
    static const QRegularExpression form(
        QStringLiteral("^(\\d{12,18})-(\\d{12,18})-(\\d{8}-\\d{6})-([sfrtd])-([0-9a-f]{16})"
                       "-(\\d{1,18})$"));
    const QRegularExpressionMatch match = form.match(name);
    HistoryEntry entry;
    entry.Mark.Number = match.captured(1).toLongLong();
    entry.Mark.Action = match.captured(2).toLongLong();
    entry.Mark.Time = QDateTime::fromString(match.captured(3), time_format);
    entry.Mark.How = static_cast<Deed>(qMax<qsizetype>(0, deed_letters.indexOf(match.captured(4))));
    entry.Key = match.captured(5);
    entry.Size = match.captured(6).toLongLong();
    if (!match.hasMatch() || !entry.Mark.Time.isValid() || entry.Mark.Number <= 0)
        return std::nullopt;
    return entry;
}
