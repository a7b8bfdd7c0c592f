// The year and its files: what is loaded, what can be read, what is not saved.
#include "check/rules.h"
#include "data/ansi_text.h"
#include "data/file_names.h"
#include "data/line_file.h"

#include <QDir>
#include <QDirIterator>
#include <QSet>
#include <QStringDecoder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// All files of a report that consist of lines.
std::vector<const RawFile*> LineFiles(const CheckData& data)
{
    return { &data.MembersFile, &data.LastYearMembersFile, &data.Ledgers[0], &data.Ledgers[1],
        &data.LastYearLedgers[0], &data.LastYearLedgers[1], &data.ClubFile };
}

/// The reason why the program's own reading refuses the file, nothing when it does not.
template <typename Read> std::optional<RuntimeError> RefusedBy(Read read)
{
    try {
        read();
    } catch (const RuntimeError& error) {
        return error;
    }
    return std::nullopt;
}

QString ReasonOf(const RuntimeError& error)
{
    const QString headline = ErrorHeadline(error);
    return headline.endsWith(u'.') ? headline.chopped(1) : headline;
}

void AddRefused(Findings& findings, const RawFile& file, const RuntimeError& error)
{
    Add(findings,
        { u"C02b"_s, Level::Error,
            u"Die Datei „%1“ lässt sich nicht lesen: %2."_s.arg(file.Name, ReasonOf(error)),
            u"Prüfen Sie die Datei, oder holen Sie sie aus der Datensicherung zurück. "
            "Speichern Sie vorher nichts."_s,
            LoadTarget() });
}

/// Files whose bytes are there, but whose lines the program could not load.
std::optional<RuntimeError> RefusedLines(const CheckData& data, const RawFile& file)
{
    const DataFiles& files = data.Source.Files;
    if (&file == &data.LastYearMembersFile && !data.LastYearRead)
        return RefusedBy([&] { ReadLines(files, MembersFileName(data.LastYear)); });
    for (std::size_t account = 0; account < 2; ++account) {
        if (&file == &data.Ledgers.at(account) && data.Source.Accounts.at(account).Unread)
            return RefusedBy([&] { ReadLines(files, u'/' + file.Name, LargestText); });
    }
    return std::nullopt;
}

// --- encoding ---------------------------------------------------------------------------------

/// Bytes above 127 that make UTF-8.
bool IsForeign(const QByteArray& bytes)
{
    if (!bytes.isValidUtf8())
        return false;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(bytes);
    return !decoder.hasError() && !text.isEmpty();
}

/// The first word with such a letter, as the program reads it.
QString FirstForeignWord(const QByteArray& bytes)
{
    const auto ends_word = [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || QByteArrayView("=;,/[]\"").contains(c);
    };
    const auto letter = std::find_if(
        bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) > 127; });
    auto begin = letter;
    while (begin != bytes.begin() && !ends_word(begin[-1]))
        --begin;
    const auto end = std::find_if(letter, bytes.end(), ends_word);
    return DecodeAnsi(bytes.mid(begin - bytes.begin(), end - begin));
}

void AddEncoding(
    Findings& findings, const RawFile& file, const LinkTarget& target, const QString& addition = {})
{
    if (!file.There || file.Refused || file.Ascii || !IsForeign(file.Bytes))
        return;
    Add(findings,
        { u"C04"_s, Level::Error,
            u"In der Datei „%1“ sind Umlaute anders gespeichert, als das Programm sie liest. "
            "Gedruckt würde zum Beispiel „%2“."_s.arg(file.Name, FirstForeignWord(file.Bytes))
                + addition,
            u"Holen Sie die Datei aus der Datensicherung zurück, oder speichern Sie sie in einem "
            "Textprogramm mit der Kodierung „Windows-1252“."_s,
            target });
}

// --- special billings -------------------------------------------------------------------------

