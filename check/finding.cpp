#include "check/finding.h"

#include "data/records.h"

#include <utility>

using namespace Qt::StringLiterals;

void Add(Findings& findings, Finding finding)
{
    findings.Places.insert({ finding.sentence, { finding.id, finding.part } }, findings.All.size());
    findings.All.push_back(std::move(finding));
}

void AddTo(Findings& findings, const Finding& finding, const FindingRow& row)
{
    const auto known
        = findings.Places.constFind({ finding.sentence, { finding.id, finding.part } });
    if (known != findings.Places.cend())
        return findings.All[*known].rows.push_back(row);
    Finding fresh = finding;
    fresh.rows.push_back(row);
    Add(findings, std::move(fresh));
}

QString CountOf(qsizetype count, const QString& one, const QString& many)
{
    return QString::number(count) + u' ' + (count == 1 ? one : many);
}

QString Quoted(const QString& text) { return u'„' + text + u'“'; }

QString ControlOfMemberField(int field)
{
    static const QString readings[] { u"Text1(0)"_s, u"Text1(1)"_s, u"Text1(3)"_s, u"Text1(4)"_s };
    return field < ElectricityStart ? u"Text3(%1)"_s.arg(field)
                                    : readings[field - ElectricityStart];
}

LinkTarget MemberTarget(qsizetype member, int field)
{
    return { LinkKind::Member, ControlOfMemberField(field), member };
}

LinkTarget ControlTarget(const QString& control) { return { LinkKind::Control, control, -1 }; }

LinkTarget LoadTarget() { return ControlTarget(u"Command4"_s); }

LinkTarget YearBackTarget() { return ControlTarget(u"Command3(1)"_s); }

LinkTarget PriceTarget(std::size_t field) { return ControlTarget(u"Text4(%1)"_s.arg(field)); }

LinkTarget BankTarget(std::size_t field) { return ControlTarget(u"Text6(%1)"_s.arg(field)); }
