#include "members/member_search.h"

#include "data/records.h"

std::vector<int> FindMembers(const QStringList& records, const QString& words)
{
    std::vector<int> found;
    for (qsizetype i = 0; !words.isEmpty() && i < records.size(); ++i) {
        const MemberRecord record = SplitRecord(records[i]);
        const auto holds
            = [&words](const QString& text) { return text.contains(words, Qt::CaseInsensitive); };
        if (holds(NameEntry(record)) || holds(FieldOrEmpty(record, Street))
            || holds(FieldOrEmpty(record, PlotNumber)))
            found.push_back(static_cast<int>(i));
    }
    return found;
}