/// Most clubs have none; a pattern for the names is not worth its price then.
bool HasSpecialBillings(const DataFiles& files)
{
    for (QDirIterator each(files.DataDirectory, QDir::Files); each.hasNext();) {
        each.next();
        if (each.fileName().startsWith(u"SonderAbrechnung"_s, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

bool LooksLikeSpecialBilling(const QString& name, const QString& year)
{
    static const QStringList endings { u".xls"_s, u".xlsx"_s, u".xlsm"_s, u".ods"_s };
    return name.startsWith(u"SonderAbrechnung"_s, Qt::CaseInsensitive) && name.contains(year)
        && std::any_of(endings.begin(), endings.end(),
            [&](const QString& end) { return name.endsWith(end, Qt::CaseInsensitive); });
}

} // namespace

void CheckYearBox(const CheckData& data, Findings& findings)
{
    const CheckSource& source = data.Source;
    if (source.LoadedYear.isEmpty() || source.LoadedYear == source.YearText)
        return;
    Add(findings,
        { u"C01"_s, Level::Error,
            u"Das Jahresfeld zeigt %1, geladen ist %2. Abrechnungen trügen das Jahr %1, und alles, "
            "was Sie jetzt speichern, käme in die Dateien von %1."_s.arg(
                source.YearText, source.LoadedYear),
            u"Drücken Sie „Laden“, oder stellen Sie mit den Pfeilen wieder %1 ein."_s.arg(
                source.LoadedYear),
            LoadTarget() });
}

void CheckReadableFiles(const CheckData& data, Findings& findings)
{
    const CheckSource& source = data.Source;
    const QString wanted = MembersFileName(source.YearText);
    const bool not_loaded = source.LoadedYear.isEmpty() && data.MembersFile.There;
    const bool refused
        = !source.LoadedYear.isEmpty() && source.LoadedYear != source.YearText && RefusedBy([&] {
              if (FileExists(source.Files, wanted))
                  ReadLines(source.Files, wanted);
          });
    if (not_loaded || refused) {
        Add(findings,
            { u"C02a"_s, Level::Error,
                u"Die Mitglieder von %1 sind nicht geladen."_s.arg(source.YearText),
                u"Beheben Sie, was beim Laden gemeldet wurde, und drücken Sie „Laden“."_s,
                LoadTarget() });
    }
    std::vector<const RawFile*> files = LineFiles(data);
    files.push_back(&data.PricesFile);
    files.push_back(&data.BankFile);
    for (const RawFile* file : files) {
        if (file == &data.MembersFile && not_loaded)
            continue; // said above
        if (file->Refused)
            AddRefused(findings, *file, *file->Refused);
        else if (const auto error = file->There ? RefusedLines(data, *file) : std::nullopt)
            AddRefused(findings, *file, *error);
    }
}

void CheckLineEnds(const CheckData& data, Findings& findings)
{
    for (const RawFile* file : LineFiles(data)) {
        if (!file->TornLines)
            continue;
        Add(findings,
            { u"C03"_s, Level::Error,
                u"Zeilen der Datei „%1“ sind nicht richtig getrennt; das Programm liest mehrere "
                "als eine. Beim Speichern geht davon etwas verloren."_s.arg(file->Name),
                u"Speichern Sie nichts. Holen Sie die Datei aus der Datensicherung zurück, oder "
                "speichern Sie sie in einem Textprogramm mit Zeilenenden „Windows (CR LF)“. "
                "Drücken Sie dann „Laden“."_s,
                LoadTarget() });
    }
}

void CheckEncoding(const CheckData& data, Findings& findings)
{
    for (const RawFile* file : LineFiles(data))
        AddEncoding(findings, *file, LoadTarget());
    AddEncoding(findings, data.PricesFile, PriceTarget(AreaContributionField),
        u" Preise und Termine mit Umlaut im Namen, „Fläche“ und „Überweisdatum“, werden gar nicht "
        "gefunden."_s);
    AddEncoding(findings, data.BankFile, BankTarget(0));
}

void CheckUnsaved(const CheckData& data, Findings& findings)
{
    for (const UnsavedPart& part : data.Source.Unsaved) {
        Add(findings,
            { u"C06"_s, Level::Warning,
                u"Noch nicht gespeichert: %1. Abrechnungen und Dateien zeigen noch den alten "
                "Stand."_s.arg(part.what),
                u"Drücken Sie dort „Speichern“ (bei den Zählerständen „OK“)."_s, part.target });
    }
}

void CheckSpecialBillings(const CheckData& data, Findings& findings)
{
    if (!HasSpecialBillings(data.Source.Files))
        return;
    const QStringList names
        = QDir(data.Source.Files.DataDirectory).entryList({ u"SonderAbrechnung*"_s }, QDir::Files);
    QSet<QString> wanted;
    for (const CheckMember& member : data.Members)
        wanted.insert(NameWithin(SpecialBillingFileName(FieldOf(member, Surname), data.Year)));
    for (const QString& name : names) {
        if (!LooksLikeSpecialBilling(name, data.Year) || wanted.contains(name))
            continue;
        const bool saved = name.endsWith(u".xls"_s, Qt::CaseInsensitive);
        Add(findings,
            { u"C07"_s, Level::Warning,
                u"„%1“ wird keinem Mitglied zugeordnet."_s.arg(name)
                    + (saved ? QString() : u" Sie wird auch nicht mitgesichert."_s),
                u"Nennen Sie die Datei genau „SonderAbrechnungNachname%1.xls“, mit dem "
                "Nachnamen wie in der Namensliste."_s.arg(data.Year),
                ControlTarget(u"ListView2"_s) });
    }
}
