#include "report/report.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

// The order of LinkKind.
const std::array<QString, 8> kind_names { u"None"_s, u"Tab"_s, u"Control"_s, u"Member"_s,
    u"BankRow"_s, u"CashBoxRow"_s, u"BillPage"_s, u"Action"_s };

} // namespace

QString LinkAddress(const LinkTarget& target)
{
    return kind_names[static_cast<std::size_t>(target.kind)] + u'/'
        + QString::number(target.position) + u'/' + target.control;
}

LinkTarget LinkTargetOf(const QString& address)
{
    const QString kind = address.section(u'/', 0, 0);
    for (std::size_t i = 1; i < kind_names.size(); ++i) {
        if (kind_names[i] == kind)
            return { static_cast<LinkKind>(i), address.section(u'/', 2),
                address.section(u'/', 1, 1).toLongLong() };
    }
    return {};
}

void AddHeading(Report& report, int level, const QString& text)
{
    report.items.emplace_back(ReportHeading { text, level });
}

void AddSentence(Report& report, const QString& text, Indent indent)
{
    report.items.emplace_back(ReportSentence { { { text } }, indent });
}

void AddLinkLine(Report& report, const QString& text, const LinkTarget& target, Indent indent)
{
    report.items.emplace_back(ReportSentence { { { text, target } }, indent });
}

ReportCell TextCell(const QString& text, const LinkTarget& target)
{
    ReportCell cell;
    cell.text = { text, target };
    return cell;
}

ReportCell NumberCell(const QString& text, double value)
{
    ReportCell cell = TextCell(text);
    cell.sort_value = value;
    return cell;
}
