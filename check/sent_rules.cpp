// Bills that have changed since they went out.
#include "check/rules.h"
#include "data/records.h"
#include "history/kept_actions.h"
#include "history/sent_out.h"
#include "history/shown_total.h"

using namespace Qt::StringLiterals;

namespace {

QString RowText(const LastSentBill& sent, const QString& total)
{
    const QString how = sent.How == SentHow::Pdf ? u"als PDF gespeichert"_s : u"gedruckt"_s;
    return u"%1: %2 € am %3 %4, jetzt %5 €"_s.arg(
        sent.Bill.Name, sent.Bill.Total, TimeOfState(sent.Time), how, total);
}

} // namespace

void CheckSentBills(const CheckData& data, Findings& findings)
{
    const StatementState& statement = data.Source.Statement;
    const QStringList& names = data.Source.Members.NameList;
    const auto sent = LastSentBills(data.Source.Files, statement.Source.YearText, names);
    Finding finding { u"C51"_s, Level::Warning };
    finding.sentence = u"Abrechnungen sind anders als die, die hinausgegangen sind."_s;
    finding.remedy = u"Drucken Sie sie noch einmal und tauschen Sie sie aus. War die Änderung ein "
                     "Versehen: unter „Mehr“, „Verlauf …“ steht der frühere Stand."_s;
    for (qsizetype i = 0; i < sent.size() && i < statement.DrawnTotals.size(); ++i) {
        if (!sent[i])
            continue;
        const QString total = ShownTotal(statement.DrawnTotals[i]);
        if (sent[i]->Bill.Total != total)
            AddTo(findings, finding, { RowText(*sent[i], total), { LinkKind::BillPage, {}, i } });
    }
}
